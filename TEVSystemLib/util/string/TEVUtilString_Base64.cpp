#include <TEVSystemLib/util/string/TEVUtilString.h>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Base64.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

bool TEVUtilString::Base64Encode(const unsigned char* data, std::size_t size, char** encoded) try {
    if (data == nullptr || size == 0 || encoded == nullptr) return false;
    *encoded = nullptr;
    const auto* bytes = reinterpret_cast<const char*>(data);
    detail::OwnedText text = detail::MakeUnfilledText(detail::Base64EncodedSize(size));
    detail::Base64Encode({bytes, size}, text.get());
    *encoded = text.release();
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::Base64Decode(const char* const encoded, char** decoded,
                                 std::size_t& length) try {
    const std::string_view text = detail::OrEmpty(encoded);
    if (text.empty() || decoded == nullptr) return false;
    *decoded = nullptr;
    length = 0;
    detail::OwnedText bytes = detail::MakeUnfilledText(detail::Base64DecodedCapacity(text.size()));
    length = detail::Base64Decode(text, bytes.get());
    bytes[length] = '\0';
    *decoded = bytes.release();
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
