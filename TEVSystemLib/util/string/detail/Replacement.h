#pragma once

#include <cstddef>
#include <string>
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
    std::string Text() const;

 private:
    static constexpr std::size_t kMaxKnown = 32;
    static constexpr std::size_t kLong = 16384;

    bool IsOfBytes() const { return pattern_.size() == 1 && replacement_.size() == 1; }
    void WriteBytes(std::string_view part, char* to) const;
    std::string TextOfBytes() const;
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
