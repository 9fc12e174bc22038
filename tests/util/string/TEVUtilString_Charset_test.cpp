#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <clocale>
#include <cstddef>
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

}  // namespace
