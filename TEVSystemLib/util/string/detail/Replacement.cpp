#include "TEVSystemLib/util/string/detail/Replacement.h"

#include <algorithm>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr auto kNone = std::string_view::npos;

}  // namespace

Replacement::Replacement(std::string_view input, std::string_view replacement,
                         std::string_view pattern)
    : input_(input), replacement_(replacement), pattern_(pattern), size_(input.size()) {
    if (pattern.empty() || pattern.size() == replacement.size()) return;
    std::size_t count = 0;
    for (std::size_t at = FindFrom(0); at != kNone; at = FindFrom(at + pattern.size())) {
        if (known_ < kMaxKnown) places_[known_++] = at;
        ++count;
    }
    size_ = input.size() - count * pattern.size() + count * replacement.size();
}

std::size_t Replacement::FindFrom(std::size_t at) const {
    const std::size_t found = Find(input_.substr(at), pattern_);
    return found == kNone ? kNone : at + found;
}

void Replacement::Write(char* to) const {
    if (pattern_.size() == 1 && replacement_.size() == 1)
        return wide::Best().replaceByte(input_.data(), input_.size(), to, pattern_[0],
                                        replacement_[0]);
    std::size_t read = 0;
    for (std::size_t number = 0; !pattern_.empty(); ++number) {
        const std::size_t place = number < known_ ? places_[number] : FindFrom(read);
        if (place == kNone) break;
        to = std::copy_n(input_.data() + read, place - read, to);
        to = std::copy(replacement_.begin(), replacement_.end(), to);
        read = place + pattern_.size();
    }
    std::copy(input_.begin() + read, input_.end(), to);
}

}  // namespace TAMO::TEV::System::Util::detail
