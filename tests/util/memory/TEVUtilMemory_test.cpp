#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <thread>
#include <type_traits>
#include <vector>

#include "util/memory/ArrayKinds.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilMemory;
using tev::test::AllArrays;
using tev::test::ArrayName;
using tev::test::CountFirstArrays;
using tev::test::Element;
using tev::test::OuterArrays;
using tev::test::OwnedText;
using tev::test::PlainArrays;
using tev::test::WideArrays;

// The widths that the counts and elements of the interface have on 64-bit Windows.
static_assert(sizeof(std::size_t) == 8);
static_assert(sizeof(unsigned long) == 4);
static_assert(sizeof(wchar_t) == 2);

constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();

template <typename Array>
class Allocate : public ::testing::Test {};
TYPED_TEST_SUITE(Allocate, AllArrays, ArrayName);

TYPED_TEST(Allocate, ResultIsTheCountAskedFor) {
    const auto members = TypeParam::Get();
    for (const std::size_t count : {1u, 2u, 7u, 4096u, 100000u}) {
        Element<TypeParam>* array = nullptr;
        EXPECT_EQ(members.allocate(count, &array), count);
        EXPECT_NE(array, nullptr) << count;
        members.release(&array);
    }
}

TYPED_TEST(Allocate, EveryElementIsZero) {
    constexpr std::size_t kCount = 257;
    const auto members = TypeParam::Get();
    for (int round = 0; round < 3; ++round) {
        Element<TypeParam>* array = nullptr;
        ASSERT_EQ(members.allocate(kCount, &array), kCount);
        for (std::size_t i = 0; i < kCount; ++i)
            EXPECT_TRUE(array[i] == Element<TypeParam>{}) << "round " << round << ", element " << i;
        // The next round may get this block again, and must find it cleared.
        std::memset(static_cast<void*>(array), 0x5A, kCount * sizeof *array);
        members.release(&array);
    }
}

TYPED_TEST(Allocate, CountZeroGivesNullAndZero) {
    Element<TypeParam> other{};
    Element<TypeParam>* array = &other;
    EXPECT_EQ(TypeParam::Get().allocate(0, &array), 0u);
    EXPECT_EQ(array, nullptr);
}

TYPED_TEST(Allocate, HeldPointerIsOverwrittenNotReleased) {
    const auto members = TypeParam::Get();
    Element<TypeParam>* held = nullptr;
    ASSERT_EQ(members.allocate(3, &held), 3u);
    Element<TypeParam>* array = held;
    EXPECT_EQ(members.allocate(3, &array), 3u);
    EXPECT_NE(array, held);
    EXPECT_TRUE(held[2] == Element<TypeParam>{});
    members.release(&array);
    members.release(&held);
}

template <typename Array>
class AllocateCountFirst : public ::testing::Test {};
TYPED_TEST_SUITE(AllocateCountFirst, CountFirstArrays, ArrayName);

TYPED_TEST(AllocateCountFirst, NullOutputGivesZero) {
    EXPECT_EQ(TypeParam::Get().allocate(4, nullptr), 0u);
    EXPECT_EQ(TypeParam::Get().allocate(0, nullptr), 0u);
    EXPECT_EQ(TypeParam::Get().allocate(kLargest, nullptr), 0u);
}

template <typename Array>
class AllocateWide : public ::testing::Test {};
TYPED_TEST_SUITE(AllocateWide, WideArrays, ArrayName);

TYPED_TEST(AllocateWide, ByteSizeBeyondSizeTThrowsBadAlloc) {
    constexpr std::size_t kFirstTooMany = kLargest / sizeof(Element<TypeParam>) + 1;
    // The last two wrap to a few bytes, which a careless product would allocate.
    for (const std::size_t count : {kLargest, kFirstTooMany, kFirstTooMany + 1}) {
        Element<TypeParam>* array = nullptr;
        EXPECT_THROW(TypeParam::Get().allocate(count, &array), std::bad_alloc) << count;
        EXPECT_EQ(array, nullptr) << count;
    }
}

TYPED_TEST(AllocateWide, MoreThanTheAddressSpaceThrowsBadAlloc) {
    Element<TypeParam>* array = nullptr;
    EXPECT_THROW(TypeParam::Get().allocate(kLargest / sizeof(Element<TypeParam>), &array),
                 std::bad_alloc);
    EXPECT_EQ(array, nullptr);
}

TEST(AllocateCharArray, LargestCountIsRefused_Kept) {
    for (const auto allocate :
         {&TEVUtilMemory::AllocateCharArray, &TEVUtilMemory::AllocateCharArray64}) {
        char other = 'x';
        char* array = &other;
        EXPECT_EQ(allocate(kLargest, &array), 0u);
        EXPECT_EQ(array, nullptr);
    }
}

TEST(AllocateCharArray, OneLessThanTheLargestCountThrowsBadAlloc) {
    char* array = nullptr;
    EXPECT_THROW(TEVUtilMemory::AllocateCharArray(kLargest - 1, &array), std::bad_alloc);
    EXPECT_THROW(TEVUtilMemory::AllocateCharArray64(kLargest - 1, &array), std::bad_alloc);
    EXPECT_EQ(array, nullptr);
}

TEST(AllocateByteArrays, LargestCountOfOtherBytesThrowsBadAlloc) {
    bool* switches = nullptr;
    unsigned char* bytes = nullptr;
    EXPECT_THROW(TEVUtilMemory::AllocateBoolArray(kLargest, &switches), std::bad_alloc);
    EXPECT_THROW(TEVUtilMemory::AllocateUnsignedCharArray(kLargest, &bytes), std::bad_alloc);
    EXPECT_EQ(switches, nullptr);
    EXPECT_EQ(bytes, nullptr);
}

template <typename Array>
class Deallocate : public ::testing::Test {};
TYPED_TEST_SUITE(Deallocate, AllArrays, ArrayName);

TYPED_TEST(Deallocate, SetsThePointerToNullAndMayBeRepeated) {
    const auto members = TypeParam::Get();
    Element<TypeParam>* array = nullptr;
    ASSERT_EQ(members.allocate(5, &array), 5u);
    members.release(&array);
    EXPECT_EQ(array, nullptr);
    members.release(&array);
    EXPECT_EQ(array, nullptr);
}

TYPED_TEST(Deallocate, NullPointerStaysNull) {
    Element<TypeParam>* array = nullptr;
    TypeParam::Get().release(&array);
    EXPECT_EQ(array, nullptr);
}

template <typename Array>
class DeallocatePlain : public ::testing::Test {};
TYPED_TEST_SUITE(DeallocatePlain, PlainArrays, ArrayName);

TYPED_TEST(DeallocatePlain, NullArgumentDoesNothing) {
    EXPECT_NO_THROW(TypeParam::Get().release(nullptr));
}

TEST(DeallocateCStringArray, FreesStringsAndArray) {
    char** array = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArray(array, 3), 3u);
    array[0] = OwnedText("one");
    array[2] = OwnedText("three");
    TEVUtilMemory::DeallocateCStringArray(array, 3);
    EXPECT_EQ(array, nullptr);
}

TEST(DeallocateCStringArray, StringsBeyondTheCountStayAlive) {
    char** array = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArray(array, 2), 2u);
    array[0] = OwnedText("freed");
    char* survivor = OwnedText("survivor");
    array[1] = survivor;
    TEVUtilMemory::DeallocateCStringArray(array, 1);
    EXPECT_EQ(array, nullptr);
    EXPECT_STREQ(survivor, "survivor");
    TEVUtilMemory::DeallocateCharArray(&survivor);
}

TEST(DeallocateCStringArrayPointers, FreesSubArraysButNotTheirStrings_Kept) {
    char*** array = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArrayPointers(array, 3), 3u);
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArray(array[0], 1), 1u);
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArray(array[2], 2), 2u);
    char* first = OwnedText("first");
    char* second = OwnedText("second");
    array[0][0] = first;
    array[2][1] = second;
    TEVUtilMemory::DeallocateCStringArrayPointers(array, 3);
    EXPECT_EQ(array, nullptr);
    EXPECT_STREQ(first, "first");
    EXPECT_STREQ(second, "second");
    TEVUtilMemory::DeallocateCharArray(&first);
    TEVUtilMemory::DeallocateCharArray(&second);
}

TEST(DeallocateCStringArrayPointers, SubArraysBeyondTheCountStayAlive) {
    char*** array = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArrayPointers(array, 2), 2u);
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArray(array[1], 1), 1u);
    char** survivor = array[1];
    TEVUtilMemory::DeallocateCStringArrayPointers(array, 1);
    EXPECT_EQ(array, nullptr);
    EXPECT_EQ(survivor[0], nullptr);
    TEVUtilMemory::DeallocateCStringArray(survivor, 1);
}

TEST(DeallocateConstCStringArray, NeverFreesTheStrings_Kept) {
    char* owned = OwnedText("owned elsewhere");
    const char** array = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateConstCStringArray(array, 3), 3u);
    array[0] = "literal";
    array[1] = owned;
    TEVUtilMemory::DeallocateConstCStringArray(array, 3);
    EXPECT_EQ(array, nullptr);
    EXPECT_STREQ(owned, "owned elsewhere");
    TEVUtilMemory::DeallocateCharArray(&owned);
}

TEST(DeallocateStrings, NullArrayIgnoresTheCount) {
    char** strings = nullptr;
    const char** borrowed = nullptr;
    char*** arrays = nullptr;
    TEVUtilMemory::DeallocateCStringArray(strings, 3);
    TEVUtilMemory::DeallocateConstCStringArray(borrowed, 3);
    TEVUtilMemory::DeallocateCStringArrayPointers(arrays, 3);
    EXPECT_EQ(strings, nullptr);
    EXPECT_EQ(borrowed, nullptr);
    EXPECT_EQ(arrays, nullptr);
}

template <typename Array>
class DeallocateOuter : public ::testing::Test {
 protected:
    using Value = typename decltype(Array::Outer())::Value;

    // Sub-arrays of two elements, the middle one missing.
    void SetUp() override {
        ASSERT_EQ(members_.allocate(3, &array_), 3u);
        ASSERT_EQ(members_.allocateElement(2, &array_[0]), 2u);
        ASSERT_EQ(members_.allocateElement(2, &array_[2]), 2u);
        first_ = array_[0];
        last_ = array_[2];
        last_[1] = 7;
    }

    const tev::test::OuterMembers<Value> members_ = Array::Outer();
    Value** array_ = nullptr;
    Value* first_ = nullptr;
    Value* last_ = nullptr;
};
TYPED_TEST_SUITE(DeallocateOuter, OuterArrays, ArrayName);

TYPED_TEST(DeallocateOuter, SubArraysStayAliveUnlessTheyAreToBeDeleted) {
    this->members_.release(3, this->array_, false);
    EXPECT_EQ(this->array_, nullptr);
    EXPECT_TRUE(this->last_[1] == 7);
    this->members_.releaseElement(&this->first_);
    this->members_.releaseElement(&this->last_);
}

TYPED_TEST(DeallocateOuter, SubArraysAreFreedOnDemand) {
    this->members_.release(3, this->array_, true);
    EXPECT_EQ(this->array_, nullptr);
}

TYPED_TEST(DeallocateOuter, SubArraysBeyondTheCountStayAlive) {
    this->members_.release(2, this->array_, true);
    EXPECT_EQ(this->array_, nullptr);
    EXPECT_TRUE(this->last_[1] == 7);
    this->members_.releaseElement(&this->last_);
}

TYPED_TEST(DeallocateOuter, NullArrayIgnoresTheCount) {
    typename TestFixture::Value** none = nullptr;
    this->members_.release(3, none, true);
    EXPECT_EQ(none, nullptr);
    this->members_.release(3, this->array_, true);
}

// Allocates arrays of every count up to 200, fills them and releases them; gives the number of
// elements that were not cleared or lost what was written.
int WrongArrays(int mark) {
    int wrong = 0;
    for (std::size_t count = 1; count <= 200; ++count) {
        int* array = nullptr;
        if (TEVUtilMemory::AllocateIntArray(count, &array) != count) return ++wrong;
        for (std::size_t i = 0; i < count; ++i) wrong += array[i] != 0;
        for (std::size_t i = 0; i < count; ++i) array[i] = mark;
        std::this_thread::yield();
        for (std::size_t i = 0; i < count; ++i) wrong += array[i] != mark;
        TEVUtilMemory::DeallocateIntArray(&array);
        wrong += array != nullptr;
    }
    return wrong;
}

TEST(TEVUtilMemory, ThreadsUseDistinctArraysAtOnce) {
    constexpr int kThreads = 4;
    int wrong[kThreads] = {};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([i, &wrong] {
            for (int round = 0; round < 20; ++round) wrong[i] += WrongArrays(i + 1);
        });
    for (std::thread& thread : threads) thread.join();
    for (int i = 0; i < kThreads; ++i) EXPECT_EQ(wrong[i], 0) << "thread " << i;
}

TEST(TEVUtilMemory, ArgumentOrdersOfPointerArraysDiffer_Kept) {
    using M = TEVUtilMemory;
    using std::size_t;
    EXPECT_TRUE((std::is_same_v<decltype(&M::AllocateCStringArray), size_t (*)(char**&, size_t)>));
    EXPECT_TRUE((std::is_same_v<decltype(&M::AllocateConstCStringArray),
                                size_t (*)(const char**&, size_t)>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(&M::AllocateCStringArrayPointers), size_t (*)(char***&, size_t)>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(&M::AllocateDoubleArrayPointers), size_t (*)(size_t, double***)>));
    EXPECT_TRUE((std::is_same_v<decltype(&M::DeallocateCStringArray), void (*)(char**&, size_t)>));
    EXPECT_TRUE((std::is_same_v<decltype(&M::DeallocateDoubleArrayPointers),
                                void (*)(size_t, double**&, bool)>));
}

TEST(TEVUtilMemory, IsNeverInstantiated) {
    EXPECT_FALSE(std::is_default_constructible_v<TEVUtilMemory>);
    EXPECT_FALSE(std::is_destructible_v<TEVUtilMemory>);
}

}  // namespace
