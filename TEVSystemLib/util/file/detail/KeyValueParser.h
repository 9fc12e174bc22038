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

// Why a line adds nothing.
enum class LineFault {
    None,
    NoSeparator,  // a key and nothing behind it
    NoValue,      // a key, what separates, and nothing behind it
    NoKey         // begins with "="
};

struct KeyValueLine {
    LineFault fault;
    KeyValuePair pair;  // of a line with a fault, the key that it begins with, if any
};

// Reads the pairs of a key=value file one after the other, in one pass and without a copy: the
// views point into the text. Empty lines and comments are skipped.
class KeyValueParser {
 public:
    KeyValueParser(std::string_view text, KeyValueSyntax syntax) : text_(text), syntax_(syntax) {}

    // The next pair, both halves not empty; nothing at the end of the text.
    std::optional<KeyValuePair> Next();
    // The next line that holds a pair, or should.
    std::optional<KeyValueLine> NextLine();

 private:
    // The line that begins at the position with something else than a blank or "#".
    KeyValueLine ReadLine();
    bool IsLineEnd(std::size_t at) const;
    // Moves on behind the end of a line.
    void EndLineAt(std::size_t at);

    std::string_view text_;
    KeyValueSyntax syntax_;
    std::size_t position_ = 0;
};

}  // namespace TAMO::TEV::System::Util::detail
