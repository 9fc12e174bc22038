#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "docs/Page.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Example;

// The outputs that the page speaks of.
char* out = nullptr;
char** tokens = nullptr;
std::size_t count = 0;
std::size_t length = 0;

// As the page shows a text.
std::string Code(const std::string& text) {
    std::string shown;
    for (const char c : text) shown += c == ' ' ? "␣" : c == '\t' ? "→" : std::string(1, c);
    // Blanks inside show themselves.
    const bool isPlain = !text.empty() && text.front() != ' ' && text.back() != ' ';
    return '`' + (isPlain && text.find('\t') == std::string::npos ? text : shown) + '`';
}

std::string Shown(bool result) {
    if (tokens != nullptr) {
        std::string all;
        for (std::size_t i = 0; i < count; ++i) all += (i == 0 ? "" : ", ") + Code(tokens[i]);
        TEVUtilString::DeleteCStringArray(tokens, count);
        return all;
    }
    if (out == nullptr) return "null";
    const std::string text = out;
    TEVUtilString::DeleteCString(&out);
    return result ? Code(text) : "text with a failure";
}

template <typename Call>
std::string Gives(bool hasOutput, Call call) {
    using Result = decltype(call());
    if constexpr (std::is_void_v<Result>) {
        call();
        return Shown(true);
    } else if constexpr (std::is_same_v<Result, std::string>) {
        return Code(call());
    } else if constexpr (std::is_same_v<Result, bool>) {
        const bool result = call();
        return hasOutput ? Shown(result) : result ? "`true`" : "`false`";
    } else {
        return '`' + std::to_string(call()) + '`';
    }
}

bool NamesAnOutput(const std::string& call) {
    return call.find("&out") != std::string::npos || call.find("tokens") != std::string::npos;
}

// What is run is the text on the page itself.
#define TEV_CALL(...)                                                                     \
    {                                                                                     \
#__VA_ARGS__,                                                                     \
            [] { return Gives(NamesAnOutput(#__VA_ARGS__), [] { return __VA_ARGS__; }); } \
    }

// Within its scope calls need no class name, as on the page.
struct Calls : TEVUtilString {
    static std::vector<Example> All();
};

std::vector<Example> Calls::All() {
    return {
        TEV_CALL(StartWith("ab", "abc")),
        TEV_CALL(StartWith("abc", "ab")),
        TEV_CALL(StartWith(true, "AB", "abc")),
        TEV_CALL(EndWith("bc", "abc")),
        TEV_CALL(EndWith("", "abc")),
        TEV_CALL(Contains("abc", "")),
        TEV_CALL(Find("banana", "an")),
        TEV_CALL(IndexOf("banana", "xn")),
        TEV_CALL(LastIndexOf("banana", "an")),
        TEV_CALL(CharacterCount('a', "banana")),
        TEV_CALL(Compare(true, "ABC", "abc")),
        TEV_CALL(Replace("a-b-c", "+", "-")),
        TEV_CALL(Replace("aaa", "b", "aa")),
        TEV_CALL(Replace("abc", nullptr, "b")),
        TEV_CALL(ToUpper("straße 1a")),
        TEV_CALL(Trim("\t a b \n")),
        TEV_CALL(TrimStart(" a ")),
        TEV_CALL(Trim("\ta", &out)),
        TEV_CALL(Trim(" \ta", &out)),
        TEV_CALL(TrimEnd("a\t ", &out)),
        TEV_CALL(Concat("a", nullptr)),
        TEV_CALL(Concat("a", nullptr, &out)),
        TEV_CALL(SubString("abcdef", 2, 3, &out)),
        TEV_CALL(SubString("abcdef", 4, 3, &out)),
        TEV_CALL(GetKeyFromKeyValuePair(" a b = c ")),
        TEV_CALL(GetValueFromKeyValuePair("a= b=c ")),
        TEV_CALL(Tokenize(",;", "a,;b c;", tokens, count)),
        TEV_CALL(Base64Encode(reinterpret_cast<const unsigned char*>("abcd"), 4, &out)),
        TEV_CALL(Base64Decode("YWJj\nZA==", &out, length)),
    };
}

TEST(TextPage, ExamplesHold) {
    tev::test::ExpectRowsHold(tev::test::RowsOf("text.md", "Examples"), Calls::All());
}

}  // namespace
