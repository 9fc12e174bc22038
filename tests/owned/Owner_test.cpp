#include <TEVSystemLib/TEVOwned.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace TAMO::TEV::System::Host;

// What the owners below have released, in order; an array's first element and its count.
std::vector<int> released;

struct NumberKind : PointerKind<int, const int> {
    static void Release(int*& number) noexcept {
        if (number != nullptr) released.push_back(*number);
        number = nullptr;
    }
};

struct NumbersKind : ArrayKind<int> {
    static void Release(int*& numbers, std::size_t count) noexcept {
        if (numbers != nullptr) released.insert(released.end(), numbers, numbers + count);
        numbers = nullptr;
    }
};

using OwnedNumber = Owner<NumberKind>;
using OwnedNumbers = OwnedArray<NumbersKind>;
using Released = std::vector<int>;

class OwnerTest : public testing::Test {
 protected:
    OwnerTest() { released.clear(); }
    ~OwnerTest() override { Released().swap(released); }

    int one_ = 1;
    int two_ = 2;
    int pair_[2] = {3, 4};
    int single_[1] = {5};
};

class ArrayOwnerTest : public OwnerTest {};

TEST_F(OwnerTest, IsEmptyAtFirst) {
    const OwnedNumber number;
    EXPECT_FALSE(number);
    EXPECT_EQ(number.get(), nullptr);
}

TEST_F(OwnerTest, ReleasesOnceAtTheEndOfItsLife) {
    {
        const OwnedNumber number(&one_);
        EXPECT_TRUE(number);
        EXPECT_EQ(*number, 1);
        EXPECT_EQ(number.get(), &one_);
        EXPECT_EQ(released, Released{});
    }
    EXPECT_EQ(released, Released{1});
}

TEST_F(OwnerTest, ResetReleasesNow) {
    OwnedNumber number(&one_);
    number.Reset();
    EXPECT_FALSE(number);
    number.Reset();
    EXPECT_EQ(released, Released{1});
}

TEST_F(OwnerTest, GivesUpWithoutReleasing) {
    {
        OwnedNumber number(&one_);
        EXPECT_EQ(number.release(), &one_);
        EXPECT_FALSE(number);
    }
    EXPECT_EQ(released, Released{});
}

TEST_F(OwnerTest, MovesAlongWithWhatItHolds) {
    OwnedNumber first(&one_);
    OwnedNumber second(std::move(first));
    EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): it is empty
    EXPECT_EQ(second.get(), &one_);
    OwnedNumber third(&two_);
    third = std::move(second);
    EXPECT_EQ(released, Released{2});
    EXPECT_FALSE(second);  // NOLINT(bugprone-use-after-move): it is empty
    EXPECT_EQ(third.get(), &one_);
}

TEST_F(OwnerTest, MovedIntoItselfItKeepsWhatItHolds) {
    OwnedNumber number(&one_);
    OwnedNumber& same = number;
    number = std::move(same);
    EXPECT_EQ(number.get(), &one_);
    EXPECT_EQ(released, Released{});
}

TEST_F(OwnerTest, OutReleasesWhatWasHeldFirst) {
    OwnedNumber number(&one_);
    int** slot = Out(number);
    EXPECT_EQ(released, Released{1});
    EXPECT_EQ(*slot, nullptr);
    *slot = &two_;
    EXPECT_EQ(*number, 2);
}

TEST_F(OwnerTest, MovesButNeverCopies) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<OwnedText>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<OwnedText>);
    EXPECT_FALSE(std::is_copy_constructible_v<OwnedText>);
    EXPECT_FALSE(std::is_copy_assignable_v<OwnedText>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<OwnedTextArray>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<OwnedTextArray>);
    EXPECT_FALSE(std::is_copy_constructible_v<OwnedTextArray>);
    EXPECT_FALSE(std::is_copy_assignable_v<OwnedTextArray>);
}

TEST_F(OwnerTest, IsNoLargerThanWhatItOwns) {
    EXPECT_EQ(sizeof(OwnedText), sizeof(char*));
    EXPECT_EQ(sizeof(OwnedModule), sizeof(void*));
    EXPECT_EQ(sizeof(OwnedTextArray), sizeof(char**) + sizeof(std::size_t));
}

TEST_F(ArrayOwnerTest, IsEmptyAtFirst) {
    const OwnedNumbers numbers;
    EXPECT_TRUE(numbers.empty());
    EXPECT_EQ(numbers.size(), 0u);
    EXPECT_EQ(numbers.begin(), numbers.end());
}

TEST_F(ArrayOwnerTest, ReleasesAsManyElementsAsItWasTold) {
    {
        const OwnedNumbers numbers(pair_, 2);
        EXPECT_EQ(Released(numbers.begin(), numbers.end()), (Released{3, 4}));
        EXPECT_EQ(numbers[1], 4);
    }
    EXPECT_EQ(released, (Released{3, 4}));
}

TEST_F(ArrayOwnerTest, MovesAlongWithItsCount) {
    OwnedNumbers first(pair_, 2);
    OwnedNumbers second(std::move(first));
    EXPECT_TRUE(first.empty());  // NOLINT(bugprone-use-after-move): it is empty
    OwnedNumbers third(single_, 1);
    third = std::move(second);
    EXPECT_EQ(released, Released{5});
    EXPECT_TRUE(second.empty());  // NOLINT(bugprone-use-after-move): it is empty
    EXPECT_EQ(third.size(), 2u);
    OwnedNumbers& same = third;
    third = std::move(same);
    EXPECT_EQ(third.data(), pair_);
}

TEST_F(ArrayOwnerTest, OutReleasesWhatWasHeldFirst) {
    OwnedNumbers numbers(pair_, 2);
    int** slot = Out(numbers);
    EXPECT_EQ(released, (Released{3, 4}));
    EXPECT_EQ(*slot, nullptr);
    EXPECT_EQ(Count(numbers), 0u);
    *slot = single_;
    Count(numbers) = 1;
    EXPECT_EQ(numbers.size(), 1u);
}

TEST_F(ArrayOwnerTest, ACountThatIsKnownBeforeCountsOnlyWithAnArray) {
    OwnedNumbers numbers;
    int** slot = Out(numbers, 2);
    EXPECT_EQ(numbers.size(), 0u);
    EXPECT_EQ(numbers.begin(), numbers.end());
    *slot = pair_;
    EXPECT_EQ(numbers.size(), 2u);
}

TEST_F(ArrayOwnerTest, InOutReleasesNothing) {
    OwnedNumbers numbers(pair_, 2);
    EXPECT_EQ(*InOut(numbers), pair_);
    EXPECT_EQ(Count(numbers), 2u);
    EXPECT_EQ(released, Released{});
}

}  // namespace
