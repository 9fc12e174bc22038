#include <cmath>
#include <limits>

#include "TEVSystemLib/util/string/detail/SignificantFigures.h"
#include "fuzz/Fuzz.h"
#include "models/DecimalModel.h"
#include "models/FiguresModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

template <typename Record>
std::optional<std::vector<int>> Values(const std::optional<Record>& figures) {
    if (!figures) return std::nullopt;
    return std::vector<int>{figures->hasDigits, figures->hasPoint, figures->first,
                            figures->last,      figures->point,    figures->count};
}

void CheckRounding(const std::string& number, unsigned figures) {
    const auto rounded = RoundToFigures(number, static_cast<int>(figures));
    const auto expected = figures == 0 ? std::nullopt : tev::test::RoundModel(number, figures);
    ExpectSame(rounded.has_value(), expected.has_value(), "can be rounded");
    if (!rounded) return;
    ExpectSame(*rounded, FixedFormModel(*expected), "rounded");
    ExpectSame(InExponentForm(*rounded, static_cast<int>(figures)), expected->exponentForm,
               "exponent form");
}

std::optional<int> ExponentModel(const std::string& text) {
    constexpr unsigned long long kHighest = std::numeric_limits<int>::max();
    const std::size_t marker = text.find_last_of("eE");
    if (marker == std::string::npos) return std::nullopt;
    const std::string power = text.substr(marker + 1);
    const bool isSigned = !power.empty() && (power[0] == '+' || power[0] == '-');
    if (!isSigned || power.size() < 3) return std::nullopt;
    const std::size_t last = power.find_first_not_of("0123456789", 1);
    if (last != std::string::npos) return std::nullopt;
    const auto magnitude = std::strtoull(power.c_str() + 1, nullptr, 10);
    if (magnitude > kHighest) return std::nullopt;
    return static_cast<int>(power[0] == '-' ? ~magnitude : magnitude);
}

void CheckExponent(const std::string& text) {
    const auto exponent = ExponentOf(Exact(text).View());
    std::optional<int> shown;
    if (exponent) shown = exponent->isNegative ? ~exponent->magnitude : exponent->magnitude;
    ExpectSame(shown, ExponentModel(text), "exponent");
}

// For a text with one point at most.
void CheckPoint(const std::string& text) {
    const std::size_t point = text.find('.');
    if (point == std::string::npos || point != text.rfind('.')) return;
    const std::string before = text.substr(0, point);
    const std::string after = text.substr(point + 1);
    const bool isIdle = after.empty()
                            ? !before.empty() && before.back() != '0'
                            : (after[0] == 'e' || after[0] == 'E') && (point == 1 || point == 2);
    ExpectSame(WithoutIdlePoint(text), isIdle ? before + after : text, "idle point");
}

std::string Fixed(double magnitude) {
    std::string text(400, '\0');
    text.resize(static_cast<std::size_t>(
        std::snprintf(text.data(), text.size(), "%.*f", tev::test::kDecimals, magnitude)));
    return text;
}

std::string Text(double magnitude, int figures, bool scientific) {
    const std::string rounded = RoundToFigures(Fixed(magnitude), figures).value();
    return scientific ? InExponentForm(rounded, figures) : rounded;
}

// What the pieces give together for a value and its uncertainty, against exact integers.
void CheckMeasured(double value, double uncertainty, bool scientific) {
    const tev::test::Measured expected = tev::test::Measure(value, uncertainty);
    const auto& texts = scientific ? expected.scientific : expected.fixed;
    ExpectSame(WithoutIdlePoint(Text(uncertainty, 1, scientific)), texts.uncertainty,
               "uncertainty");
    if (value == 0) return;
    const double magnitude = std::abs(value);
    const int figures =
        FiguresWorthShowing(magnitude, AnalyseFigures(Fixed(magnitude)).value(), uncertainty,
                            ExponentOf(Text(uncertainty, 1, true)).value());
    const std::string shown = Text(magnitude, figures, scientific);
    ExpectSame(WithoutIdlePoint(value < 0 ? '-' + shown : shown), texts.value, "value");
}

// What the exact integers hold.
bool IsInRange(double number) {
    constexpr double kHighest = 1e18;
    return std::abs(number) <= kHighest && tev::test::UnitsOf(std::abs(number)) > 0;
}

}  // namespace

// One byte that chooses how many figures, then NUMBER, VALUE and UNCERTAINTY.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tev::fuzz::Fields fields(data, size);
    const unsigned figures = fields.Choice();
    const std::string number = fields.Next();
    const double value = std::strtod(fields.Next().c_str(), nullptr);
    const double uncertainty = std::strtod(fields.Rest().c_str(), nullptr);
    ExpectSame(Values(AnalyseFigures(Exact(number).View())),
               Values(tev::test::AnalyseModel(number)), "analysed");
    const bool isSigned = !number.empty() && (number[0] == '+' || number[0] == '-');
    if (!isSigned) CheckRounding(number, figures);
    CheckExponent(number);
    CheckPoint(number);
    if (uncertainty > 0 && IsInRange(uncertainty) && (value == 0 || IsInRange(value)))
        for (const bool scientific : {false, true}) CheckMeasured(value, uncertainty, scientific);
    return 0;
}
