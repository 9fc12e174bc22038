#include "TEVSystemLib/util/string/detail/Padding.h"

namespace TAMO::TEV::System::Util::detail {

std::string Pad(std::string_view number, std::uint64_t width, Fill fill) {
    std::string padded(number);
    if (width <= number.size()) return padded;
    const std::uint64_t missing = width - number.size();
    switch (fill) {
        case Fill::BlanksRight:
            padded.append(missing, ' ');
            break;
        case Fill::BlanksLeft:
            padded.insert(0, missing, ' ');
            break;
        case Fill::ZerosBehindSign: {
            const bool isSigned = !number.empty() && (number[0] == '-' || number[0] == '+');
            padded.insert(isSigned ? 1 : 0, missing, '0');
            break;
        }
    }
    return padded;
}

}  // namespace TAMO::TEV::System::Util::detail
