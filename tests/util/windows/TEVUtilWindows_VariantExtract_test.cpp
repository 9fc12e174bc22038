#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "support/Com.h"
#include "util/windows/ArrayVariants.h"
#include "util/windows/NumberKinds.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::ArrayWithoutData;
using tev::test::kMostLocks;
using tev::test::RefusedVariants;
using tev::test::SafeArray;
using tev::test::Variant;

constexpr std::uint64_t kStaleCount = 77;

template <typename Kind>
class ExtractNumberArrayFromVARIANT : public testing::Test {
 protected:
    using Number = typename Kind::Number;

    // What an output may hold before a call: nothing that the library could release.
    ExtractNumberArrayFromVARIANT() : out_(&held_) {}
    ~ExtractNumberArrayFromVARIANT() override { Release(); }

    static SafeArray Filled(std::vector<SAFEARRAYBOUND> bounds, std::vector<Number> numbers) {
        SafeArray array(Kind::kElementType, std::move(bounds));
        std::memcpy(array->pvData, numbers.data(), numbers.size() * sizeof(Number));
        return array;
    }
    static Variant InVariant(SafeArray array) {
        return Variant(static_cast<VARTYPE>(VT_ARRAY | Kind::kElementType), std::move(array));
    }
    bool Extract(VARIANT* variant) {
        Release();
        out_ = &held_;
        count_ = kStaleCount;
        return Kind::Extract(&out_, count_, variant);
    }
    void ExpectNothing() const {
        EXPECT_EQ(out_, nullptr);
        EXPECT_EQ(count_, 0u);
    }
    std::vector<Number> Extracted() const { return {out_, out_ + count_}; }

    void Release() {
        if (out_ != &held_) Kind::Delete(&out_);
    }

    Number held_ = 0;
    Number* out_;
    std::uint64_t count_ = 0;
};
TYPED_TEST_SUITE(ExtractNumberArrayFromVARIANT, tev::test::NumberKinds, tev::test::NumberKindNames);

TYPED_TEST(ExtractNumberArrayFromVARIANT, WhatWasSet) {
    auto numbers = TypeParam::Numbers();
    Variant variant;
    ASSERT_TRUE(TypeParam::Set(numbers.data(), numbers.size(), variant.Out()));
    ASSERT_TRUE(this->Extract(variant.get()));
    ASSERT_EQ(this->count_, numbers.size());
    EXPECT_EQ(std::memcmp(this->out_, numbers.data(), numbers.size() * sizeof(numbers[0])), 0);
    EXPECT_NE(static_cast<void*>(this->out_), variant.Array()->pvData);
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, ManyNumbers) {
    std::vector<typename TypeParam::Number> numbers;
    for (int i = 0; i < 100'000; ++i) numbers.push_back(i - 50'000);
    Variant variant;
    ASSERT_TRUE(TypeParam::Set(numbers.data(), numbers.size(), variant.Out()));
    ASSERT_TRUE(this->Extract(variant.get()));
    EXPECT_TRUE(this->Extracted() == numbers);
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, VariantIsLeftAsItWas) {
    Variant variant = this->InVariant(this->Filled({{2, 0}}, {1, 2}));
    SAFEARRAY* const array = variant.Array();
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(this->Extract(variant.get()));
        EXPECT_EQ(this->Extracted(), (std::vector<typename TypeParam::Number>{1, 2}));
        EXPECT_EQ(variant.Type(), VT_ARRAY | TypeParam::kElementType);
        EXPECT_EQ(variant.Array(), array);
    }
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, OtherVariantsAreRefused) {
    RefusedVariants(TypeParam::kElementType).ForEach([this](const char* name, VARIANT* variant) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(this->Extract(variant));
        this->ExpectNothing();
    });
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, ArrayWithoutDataIsRefused) {
    Variant variant = this->InVariant(ArrayWithoutData(TypeParam::kElementType, 2));
    EXPECT_FALSE(this->Extract(variant.get()));
    this->ExpectNothing();
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, NullOutputIsRefused) {
    Variant variant = this->InVariant(this->Filled({{2, 0}}, {1, 2}));
    std::uint64_t count = kStaleCount;
    EXPECT_FALSE(TypeParam::Extract(nullptr, count, variant.get()));
    EXPECT_EQ(count, 0u);
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, FirstStoredBoundIsThatOfTheLastDimension_Kept) {
    // Three rows of two: the dimensions are not counted, so only as many as the last has come out,
    // in the order of the data block, where the first index runs fastest.
    Variant variant = this->InVariant(this->Filled({{3, 0}, {2, 0}}, {1, 2, 3, 4, 5, 6}));
    ASSERT_TRUE(this->Extract(variant.get()));
    EXPECT_EQ(this->Extracted(), (std::vector<typename TypeParam::Number>{1, 2}));
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, LowerBoundOfOtherDimensionsIsNotLookedAt_Kept) {
    Variant accepted = this->InVariant(this->Filled({{3, 1}, {2, 0}}, {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(this->Extract(accepted.get()));
    EXPECT_EQ(this->Extracted(), (std::vector<typename TypeParam::Number>{1, 2}));
    Variant refused = this->InVariant(this->Filled({{3, 0}, {2, 1}}, {1, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(this->Extract(refused.get()));
    this->ExpectNothing();
}

TYPED_TEST(ExtractNumberArrayFromVARIANT, ArrayIsNotLocked_Kept) {
    Variant variant = this->InVariant(this->Filled({{2, 0}}, {1, 2}));
    variant.Array()->cLocks = kMostLocks;
    EXPECT_TRUE(this->Extract(variant.get()));
    EXPECT_EQ(variant.Array()->cLocks, kMostLocks);
    variant.Array()->cLocks = 0;
    EXPECT_EQ(this->Extracted(), (std::vector<typename TypeParam::Number>{1, 2}));
}

}  // namespace
