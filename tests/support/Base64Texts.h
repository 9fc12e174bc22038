#pragma once

#include <string>
#include <string_view>

#include "TEVSystemLib/util/string/detail/Base64.h"

namespace tev::test {

inline std::string Encoded(std::string_view bytes) {
    using namespace TAMO::TEV::System::Util::detail;
    std::string text(Base64EncodedSize(bytes.size()), '?');
    Base64Encode(bytes, text.data());
    return text;
}

inline std::string Decoded(std::string_view text) {
    using namespace TAMO::TEV::System::Util::detail;
    std::string bytes(Base64DecodedCapacity(text.size()), '?');
    bytes.resize(Base64Decode(text, bytes.data()));
    return bytes;
}

}  // namespace tev::test
