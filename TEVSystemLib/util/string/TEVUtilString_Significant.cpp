#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <utility>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/SignificantFigures.h"

namespace TAMO::TEV::System::Util {

namespace {

constexpr int kDecimals = 20;

// That of the C locale when the library is loaded.
const std::string decimalSeparator = detail::SeparatorOrPoint(std::localeconv()->decimal_point);

std::string Fixed(double value) {
    return TEVUtilString::ToString(std::fabs(value), false, kDecimals);
}

// A magnitude rounded to so many figures; empty when it cannot be.
std::string Rounded(std::string fixed, int figures, bool scientific) {
    auto rounded = detail::RoundToFigures(std::move(fixed), figures);
    if (!rounded) return {};
    return scientific ? detail::InExponentForm(*rounded, figures) : *std::move(rounded);
}

// Both texts before they are tidied; empty when they cannot be made.
std::string ValueText(double value, double uncertainty, const std::string& uncertaintyExponent,
                      bool scientific) {
    std::string fixed = Fixed(value);
    const auto analysed = detail::AnalyseFigures(fixed);
    const auto exponent = detail::ExponentOf(uncertaintyExponent);
    if (!analysed || !exponent) return {};
    const int figures =
        detail::FiguresWorthShowing(std::fabs(value), *analysed, uncertainty, *exponent);
    const std::string rounded = Rounded(std::move(fixed), figures, scientific);
    return detail::WithoutIdlePoint(value > 0 ? rounded : "-" + rounded);
}

std::string Localised(std::string text) {
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, decimalSeparator);
    return text;
}

}  // namespace

bool TEVUtilString::GetSignificantFiguresInfo(const char* const text, bool& hasDigits,
                                              bool& hasPoint, int& first, int& last, int& point,
                                              int& count) {
    hasDigits = hasPoint = false;
    first = last = point = count = -1;
    const auto figures = detail::AnalyseFigures(detail::OrEmpty(text));
    if (!figures) return false;
    hasDigits = figures->hasDigits;
    hasPoint = figures->hasPoint;
    first = figures->first;
    last = figures->last;
    point = figures->point;
    count = figures->count;
    return true;
}

bool TEVUtilString::RoundToSignificantFigures(bool scientific, char** out, double value, int* first,
                                              int* last, int* point, int figures) {
    *out = nullptr;
    *first = *last = *point = -1;
    const std::string rounded = Rounded(Fixed(value), figures, scientific);
    const std::string_view mantissa = std::string_view(rounded).substr(0, rounded.find('e'));
    const auto analysed = detail::AnalyseFigures(mantissa);
    if (!analysed) return false;
    *first = analysed->first;
    *last = analysed->last;
    *point = analysed->point;
    return detail::HandOut(rounded, out);
}

bool TEVUtilString::SignificantFigures(double value, double uncertainty, char** valueText,
                                       char** uncertaintyText, bool scientific) try {
    if (valueText != nullptr) *valueText = nullptr;
    if (uncertaintyText != nullptr) *uncertaintyText = nullptr;
    if (!(uncertainty > 0) || valueText == nullptr || uncertaintyText == nullptr) return false;
    const std::string rounded = Rounded(Fixed(uncertainty), 1, false);
    if (rounded.empty()) return false;
    const std::string exponentForm = detail::InExponentForm(rounded, 1);
    // KEEP: a value of 0 keeps its point in either form; its texts are promised.
    const std::string zero = scientific ? "0.e+00" : "0.0";
    const std::string shown =
        value == 0 ? zero : ValueText(value, uncertainty, exponentForm, scientific);
    const std::string beside = detail::WithoutIdlePoint(scientific ? exponentForm : rounded);
    if (shown.empty()) return false;
    detail::OwnedText first = detail::MakeText(Localised(shown));
    detail::HandOut(Localised(beside), uncertaintyText);
    *valueText = first.release();
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::TruncateUncertaintyValue(double value, char** out, bool scientific,
                                             int figures) try {
    if (out == nullptr) return false;
    *out = nullptr;
    int first = 0;
    int last = 0;
    int point = 0;
    return value > 0 && RoundToSignificantFigures(scientific, out, value, &first, &last, &point,
                                                  std::max(figures, 1));
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
