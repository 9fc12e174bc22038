#include "tools/tevsys_figures.h"

#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <iostream>
#include <memory>
#include <optional>

namespace tevsys {

namespace {

using TAMO::TEV::System::Util::TEVStringOps;
using TAMO::TEV::System::Util::TEVUtilString;

using OwnedText = std::unique_ptr<char, void (*)(char*)>;

struct Texts {
    std::string value;
    std::string uncertainty;
};

// Nothing when the library refuses the numbers.
std::optional<Texts> SignificantFigures(double value, double uncertainty, bool scientific) {
    char* first = nullptr;
    char* second = nullptr;
    if (!TEVUtilString::SignificantFigures(value, uncertainty, &first, &second, scientific))
        return std::nullopt;
    const OwnedText valueText(first, TEVStringOps::Delete);
    const OwnedText uncertaintyText(second, TEVStringOps::Delete);
    return Texts{first, second};
}

}  // namespace

ExitCode Figures(const std::string& value, const std::string& uncertainty, bool scientific) {
    double measured = 0;
    double spread = 0;
    if (!TEVUtilString::ToDouble(value.c_str(), measured))
        return Fail(kUsage, "no decimal number: " + value);
    if (!TEVUtilString::ToDouble(uncertainty.c_str(), spread))
        return Fail(kUsage, "no decimal number: " + uncertainty);
    if (!(spread > 0)) return Fail(kFailed, "no figures: the uncertainty must be above 0");
    const auto figures = SignificantFigures(measured, spread, scientific);
    if (!figures) return Fail(kFailed, "no figures: nothing but zeros in the first 20 decimals");
    std::cout << figures->value << '\t' << figures->uncertainty << '\n';
    return kDone;
}

}  // namespace tevsys
