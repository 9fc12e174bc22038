#include "fuzz/Fuzz.h"
#include "models/Base64Model.h"
#include "support/Base64Texts.h"

using tev::fuzz::Exact;
using tev::fuzz::ExpectSame;
using tev::test::Decoded;
using tev::test::Encoded;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string encoded = Encoded(Exact(text).View());
    ExpectSame(encoded, tev::test::Base64Model(text), "encoded");
    ExpectSame(Decoded(Exact(encoded).View()), text, "there and back");
    const std::string decoded = Decoded(Exact(text).View());
    ExpectSame(decoded, tev::test::Base64DecodeModel(text), "decoded");
    tev::fuzz::Expect(decoded.size() <= size * 3 / 4, "three bytes for four characters at most");
    return 0;
}
