#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "support/Com.h"
#include "util/windows/ArrayVariants.h"
#include "util/windows/NumberKinds.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::BoundsOf;
using tev::test::ElementTypeOf;
using tev::test::ExpectEmptiedWithoutRelease;
using tev::test::kBeyondTheSystem;
using tev::test::ReadElement;
using tev::test::SafeArray;
using tev::test::Variant;

void ExpectEmptyVariants(SAFEARRAY* array, LONG count) {
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 1u);
    EXPECT_EQ(BoundsOf(array, 1), std::pair(count, LONG{0}));
    EXPECT_EQ(ElementTypeOf(array), VT_VARIANT);
    for (LONG i = 0; i < count; ++i) {
        Variant element;
        element.get()->vt = VT_I4;
        ASSERT_TRUE(ReadElement(array, {i}, element.get()));
        EXPECT_EQ(element.Type(), VT_EMPTY) << i;
    }
}

TEST(CreateSafeArrayOfVariants, EmptyVariantsFromIndexZero) {
    for (const LONG count : {1, 2, 1000}) {
        SAFEARRAY* bare = nullptr;
        EXPECT_TRUE(
            TEVUtilWindows::CreateSafeArrayOfVariants(&bare, static_cast<std::uint64_t>(count)));
        ExpectEmptyVariants(bare, count);
        EXPECT_TRUE(TEVUtilWindows::DestroySafeArray(bare));

        Variant variant;
        EXPECT_TRUE(TEVUtilWindows::CreateSafeArrayOfVariants(variant.Out(),
                                                              static_cast<std::uint64_t>(count)));
        EXPECT_EQ(variant.Type(), 0x200C);
        ExpectEmptyVariants(variant.Array(), count);
    }
}

TEST(CreateSafeArrayOfVariants, ElementsCanBeFilled) {
    Variant variant;
    ASSERT_TRUE(TEVUtilWindows::CreateSafeArrayOfVariants(variant.Out(), 3));
    LONG index = 2;
    Variant text;
    text.get()->vt = VT_BSTR;
    text.get()->bstrVal = SysAllocString(L"text");
    ASSERT_TRUE(SUCCEEDED(SafeArrayPutElement(variant.Array(), &index, text.get())));
    Variant element;
    ASSERT_TRUE(ReadElement(variant.Array(), {2}, element.get()));
    ASSERT_EQ(element.Type(), VT_BSTR);
    EXPECT_STREQ(element.get()->bstrVal, L"text");
}

TEST(CreateSafeArrayOfVariants, ImpossibleCountsAreRefused) {
    constexpr std::uint64_t kBeyondItsBytes = kBeyondTheSystem / sizeof(VARIANT) + 1;
    for (const std::uint64_t count :
         {std::uint64_t{0}, kBeyondItsBytes, kBeyondTheSystem, kBeyondTheSystem + 1,
          std::numeric_limits<std::uint64_t>::max()}) {
        SCOPED_TRACE(count);
        SAFEARRAY held = {};
        SAFEARRAY* bare = &held;
        EXPECT_FALSE(TEVUtilWindows::CreateSafeArrayOfVariants(&bare, count));
        EXPECT_EQ(bare, nullptr);
        ExpectEmptiedWithoutRelease([count](VARIANT* out) {
            return TEVUtilWindows::CreateSafeArrayOfVariants(out, count);
        });
    }
}

TEST(CreateSafeArrayOfVariants, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::CreateSafeArrayOfVariants(static_cast<SAFEARRAY**>(nullptr), 1));
    EXPECT_FALSE(TEVUtilWindows::CreateSafeArrayOfVariants(static_cast<VARIANT*>(nullptr), 1));
}

TEST(DestroySafeArray, NullIsAccepted) { EXPECT_TRUE(TEVUtilWindows::DestroySafeArray(nullptr)); }

TEST(DestroySafeArray, ArraysOfEveryKind) {
    for (const VARTYPE type : {VT_R8, VT_I4, VT_BSTR, VT_VARIANT}) {
        EXPECT_TRUE(TEVUtilWindows::DestroySafeArray(SafeArray(type, {{2, 0}}).release()));
        EXPECT_TRUE(TEVUtilWindows::DestroySafeArray(SafeArray(type, {{2, 1}, {3, -1}}).release()));
    }
}

TEST(DestroySafeArray, RefusalOfTheSystemShows) {
    SafeArray array(VT_I4, {{2, 0}});
    ASSERT_TRUE(SUCCEEDED(SafeArrayLock(array.get())));
    EXPECT_FALSE(TEVUtilWindows::DestroySafeArray(array.get()));
    ASSERT_TRUE(SUCCEEDED(SafeArrayUnlock(array.get())));
    EXPECT_TRUE(TEVUtilWindows::DestroySafeArray(array.release()));
}

template <typename Kind>
class SetNumberArrayVARIANT : public testing::Test {};
TYPED_TEST_SUITE(SetNumberArrayVARIANT, tev::test::NumberKinds, tev::test::NumberKindNames);

TYPED_TEST(SetNumberArrayVARIANT, BytesOfTheNumbersFromIndexZero) {
    using Number = typename TypeParam::Number;
    std::vector<Number> numbers = TypeParam::Numbers();
    const std::vector<Number> before = numbers;
    Variant variant;
    EXPECT_TRUE(TypeParam::Set(numbers.data(), numbers.size(), variant.Out()));
    EXPECT_EQ(variant.Type(), TypeParam::kType);
    SAFEARRAY* array = variant.Array();
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 1u);
    EXPECT_EQ(BoundsOf(array, 1), std::pair(static_cast<LONG>(numbers.size()), LONG{0}));
    EXPECT_EQ(ElementTypeOf(array), TypeParam::kElementType);
    EXPECT_EQ(array->cLocks, 0u);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        Number element = 77;
        ASSERT_TRUE(ReadElement(array, {static_cast<LONG>(i)}, &element));
        EXPECT_EQ(std::memcmp(&element, &numbers[i], sizeof(Number)), 0) << i;
    }
    EXPECT_EQ(std::memcmp(numbers.data(), before.data(), numbers.size() * sizeof(Number)), 0);
}

TYPED_TEST(SetNumberArrayVARIANT, OneNumber) {
    typename TypeParam::Number number = 42;
    Variant variant;
    EXPECT_TRUE(TypeParam::Set(&number, 1, variant.Out()));
    ASSERT_NE(variant.Array(), nullptr);
    EXPECT_EQ(BoundsOf(variant.Array(), 1), std::pair(LONG{1}, LONG{0}));
}

TYPED_TEST(SetNumberArrayVARIANT, ArrayIsACopy) {
    typename TypeParam::Number numbers[] = {1, 2};
    Variant variant;
    ASSERT_TRUE(TypeParam::Set(numbers, 2, variant.Out()));
    numbers[1] = 77;
    typename TypeParam::Number element = 0;
    ASSERT_TRUE(ReadElement(variant.Array(), {1}, &element));
    EXPECT_EQ(element, 2);
}

TYPED_TEST(SetNumberArrayVARIANT, RefusalEmptiesTheOutput) {
    typename TypeParam::Number numbers[] = {1, 2};
    const struct {
        const char* what;
        typename TypeParam::Number* data;
        std::uint64_t count;
    } rows[] = {
        {"no data", nullptr, 2},
        {"no elements", numbers, 0},
        {"neither", nullptr, 0},
        {"more bytes than an array holds", numbers,
         kBeyondTheSystem / sizeof(typename TypeParam::Number)},
        {"more than an array holds", numbers, kBeyondTheSystem},
        {"a little more than that", numbers, kBeyondTheSystem + 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        ExpectEmptiedWithoutRelease(
            [&row](VARIANT* out) { return TypeParam::Set(row.data, row.count, out); });
    }
}

TYPED_TEST(SetNumberArrayVARIANT, NullOutputIsRefused) {
    typename TypeParam::Number number = 1;
    EXPECT_FALSE(TypeParam::Set(&number, 1, nullptr));
    EXPECT_FALSE(TypeParam::Set(nullptr, 0, nullptr));
}

TYPED_TEST(SetNumberArrayVARIANT, OutputIsOverwrittenNotReleased) {
    const SafeArray held(TypeParam::kElementType, {{1, 0}});
    VARIANT out;
    out.vt = TypeParam::kType;
    out.parray = held.get();
    typename TypeParam::Number number = 1;
    ASSERT_TRUE(TypeParam::Set(&number, 1, &out));
    EXPECT_NE(out.parray, held.get());
    EXPECT_EQ(BoundsOf(held.get(), 1), std::pair(LONG{1}, LONG{0}));
    VariantClear(&out);
}

TEST(DeleteCharBuffer, SetsThePointerToNull) {
    char* buffer = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateCharArray(3, &buffer), 3u);
    for (int i = 0; i < 2; ++i) {
        TEVUtilWindows::DeleteCharBuffer(&buffer);
        EXPECT_EQ(buffer, nullptr);
    }
    EXPECT_NO_THROW(TEVUtilWindows::DeleteCharBuffer(nullptr));
}

TEST(DeleteDoubleBuffer, SetsThePointerToNull) {
    double* buffer = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateDoubleArray(3, &buffer), 3u);
    for (int i = 0; i < 2; ++i) {
        TEVUtilWindows::DeleteDoubleBuffer(&buffer);
        EXPECT_EQ(buffer, nullptr);
    }
    EXPECT_NO_THROW(TEVUtilWindows::DeleteDoubleBuffer(nullptr));
}

TEST(DeleteIntBuffer, SetsThePointerToNull) {
    int* buffer = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateIntArray(3, &buffer), 3u);
    for (int i = 0; i < 2; ++i) {
        TEVUtilWindows::DeleteIntBuffer(&buffer);
        EXPECT_EQ(buffer, nullptr);
    }
    EXPECT_NO_THROW(TEVUtilWindows::DeleteIntBuffer(nullptr));
}

TEST(DeleteCStringArray, StringsAndArray) {
    char** array = nullptr;
    ASSERT_EQ(TEVUtilMemory::AllocateCStringArray(array, 3), 3u);
    ASSERT_EQ(TEVUtilMemory::AllocateCharArray(3, &array[1]), 3u);
    for (int i = 0; i < 2; ++i) {
        TEVUtilWindows::DeleteCStringArray(array, 3);
        EXPECT_EQ(array, nullptr);
    }
}

}  // namespace
