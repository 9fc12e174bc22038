#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "models/ArrayModel.h"
#include "support/Com.h"
#include "support/Owned.h"
#include "util/windows/NumberKinds.h"
#include "util/windows/RandomArrays.h"

// Arrays are filled and read in one go: here beside arrays that the system fills and reads one
// element after the other.
namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Bstr;
using tev::test::Doubles;
using tev::test::ForRandomSizes;
using tev::test::HoldTheSameNumbers;
using tev::test::HoldTheSameTexts;
using tev::test::Ints;
using tev::test::NumbersIn;
using tev::test::RandomArrays;
using tev::test::SafeArray;
using tev::test::TextArray;
using tev::test::TextIn;
using tev::test::Variant;

template <typename Number>
std::vector<Number> RandomNumbers(RandomArrays& random, std::size_t size) {
    std::vector<Number> numbers(size);
    for (Number& number : numbers) number = random.Bits<Number>();
    return numbers;
}

SafeArray Sized(VARTYPE type, std::size_t size) {
    return SafeArray(type, {{static_cast<ULONG>(size), 0}});
}

template <typename Kind>
void ExpectSetAsOneByOne() {
    using Number = typename Kind::Number;
    ForRandomSizes(1, [](RandomArrays& random, std::size_t size) {
        std::vector<Number> numbers = RandomNumbers<Number>(random, size);
        numbers.reserve(1);  // none are no null pointer
        Variant variant;
        ASSERT_EQ(Kind::Set(numbers.data(), size, variant.Out()), size > 0);
        if (size == 0) return;
        const SafeArray expected = Sized(Kind::kElementType, size);
        tev::test::PutNumbers(expected.get(), numbers);
        ASSERT_EQ(variant.Type(), Kind::kType);
        ASSERT_TRUE(HoldTheSameNumbers<Number>(variant.Array(), expected.get()));
    });
}

TEST(SetDoubleArrayVARIANT, RandomNumbersAsOneByOne) { ExpectSetAsOneByOne<Doubles>(); }
TEST(SetIntArrayVARIANT, RandomNumbersAsOneByOne) { ExpectSetAsOneByOne<Ints>(); }

template <typename Kind>
void ExpectExtractedAsOneByOne() {
    using Number = typename Kind::Number;
    ForRandomSizes(1, [](RandomArrays& random, std::size_t size) {
        SafeArray array = Sized(Kind::kElementType, size);
        tev::test::PutNumbers(array.get(), RandomNumbers<Number>(random, size));
        const std::vector<Number> expected = NumbersIn<Number>(array.get(), size);
        Variant variant(Kind::kType, std::move(array));
        Number* numbers = nullptr;
        std::uint64_t count = 0;
        ASSERT_EQ(Kind::Extract(&numbers, count, variant.get()), size > 0);
        EXPECT_EQ(count, size);
        if (size == 0) return;
        EXPECT_EQ(std::memcmp(numbers, expected.data(), size * sizeof(Number)), 0)
            << testing::PrintToString(expected);
        Kind::Delete(&numbers);
    });
}

TEST(ExtractDoubleArrayFromVARIANT, RandomNumbersAsOneByOne) {
    ExpectExtractedAsOneByOne<Doubles>();
}
TEST(ExtractIntArrayFromVARIANT, RandomNumbersAsOneByOne) { ExpectExtractedAsOneByOne<Ints>(); }

TEST(SetStringArrayVARIANT, RandomTextsAsOneByOne) {
    ForRandomSizes(1, [](RandomArrays& random, std::size_t size) {
        std::vector<std::string> texts(size);
        std::vector<const char*> pointers(size + 1);
        for (std::size_t i = 0; i < size; ++i) {
            texts[i] = random.Text();
            pointers[i] = texts[i].empty() && random.Below(2) == 0 ? nullptr : texts[i].c_str();
        }
        const char** strings = pointers.data();
        Variant variant;
        ASSERT_EQ(TEVUtilWindows::SetStringArrayVARIANT(strings, size, variant.Out()), size > 0);
        if (size == 0) return;
        const SafeArray expected = Sized(VT_BSTR, size);
        tev::test::PutTexts(expected.get(), texts);
        ASSERT_TRUE(HoldTheSameTexts(variant.Array(), expected.get()));
    });
}

// Empty texts as well as null ones.
SafeArray RandomTexts(RandomArrays& random, std::size_t size) {
    SafeArray array = Sized(VT_BSTR, size);
    for (LONG i = 0; i < static_cast<LONG>(size); ++i) {
        const std::wstring text = random.Wide();
        if (random.Below(16) != 0) SafeArrayPutElement(array.get(), &i, Bstr(text).get());
    }
    return array;
}

// Nothing when one of them has no text.
std::optional<std::vector<std::string>> TextsIn(SAFEARRAY* array, std::size_t size) {
    std::vector<std::string> texts;
    for (LONG i = 0; i < static_cast<LONG>(size); ++i) {
        std::optional<std::string> text = TextIn(array, &i);
        if (!text) return std::nullopt;
        texts.push_back(*std::move(text));
    }
    return texts;
}

TEST(ExtractStringArrayFromVariant, RandomTextsAsOneByOne) {
    std::int64_t refused = 0;
    ForRandomSizes(1, [&refused](RandomArrays& random, std::size_t size) {
        SafeArray array = RandomTexts(random, size);
        const auto expected = TextsIn(array.get(), size);
        Variant variant(VT_ARRAY | VT_BSTR, std::move(array));
        TextArray texts;
        const bool isExtracted =
            TEVUtilWindows::ExtractStringArrayFromVariant(texts.array, texts.count, variant.get());
        ASSERT_EQ(isExtracted, expected && size > 0);
        ASSERT_EQ(texts.count, size);
        if (isExtracted) {
            ASSERT_EQ(texts.Strings(), *expected);
        }
        refused += isExtracted ? 0 : 1;
    });
    EXPECT_GT(refused, 0);
}

}  // namespace
