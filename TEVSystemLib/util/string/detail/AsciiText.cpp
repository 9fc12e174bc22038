#include "TEVSystemLib/util/string/detail/AsciiText.h"

#include <algorithm>

namespace TAMO::TEV::System::Util::detail {

namespace {

std::string Map(std::string_view text, char (*map)(char)) {
    std::string mapped(text);
    std::transform(mapped.begin(), mapped.end(), mapped.begin(), map);
    return mapped;
}

}  // namespace

std::string ToLower(std::string_view text) {
    return Map(text, [](char c) { return ToLower(c); });
}

std::string ToUpper(std::string_view text) {
    return Map(text, [](char c) { return ToUpper(c); });
}

int Compare(std::string_view first, std::string_view second) {
    const int order = first.compare(second);
    return (order > 0) - (order < 0);
}

int CompareIgnoringCase(std::string_view first, std::string_view second) {
    const std::size_t shared = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const auto a = static_cast<unsigned char>(ToLower(first[i]));
        const auto b = static_cast<unsigned char>(ToLower(second[i]));
        if (a != b) return a < b ? -1 : 1;
    }
    return (first.size() > second.size()) - (first.size() < second.size());
}

bool EqualsIgnoringCase(std::string_view first, std::string_view second) {
    return first.size() == second.size() && CompareIgnoringCase(first, second) == 0;
}

std::string_view Trim(std::string_view text, bool start, bool end) {
    if (text.empty()) return text;
    std::size_t first = 0;
    std::size_t last = text.size() - 1;
    if (start) {
        while (first < last && IsBlank(text[first])) ++first;
    }
    if (end) {
        while (last > first && IsBlank(text[last])) --last;
    }
    // KEEP: the scan stops at the last character it can keep, so that a text of blanks whose start
    // stays keeps its place there, and a single blank is nothing even untrimmed.
    const bool nothingLeft = first == last && IsBlank(text[first]);
    return text.substr(first, nothingLeft ? 0 : last - first + 1);
}

std::string_view TrimIfSpaced(std::string_view text) {
    // KEEP: only a plain space starts the trimming; a text between tabs keeps them.
    if (text.empty() || (text.front() != ' ' && text.back() != ' ')) return text;
    return Trim(text);
}

}  // namespace TAMO::TEV::System::Util::detail
