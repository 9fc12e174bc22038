#include "TEVSystemLib/util/file/detail/KeyValueEdit.h"

#include <cstddef>

#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

using ViewPairs = std::map<std::string_view, std::string_view>;

ViewPairs ViewsOf(std::string_view text) {
    KeyValueParser parser(text, KeyValueSyntax::EqualSeparated);
    ViewPairs pairs;
    while (const auto pair = parser.Next()) pairs[pair->key] = pair->value;
    return pairs;
}

// The line end that the first line has.
const char* LineEndOf(std::string_view text) {
    const std::size_t end = text.find('\n');
    const bool isWindows = end != std::string_view::npos && end > 0 && text[end - 1] == '\r';
    return isWindows ? "\r\n" : "\n";
}

// Values by where they stand in the text, with what takes their place.
std::map<std::size_t, std::pair<std::string_view, std::string_view>> Replacements(
    std::string_view text, const TextPairs& pairs, const ViewPairs& old) {
    std::map<std::size_t, std::pair<std::string_view, std::string_view>> replacements;
    for (const auto& [key, value] : pairs) {
        const auto found = old.find(key);
        if (found == old.end()) continue;
        const auto at = static_cast<std::size_t>(found->second.data() - text.data());
        replacements[at] = {found->second, value};
    }
    return replacements;
}

void AppendLines(const TextPairs& pairs, const ViewPairs& old, const char* lineEnd,
                 std::string& edited) {
    for (const auto& [key, value] : pairs) {
        if (old.count(key) > 0) continue;
        if (!edited.empty() && edited.back() != '\n') edited += lineEnd;
        edited.append(key).append(" = ").append(value).append(lineEnd);
    }
}

}  // namespace

TextPairs PairsOf(std::string_view text) {
    TextPairs pairs;
    for (const auto& [key, value] : ViewsOf(text)) pairs.emplace(key, value);
    return pairs;
}

std::optional<std::string> WithPairs(std::string_view text, const TextPairs& pairs) {
    const ViewPairs old = ViewsOf(text);
    std::string edited;
    std::size_t copied = 0;
    for (const auto& [at, values] : Replacements(text, pairs, old)) {
        edited.append(text.substr(copied, at - copied)).append(values.second);
        copied = at + values.first.size();
    }
    edited.append(text.substr(copied));
    AppendLines(pairs, old, LineEndOf(text), edited);
    // What it reads as decides; no rule of the syntax stands here twice.
    TextPairs expected = pairs;
    for (const auto& [key, value] : old) expected.emplace(key, value);
    if (PairsOf(edited) != expected) return std::nullopt;
    return edited;
}

}  // namespace TAMO::TEV::System::Util::detail
