#include "TEVSystemLib/util/windows/detail/ToolkitRoot.h"
#include "fuzz/Fuzz.h"
#include "models/TextModel.h"

namespace {

std::optional<std::string> Model(const std::string& tail, const std::string& folder) {
    std::string value = tev::test::Turned(folder);
    if (value.empty() || value.back() != '\\') value += '\\';
    const std::size_t place = tev::test::Lowered(value).rfind(tail);
    if (place == std::string::npos || place + tail.size() != value.size()) return std::nullopt;
    return value.substr(0, place);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string folder(reinterpret_cast<const char*>(data), size);
    const tev::fuzz::Exact exact(folder);
    for (const char* tail : {"data\\", "plugins\\"})
        tev::fuzz::ExpectSame(TAMO::TEV::System::Util::detail::RootBefore(tail, exact.View()),
                              Model(tail, folder), tail);
    return 0;
}
