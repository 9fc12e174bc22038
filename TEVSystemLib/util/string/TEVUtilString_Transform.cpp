#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <string_view>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

namespace {

std::string_view Require(const char* text) {
    if (text == nullptr) detail::ThrowInvalidArgument("Input argument cannot be a nullptr.");
    return text;
}

// KEEP: the order is input, replacement, pattern.
std::string ReplaceAll(std::string_view input, std::string_view replacement,
                       std::string_view pattern) {
    if (pattern.empty()) return std::string(input);
    std::string replaced;
    for (;;) {
        const std::size_t found = input.find(pattern);
        if (found == std::string_view::npos) return replaced.append(input);
        replaced.append(input.substr(0, found)).append(replacement);
        input.remove_prefix(found + pattern.size());
    }
}

void HandOutMapped(const char* text, char** out, char (*map)(char)) {
    if (out != nullptr) *out = nullptr;
    // KEEP: an empty text is refused here, with the message for a null one, and that in the plural.
    if (out == nullptr || detail::OrEmpty(text).empty())
        detail::ThrowInvalidArgument("Input arguments cannot be a nullptr.");
    const std::string_view source = text;
    detail::OwnedText mapped = detail::MakeText(source.size());
    for (std::size_t i = 0; i < source.size(); ++i) mapped[i] = map(source[i]);
    *out = mapped.release();
}

// KEEP: the char** trimmers start only at a plain space, the std::string ones at any blank.
void HandOutTrimmed(const char* text, char** out, bool start, bool end) {
    if (out == nullptr) return;
    *out = nullptr;
    std::string_view source = detail::OrEmpty(text);
    const bool isSpaced =
        !source.empty() && ((start && source.front() == ' ') || (end && source.back() == ' '));
    if (isSpaced) source = detail::Trim(source, start, end);
    detail::HandOut(source, out);
}

}  // namespace

std::string TEVUtilString::Concat(const char* const first, const char* const second) try {
    return std::string(detail::OrEmpty(first)).append(detail::OrEmpty(second));
} catch (...) {
    return {};
}

// KEEP: a null text gives null here, and counts as empty above.
void TEVUtilString::Concat(const char* const first, const char* const second, char** out) try {
    if (out == nullptr) return;
    *out = nullptr;
    if (first == nullptr || second == nullptr) return;
    detail::HandOut(std::string(first).append(second), out);
} catch (...) {
    return;
}

std::string TEVUtilString::Replace(const std::string& aInputStr, const std::string& replacement,
                                   const std::string& pattern) try {
    return ReplaceAll(aInputStr, replacement, pattern);
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::Replace(const char* const aInputStr, const char* const replacement,
                                   const char* const pattern) try {
    if (aInputStr == nullptr)
        detail::ThrowInvalidArgument("Argument \"aInputStr\" cannot be a nullptr.");
    return ReplaceAll(aInputStr, detail::OrEmpty(replacement), detail::OrEmpty(pattern));
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::Replace(const char* const aInputStr, const char* const replacement,
                            const char* const pattern, char** out) try {
    if (out == nullptr) return;
    *out = nullptr;
    detail::HandOut(Replace(aInputStr, replacement, pattern), out);
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::ToLower(const std::string& text) try {
    return detail::ToLower(text);
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::ToLower(const char* const text) try {
    return detail::ToLower(Require(text));
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::ToLower(const char* const text, char** out) try {
    HandOutMapped(text, out, [](char c) { return detail::ToLower(c); });
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::ToUpper(const std::string& text) try {
    return detail::ToUpper(text);
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::ToUpper(const char* const text) try {
    return detail::ToUpper(Require(text));
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::ToUpper(const char* const text, char** out) try {
    HandOutMapped(text, out, [](char c) { return detail::ToUpper(c); });
} catch (...) {
    detail::RethrowTranslated();
}

const char* TEVUtilString::Trim(const char* const text, std::size_t& length, bool trimStart,
                                bool trimEnd) {
    const std::string_view trimmed = detail::Trim(detail::OrEmpty(text), trimStart, trimEnd);
    length = trimmed.size();
    return text == nullptr ? nullptr : trimmed.data();
}

std::string TEVUtilString::Trim(const char* const text) try {
    return std::string(detail::Trim(Require(text)));
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::TrimStart(const char* const text) try {
    return std::string(detail::Trim(Require(text), true, false));
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::TrimEnd(const char* const text) try {
    return std::string(detail::Trim(Require(text), false, true));
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::Trim(const std::string& text) try {
    return std::string(detail::Trim(text));
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::Trim(const char* const text, char** out) try {
    HandOutTrimmed(text, out, true, true);
} catch (...) {
    return;
}

void TEVUtilString::TrimStart(const char* const text, char** out) try {
    HandOutTrimmed(text, out, true, false);
} catch (...) {
    return;
}

void TEVUtilString::TrimEnd(const char* const text, char** out) try {
    HandOutTrimmed(text, out, false, true);
} catch (...) {
    return;
}

}  // namespace TAMO::TEV::System::Util
