#include "TEVSystemLib/util/string/detail/KeyValueText.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

using namespace TAMO::TEV::System::Util::detail;
using tev::fuzz::Copied;
using tev::fuzz::ExpectSame;

namespace {

using Half = std::optional<std::string>;

std::string StartTrimmed(const std::string& pair) {
    if (pair.empty() || pair[0] != ' ') return pair;
    const std::size_t first = pair.find_first_not_of(tev::test::kBlanks);
    return first == std::string::npos ? "" : pair.substr(first);
}

Half KeyModel(const std::string& whole) {
    const std::string pair = StartTrimmed(whole);
    const std::size_t equal = pair.find('=');
    if (pair.size() < 3 || equal == std::string::npos || equal == 0) return std::nullopt;
    std::string key = pair.substr(0, equal);
    key.resize(key.find_last_not_of(tev::test::kBlanks) + 1);
    return key.empty() ? Half() : key;
}

Half ValueModel(const std::string& whole) {
    const std::string pair = StartTrimmed(whole);
    const std::size_t equal = pair.find('=');
    if (pair.size() < 2 || equal == std::string::npos || equal == 0) return std::nullopt;
    return pair.substr(equal + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string pair(reinterpret_cast<const char*>(data), size);
    const tev::fuzz::Exact exact(pair);
    const auto key = KeyOf(exact.View());
    const auto value = ValueOf(exact.View());
    ExpectSame(Copied(key), KeyModel(pair), "key");
    ExpectSame(Copied(value), ValueModel(pair), "value");
    tev::fuzz::Expect(exact.Holds(key.value_or(exact.View())), "the key points into the pair");
    tev::fuzz::Expect(exact.Holds(value.value_or(exact.View())), "the value points into the pair");
    return 0;
}
