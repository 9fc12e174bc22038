#include "TEVSystemLib/util/string/detail/Base64.h"
#include "fuzz/Fuzz.h"
#include "models/Base64Model.h"

using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;

namespace {

std::string Encoded(const std::string& bytes) {
    return TAMO::TEV::System::Util::detail::Base64Encode(Exact(bytes).View());
}

std::string Decoded(const std::string& text) {
    return TAMO::TEV::System::Util::detail::Base64Decode(Exact(text).View());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string encoded = Encoded(text);
    ExpectSame(encoded, tev::test::Base64Model(text), "encoded");
    ExpectSame(Decoded(encoded), text, "there and back");
    const std::string decoded = Decoded(text);
    ExpectSame(decoded, tev::test::Base64DecodeModel(text), "decoded");
    tev::fuzz::Expect(decoded.size() <= size * 3 / 4, "three bytes for four characters at most");
    return 0;
}
