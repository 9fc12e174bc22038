#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <string_view>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/Replacement.h"

namespace TAMO::TEV::System::Util {

namespace {

std::string_view Require(const char* text) {
    if (text == nullptr) detail::ThrowInvalidArgument("Input argument cannot be a nullptr.");
    return detail::ViewOf(text);
}

// KEEP: the order is input, replacement, pattern.
detail::Replacement ReplacementOf(const char* input, const char* replacement, const char* pattern) {
    if (input == nullptr)
        detail::ThrowInvalidArgument("Argument \"aInputStr\" cannot be a nullptr.");
    return {detail::ViewOf(input), detail::OrEmpty(replacement), detail::OrEmpty(pattern)};
}

void HandOutMapped(const char* text, char** out, void (*map)(std::string_view, char*)) {
    if (out != nullptr) *out = nullptr;
    // KEEP: an empty text is refused here, with the message for a null one, and that in the plural.
    if (out == nullptr || detail::IsNullOrEmpty(text))
        detail::ThrowInvalidArgument("Input arguments cannot be a nullptr.");
    const std::string_view source = detail::ViewOf(text);
    detail::OwnedText mapped = detail::MakeUnfilledText(source.size());
    map(source, mapped.get());
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
    return detail::Replacement(aInputStr, replacement, pattern).Text();
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::Replace(const char* const aInputStr, const char* const replacement,
                                   const char* const pattern) try {
    return ReplacementOf(aInputStr, replacement, pattern).Text();
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::Replace(const char* const aInputStr, const char* const replacement,
                            const char* const pattern, char** out) try {
    if (out == nullptr) return;
    *out = nullptr;
    const detail::Replacement replaced = ReplacementOf(aInputStr, replacement, pattern);
    detail::OwnedText text = detail::MakeUnfilledText(replaced.Size());
    replaced.Write(text.get());
    *out = text.release();
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
    HandOutMapped(text, out, detail::ToLower);
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
    HandOutMapped(text, out, detail::ToUpper);
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
