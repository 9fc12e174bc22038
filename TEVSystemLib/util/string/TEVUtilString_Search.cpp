#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <algorithm>
#include <string_view>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"

namespace TAMO::TEV::System::Util {

namespace {

int ToPosition(std::size_t found) {
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

// KEEP: each function has its own wording of the refusal; hosts know them apart by it.
void RequireTexts(const char* first, const char* second, const char* message) {
    if (detail::IsNullOrEmpty(first) || detail::IsNullOrEmpty(second))
        detail::ThrowInvalidArgument(message);
}

void RequireNoNull(const char* first, const char* second, const char* message) {
    if (first == nullptr || second == nullptr) detail::ThrowInvalidArgument(message);
}

bool Equals(bool ignoreCase, std::string_view first, std::string_view second) {
    return ignoreCase ? detail::EqualsIgnoringCase(first, second) : first == second;
}

}  // namespace

int TEVUtilString::Compare(const char* const first, const char* const second) {
    return Compare(false, first, second);
}

int TEVUtilString::Compare(bool ignoreCase, const char* const first, const char* const second) {
    if (first == nullptr || second == nullptr)
        return static_cast<int>(first != nullptr) - static_cast<int>(second != nullptr);
    return ignoreCase ? detail::CompareIgnoringCase(first, second)
                      : detail::Compare(detail::ViewOf(first), detail::ViewOf(second));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value is the interface.
int TEVUtilString::Compare(bool ignoreCase, std::string first, std::string second) {
    // KEEP: ignoring case the texts end at their first NUL byte.
    return ignoreCase ? Compare(true, first.c_str(), second.c_str()) : first.compare(second);
}

int TEVUtilString::Find(const char* const text, const char* const sub) {
    RequireTexts(text, sub, "Input arguments cannot be NULL or empty strings.");
    return ToPosition(detail::Find(detail::ViewOf(text), detail::ViewOf(sub)));
}

// KEEP: a search for any of a set of characters, unlike Find's for a text.
int TEVUtilString::IndexOf(const char* const text, const char* const chars) {
    RequireTexts(text, chars, "Input arguments cannot be a nullptr or an empty string.");
    return ToPosition(detail::ViewOf(text).find_first_of(chars));
}

int TEVUtilString::LastIndexOf(const char* const text, const char* const chars) {
    RequireTexts(text, chars, "Input arguments cannot be a nullptr or empty strings.");
    return ToPosition(detail::ViewOf(text).find_last_of(chars));
}

bool TEVUtilString::Contains(const char* const text, const char* const sub) {
    RequireNoNull(text, sub, "Input arguments cannot be a nullptr.");
    return detail::Find(detail::ViewOf(text), detail::ViewOf(sub)) != std::string_view::npos;
}

std::size_t TEVUtilString::CharacterCount(char character, const char* const text) {
    const std::string_view all = detail::OrEmpty(text);
    return static_cast<std::size_t>(std::count(all.begin(), all.end(), character));
}

// NOLINTNEXTLINE(readability-non-const-parameter): the pointer's type is the interface.
bool TEVUtilString::IsInRange(const char*& allowed, const char* const text, std::size_t* count) {
    const std::string_view set = detail::OrEmpty(allowed);
    std::string_view examined = detail::OrEmpty(text);
    if (set.empty() || examined.empty()) return false;
    if (count != nullptr && *count != 0) examined = examined.substr(0, *count);
    return examined.find_first_not_of(set) == std::string_view::npos;
}

// KEEP: here and in EndWith the pattern comes first.
bool TEVUtilString::StartWith(const char* const prefix, const char* const text) {
    return StartWith(false, prefix, text);
}

bool TEVUtilString::StartWith(bool ignoreCase, const char* const prefix, const char* const text) {
    RequireNoNull(prefix, text, "Input arguments cannot be NULL.");
    const std::string_view pattern = prefix;
    return !pattern.empty() &&
           Equals(ignoreCase, pattern, detail::ViewOf(text).substr(0, pattern.size()));
}

bool TEVUtilString::EndWith(const char* const suffix, const char* const text) {
    return EndWith(false, suffix, text);
}

bool TEVUtilString::EndWith(bool ignoreCase, const char* const suffix, const char* const text) {
    RequireNoNull(suffix, text, "Input arguments cannot be a nullptr.");
    const std::string_view pattern = suffix;
    const std::string_view examined = detail::ViewOf(text);
    return !pattern.empty() && examined.size() >= pattern.size() &&
           Equals(ignoreCase, pattern, examined.substr(examined.size() - pattern.size()));
}

}  // namespace TAMO::TEV::System::Util
