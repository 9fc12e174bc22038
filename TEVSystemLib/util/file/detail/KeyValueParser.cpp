#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

enum class State { LineStart, Comment, Key, AfterKey, Value };

constexpr bool IsInnerBlank(char c) { return c == '\t' || c == '\r' || c == ' '; }
constexpr bool IsLineBlank(char c) { return c == '\n' || IsInnerBlank(c); }

// First and last position of a key or value.
struct Span {
    std::size_t first = 0;
    std::size_t last = 0;

    void Start(std::size_t at) { first = last = at; }
    std::string_view In(std::string_view text) const {
        return text.substr(first, last - first + 1);
    }
};

State AfterKeyByte(char c, KeyValueSyntax syntax) {
    if (c == '\n') return State::LineStart;
    const bool endsKey = syntax == KeyValueSyntax::BlankSeparated ? IsInnerBlank(c) : c == '=';
    return endsKey ? State::AfterKey : State::Key;
}

State AfterSeparatorByte(char c) {
    if (c == '\n') return State::LineStart;
    return IsInnerBlank(c) ? State::AfterKey : State::Value;
}

}  // namespace

std::optional<KeyValuePair> KeyValueParser::Next() {
    State state = State::LineStart;
    Span key;
    Span value;
    // The NUL behind the last byte is read too: it ends a last line that has no line break.
    while (position_ <= text_.size()) {
        const std::size_t here = position_++;
        const char c = here < text_.size() ? text_[here] : '\0';
        switch (state) {
            case State::LineStart:
                if (IsLineBlank(c)) break;
                key.Start(here);
                state = c == '#' || c == '=' ? State::Comment : State::Key;
                break;
            case State::Comment:
                if (c == '\n') state = State::LineStart;
                break;
            case State::Key:
                state = AfterKeyByte(c, syntax_);
                if (state == State::Key && !IsInnerBlank(c)) key.last = here;
                break;
            case State::AfterKey:
                state = AfterSeparatorByte(c);
                if (state == State::Value) value.Start(here);
                break;
            case State::Value:
                if (c == '\n' || c == '\0') return KeyValuePair{key.In(text_), value.In(text_)};
                if (!IsInnerBlank(c)) value.last = here;
                break;
        }
    }
    return std::nullopt;
}

}  // namespace TAMO::TEV::System::Util::detail
