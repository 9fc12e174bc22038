#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace TAMO::TEV::System::Util::detail {

// Cuts a text at every character of the set `delimiters`. Runs of delimiters, and those at the
// ends, count as one separator: no token is empty. The tokens point into `text`.
std::vector<std::string_view> Tokens(std::string_view delimiters, std::string_view text);

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

// The same tokens one by one.
class Tokenizer {
 public:
    Tokenizer(std::string_view delimiters, std::string_view text)
        : isDelimiter_(delimiters), text_(text) {}

    std::optional<std::string_view> Next() {
        while (at_ < text_.size() && isDelimiter_.Has(text_[at_])) ++at_;
        const std::size_t start = at_;
        while (at_ < text_.size() && !isDelimiter_.Has(text_[at_])) ++at_;
        if (start == at_) return std::nullopt;
        return std::string_view(text_.data() + start, at_ - start);
    }

 private:
    CharacterSet isDelimiter_;
    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace TAMO::TEV::System::Util::detail
