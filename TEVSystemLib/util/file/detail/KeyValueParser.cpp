#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

#include <utility>

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

State Step(State state, char c, KeyValueSyntax syntax) {
    const bool blankEndsKey = syntax == KeyValueSyntax::BlankSeparated;
    switch (state) {
        case State::LineStart:
            if (IsLineBlank(c)) return State::LineStart;
            return c == '#' || c == '=' ? State::Comment : State::Key;
        case State::Comment:
            return c == '\n' ? State::LineStart : State::Comment;
        case State::Key:
            if (c == '\n') return State::LineStart;
            return (blankEndsKey ? IsInnerBlank(c) : c == '=') ? State::AfterKey : State::Key;
        case State::AfterKey:
            if (c == '\n') return State::LineStart;
            return IsInnerBlank(c) ? State::AfterKey : State::Value;
        case State::Value:
            return c == '\n' || c == '\0' ? State::LineStart : State::Value;
    }
    return State::LineStart;
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
        const State before = std::exchange(state, Step(state, c, syntax_));
        if (before == State::Value && state == State::LineStart)
            return KeyValuePair{key.In(text_), value.In(text_)};
        if (state != State::Key && state != State::Value) continue;
        Span& span = state == State::Key ? key : value;
        if (state != before) {
            span.Start(here);
        } else if (!IsInnerBlank(c)) {
            span.last = here;
        }
    }
    return std::nullopt;
}

}  // namespace TAMO::TEV::System::Util::detail
