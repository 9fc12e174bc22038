#include <TEVSystemLib/util/string/TEVUtilString.h>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Base64.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

bool TEVUtilString::Base64Encode(const unsigned char* data, std::size_t size, char** encoded) try {
    if (data == nullptr || size == 0 || encoded == nullptr) return false;
    *encoded = nullptr;
    const auto* bytes = reinterpret_cast<const char*>(data);
    return detail::HandOut(detail::Base64Encode({bytes, size}), encoded);
} catch (...) {
    return false;
}

bool TEVUtilString::Base64Decode(const char* const encoded, char** decoded,
                                 std::size_t& length) try {
    if (detail::OrEmpty(encoded).empty() || decoded == nullptr) return false;
    *decoded = nullptr;
    length = 0;
    const std::string bytes = detail::Base64Decode(encoded);
    detail::HandOut(bytes, decoded);
    length = bytes.size();
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
