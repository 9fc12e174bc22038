#include "TEVSystemLib/util/string/detail/Tokens.h"

#include <cstdint>

namespace TAMO::TEV::System::Util::detail {

namespace {

// Which of the 256 characters are meant; the search of std::string_view asks every one of the set
// for every character of the text.
class CharacterSet {
 public:
    explicit CharacterSet(std::string_view characters) {
        for (const char character : characters) WordOf(character) |= BitOf(character);
    }
    bool Has(char character) const {
        return (words_[Index(character) / kBits] & BitOf(character)) != 0;
    }

 private:
    static constexpr std::size_t kBits = 64;
    static std::size_t Index(char character) { return static_cast<unsigned char>(character); }
    static std::uint64_t BitOf(char character) {
        return std::uint64_t{1} << Index(character) % kBits;
    }
    std::uint64_t& WordOf(char character) { return words_[Index(character) / kBits]; }

    std::uint64_t words_[4] = {};
};

}  // namespace

std::vector<std::string_view> Tokens(std::string_view delimiters, std::string_view text) {
    const CharacterSet isDelimiter(delimiters);
    std::vector<std::string_view> tokens;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isDelimiter.Has(text[i])) continue;
        if (i > start) tokens.push_back(text.substr(start, i - start));
        start = i + 1;
    }
    if (start < text.size()) tokens.push_back(text.substr(start));
    return tokens;
}

}  // namespace TAMO::TEV::System::Util::detail
