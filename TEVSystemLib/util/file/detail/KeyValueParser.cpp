#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

#include <algorithm>

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr bool IsInnerBlank(char c) { return c == '\t' || c == '\r' || c == ' '; }
constexpr bool IsLineFeed(char c) { return c == '\n'; }
constexpr bool IsLineBlank(char c) { return IsLineFeed(c) || IsInnerBlank(c); }

// The place of the first character from `from` on that is meant, or the end.
template <typename IsMeant>
std::size_t FindFrom(std::string_view text, std::size_t from, IsMeant isMeant) {
    return static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), isMeant) -
        text.begin());
}

std::string_view WithoutBlanksBehind(std::string_view text) {
    while (IsInnerBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

std::optional<KeyValuePair> KeyValueParser::Next() {
    while (const auto line = NextLine()) {
        if (line->fault == LineFault::None) return line->pair;
    }
    return std::nullopt;
}

std::optional<KeyValueLine> KeyValueParser::NextLine() {
    while (position_ < text_.size()) {
        const char first = text_[position_];
        if (IsLineBlank(first)) {
            ++position_;
        } else if (first == '#') {
            EndLineAt(FindFrom(text_, position_, IsLineFeed));
        } else {
            return ReadLine();
        }
    }
    return std::nullopt;
}

KeyValueLine KeyValueParser::ReadLine() {
    const std::size_t key = position_;
    if (text_[key] == '=') {
        EndLineAt(FindFrom(text_, key, IsLineFeed));
        return {LineFault::NoKey, {text_.substr(key, 0), {}}};
    }
    const std::size_t keyEnd = FindFrom(text_, key + 1, [this](char c) {
        const bool isBlankSeparated = syntax_ == KeyValueSyntax::BlankSeparated;
        return IsLineFeed(c) || (isBlankSeparated ? IsInnerBlank(c) : c == '=');
    });
    const std::string_view keyText = WithoutBlanksBehind(text_.substr(key, keyEnd - key));
    if (IsLineEnd(keyEnd)) {
        EndLineAt(keyEnd);
        return {LineFault::NoSeparator, {keyText, {}}};
    }
    const std::size_t value = FindFrom(text_, keyEnd + 1, [](char c) { return !IsInnerBlank(c); });
    if (IsLineEnd(value)) {
        EndLineAt(value);
        return {LineFault::NoValue, {keyText, {}}};
    }
    // A NUL ends a value, unless it begins it.
    const std::size_t valueEnd =
        FindFrom(text_, value + 1, [](char c) { return c == '\n' || c == '\0'; });
    EndLineAt(valueEnd);
    return {LineFault::None, {keyText, WithoutBlanksBehind(text_.substr(value, valueEnd - value))}};
}

bool KeyValueParser::IsLineEnd(std::size_t at) const {
    return at == text_.size() || text_[at] == '\n';
}

void KeyValueParser::EndLineAt(std::size_t at) { position_ = std::min(at + 1, text_.size()); }

}  // namespace TAMO::TEV::System::Util::detail
