#include <TEVSystemLib/util/string/TEVUtilString.h>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/KeyValueText.h"
#include "TEVSystemLib/util/string/detail/Tokens.h"

namespace TAMO::TEV::System::Util {

namespace {

std::string Require(std::optional<std::string_view> half) {
    if (!half)
        detail::ThrowInvalidArgument(
            "Invalid input string. Input string must be in \"key=value\" format.");
    return std::string(*half);
}

}  // namespace

std::string TEVUtilString::GetKeyFromKeyValuePair(const char* const pair) try {
    return Require(detail::KeyOf(detail::OrEmpty(pair)));
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::GetKeyFromKeyValuePair(const char* const pair, char** key) try {
    // KEEP: the two forms with an output word this differently.
    if (key == nullptr)
        detail::ThrowInvalidArgument(
            "ERROR: Input parameters cannot be NULL or an empty string and must be given in format "
            "\"key=value\".");
    *key = nullptr;
    detail::HandOutUnlessEmpty(GetKeyFromKeyValuePair(pair), key);
} catch (...) {
    detail::RethrowTranslated();
}

std::string TEVUtilString::GetValueFromKeyValuePair(const char* const pair) try {
    return Require(detail::ValueOf(detail::OrEmpty(pair)));
} catch (...) {
    detail::RethrowTranslated();
}

void TEVUtilString::GetValueFromKeyValuePair(const char* const pair, char** value) try {
    if (value == nullptr)
        detail::ThrowInvalidArgument(
            "ERROR: Input parameters cannot be a nullptr or an empty string and must be given in "
            "format \"key=value\".");
    *value = nullptr;
    // KEEP: an empty value is handed out as null, which no caller needs to release.
    detail::HandOutUnlessEmpty(GetValueFromKeyValuePair(pair), value);
} catch (...) {
    detail::RethrowTranslated();
}

// KEEP: the delimiters come before the text.
bool TEVUtilString::Tokenize(const char* const delimiters, const char* const text, char**& tokens,
                             std::size_t& count) try {
    if (detail::IsNullOrEmpty(delimiters) || detail::IsNullOrEmpty(text)) return false;
    const auto found = detail::Tokens(delimiters, text);
    count = 0;
    tokens = nullptr;
    if (found.empty()) return false;
    detail::OwnedTexts array(found.size());
    for (std::size_t i = 0; i < found.size(); ++i) array.Set(i, detail::MakeText(found[i]));
    tokens = array.release();
    count = found.size();
    return true;
} catch (...) {
    tokens = nullptr;
    count = 0;
    return false;
}

}  // namespace TAMO::TEV::System::Util
