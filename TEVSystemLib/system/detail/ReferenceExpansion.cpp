#include "TEVSystemLib/system/detail/ReferenceExpansion.h"

namespace TAMO::TEV::System::detail {

namespace {

constexpr char kMark = '%';

}  // namespace

std::string ExpandReferences(std::string_view text, const NameLookup& lookup) {
    std::string expanded;
    for (;;) {
        const std::size_t open = text.find(kMark);
        const std::size_t close =
            open == std::string_view::npos ? open : text.find(kMark, open + 1);
        if (close == std::string_view::npos) return expanded.append(text);
        expanded.append(text.substr(0, open));
        const std::string name(text.substr(open + 1, close - open - 1));
        if (const std::string* value = lookup(name)) {
            expanded.append(*value);
        } else {
            expanded.append(text.substr(open, close - open + 1));
        }
        text.remove_prefix(close + 1);
    }
}

bool HasReference(std::string_view text) {
    const std::size_t open = text.find(kMark);
    return open != std::string_view::npos && text.find(kMark, open + 1) != std::string_view::npos;
}

}  // namespace TAMO::TEV::System::detail
