#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/Owned.h"

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;
using tev::test::WideText;

namespace {

// Sets the character type of the process's C locale until the end of the scope.
class Locale {
 public:
    explicit Locale(const char* name) : before_(std::setlocale(LC_CTYPE, nullptr)) {
        if (std::setlocale(LC_CTYPE, name) == nullptr) ADD_FAILURE() << "no locale " << name;
    }
    ~Locale() { std::setlocale(LC_CTYPE, before_.c_str()); }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;

 private:
    std::string before_;
};

// "(no std::runtime_error)" when none comes.
std::string NarrowingError(const wchar_t* wide, char** text) {
    try {
        TEVUtilString::ConvertFromWCharToChar(wide, text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "(no std::runtime_error)";
}

constexpr char kCannotNarrow[] = "Failed to convert data from wchar to char.";

// A text of `length` times "a" that costs few pages: one piece of memory is mapped again and again,
// another one at the end. Null when the system refuses.
class HugeText {
 public:
    explicit HugeText(std::size_t length) {
        auto* const place = static_cast<char*>(
            VirtualAlloc(nullptr, length + 2 * kPiece, MEM_RESERVE, PAGE_NOACCESS));
        VirtualFree(place, 0, MEM_RELEASE);
        std::size_t mapped = 0;
        for (; mapped + kPiece <= length; mapped += kPiece)
            if (!Map(body_, place + mapped)) return;
        if (!Map(tail_, place + mapped)) return;
        std::memset(place, 'a', kPiece);
        std::memset(place + mapped, 'a', length - mapped);
        text_ = place;
    }
    ~HugeText() {
        for (void* view : views_) UnmapViewOfFile(view);
        CloseHandle(body_);
        CloseHandle(tail_);
    }
    HugeText(const HugeText&) = delete;
    HugeText& operator=(const HugeText&) = delete;

    const char* get() const { return text_; }

 private:
    static constexpr DWORD kPiece = 1U << 26;

    static HANDLE NewPiece() {
        return CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kPiece,
                                  nullptr);
    }
    bool Map(HANDLE piece, char* place) {
        void* const view = MapViewOfFileEx(piece, FILE_MAP_WRITE, 0, 0, kPiece, place);
        if (view != nullptr) views_.push_back(view);
        return view == place;
    }

    HANDLE body_ = NewPiece();
    HANDLE tail_ = NewPiece();
    std::vector<void*> views_;
    const char* text_ = nullptr;
};

TEST(ConvertFromCharToWChar, AsciiText) {
    WideText wide;
    EXPECT_TRUE(TEVUtilString::ConvertFromCharToWChar("abc", wide.Out()));
    EXPECT_EQ(wide.str(), L"abc");
}

TEST(ConvertFromCharToWChar, OneCharacterIsEnough) {
    WideText wide;
    EXPECT_TRUE(TEVUtilString::ConvertFromCharToWChar("x", wide.Out()));
    EXPECT_EQ(wide.str(), L"x");
}

TEST(ConvertFromCharToWChar, EveryByteIsItsOwnCharacterInTheCLocale) {
    const Locale locale("C");
    std::string text;
    std::wstring expected;
    for (int byte = 1; byte <= 255; ++byte) {
        text += static_cast<char>(byte);
        expected += static_cast<wchar_t>(byte);
    }
    WideText wide;
    EXPECT_TRUE(TEVUtilString::ConvertFromCharToWChar(text.c_str(), wide.Out()));
    EXPECT_EQ(wide.str(), expected);
}

TEST(ConvertFromCharToWChar, EmptyOrNullTextNullsTheOutput) {
    for (const char* text : {"", static_cast<const char*>(nullptr)}) {
        wchar_t held[] = L"held";
        wchar_t* wide = held;
        EXPECT_FALSE(TEVUtilString::ConvertFromCharToWChar(text, &wide));
        EXPECT_EQ(wide, nullptr);
        EXPECT_STREQ(held, L"held");
    }
}

TEST(ConvertFromCharToWChar, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilString::ConvertFromCharToWChar("abc", nullptr));
    EXPECT_FALSE(TEVUtilString::ConvertFromCharToWChar(nullptr, nullptr));
}

TEST(ConvertFromCharToWChar, OutputIsOverwrittenNotFreed) {
    wchar_t held[] = L"held";
    wchar_t* wide = held;
    ASSERT_TRUE(TEVUtilString::ConvertFromCharToWChar("abc", &wide));
    ASSERT_NE(wide, held);
    EXPECT_STREQ(wide, L"abc");
    EXPECT_STREQ(held, L"held");
    TEVUtilString::DeleteWCharBuffer(&wide);
}

TEST(ConvertFromCharToWChar, BufferHasASecondTerminator_Kept) {
    WideText wide;
    ASSERT_TRUE(TEVUtilString::ConvertFromCharToWChar("abc", wide.Out()));
    EXPECT_EQ(wide.get()[3], L'\0');
    EXPECT_EQ(wide.get()[4], L'\0');
}

TEST(ConvertFromCharToWChar, LongText) {
    WideText wide;
    EXPECT_TRUE(
        TEVUtilString::ConvertFromCharToWChar(std::string(100000, '\xE9').c_str(), wide.Out()));
    EXPECT_TRUE(wide.str() == std::wstring(100000, L'\xE9'));
}

TEST(ConvertFromCharToWChar, TextNearTheCountLimitIsRefused) {
    const HugeText text(0x7fffffff - 2);
    ASSERT_NE(text.get(), nullptr);
    wchar_t held[] = L"held";
    wchar_t* wide = held;
    EXPECT_FALSE(TEVUtilString::ConvertFromCharToWChar(text.get(), &wide));
    EXPECT_EQ(wide, nullptr);
}

TEST(ConvertFromCharToWChar, FollowsTheLocaleOfTheProcess) {
    const Locale locale(".1252");
    WideText wide;
    EXPECT_TRUE(TEVUtilString::ConvertFromCharToWChar("\x80", wide.Out()));
    EXPECT_EQ(wide.str(), L"\x20AC");
}

TEST(ConvertFromCharToWChar, BytesThatAreNotOneCharacterEachAreRefused) {
    const Locale locale(".932");
    const struct {
        const char* what;
        const char* text;
    } rows[] = {{"two bytes, one character", "\x82\xA0"},
                {"among others", "a\x82\xA0z"},
                {"first half only", "\x82"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        wchar_t held[] = L"held";
        wchar_t* wide = held;
        EXPECT_FALSE(TEVUtilString::ConvertFromCharToWChar(row.text, &wide));
        EXPECT_EQ(wide, nullptr);
    }
    WideText ascii;
    EXPECT_TRUE(TEVUtilString::ConvertFromCharToWChar("abc", ascii.Out()));
    EXPECT_EQ(ascii.str(), L"abc");
}

TEST(ConvertFromWCharToChar, AsciiText) {
    Text text;
    TEVUtilString::ConvertFromWCharToChar(L"abc", text.Out());
    EXPECT_EQ(text.str(), "abc");
}

TEST(ConvertFromWCharToChar, EveryCharacterUpToFFIsItsOwnByteInTheCLocale) {
    const Locale locale("C");
    std::wstring wide;
    std::string expected;
    for (int value = 1; value <= 0xFF; ++value) {
        wide += static_cast<wchar_t>(value);
        expected += static_cast<char>(value);
    }
    Text text;
    TEVUtilString::ConvertFromWCharToChar(wide.c_str(), text.Out());
    EXPECT_EQ(text.str(), expected);
}

TEST(ConvertFromWCharToChar, CharacterThatTheLocaleLacksThrows) {
    const Locale locale("C");
    const std::wstring rows[] = {L"\x0100",  L"\x20AC",       L"ab\x3042",
                                 L"\x0100z", L"\xD83D\xDE00", L"\xFFFF"};
    for (const std::wstring& wide : rows) {
        SCOPED_TRACE(testing::PrintToString(wide));
        char held[] = "held";
        char* text = held;
        EXPECT_EQ(NarrowingError(wide.c_str(), &text), kCannotNarrow);
        EXPECT_EQ(text, nullptr);
        EXPECT_STREQ(held, "held");
    }
}

TEST(ConvertFromWCharToChar, NullOrEmptyTextNullsTheOutput) {
    for (const wchar_t* wide : {static_cast<const wchar_t*>(nullptr), L""}) {
        char held[] = "held";
        char* text = held;
        TEVUtilString::ConvertFromWCharToChar(wide, &text);
        EXPECT_EQ(text, nullptr);
        EXPECT_STREQ(held, "held");
    }
}

TEST(ConvertFromWCharToChar, NullOutputDoesNothing) {
    EXPECT_NO_THROW(TEVUtilString::ConvertFromWCharToChar(L"abc", nullptr));
    EXPECT_NO_THROW(TEVUtilString::ConvertFromWCharToChar(L"\x0100", nullptr));
    EXPECT_NO_THROW(TEVUtilString::ConvertFromWCharToChar(nullptr, nullptr));
}

TEST(ConvertFromWCharToChar, OutputIsOverwrittenNotFreed) {
    char held[] = "held";
    char* text = held;
    TEVUtilString::ConvertFromWCharToChar(L"abc", &text);
    ASSERT_NE(text, held);
    const Text owner(text);
    EXPECT_EQ(owner.str(), "abc");
    EXPECT_STREQ(held, "held");
}

TEST(ConvertFromWCharToChar, BufferHasRoomForFourBytesACharacter) {
    const std::wstring wide = L"abc";
    Text text;
    TEVUtilString::ConvertFromWCharToChar(wide.c_str(), text.Out());
    ASSERT_FALSE(text.IsNull());
    for (std::size_t i = wide.size(); i <= 4 * wide.size(); ++i)
        EXPECT_EQ(text.get()[i], '\0') << i;
}

TEST(ConvertFromWCharToChar, FollowsTheLocaleOfTheProcess) {
    Text text;
    {
        const Locale locale(".1252");
        TEVUtilString::ConvertFromWCharToChar(L"\x20AC", text.Out());
        EXPECT_EQ(text.str(), "\x80");
        EXPECT_EQ(NarrowingError(L"\x3042", text.Out()), kCannotNarrow);
        EXPECT_TRUE(text.IsNull());
    }
    const Locale locale(".932");
    TEVUtilString::ConvertFromWCharToChar(L"a\x3042", text.Out());
    EXPECT_EQ(text.str(), "a\x82\xA0");
}

TEST(ConvertFromWCharToChar, LongTextComesBack) {
    const std::string source(100000, '\xE9');
    WideText wide;
    ASSERT_TRUE(TEVUtilString::ConvertFromCharToWChar(source.c_str(), wide.Out()));
    Text text;
    TEVUtilString::ConvertFromWCharToChar(wide.get(), text.Out());
    EXPECT_TRUE(text.str() == source);
}

TEST(CharsetConversions, LeaveTheLocaleOfTheProcess) {
    const Locale locale(".1252");
    const std::string before = std::setlocale(LC_ALL, nullptr);
    WideText wide;
    Text text;
    std::size_t length = 0;
    TEVUtilString::ConvertFromCharToWChar("\x80", wide.Out());
    TEVUtilString::ConvertFromWCharToChar(L"\x20AC", text.Out());
    TEVUtilString::ConvertFromMultiByteCharToWChar("a", 1, wide.Out(), &length);
    TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), L"a", 1, &length);
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

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
