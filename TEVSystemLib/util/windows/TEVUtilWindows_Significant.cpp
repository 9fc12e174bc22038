#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"
#include "TEVSystemLib/util/windows/detail/BstrText.h"

namespace TAMO::TEV::System::Util {

bool TEVUtilWindows::SignificantFigures(double value, double uncertainty, wchar_t** valueText,
                                        wchar_t** uncertaintyText, bool scientific) try {
    if (valueText != nullptr) *valueText = nullptr;
    if (uncertaintyText != nullptr) *uncertaintyText = nullptr;
    if (valueText == nullptr || uncertaintyText == nullptr) return false;
    char* first = nullptr;
    char* second = nullptr;
    if (!TEVUtilString::SignificantFigures(value, uncertainty, &first, &second, scientific))
        return false;
    const detail::OwnedText narrowValue(first);
    const detail::OwnedText narrowUncertainty(second);
    detail::OwnedBstr wideValue = detail::ToBstr(first);
    *uncertaintyText = detail::ToBstr(second).release();
    *valueText = wideValue.release();
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
