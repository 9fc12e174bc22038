#include "TEVSystemLib/util/string/detail/Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "models/Utf8Model.h"
#include "support/Effort.h"

namespace {

using TAMO::TEV::System::Util::detail::NarrowAscii;
using TAMO::TEV::System::Util::detail::NarrowUtf16;
using TAMO::TEV::System::Util::detail::Utf16Size;
using TAMO::TEV::System::Util::detail::Utf8Size;
using TAMO::TEV::System::Util::detail::WidenAscii;
using TAMO::TEV::System::Util::detail::WidenUtf8;
using tev::test::BytesOf;
using tev::test::IsSurrogate;
using tev::test::kCharactersEnd;
using tev::test::ShortestSize;
using tev::test::Spread;
using tev::test::UnitsOf;

using Units = std::u16string;

std::optional<Units> Widened(std::string_view text) {
    Units units(Utf16Size(text) + 1, u'?');
    if (!WidenUtf8(text, units.data())) return {};
    EXPECT_EQ(units.back(), u'?');
    units.pop_back();
    return units;
}

std::optional<std::string> Narrowed(std::u16string_view units) {
    std::string text(Utf8Size(units) + 1, '?');
    if (!NarrowUtf16(units, text.data())) return {};
    EXPECT_EQ(text.back(), '?');
    text.pop_back();
    return text;
}

TEST(Utf8, EveryCharacterBothWays) {
    for (std::uint32_t character = 0; character < kCharactersEnd; ++character) {
        const std::string bytes = BytesOf(character);
        if (IsSurrogate(character)) {
            ASSERT_EQ(Widened(bytes), std::nullopt) << character;
            ASSERT_EQ(Narrowed(UnitsOf(character)), std::nullopt) << character;
        } else {
            ASSERT_EQ(Widened(bytes), UnitsOf(character)) << character;
            ASSERT_EQ(Narrowed(UnitsOf(character)), bytes) << character;
        }
    }
}

// wchar_t is as wide as char16_t on Windows only.
TEST(Ascii, WideTextsOfEitherWidth) {
    const std::string text(100, 'a');
    std::wstring wide(100, L'?');
    EXPECT_EQ(WidenAscii(text, wide.data()), 100U);
    EXPECT_EQ(wide, std::wstring(100, L'a'));
    std::string narrow(100, '?');
    EXPECT_EQ(NarrowAscii(std::wstring_view(wide), narrow.data()), 100U);
    EXPECT_EQ(narrow, text);
}

TEST(WidenUtf8, OverlongFormsAreRefused) {
    for (std::uint32_t character = 0; character < 0x10000; ++character) {
        for (std::size_t size = ShortestSize(character) + 1; size <= 4; ++size)
            ASSERT_EQ(Widened(Spread(character, size)), std::nullopt) << character << ' ' << size;
    }
}

TEST(WidenUtf8, WhatIsNoCharacterIsRefused) {
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {"\x80"sv, "\xBF"sv, "\xC3"sv, "\xE2\x82"sv, "\xF0\x9F\x98"sv, "\xC3("sv, "\xE2\x28\xA1"sv,
          "\xE2\x82("sv, "\xF0\x28\x8C\xBC"sv, "\xF0\x9F\x28\xBC"sv, "\xF0\x9F\x98("sv,
          "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xF8\x88\x80\x80\x80"sv, "\xFE"sv,
          "\xFF"sv}) {
        EXPECT_EQ(Widened(text), std::nullopt) << testing::PrintToString(text);
        EXPECT_EQ(Widened(std::string(40, 'a').append(text)), std::nullopt);
        EXPECT_EQ(Widened(std::string(text).append("aaaa")), std::nullopt);
    }
}

TEST(NarrowUtf16, LoneSurrogatesAreRefused) {
    for (const Units& units :
         {Units{0xD800}, Units{0xDC00}, Units{0xD800, u'a'}, Units{0xD800, 0xD800},
          Units{0xD800, 0xE000}, Units{0xDC00, 0xD800}, Units{u'a', 0xDBFF}})
        EXPECT_EQ(Narrowed(units), std::nullopt);
}

TEST(Utf8, MixedTextsComeBack) {
    constexpr unsigned kSeed = 8161;
    RecordProperty("seed", kSeed);
    std::mt19937 engine(kSeed);
    for (std::int64_t i = 0; i < tev::test::Repetitions(1'000'000); ++i) {
        std::string text;
        Units units;
        for (auto pieces = engine() % 8; pieces > 0; --pieces) {
            const std::string ascii(engine() % 50, 'x');
            text += ascii;
            units.append(ascii.begin(), ascii.end());
            const auto character =
                static_cast<std::uint32_t>((engine() % kCharactersEnd) >> engine() % 21);
            if (IsSurrogate(character)) continue;
            text += BytesOf(character);
            units += UnitsOf(character);
        }
        ASSERT_EQ(Widened(text), units);
        ASSERT_EQ(Narrowed(units), text);
    }
}

// Whatever the size of wchar_t.
TEST(WidenUtf8, WideCharactersHoldTheSameUnits) {
    const std::string text = "ab\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z";
    std::wstring wide(Utf16Size(text) + 1, L'?');
    ASSERT_TRUE(WidenUtf8(text, wide.data()));
    EXPECT_EQ(wide, (std::wstring{L'a', L'b', 0xE4, 0x20AC, 0xD83D, 0xDE00, L'z', L'?'}));
    wide.pop_back();
    const std::wstring_view view = wide;
    std::string narrow(Utf8Size(view) + 1, '?');
    ASSERT_TRUE(NarrowUtf16(view, narrow.data()));
    EXPECT_EQ(narrow, text + '?');
}

}  // namespace
