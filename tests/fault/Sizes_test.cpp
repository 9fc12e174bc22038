// What only the allocator sees: how much is asked for, how often, and what is never asked for.
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>
#include <string>

#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "fault/Allocator.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::fault::Now;
using tev::test::Text;
using tev::test::WideText;

template <typename Call>
std::ptrdiff_t Attempts(Call call) {
    const auto before = Now().attempts;
    call();
    return Now().attempts - before;
}

TEST(Sizes, ACStringIsRequestedWithOneByteForTheTerminator) {
    Text text;
    TEVUtilString::Copy("abcdef", text.Out(), nullptr);
    EXPECT_EQ(Now().lastSize, 7U);
    TEVUtilString::SubString("abcdef", 1, 2, text.Out());
    EXPECT_EQ(Now().lastSize, 3U);
    TEVUtilString::Replace("aa", "", "a", text.Out());
    EXPECT_EQ(Now().lastSize, 1U);
    std::size_t length = 0;
    TEVUtilString::Base64Decode("Zm9v", text.Out(), length);
    EXPECT_EQ(Now().lastSize, 4U);
}

TEST(Sizes, ArraysHaveExactlyTheCountAskedFor) {
    Text text;
    TEVUtilString::GetCharArray(3, text.Out());
    EXPECT_EQ(Now().lastSize, 3U);
    TEVUtilString::GetCharArray(3, text.Out(), '*');
    EXPECT_EQ(Now().lastSize, 4U);
    int* numbers = nullptr;
    TEVUtilMemory::AllocateIntArray(5, &numbers);
    EXPECT_EQ(Now().lastSize, 5 * sizeof(int));
    TEVUtilMemory::DeallocateIntArray(&numbers);
}

TEST(Sizes, CharsetConversionsLeaveTheRoomTheyPromise_Kept) {
    WideText wide;
    TEVUtilString::ConvertFromCharToWChar("abc", wide.Out());
    EXPECT_EQ(Now().lastSize, 5 * sizeof(wchar_t));
    Text text;
    TEVUtilString::ConvertFromWCharToChar(L"abc", text.Out());
    EXPECT_EQ(Now().lastSize, 13U);
    TEVUtilString::ConvertFromMultiByteCharToWChar("\xC3\xA9", 2, wide.Out(), nullptr);
    EXPECT_EQ(Now().lastSize, 2 * sizeof(wchar_t));
    TEVUtilString::ConvertFromWCharToMultiByteChar(text.Out(), L"\u00e9", 1, nullptr);
    EXPECT_EQ(Now().lastSize, 3U);
}

TEST(Attempts, NoneForTheLargestCharacterCount) {
    char* text = nullptr;
    EXPECT_EQ(Attempts([&text] {
                  TEVUtilMemory::AllocateCharArray(std::numeric_limits<std::size_t>::max(), &text);
                  TEVUtilMemory::AllocateCharArray64(std::numeric_limits<std::size_t>::max(),
                                                     &text);
              }),
              0);
}

TEST(Attempts, NoneForATextThatNoMemoryHolds) {
    namespace detail = TAMO::TEV::System::Util::detail;
    constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(
        Attempts([] { EXPECT_THROW(detail::MakeUnfilledWideText(kLargest / 2), std::bad_alloc); }),
        0);
    EXPECT_THROW(detail::MakeUnfilledWideText(kLargest), std::runtime_error);
    EXPECT_THROW(detail::MakeUnfilledText(kLargest), std::runtime_error);
}

TEST(Attempts, NoneForTrimmingInPlaceSearchingAndComparing) {
    const char* allowed = "abc";
    std::size_t length = 0;
    EXPECT_EQ(Attempts([&] {
                  TEVUtilString::Trim("  a text that is longer than a short one  ", length, true,
                                      true);
                  TEVUtilString::Find("a text that is longer than a short one", "longer");
                  TEVUtilString::Compare(true, "a text that is longer", "A TEXT THAT IS LONGER");
                  TEVUtilString::StartWith(true, "A TEXT", "a text that is longer");
                  TEVUtilString::IsInRange(allowed, "abcabcabcabcabcabcabcabcabc", nullptr);
              }),
              0);
}

TEST(Attempts, ALookupAllocatesNothing) {
    for (const std::size_t length : {1U, 15U, 16U, 127U, 128U, 1000U}) {
        const std::string key(length, 'k');
        ASSERT_TRUE(TEVSystemProperties::SetUserProperty(key.c_str(), "value"));
        const char* value = nullptr;
        EXPECT_EQ(Attempts([&] { TEVSystemProperties::GetProperty(key.c_str(), value); }), 0)
            << length;
        EXPECT_STREQ(value, "value");
    }
    TEVSystemProperties::InitializeProperties();
}

}  // namespace
