#include "tools/tevsys_figures.h"

#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <memory>

namespace tevsys {

namespace {

using TAMO::TEV::System::Util::TEVStringOps;
using TAMO::TEV::System::Util::TEVUtilString;

using OwnedText = std::unique_ptr<char, void (*)(char*)>;

}  // namespace

std::optional<Figures> SignificantFigures(double value, double uncertainty, bool scientific) {
    char* first = nullptr;
    char* second = nullptr;
    if (!TEVUtilString::SignificantFigures(value, uncertainty, &first, &second, scientific))
        return std::nullopt;
    const OwnedText valueText(first, TEVStringOps::Delete);
    const OwnedText uncertaintyText(second, TEVStringOps::Delete);
    return Figures{first, second};
}

}  // namespace tevsys
