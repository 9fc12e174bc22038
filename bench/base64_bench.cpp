#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <absl/strings/escaping.h>

#include <boost/beast/core/detail/base64.hpp>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "Inputs.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using Bytes = std::vector<unsigned char>;
namespace beast = boost::beast::detail::base64;

std::string Encoded(const Bytes& bytes) {
    return absl::Base64Escape({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

// new[] + memcpy of as many bytes as come out.
template <typename Keep>
void CopyOut(const void* from, std::size_t size, const Keep& keep) {
    char* copy = new char[size];
    std::memcpy(copy, from, size);
    keep(copy);
    delete[] copy;
}

void AddEncoding(std::size_t size) {
    struct Input {
        Bytes bytes;
        std::string encoded;
    };
    const auto make = [size] {
        Bytes bytes = RandomBytes(size);
        std::string encoded = Encoded(bytes);
        return Input{std::move(bytes), std::move(encoded)};
    };
    Work("encode", static_cast<std::int64_t>(size), make,
         [](const Input& input) { return input.encoded; })
        .Ours([](const Input& input, auto keep) {
            char* text = nullptr;
            TEVUtilString::Base64Encode(input.bytes.data(), input.bytes.size(), &text);
            keep(text);
            TEVUtilString::DeleteCString(&text);
        })
        .Peer("Abseil", [](const Input& input, auto keep) { keep(Encoded(input.bytes)); })
        .Peer("Boost",
              [](const Input& input, auto keep) {
                  std::string text(beast::encoded_size(input.bytes.size()), '\0');
                  text.resize(beast::encode(text.data(), input.bytes.data(), input.bytes.size()));
                  keep(text);
              })
        .Limit("new[] + memcpy", [](const Input& input, auto keep) {
            CopyOut(input.encoded.data(), input.encoded.size() + 1, keep);
        });
}

void AddDecoding(std::size_t size) {
    struct Input {
        std::string encoded;
        std::string decoded;
    };
    const auto make = [size] {
        const Bytes bytes = RandomBytes(size);
        return Input{Encoded(bytes), {bytes.begin(), bytes.end()}};
    };
    Work("decode", static_cast<std::int64_t>(size), make,
         [](const Input& input) { return input.decoded; })
        .Ours([](const Input& input, auto keep) {
            char* bytes = nullptr;
            std::size_t length = 0;
            TEVUtilString::Base64Decode(input.encoded.c_str(), &bytes, length);
            keep(std::string_view(bytes, length));
            TEVUtilString::DeleteCString(&bytes);
        })
        .Peer("Abseil",
              [](const Input& input, auto keep) {
                  std::string bytes;
                  absl::Base64Unescape(input.encoded, &bytes);
                  keep(bytes);
              })
        .Peer(
            "Boost",
            [](const Input& input, auto keep) {
                std::string bytes(beast::decoded_size(input.encoded.size()), '\0');
                bytes.resize(
                    beast::decode(bytes.data(), input.encoded.data(), input.encoded.size()).first);
                keep(bytes);
            })
        .Limit("new[] + memcpy", [](const Input& input, auto keep) {
            CopyOut(input.decoded.data(), input.decoded.size() + 1, keep);
        });
}

}  // namespace

void RegisterRows() {
    for (const std::size_t size : {30U, 4096U, 131072U, 4194304U}) {
        AddEncoding(size);
        AddDecoding(size);
    }
}

}  // namespace tev::bench
