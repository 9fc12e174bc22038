#pragma once

#include <optional>
#include <string_view>

namespace TAMO::TEV::System::Util::detail {

struct KeyValuePair {
    std::string_view key;
    std::string_view value;
};

enum class KeyValueSyntax {
    EqualSeparated,  // key = value
    BlankSeparated   // key value; "=" is an ordinary character but at the start of a line
};

// Reads the pairs of a key=value file one after the other, in one pass and without a copy: the
// views point into the text. Lines without a pair are skipped.
class KeyValueParser {
 public:
    KeyValueParser(std::string_view text, KeyValueSyntax syntax) : text_(text), syntax_(syntax) {}

    // The next pair, both halves not empty; nothing at the end of the text.
    std::optional<KeyValuePair> Next();

 private:
    // The pair of the line that begins at the position with a character of a key, if it has one.
    std::optional<KeyValuePair> ReadPair();
    bool IsLineEnd(std::size_t at) const;
    // Moves on behind the end of a line; for lines that end without a pair.
    std::nullopt_t EndLineAt(std::size_t at);

    std::string_view text_;
    KeyValueSyntax syntax_;
    std::size_t position_ = 0;
};

}  // namespace TAMO::TEV::System::Util::detail
