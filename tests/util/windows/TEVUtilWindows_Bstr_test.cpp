#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "support/Com.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Bstr;
using tev::test::Text;

using namespace std::string_view_literals;

constexpr bool kIgnoreCase = true;

TEST(CompareBSTR, OrderOfTheInvariantLocale) {
    const struct {
        std::wstring_view first;
        std::wstring_view second;
        int withCase;
        int ignoringCase;
    } rows[] = {
        {L"abc", L"abc", 0, 0},
        {L"", L"", 0, 0},
        {L"abc", L"ABC", -1, 0},
        {L"aBc", L"AbC", -1, 0},
        {L"caf\u00e9", L"CAF\u00c9", -1, 0},
        {L"", L"a", -1, -1},
        {L"a", L"b", -1, -1},
        {L"abc", L"abcd", -1, -1},
        {L"abc", L"ABD", -1, -1},
        // Not the order of the characters' numbers.
        {L"a", L"B", -1, -1},
        {L"\u00e9", L"f", -1, -1},
        {L"e", L"\u00e9", -1, -1},
        // Texts end at a NUL.
        {L"ab\0x"sv, L"ab\0y"sv, 0, 0},
        {L"\0x"sv, L"", 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.first)) + " and " +
                     testing::PrintToString(std::wstring(row.second)));
        const Bstr first(row.first);
        const Bstr second(row.second);
        EXPECT_EQ(TEVUtilWindows::CompareBSTR(!kIgnoreCase, first.get(), second.get()),
                  row.withCase);
        EXPECT_EQ(TEVUtilWindows::CompareBSTR(!kIgnoreCase, second.get(), first.get()),
                  -row.withCase);
        EXPECT_EQ(TEVUtilWindows::CompareBSTR(kIgnoreCase, first.get(), second.get()),
                  row.ignoringCase);
        EXPECT_EQ(TEVUtilWindows::CompareBSTR(kIgnoreCase, second.get(), first.get()),
                  -row.ignoringCase);
    }
}

TEST(CompareBSTR, NullTextThrows_Kept) {
    const Bstr text(L"text");
    const struct {
        BSTR first;
        BSTR second;
    } rows[] = {{nullptr, text.get()}, {text.get(), nullptr}, {nullptr, nullptr}};
    for (const auto& row : rows)
        for (const bool ignoreCase : {true, false})
            EXPECT_THAT([&] { TEVUtilWindows::CompareBSTR(ignoreCase, row.first, row.second); },
                        testing::ThrowsMessage<std::runtime_error>(
                            testing::StrEq("BSTR comparison operation failed.")));
}

TEST(CopyBSTR, NewTextOfItsOwn) {
    for (const wchar_t* text : {L"text", L"", L" ", L"caf\u00e9 \u20ac \u4e2d \xd83d\xde00"}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(text)));
        const Bstr source(text);
        Bstr copy;
        EXPECT_TRUE(TEVUtilWindows::CopyBSTR(source.get(), copy.Out()));
        EXPECT_NE(copy.get(), source.get());
        EXPECT_EQ(copy.str(), text);
        EXPECT_EQ(source.str(), text);
    }
}

TEST(CopyBSTR, SourceMayBeAnyWideText) {
    wchar_t source[] = L"no BSTR";
    Bstr copy;
    EXPECT_TRUE(TEVUtilWindows::CopyBSTR(source, copy.Out()));
    EXPECT_EQ(copy.str(), L"no BSTR");
}

TEST(CopyBSTR, EndsAtANul) {
    const Bstr source(L"ab\0cd"sv);
    Bstr copy;
    EXPECT_TRUE(TEVUtilWindows::CopyBSTR(source.get(), copy.Out()));
    EXPECT_EQ(copy.str(), L"ab");
}

TEST(CopyBSTR, OutputIsOverwrittenNotReleased) {
    const Bstr source(L"text");
    wchar_t held[] = L"held";
    wchar_t* copy = held;
    ASSERT_TRUE(TEVUtilWindows::CopyBSTR(source.get(), &copy));
    EXPECT_STREQ(copy, L"text");
    SysFreeString(copy);
    EXPECT_STREQ(held, L"held");
}

TEST(CopyBSTR, NullSourceIsRefusedWithNull) {
    wchar_t held[] = L"held";
    wchar_t* copy = held;
    EXPECT_FALSE(TEVUtilWindows::CopyBSTR(nullptr, &copy));
    EXPECT_EQ(copy, nullptr);
}

TEST(CopyBSTR, NullOutputIsRefused) {
    const Bstr source(L"text");
    EXPECT_FALSE(TEVUtilWindows::CopyBSTR(source.get(), nullptr));
    EXPECT_FALSE(TEVUtilWindows::CopyBSTR(nullptr, nullptr));
}

TEST(FreeBSTR, SetsThePointerToNull) {
    for (wchar_t* text : {SysAllocString(L"text"), SysAllocString(L""), BSTR{nullptr}}) {
        TEVUtilWindows::FreeBSTR(&text);
        EXPECT_EQ(text, nullptr);
        TEVUtilWindows::FreeBSTR(&text);
        EXPECT_EQ(text, nullptr);
    }
}

TEST(FreeBSTR, NullPointerDoesNothing) { EXPECT_NO_THROW(TEVUtilWindows::FreeBSTR(nullptr)); }

TEST(GetBSTRLength, CharactersOfTheText) {
    const struct {
        std::wstring_view text;
        std::uint64_t length;
    } rows[] = {{L"", 0}, {L"a", 1}, {L"caf\u00e9", 4}, {L"\xd83d\xde00", 2}};
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilWindows::GetBSTRLength(Bstr(row.text).get()), row.length);
    const std::wstring longText(100'000, L'x');
    EXPECT_EQ(TEVUtilWindows::GetBSTRLength(Bstr(longText).get()), 100'000u);
    EXPECT_EQ(TEVUtilWindows::GetBSTRLength(nullptr), 0u);
}

TEST(GetBSTRLength, CountsBehindANul) {
    EXPECT_EQ(TEVUtilWindows::GetBSTRLength(Bstr(L"ab\0cd"sv).get()), 5u);
}

// Both directions in the ANSI code page, 1252, whose 0x80 to 0x9f are no characters of Latin-1.
constexpr struct {
    const char* narrow;
    const wchar_t* wide;
} kTexts[] = {
    {"text", L"text"},
    {" ", L" "},
    {" \ttext\n ", L" \ttext\n "},
    {"caf\xe9", L"caf\u00e9"},
    {"\x80 100", L"\u20ac 100"},
    {"\x84quoted\x93", L"\u201equoted\u201c"},
    {"\x8a\x9f\xff", L"\u0160\u0178\u00ff"},
    {"\xc3\xa9", L"\u00c3\u00a9"},
};

TEST(FromBSTRToMultibyteChar, TextInTheAnsiCodePage) {
    for (const auto& row : kTexts) {
        SCOPED_TRACE(testing::PrintToString(row.narrow));
        const Bstr wide(row.wide);
        Text narrow;
        EXPECT_TRUE(TEVUtilWindows::FromBSTRToMultibyteChar(wide.get(), narrow.Out()));
        EXPECT_EQ(narrow.str(), row.narrow);
    }
}

TEST(FromBSTRToMultibyteChar, ReplacesWhatTheCodePageLacks) {
    const Bstr wide(L"a\u4e2db");
    Text narrow;
    EXPECT_TRUE(TEVUtilWindows::FromBSTRToMultibyteChar(wide.get(), narrow.Out()));
    EXPECT_EQ(narrow.str(), "a?b");
}

TEST(FromBSTRToMultibyteChar, EndsAtANul) {
    const Bstr wide(L"ab\0cd"sv);
    Text narrow;
    EXPECT_TRUE(TEVUtilWindows::FromBSTRToMultibyteChar(wide.get(), narrow.Out()));
    EXPECT_EQ(narrow.str(), "ab");
}

TEST(FromBSTRToMultibyteChar, WithoutTextFalseAndNull) {
    const Bstr empty(L"");
    const Bstr nul(L"\0text"sv);
    for (BSTR text : {BSTR{nullptr}, empty.get(), nul.get()}) {
        char held[] = "held";
        char* narrow = held;
        EXPECT_FALSE(TEVUtilWindows::FromBSTRToMultibyteChar(text, &narrow));
        EXPECT_EQ(narrow, nullptr);
        EXPECT_STREQ(held, "held");
    }
}

TEST(FromBSTRToMultibyteChar, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::FromBSTRToMultibyteChar(Bstr(L"text").get(), nullptr));
}

TEST(FromMultibyteCharToBSTR, TextInTheAnsiCodePage) {
    for (const auto& row : kTexts) {
        SCOPED_TRACE(testing::PrintToString(row.narrow));
        Bstr wide;
        EXPECT_TRUE(TEVUtilWindows::FromMultibyteCharToBSTR(row.narrow, wide.Out()));
        EXPECT_EQ(wide.str(), row.wide);
    }
}

TEST(FromMultibyteCharToBSTR, LongText) {
    const std::string narrow(100'000, '\x80');
    Bstr wide;
    EXPECT_TRUE(TEVUtilWindows::FromMultibyteCharToBSTR(narrow.c_str(), wide.Out()));
    EXPECT_TRUE(wide.str() == std::wstring(100'000, L'\u20ac'));
}

TEST(FromMultibyteCharToBSTR, WithoutTextFalseAndNull) {
    for (const char* text : {static_cast<const char*>(nullptr), ""}) {
        wchar_t held[] = L"held";
        wchar_t* wide = held;
        EXPECT_FALSE(TEVUtilWindows::FromMultibyteCharToBSTR(text, &wide));
        EXPECT_EQ(wide, nullptr);
    }
}

TEST(FromMultibyteCharToBSTR, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::FromMultibyteCharToBSTR("text", nullptr));
    EXPECT_FALSE(TEVUtilWindows::FromMultibyteCharToBSTR("", nullptr));
}

TEST(FromMultibyteCharToBSTR, EveryByteThereAndBack) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    Bstr wide;
    ASSERT_TRUE(TEVUtilWindows::FromMultibyteCharToBSTR(bytes.c_str(), wide.Out()));
    EXPECT_EQ(TEVUtilWindows::GetBSTRLength(wide.get()), bytes.size());
    Text narrow;
    ASSERT_TRUE(TEVUtilWindows::FromBSTRToMultibyteChar(wide.get(), narrow.Out()));
    EXPECT_EQ(narrow.str(), bytes);
}

}  // namespace
