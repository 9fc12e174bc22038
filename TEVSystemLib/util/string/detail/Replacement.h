#pragma once

#include <cstddef>
#include <string_view>

namespace TAMO::TEV::System::Util::detail {

// A text with every occurrence of a pattern replaced, from left to right; an empty pattern occurs
// nowhere. The texts must outlive it.
class Replacement {
 public:
    Replacement(std::string_view input, std::string_view replacement, std::string_view pattern);

    std::size_t Size() const { return size_; }
    // Into a buffer of that size.
    void Write(char* to) const;

 private:
    static constexpr std::size_t kMaxKnown = 32;

    // Where the pattern is next; npos when nowhere.
    std::size_t FindFrom(std::size_t at) const;

    std::string_view input_;
    std::string_view replacement_;
    std::string_view pattern_;
    std::size_t size_;
    // The first places of the pattern, so that few are looked for twice.
    std::size_t places_[kMaxKnown];
    std::size_t known_ = 0;
};

}  // namespace TAMO::TEV::System::Util::detail
