#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Com.h"
#include "util/windows/ArrayVariants.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::ArrayWithoutData;
using tev::test::BoundsOf;
using tev::test::ElementTypeOf;
using tev::test::ExpectEmptiedWithoutRelease;
using tev::test::kBeyondTheSystem;
using tev::test::kMostLocks;
using tev::test::PutText;
using tev::test::RefusedVariants;
using tev::test::SafeArray;
using tev::test::TextAt;
using tev::test::Variant;

using namespace std::string_view_literals;

constexpr VARTYPE kStrings = 0x2008;
constexpr std::uint64_t kStaleCount = 77;

bool Set(std::vector<const char*> strings, VARIANT* out) {
    const char** data = strings.data();
    const bool isSet = TEVUtilWindows::SetStringArrayVARIANT(data, strings.size(), out);
    EXPECT_EQ(data, strings.data());
    return isSet;
}

// An array made past the library; what has no text stays a null BSTR.
SafeArray ArrayOf(const std::vector<std::optional<std::wstring_view>>& texts) {
    SafeArray array(VT_BSTR, {{static_cast<ULONG>(texts.size()), 0}});
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!texts[i]) continue;
        EXPECT_TRUE(PutText(array.get(), {static_cast<LONG>(i)}, *texts[i]));
    }
    return array;
}

// The outputs of an extraction, which hold something of their own before it.
struct Extraction {
    explicit Extraction(VARIANT* variant) {
        result = TEVUtilWindows::ExtractStringArrayFromVariant(out, count, variant);
    }
    ~Extraction() {
        if (result) TEVUtilWindows::DeleteCStringArray(out, count);
    }
    Extraction(const Extraction&) = delete;
    Extraction& operator=(const Extraction&) = delete;

    // Null slots as "(null)".
    std::vector<std::string> Strings() const {
        std::vector<std::string> strings;
        for (std::uint64_t i = 0; result && i < count; ++i)
            strings.emplace_back(out[i] == nullptr ? "(null)" : out[i]);
        return strings;
    }

    char* held[1] = {};
    char** out = held;
    std::uint64_t count = kStaleCount;
    bool result = false;
};

TEST(SetStringArrayVARIANT, NewTextsFromIndexZero) {
    Variant variant;
    EXPECT_TRUE(Set({"one", "caf\xe9 \x80", " three "}, variant.Out()));
    EXPECT_EQ(variant.Type(), kStrings);
    SAFEARRAY* array = variant.Array();
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 1u);
    EXPECT_EQ(BoundsOf(array, 1), std::pair(LONG{3}, LONG{0}));
    EXPECT_EQ(ElementTypeOf(array), VT_BSTR);
    EXPECT_EQ(TextAt(array, {0}), L"one");
    EXPECT_EQ(TextAt(array, {1}), L"caf\u00e9 \u20ac");
    EXPECT_EQ(TextAt(array, {2}), L" three ");
}

TEST(SetStringArrayVARIANT, NullAndEmptyStringsBecomeEmptyTexts) {
    Variant variant;
    EXPECT_TRUE(Set({nullptr, "", "text"}, variant.Out()));
    SAFEARRAY* array = variant.Array();
    ASSERT_NE(array, nullptr);
    // Empty, and not null: TextAt tells them apart.
    EXPECT_EQ(TextAt(array, {0}), L"");
    EXPECT_EQ(TextAt(array, {1}), L"");
    EXPECT_EQ(TextAt(array, {2}), L"text");
}

TEST(SetStringArrayVARIANT, ArrayIsNotLeftLocked) {
    Variant variant;
    ASSERT_TRUE(Set({"text"}, variant.Out()));
    EXPECT_EQ(variant.Array()->cLocks, 0u);
    EXPECT_TRUE(SUCCEEDED(VariantClear(variant.get())));
}

TEST(SetStringArrayVARIANT, RefusalEmptiesTheOutput) {
    const char* strings[] = {"one", "two"};
    const struct {
        const char* what;
        const char** strings;
        std::uint64_t count;
    } rows[] = {
        {"no strings", nullptr, 2},
        {"no elements", strings, 0},
        {"neither", nullptr, 0},
        {"more bytes than an array holds", strings, kBeyondTheSystem / sizeof(BSTR)},
        {"more than an array holds", strings, kBeyondTheSystem},
        {"a little more than that", strings, kBeyondTheSystem + 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        ExpectEmptiedWithoutRelease([&row](VARIANT* out) {
            const char** data = row.strings;
            return TEVUtilWindows::SetStringArrayVARIANT(data, row.count, out);
        });
    }
}

TEST(SetStringArrayVARIANT, NullOutputIsRefused) { EXPECT_FALSE(Set({"text"}, nullptr)); }

TEST(ExtractStringArrayFromVariant, WhatWasSet) {
    Variant variant;
    ASSERT_TRUE(Set({"one", nullptr, "", "caf\xe9 \x80"}, variant.Out()));
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.result);
    EXPECT_EQ(extraction.count, 4u);
    EXPECT_EQ(extraction.Strings(),
              (std::vector<std::string>{"one", "(null)", "(null)", "caf\xe9 \x80"}));
}

TEST(ExtractStringArrayFromVariant, TextsInTheAnsiCodePage) {
    Variant variant(kStrings, ArrayOf({L"caf\u00e9", L"\u20ac", L"a\u4e2db", L" ", L"ab\0cd"sv}));
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.result);
    EXPECT_EQ(extraction.Strings(),
              (std::vector<std::string>{"caf\xe9", "\x80", "a?b", " ", "ab"}));
}

TEST(ExtractStringArrayFromVariant, NullAndEmptyElementsGiveNullSlots) {
    Variant variant(kStrings, ArrayOf({L"0", L"1", L"", std::nullopt, L"4"}));
    ASSERT_EQ(TextAt(variant.Array(), {2}), L"");
    ASSERT_EQ(TextAt(variant.Array(), {3}), L"(null)");
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.result);
    EXPECT_EQ(extraction.count, 5u);
    EXPECT_EQ(extraction.Strings(), (std::vector<std::string>{"0", "1", "(null)", "(null)", "4"}));
}

TEST(ExtractStringArrayFromVariant, NothingButNullElements) {
    Variant variant(kStrings, SafeArray(VT_BSTR, {{2, 0}}));
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.result);
    EXPECT_EQ(extraction.Strings(), (std::vector<std::string>{"(null)", "(null)"}));
}

TEST(ExtractStringArrayFromVariant, ManyStrings) {
    std::vector<std::string> strings;
    std::vector<const char*> pointers;
    for (int i = 0; i < 10'000; ++i) strings.push_back("string " + std::to_string(i));
    for (const std::string& string : strings) pointers.push_back(string.c_str());
    Variant variant;
    ASSERT_TRUE(Set(pointers, variant.Out()));
    EXPECT_EQ(TextAt(variant.Array(), {9'999}), L"string 9999");
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.result);
    EXPECT_TRUE(extraction.Strings() == strings);
}

TEST(ExtractStringArrayFromVariant, VariantIsLeftAsItWas) {
    Variant variant(kStrings, ArrayOf({L"text"}));
    SAFEARRAY* const array = variant.Array();
    EXPECT_TRUE(Extraction(variant.get()).result);
    EXPECT_EQ(variant.Type(), kStrings);
    EXPECT_EQ(variant.Array(), array);
    EXPECT_EQ(array->cLocks, 0u);
    EXPECT_EQ(TextAt(array, {0}), L"text");
}

TEST(ExtractStringArrayFromVariant, OtherVariantsAreRefused) {
    RefusedVariants(VT_BSTR).ForEach([](const char* name, VARIANT* variant) {
        SCOPED_TRACE(name);
        const Extraction extraction(variant);
        EXPECT_FALSE(extraction.result);
        EXPECT_EQ(extraction.out, nullptr);
        EXPECT_EQ(extraction.count, 0u);
    });
}

TEST(ExtractStringArrayFromVariant, CountStaysWhenThereIsNoData_Kept) {
    Variant variant(kStrings, ArrayWithoutData(VT_BSTR, 3));
    const Extraction extraction(variant.get());
    EXPECT_FALSE(extraction.result);
    EXPECT_EQ(extraction.out, nullptr);
    EXPECT_EQ(extraction.count, 3u);
    EXPECT_EQ(variant.Array()->cLocks, 0u);
}

TEST(ExtractStringArrayFromVariant, CountStaysWhenTheLockIsRefused_Kept) {
    Variant variant(kStrings, ArrayOf({L"one", L"two"}));
    variant.Array()->cLocks = kMostLocks;
    const Extraction extraction(variant.get());
    variant.Array()->cLocks = 0;
    EXPECT_FALSE(extraction.result);
    EXPECT_EQ(extraction.out, nullptr);
    EXPECT_EQ(extraction.count, 2u);
}

TEST(ExtractStringArrayFromVariant, CountStaysWhenAnElementHasNoText_Kept) {
    // Characters, but none before the NUL: there is nothing to copy.
    Variant variant(kStrings, ArrayOf({L"one", L"\0x"sv, L"three"}));
    const Extraction extraction(variant.get());
    EXPECT_FALSE(extraction.result);
    EXPECT_EQ(extraction.out, nullptr);
    EXPECT_EQ(extraction.count, 3u);
    EXPECT_EQ(variant.Array()->cLocks, 0u);
}

TEST(ExtractStringArrayFromVariant, FirstStoredBoundIsThatOfTheLastDimension_Kept) {
    for (const LONG otherLowerBound : {0, 1}) {
        SafeArray array(VT_BSTR, {{3, otherLowerBound}, {2, 0}});
        for (LONG row = 0; row < 3; ++row)
            for (LONG column = 0; column < 2; ++column)
                ASSERT_TRUE(PutText(array.get(), {row + otherLowerBound, column},
                                    std::to_wstring(10 * row + column)));
        Variant variant(kStrings, std::move(array));
        const Extraction extraction(variant.get());
        EXPECT_TRUE(extraction.result);
        // In the order of the data block, where the first index runs fastest.
        EXPECT_EQ(extraction.Strings(), (std::vector<std::string>{"0", "10"}));
    }
    Variant refused(kStrings, SafeArray(VT_BSTR, {{3, 0}, {2, 1}}));
    EXPECT_FALSE(Extraction(refused.get()).result);
}

}  // namespace
