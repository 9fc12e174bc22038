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

void Replacement::WriteBytes(std::string_view part, char* to) const {
    wide::Best().replaceByte(part.data(), part.size(), to, pattern_[0], replacement_[0]);
}

void Replacement::Write(char* to) const {
    if (IsOfBytes()) return WriteBytes(input_, to);
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

std::string Replacement::Text() const {
    if (IsOfBytes() && size_ >= kLong) return TextOfBytes();
    std::string text(size_, '\0');
    Write(text.data());
    return text;
}

// By way of a block that stays in the processor, since a string can only be written to where it has
// been filled.
std::string Replacement::TextOfBytes() const {
    char block[4096];
    std::string text;
    text.reserve(size_);
    for (std::size_t at = 0; at < input_.size(); at += sizeof block) {
        const std::string_view part = input_.substr(at, sizeof block);
        WriteBytes(part, block);
        text.append(block, part.size());
    }
    return text;
}

}  // namespace TAMO::TEV::System::Util::detail
