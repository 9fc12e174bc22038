#include "TEVSystemLib/util/string/detail/Replacement.h"

#include <algorithm>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

std::size_t Count(std::string_view text, std::string_view pattern) {
    std::size_t count = 0;
    for (;; ++count) {
        const std::size_t found = Find(text, pattern);
        if (found == std::string_view::npos) return count;
        text.remove_prefix(found + pattern.size());
    }
}

std::size_t SizeReplaced(std::string_view input, std::string_view replacement,
                         std::string_view pattern) {
    if (pattern.empty() || pattern.size() == replacement.size()) return input.size();
    const std::size_t count = Count(input, pattern);
    return input.size() - count * pattern.size() + count * replacement.size();
}

}  // namespace

Replacement::Replacement(std::string_view input, std::string_view replacement,
                         std::string_view pattern)
    : input_(input),
      replacement_(replacement),
      pattern_(pattern),
      size_(SizeReplaced(input, replacement, pattern)) {}

void Replacement::Write(char* to) const {
    if (pattern_.size() == 1 && replacement_.size() == 1)
        return wide::Best().replaceByte(input_.data(), input_.size(), to, pattern_[0],
                                        replacement_[0]);
    std::string_view rest = input_;
    while (!pattern_.empty()) {
        const std::size_t found = Find(rest, pattern_);
        if (found == std::string_view::npos) break;
        to = std::copy_n(rest.data(), found, to);
        to = std::copy(replacement_.begin(), replacement_.end(), to);
        rest.remove_prefix(found + pattern_.size());
    }
    std::copy(rest.begin(), rest.end(), to);
}

}  // namespace TAMO::TEV::System::Util::detail
