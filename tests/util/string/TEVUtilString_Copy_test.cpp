#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "support/Owned.h"
#include "util/string/OutputPointer.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExpectNewText;
using tev::test::Stale;
using tev::test::Text;
using tev::test::WideText;

constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();

TEST(TEVUtilString, IsAssignedButNeverMade) {
    EXPECT_FALSE(std::is_default_constructible_v<TEVUtilString>);
    EXPECT_FALSE(std::is_copy_constructible_v<TEVUtilString>);
    EXPECT_FALSE(std::is_destructible_v<TEVUtilString>);
    EXPECT_TRUE(std::is_copy_assignable_v<TEVUtilString>);
}

TEST(Copy, WholeTextWithoutALengthOrWithZero) {
    Text copy;
    EXPECT_TRUE(TEVUtilString::Copy("abcdef", copy.Out(), nullptr));
    EXPECT_EQ(copy.str(), "abcdef");
    std::size_t length = 0;
    EXPECT_TRUE(TEVUtilString::Copy("abcdef", copy.Out(), &length));
    EXPECT_EQ(copy.str(), "abcdef");
    EXPECT_EQ(length, 0u);
}

TEST(Copy, LengthCutsAndIsOnlyRead) {
    Text copy;
    std::size_t length = 3;
    EXPECT_TRUE(TEVUtilString::Copy("abcdef", copy.Out(), &length));
    EXPECT_EQ(copy.str(), "abc");
    EXPECT_EQ(length, 3u);
}

TEST(Copy, LengthIsNotCheckedAgainstTheText_Kept) {
    Text copy;
    std::size_t length = 5;
    ASSERT_TRUE(TEVUtilString::Copy("ab\0cd", copy.Out(), &length));
    EXPECT_EQ(std::string(copy.get(), 6), std::string("ab\0cd\0", 6));
}

TEST(Copy, EmptySourceIsRefused_Kept) {
    char* out = Stale();
    std::size_t length = 0;
    EXPECT_FALSE(TEVUtilString::Copy("", &out, nullptr));
    EXPECT_EQ(out, nullptr);
    EXPECT_FALSE(TEVUtilString::Copy("", &out, &length));
    EXPECT_EQ(out, nullptr);
}

TEST(Copy, LengthOfOneTakesTheTerminatorOfAnEmptySource_Kept) {
    Text copy;
    std::size_t one = 1;
    ASSERT_TRUE(TEVUtilString::Copy("", copy.Out(), &one));
    EXPECT_EQ(std::string(copy.get(), 2), std::string(2, '\0'));
    EXPECT_EQ(one, 1u);
}

TEST(Copy, NullSourceIsRefusedWhateverTheLength) {
    const char* const none = nullptr;
    std::size_t lengths[] = {0, 1, 3};
    char* out = Stale();
    EXPECT_FALSE(TEVUtilString::Copy(none, &out, nullptr));
    EXPECT_EQ(out, nullptr);
    for (std::size_t& length : lengths) {
        out = Stale();
        EXPECT_FALSE(TEVUtilString::Copy(none, &out, &length)) << length;
        EXPECT_EQ(out, nullptr) << length;
    }
}

TEST(Copy, NullOutputIsRefused) {
    char** const none = nullptr;
    std::size_t length = 2;
    EXPECT_FALSE(TEVUtilString::Copy("abc", none, nullptr));
    EXPECT_FALSE(TEVUtilString::Copy("abc", none, &length));
}

TEST(Copy, LengthBeyondMemoryGivesFalseAndNull) {
    for (std::size_t length : {kLargest / 2, kLargest - 1, kLargest}) {
        char* out = Stale();
        EXPECT_FALSE(TEVUtilString::Copy("abc", &out, &length)) << length;
        EXPECT_EQ(out, nullptr) << length;
    }
}

TEST(Copy, HeldBufferIsOverwrittenNotReleased) {
    ExpectNewText([](char** out) { TEVUtilString::Copy("new", out, nullptr); }, "new");
}

TEST(CopyWide, WholeTextOrItsFirstCharacters) {
    const std::wstring accented =
        L"\u00E9\u4E2D"
        L"b";
    WideText copy;
    EXPECT_TRUE(TEVUtilString::Copy(accented.c_str(), copy.Out(), nullptr));
    EXPECT_EQ(copy.str(), accented);
    std::size_t length = 0;
    EXPECT_TRUE(TEVUtilString::Copy(L"abcdef", copy.Out(), &length));
    EXPECT_EQ(copy.str(), L"abcdef");
    length = 3;
    EXPECT_TRUE(TEVUtilString::Copy(L"abcdef", copy.Out(), &length));
    EXPECT_EQ(copy.str(), L"abc");
    EXPECT_EQ(length, 3u);
}

TEST(CopyWide, LengthBeyondTheTextStopsAtItsEnd) {
    WideText copy;
    std::size_t length = 5;
    ASSERT_TRUE(TEVUtilString::Copy(L"ab\0cd", copy.Out(), &length));
    EXPECT_EQ(std::wstring(copy.get(), 6), std::wstring(L"ab\0\0\0\0", 6));
    EXPECT_TRUE(TEVUtilString::Copy(L"", copy.Out(), &length));
    EXPECT_EQ(copy.str(), L"");
}

TEST(CopyWide, EmptySourceGivesAnEmptyText_Kept) {
    WideText copy;
    EXPECT_TRUE(TEVUtilString::Copy(L"", copy.Out(), nullptr));
    EXPECT_EQ(copy.str(), L"");
    std::size_t length = 0;
    EXPECT_TRUE(TEVUtilString::Copy(L"", copy.Out(), &length));
    EXPECT_EQ(copy.str(), L"");
}

TEST(CopyWide, NullArgumentsAreRefused) {
    const wchar_t* const noText = nullptr;
    wchar_t** const noOutput = nullptr;
    wchar_t stale[] = L"stale";
    wchar_t* out = stale;
    std::size_t length = 3;
    EXPECT_FALSE(TEVUtilString::Copy(noText, &out, &length));
    EXPECT_EQ(out, nullptr);
    EXPECT_FALSE(TEVUtilString::Copy(L"abc", noOutput, nullptr));
    EXPECT_FALSE(TEVUtilString::Copy(noText, noOutput, nullptr));
}

TEST(CopyWide, LengthBeyondMemoryGivesFalseAndNull) {
    wchar_t stale[] = L"stale";
    for (std::size_t length : {kLargest / 4, kLargest / 2, kLargest - 1, kLargest}) {
        wchar_t* out = stale;
        EXPECT_FALSE(TEVUtilString::Copy(L"abc", &out, &length)) << length;
        EXPECT_EQ(out, nullptr) << length;
    }
}

TEST(CopyWide, HeldBufferIsOverwrittenNotReleased) {
    WideText held;
    ASSERT_TRUE(TEVUtilString::Copy(L"held", held.Out(), nullptr));
    wchar_t* out = held.get();
    EXPECT_TRUE(TEVUtilString::Copy(L"new", &out, nullptr));
    EXPECT_NE(out, held.get());
    EXPECT_EQ(std::wstring(out), L"new");
    EXPECT_EQ(held.str(), L"held");
    TEVUtilString::DeleteWCharBuffer(&out);
}

// Releases the strings that a call appended.
struct Texts {
    Texts() = default;
    ~Texts() {
        for (char*& text : list) TEVUtilString::DeleteCString(&text);
    }
    Texts(const Texts&) = delete;
    Texts& operator=(const Texts&) = delete;

    std::vector<char*> list;
};

TEST(CopyToVector, AppendsACopy) {
    Texts texts;
    const char* source = "abcdef";
    const char* const before = source;
    std::size_t length = 2;
    EXPECT_TRUE(TEVUtilString::Copy(source, texts.list, false, nullptr));
    EXPECT_TRUE(TEVUtilString::Copy(source, texts.list, false, &length));
    ASSERT_EQ(texts.list.size(), 2u);
    EXPECT_STREQ(texts.list[0], "abcdef");
    EXPECT_NE(texts.list[0], source);
    EXPECT_STREQ(texts.list[1], "ab");
    EXPECT_EQ(source, before);
    EXPECT_EQ(length, 2u);
}

TEST(CopyToVector, ReleasesTheSourceOnDemand) {
    Texts texts;
    char* owned = nullptr;
    ASSERT_TRUE(TEVUtilString::Copy("abc", &owned, nullptr));
    const char* source = owned;
    EXPECT_TRUE(TEVUtilString::Copy(source, texts.list, true, nullptr));
    EXPECT_EQ(source, nullptr);
    ASSERT_EQ(texts.list.size(), 1u);
    EXPECT_STREQ(texts.list[0], "abc");
}

TEST(CopyToVector, FailureChangesNothing) {
    Texts texts;
    Text empty;
    ASSERT_EQ(TEVUtilString::GetCharArray(1, empty.Out()), 1u);
    const char* source = empty.get();
    EXPECT_FALSE(TEVUtilString::Copy(source, texts.list, true, nullptr));
    EXPECT_EQ(source, empty.get());
    const char* none = nullptr;
    EXPECT_FALSE(TEVUtilString::Copy(none, texts.list, true, nullptr));
    EXPECT_EQ(none, nullptr);
    EXPECT_TRUE(texts.list.empty());
}

TEST(SubString, TakesCharactersWithinTheText) {
    const struct {
        const char* text;
        std::size_t start;
        std::size_t count;
        bool accepted;
        const char* value;
    } rows[] = {
        {"abc", 1, 2, true, "bc"},       {"abc", 0, 3, true, "abc"},
        {"abc", 2, 1, true, "c"},        {"abc", 2, 2, false, ""},
        {"abc", 0, 4, false, ""},        {"abc", 3, 1, false, ""},
        {"abc", 0, 0, false, ""},        {"abc", 3, 0, false, ""},
        {"abc", 1, kLargest, false, ""}, {"abc", kLargest, 2, false, ""},
        {"", 0, 1, false, ""},           {nullptr, 0, 1, false, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.start << ", " << row.count);
        std::string string = "before";
        EXPECT_EQ(TEVUtilString::SubString(row.text, row.start, row.count, string), row.accepted);
        EXPECT_EQ(string, row.accepted ? row.value : "before");
        char* out = Stale();
        EXPECT_EQ(TEVUtilString::SubString(row.text, row.start, row.count, &out), row.accepted);
        ASSERT_NE(out, Stale());
        EXPECT_EQ(Text(out).str(), row.accepted ? row.value : "(null)");
    }
}

TEST(SubString, NullOutputIsRefused) {
    char** const none = nullptr;
    EXPECT_FALSE(TEVUtilString::SubString("abc", 0, 1, none));
}

TEST(SubString, HeldBufferIsOverwrittenNotReleased) {
    ExpectNewText([](char** out) { TEVUtilString::SubString("abc", 1, 2, out); }, "bc");
}

TEST(GetBytes, CopiesFromTheStart) {
    Text bytes;
    std::string string = "before";
    EXPECT_TRUE(TEVUtilString::GetBytes("abcdef", 2, 3, bytes.Out()));
    EXPECT_EQ(bytes.str(), "cde");
    EXPECT_TRUE(TEVUtilString::GetBytes("abcdef", 2, 3, string));
    EXPECT_EQ(string, "cde");
    ExpectNewText([](char** out) { TEVUtilString::GetBytes("abc", 0, 1, out); }, "a");
}

TEST(GetBytes, TextLengthIsNoBound_Kept) {
    Text bytes;
    ASSERT_TRUE(TEVUtilString::GetBytes("ab\0cd", 1, 4, bytes.Out()));
    EXPECT_EQ(std::string(bytes.get(), 5), std::string("b\0cd\0", 5));
}

TEST(GetBytes, FailureGivesNullOrAnEmptyString) {
    const struct {
        const char* text;
        std::size_t count;
    } rows[] = {
        {nullptr, 3},          {nullptr, 0},          {"abc", 0},
        {"abc", kLargest / 2}, {"abc", kLargest - 1}, {"abc", kLargest},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.count);
        char* out = Stale();
        EXPECT_FALSE(TEVUtilString::GetBytes(row.text, 0, row.count, &out));
        EXPECT_EQ(out, nullptr);
        std::string string = "before";
        EXPECT_FALSE(TEVUtilString::GetBytes(row.text, 0, row.count, string));
        EXPECT_EQ(string, "");
    }
}

TEST(GetBytes, NullOutputIsRefused) {
    char** const none = nullptr;
    EXPECT_FALSE(TEVUtilString::GetBytes("abc", 0, 1, none));
}

TEST(MemCopyTrimmedString, TrimsEveryBlankAtBothEnds) {
    const struct {
        const char* text;
        const char* value;
    } rows[] = {
        {"abc", "abc"},
        {"  a b  ", "a b"},
        {"\t\n\v\f\r abc \r\f\v\n\t", "abc"},
        {"\tabc", "abc"},
        {"\xA0"
         "abc\x85",
         "\xA0"
         "abc\x85"},
        {"x", "x"},
    };
    for (const auto& row : rows) {
        Text out;
        EXPECT_TRUE(TEVUtilString::MemCopyTrimmedString(row.text, out.Out())) << row.value;
        EXPECT_EQ(out.str(), row.value);
    }
}

TEST(MemCopyTrimmedString, FailureReleasesTheHeldBuffer_Kept) {
    for (const char* const text : {static_cast<const char*>(nullptr), "", " ", " \t\n "}) {
        char* out = nullptr;
        ASSERT_TRUE(TEVUtilString::Copy("held", &out, nullptr));
        EXPECT_FALSE(TEVUtilString::MemCopyTrimmedString(text, &out));
        EXPECT_EQ(out, nullptr);
    }
}

TEST(MemCopyTrimmedString, SuccessDoesNotReleaseTheHeldBuffer) {
    ExpectNewText([](char** out) { TEVUtilString::MemCopyTrimmedString(" new ", out); }, "new");
}

TEST(MemCopyTrimmedString, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilString::MemCopyTrimmedString("abc", nullptr));
}

}  // namespace
