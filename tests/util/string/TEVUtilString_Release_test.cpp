#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>
#include <string>

#include "support/Owned.h"
#include "util/string/OutputPointer.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExpectNewText;
using tev::test::Stale;
using tev::test::Text;

constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();

TEST(DeleteCString, NullsThePointerAndAcceptsNull) {
    char* text = nullptr;
    ASSERT_TRUE(TEVUtilString::Copy("abc", &text, nullptr));
    TEVUtilString::DeleteCString(&text);
    EXPECT_EQ(text, nullptr);
    TEVUtilString::DeleteCString(&text);
    EXPECT_EQ(text, nullptr);
    EXPECT_NO_THROW(TEVUtilString::DeleteCString(nullptr));
}

TEST(DeleteWCharBuffer, NullsThePointerAndAcceptsNull) {
    wchar_t* text = nullptr;
    ASSERT_TRUE(TEVUtilString::Copy(L"abc", &text, nullptr));
    TEVUtilString::DeleteWCharBuffer(&text);
    EXPECT_EQ(text, nullptr);
    TEVUtilString::DeleteWCharBuffer(&text);
    EXPECT_EQ(text, nullptr);
    EXPECT_NO_THROW(TEVUtilString::DeleteWCharBuffer(nullptr));
}

TEST(DeleteUnsignedCharArray, NullsThePointerAndAcceptsNull) {
    unsigned char* bytes = nullptr;
    ASSERT_EQ(TEVUtilString::GetUnsignedCharArray(3, &bytes), 3u);
    TEVUtilString::DeleteUnsignedCharArray(&bytes);
    EXPECT_EQ(bytes, nullptr);
    TEVUtilString::DeleteUnsignedCharArray(&bytes);
    EXPECT_EQ(bytes, nullptr);
    EXPECT_NO_THROW(TEVUtilString::DeleteUnsignedCharArray(nullptr));
}

TEST(DeleteCStringArray, FreesStringsAndArray) {
    char** array = nullptr;
    ASSERT_EQ(TEVUtilString::GetCStringArray(array, 3), 3u);
    ASSERT_TRUE(TEVUtilString::Copy("one", &array[0], nullptr));
    ASSERT_TRUE(TEVUtilString::Copy("three", &array[2], nullptr));
    TEVUtilString::DeleteCStringArray(array, 3);
    EXPECT_EQ(array, nullptr);
    TEVUtilString::DeleteCStringArray(array, 3);
    EXPECT_EQ(array, nullptr);
}

TEST(DeleteConstCStringArray, LeavesTheStringsAlone) {
    Text owned;
    ASSERT_TRUE(TEVUtilString::Copy("owned elsewhere", owned.Out(), nullptr));
    const char** array = nullptr;
    ASSERT_EQ(TEVUtilString::GetConstCStringArray(array, 2), 2u);
    array[0] = "literal";
    array[1] = owned.get();
    TEVUtilString::DeleteConstCStringArray(array, 2);
    EXPECT_EQ(array, nullptr);
    EXPECT_EQ(owned.str(), "owned elsewhere");
    TEVUtilString::DeleteConstCStringArray(array, 2);
    EXPECT_EQ(array, nullptr);
}

TEST(GetCharArray, GivesExactlyTheZeroedBytes) {
    Text text;
    ASSERT_EQ(TEVUtilString::GetCharArray(3, text.Out()), 3u);
    EXPECT_EQ(std::string(text.get(), 3), std::string(3, '\0'));
}

TEST(GetCharArray, RefusesZeroTheLargestCountAndANullOutput) {
    for (const std::size_t count : {std::size_t{0}, kLargest}) {
        char* out = Stale();
        EXPECT_EQ(TEVUtilString::GetCharArray(count, &out), 0u) << count;
        EXPECT_EQ(out, nullptr) << count;
    }
    EXPECT_EQ(TEVUtilString::GetCharArray(3, nullptr), 0u);
}

TEST(GetCharArray, ExhaustedMemoryThrowsBadAlloc) {
    char* out = nullptr;
    EXPECT_THROW(TEVUtilString::GetCharArray(kLargest - 1, &out), std::bad_alloc);
    EXPECT_EQ(out, nullptr);
}

TEST(GetCharArray, FillsAndTerminates) {
    Text stars;
    EXPECT_EQ(TEVUtilString::GetCharArray(3, stars.Out(), '*'), 3u);
    EXPECT_EQ(stars.str(), "***");
    EXPECT_EQ(TEVUtilString::GetCharArray(1, stars.Out(), '\xE9'), 1u);
    EXPECT_EQ(stars.str(), "\xE9");
    ExpectNewText([](char** out) { TEVUtilString::GetCharArray(2, out, 'x'); }, "xx");
}

TEST(GetCharArray, OnlyTheFillingFormAddsATerminator_Kept) {
    Text plain;
    Text filled;
    ASSERT_EQ(TEVUtilString::GetCharArray(3, plain.Out()), 3u);
    ASSERT_EQ(TEVUtilString::GetCharArray(3, filled.Out(), '*'), 3u);
    EXPECT_EQ(std::string(plain.get(), 3), std::string(3, '\0'));
    EXPECT_EQ(std::string(filled.get(), 4), std::string("***\0", 4));
    // With the terminator this count is the largest of all, which is refused without an attempt.
    char* out = nullptr;
    EXPECT_THROW(TEVUtilString::GetCharArray(kLargest - 1, &out), std::bad_alloc);
    EXPECT_EQ(TEVUtilString::GetCharArray(kLargest - 1, &out, '*'), 0u);
}

// The terminator takes one more byte, so that the two largest counts cannot be served either.
TEST(GetCharArray, RefusesToFillNothing) {
    for (const std::size_t count : {std::size_t{0}, kLargest - 1, kLargest}) {
        char* out = Stale();
        EXPECT_EQ(TEVUtilString::GetCharArray(count, &out, '*'), 0u) << count;
        EXPECT_EQ(out, nullptr) << count;
    }
    EXPECT_EQ(TEVUtilString::GetCharArray(3, nullptr, '*'), 0u);
}

TEST(GetUnsignedCharArray, ForwardsToTheAllocator) {
    unsigned char* bytes = nullptr;
    ASSERT_EQ(TEVUtilString::GetUnsignedCharArray(3, &bytes), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(bytes[i], 0) << i;
    TEVUtilString::DeleteUnsignedCharArray(&bytes);
    EXPECT_EQ(TEVUtilString::GetUnsignedCharArray(0, &bytes), 0u);
    EXPECT_EQ(TEVUtilString::GetUnsignedCharArray(3, nullptr), 0u);
    EXPECT_THROW(TEVUtilString::GetUnsignedCharArray(kLargest, &bytes), std::bad_alloc);
    EXPECT_EQ(bytes, nullptr);
}

TEST(GetCStringArray, ForwardsToTheAllocator) {
    char** array = nullptr;
    ASSERT_EQ(TEVUtilString::GetCStringArray(array, 3), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(array[i] == nullptr) << i;
    TEVUtilString::DeleteCStringArray(array, 3);
    EXPECT_EQ(TEVUtilString::GetCStringArray(array, 0), 0u);
    EXPECT_THROW(TEVUtilString::GetCStringArray(array, kLargest), std::bad_alloc);
    EXPECT_EQ(array, nullptr);
}

TEST(GetConstCStringArray, ForwardsToTheAllocator) {
    const char** array = nullptr;
    ASSERT_EQ(TEVUtilString::GetConstCStringArray(array, 3), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(array[i] == nullptr) << i;
    TEVUtilString::DeleteConstCStringArray(array, 3);
    EXPECT_EQ(TEVUtilString::GetConstCStringArray(array, 0), 0u);
    EXPECT_THROW(TEVUtilString::GetConstCStringArray(array, kLargest), std::bad_alloc);
    EXPECT_EQ(array, nullptr);
}

}  // namespace
