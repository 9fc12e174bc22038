#include "TEVSystemLib/util/windows/detail/ToolkitRoot.h"

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::Util::detail {

std::optional<std::string> RootBefore(std::string_view tail, std::string_view folder) {
    std::string root = WithEndingSeparator(WithBackslashes(folder));
    if (root.size() < tail.size()) return std::nullopt;
    const std::size_t cut = root.size() - tail.size();
    if (!EqualsIgnoringCase(std::string_view(root).substr(cut), tail)) return std::nullopt;
    // KEEP: the tail need not be a whole name; "mydata\" ends with it too.
    root.resize(cut);
    return root;
}

}  // namespace TAMO::TEV::System::Util::detail
