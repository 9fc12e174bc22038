#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/Owned.h"

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;
using tev::test::WideText;

namespace {

const struct {
    const char* what;
    std::string narrow;
    std::wstring wide;
} kUtfPairs[] = {
    {"ASCII", "abc", L"abc"},
    {"two bytes", "\xC3\xA9", L"\x00E9"},
    {"two bytes, first and last", "\xC2\x80\xDF\xBF", L"\x0080\x07FF"},
    {"three bytes, first and last", "\xE0\xA0\x80\xEF\xBF\xBF", L"\x0800\xFFFF"},
    {"euro sign between letters", "1\xE2\x82\xAC!", L"1\x20AC!"},
    {"four bytes, first and last", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\xD800\xDC00\xDBFF\xDFFF"},
    {"surrogate pair", "\xF0\x9F\x98\x80", L"\xD83D\xDE00"},
    {"byte order mark",
     "\xEF\xBB\xBF"
     "a",
     L"\xFEFF"
     L"a"},
    {"NUL inside", std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
    {"NUL at the end", std::string("a\0", 2), std::wstring(L"a\0", 2)},
    {"NUL alone", std::string(1, '\0'), std::wstring(1, L'\0')},
    {"long", std::string(100000, 'x'), std::wstring(100000, L'x')},
};

// Calls that must fail with every output reset.
void ExpectWideningRefused(const char* text, std::size_t textLength) {
    wchar_t held[] = L"held";
    wchar_t* wide = held;
    std::size_t length = 77;
    EXPECT_FALSE(TEVUtilString::ConvertFromMultiByteCharToWChar(text, textLength, &wide, &length));
    EXPECT_EQ(wide, nullptr);
    EXPECT_EQ(length, 0U);
    EXPECT_STREQ(held, L"held");
    wide = held;
    EXPECT_FALSE(TEVUtilString::ConvertFromMultiByteCharToWChar(text, textLength, &wide, nullptr));
    EXPECT_EQ(wide, nullptr);
}

void ExpectNarrowingRefused(const wchar_t* wide, std::size_t wideLength) {
    char held[] = "held";
    char* text = held;
    std::size_t length = 77;
    EXPECT_FALSE(TEVUtilString::ConvertFromWCharToMultiByteChar(&text, wide, wideLength, &length));
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(length, 0U);
    EXPECT_STREQ(held, "held");
    text = held;
    EXPECT_FALSE(TEVUtilString::ConvertFromWCharToMultiByteChar(&text, wide, wideLength, nullptr));
    EXPECT_EQ(text, nullptr);
}

// What comes out, its length taken from the length output; "(refused)" when the library says false.
std::wstring Widened(const char* text, std::size_t textLength) {
    WideText wide;
    std::size_t length = 0;
    if (!TEVUtilString::ConvertFromMultiByteCharToWChar(text, textLength, wide.Out(), &length))
        return L"(refused)";
    return std::wstring(wide.get(), length);
}

std::string Narrowed(const wchar_t* wide, std::size_t wideLength) {
    Text text;
    std::size_t length = 0;
    if (!TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), wide, wideLength, &length))
        return "(refused)";
    return std::string(text.get(), length);
}

TEST(ConvertFromMultiByteCharToWChar, Utf8Text) {
    for (const auto& row : kUtfPairs) {
        SCOPED_TRACE(row.what);
        WideText wide;
        std::size_t length = 77;
        ASSERT_TRUE(TEVUtilString::ConvertFromMultiByteCharToWChar(
            row.narrow.c_str(), row.narrow.size(), wide.Out(), &length));
        ASSERT_EQ(length, row.wide.size());
        EXPECT_TRUE(std::wstring(wide.get(), length) == row.wide);
        EXPECT_EQ(wide.get()[length], L'\0');
    }
}

TEST(ConvertFromMultiByteCharToWChar, LengthOutputMayBeLeftOut) {
    WideText wide;
    EXPECT_TRUE(TEVUtilString::ConvertFromMultiByteCharToWChar("\xC3\xA9", 2, wide.Out(), nullptr));
    EXPECT_EQ(wide.str(), L"\x00E9");
}

TEST(ConvertFromMultiByteCharToWChar, LengthDecidesNotTheTerminator) {
    EXPECT_EQ(Widened("abcdef", 3), L"abc");
    const char unterminated[] = {'a', 'b'};
    EXPECT_EQ(Widened(unterminated, 2), L"ab");
}

TEST(ConvertFromMultiByteCharToWChar, InvalidBytesBecomeReplacementCharacters) {
    const struct {
        const char* text;
        std::wstring expected;
    } rows[] = {
        {"a\xFFz", L"a\xFFFDz"}, {"\x80", L"\xFFFD"},     {"\xC3", L"\xFFFD"},
        {"\xC3x", L"\xFFFDx"},   {"\xE2\x82", L"\xFFFD"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Widened(row.text, std::string(row.text).size()), row.expected) << row.text;
    // A character cut by the length.
    EXPECT_EQ(Widened("\xC3\xA9", 1), L"\xFFFD");
}

TEST(ConvertFromMultiByteCharToWChar, RefusedArguments) {
    ExpectWideningRefused(nullptr, 3);
    ExpectWideningRefused(nullptr, 0);
    ExpectWideningRefused("abc", 0);
    std::size_t length = 77;
    EXPECT_FALSE(TEVUtilString::ConvertFromMultiByteCharToWChar("abc", 3, nullptr, &length));
    EXPECT_EQ(length, 0U);
    EXPECT_FALSE(TEVUtilString::ConvertFromMultiByteCharToWChar("abc", 3, nullptr, nullptr));
}

TEST(ConvertFromMultiByteCharToWChar, LengthAtTheLimitIsRefused) {
    ExpectWideningRefused("abc", 0x7fffffff);
    ExpectWideningRefused("abc", 0x17fffffff);
}

TEST(ConvertFromMultiByteCharToWChar, LengthIsReadAs32Bits_Kept) {
    EXPECT_EQ(Widened("abcdef", 0x100000003), L"abc");
    EXPECT_EQ(Widened("abcdef", 0xFFFFFFFF00000001), L"a");
    ExpectWideningRefused("abc", 0x100000000);
}

TEST(ConvertFromMultiByteCharToWChar, NegativeLengthConvertsTheTerminatorToo_Kept) {
    const std::wstring expected(L"abc\0", 4);
    EXPECT_EQ(Widened("abc", 0xFFFFFFFF), expected);
    EXPECT_EQ(Widened("abc", SIZE_MAX), expected);
    EXPECT_EQ(Widened("abc", 0x80000000), expected);
    EXPECT_EQ(Widened("abc", 0x180000000), expected);
    EXPECT_EQ(Widened("", SIZE_MAX), std::wstring(1, L'\0'));
}

TEST(ConvertFromMultiByteCharToWChar, OutputIsOverwrittenNotFreed) {
    wchar_t held[] = L"held";
    wchar_t* wide = held;
    ASSERT_TRUE(TEVUtilString::ConvertFromMultiByteCharToWChar("abc", 3, &wide, nullptr));
    ASSERT_NE(wide, held);
    EXPECT_STREQ(wide, L"abc");
    EXPECT_STREQ(held, L"held");
    TEVUtilString::DeleteWCharBuffer(&wide);
}

TEST(ConvertFromWCharToMultiByteChar, Utf8Text) {
    for (const auto& row : kUtfPairs) {
        SCOPED_TRACE(row.what);
        Text text;
        std::size_t length = 77;
        ASSERT_TRUE(TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), row.wide.c_str(),
                                                                   row.wide.size(), &length));
        ASSERT_EQ(length, row.narrow.size());
        EXPECT_TRUE(std::string(text.get(), length) == row.narrow);
        EXPECT_EQ(text.get()[length], '\0');
    }
}

TEST(ConvertFromWCharToMultiByteChar, OutputComesFirst_Kept) {
    bool (*const convert)(char**, const wchar_t*, std::size_t, std::size_t*) =
        &TEVUtilString::ConvertFromWCharToMultiByteChar;
    Text text;
    std::size_t length = 0;
    EXPECT_TRUE(convert(text.Out(), L"\x00E9", 1, &length));
    EXPECT_EQ(text.str(), "\xC3\xA9");
    EXPECT_EQ(length, 2U);
}

TEST(ConvertFromWCharToMultiByteChar, LengthOutputMayBeLeftOut) {
    Text text;
    EXPECT_TRUE(TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), L"\x00E9", 1, nullptr));
    EXPECT_EQ(text.str(), "\xC3\xA9");
}

TEST(ConvertFromWCharToMultiByteChar, LengthDecidesNotTheTerminator) {
    EXPECT_EQ(Narrowed(L"abcdef", 3), "abc");
    const wchar_t unterminated[] = {L'a', L'b'};
    EXPECT_EQ(Narrowed(unterminated, 2), "ab");
}

TEST(ConvertFromWCharToMultiByteChar, LoneSurrogatesBecomeReplacementCharacters) {
    EXPECT_EQ(Narrowed(L"\xD83D", 1), "\xEF\xBF\xBD");
    EXPECT_EQ(Narrowed(L"a\xDE00z", 3), "a\xEF\xBF\xBDz");
    EXPECT_EQ(Narrowed(L"\xDE00\xD83D", 2), "\xEF\xBF\xBD\xEF\xBF\xBD");
    // A pair cut by the length.
    EXPECT_EQ(Narrowed(L"\xD83D\xDE00", 1), "\xEF\xBF\xBD");
}

TEST(ConvertFromWCharToMultiByteChar, RefusedArguments) {
    ExpectNarrowingRefused(nullptr, 3);
    ExpectNarrowingRefused(nullptr, 0);
    ExpectNarrowingRefused(L"abc", 0);
    std::size_t length = 77;
    EXPECT_FALSE(TEVUtilString::ConvertFromWCharToMultiByteChar(nullptr, L"abc", 3, &length));
    EXPECT_EQ(length, 0U);
    EXPECT_FALSE(TEVUtilString::ConvertFromWCharToMultiByteChar(nullptr, L"abc", 3, nullptr));
}

TEST(ConvertFromWCharToMultiByteChar, LengthBeyondTheLimitIsRefused) {
    for (const std::size_t length :
         {std::size_t{0x7fffffff}, std::size_t{0x80000000}, std::size_t{0xFFFFFFFF},
          std::size_t{0x100000001}, std::size_t{SIZE_MAX}}) {
        SCOPED_TRACE(length);
        ExpectNarrowingRefused(L"abc", length);
    }
}

TEST(ConvertFromWCharToMultiByteChar, OutputIsOverwrittenNotFreed) {
    char held[] = "held";
    char* text = held;
    ASSERT_TRUE(TEVUtilString::ConvertFromWCharToMultiByteChar(&text, L"abc", 3, nullptr));
    ASSERT_NE(text, held);
    const Text owner(text);
    EXPECT_EQ(owner.str(), "abc");
    EXPECT_STREQ(held, "held");
}

TEST(ConvertFromWCharToMultiByteChar, EveryCharacterOfTheBasicPlaneComesBack) {
    std::wstring wide;
    for (unsigned value = 1; value <= 0xFFFF; ++value)
        if (value < 0xD800 || value > 0xDFFF) wide += static_cast<wchar_t>(value);
    const std::string narrow = Narrowed(wide.c_str(), wide.size());
    EXPECT_EQ(narrow.size(), 0x7FU + 2 * 0x780U + 3 * (0xF800U - 0x800U));
    EXPECT_TRUE(Widened(narrow.c_str(), narrow.size()) == wide);
}

}  // namespace
