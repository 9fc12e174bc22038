#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/Com.h"
#include "util/windows/ArrayVariants.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::BoundsOf;
using tev::test::ElementTypeOf;
using tev::test::ExpectEmptiedWithoutRelease;
using tev::test::SafeArray;
using tev::test::TextAt;
using tev::test::Variant;

using namespace std::string_literals;

using Data = std::map<std::string, char*>;
using Rows = std::vector<std::pair<std::wstring, std::wstring>>;

constexpr VARTYPE kTable = 0x2008;

char valueX[] = "x";
char valueY[] = "y";
char valueEmpty[] = "";

// What stands at (row, 0) and (row, 1), by the system's own calls.
Rows RowsOf(SAFEARRAY* array) {
    Rows rows;
    const auto [count, lowerBound] = BoundsOf(array, 1);
    for (LONG row = lowerBound; row < lowerBound + count; ++row)
        rows.emplace_back(TextAt(array, {row, 0}), TextAt(array, {row, 1}));
    return rows;
}

// The rows of the table that is made; a single one "no table" when the call fails.
Rows Made(const Data& data, const char* firstKey, const char* firstValue) {
    Variant variant;
    if (!TEVUtilWindows::CreateKeyValueDataVariant(&data, variant.Out(), firstKey, firstValue))
        return {{L"no table", L""}};
    EXPECT_EQ(variant.Type(), kTable);
    return RowsOf(variant.Array());
}

TEST(CreateKeyValueDataVariant, RowsFirstThenTwoColumns) {
    const Data data = {{"a", valueX}, {"b", valueY}, {"c", valueX}};
    Variant variant;
    EXPECT_TRUE(TEVUtilWindows::CreateKeyValueDataVariant(&data, variant.Out(), nullptr, nullptr));
    EXPECT_EQ(variant.Type(), kTable);
    SAFEARRAY* array = variant.Array();
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 2u);
    EXPECT_EQ(BoundsOf(array, 1), std::pair(LONG{3}, LONG{0}));
    EXPECT_EQ(BoundsOf(array, 2), std::pair(LONG{2}, LONG{0}));
    EXPECT_EQ(ElementTypeOf(array), VT_BSTR);
    EXPECT_EQ(array->cLocks, 0u);
    EXPECT_EQ(RowsOf(array), (Rows{{L"a", L"x"}, {L"b", L"y"}, {L"c", L"x"}}));
}

TEST(CreateKeyValueDataVariant, FirstRowThenAscendingKeys) {
    EXPECT_EQ(Made({{"b", valueY}, {"a", valueX}}, "type", "x"),
              (Rows{{L"type", L"x"}, {L"a", L"x"}, {L"b", L"y"}}));
}

TEST(CreateKeyValueDataVariant, KeysAscendBytewise) {
    EXPECT_EQ(Made({{"b", valueX},
                    {"a", valueX},
                    {"B", valueX},
                    {"\xe9", valueX},
                    {"ab", valueX},
                    {"10", valueX},
                    {"9", valueX}},
                   nullptr, nullptr),
              (Rows{{L"10", L"x"},
                    {L"9", L"x"},
                    {L"B", L"x"},
                    {L"a", L"x"},
                    {L"ab", L"x"},
                    {L"b", L"x"},
                    {L"\u00e9", L"x"}}));
}

TEST(CreateKeyValueDataVariant, OneRow) {
    EXPECT_EQ(Made({{"a", valueX}}, nullptr, nullptr), (Rows{{L"a", L"x"}}));
}

TEST(CreateKeyValueDataVariant, ManyRows) {
    Data data;
    Rows expected = {{L"type", L"x"}};
    for (int i = 0; i < 10'000; ++i) {
        const int number = 100'000 + i;
        data.emplace(std::to_string(number), i % 2 == 0 ? valueX : valueY);
        expected.emplace_back(std::to_wstring(number), i % 2 == 0 ? L"x" : L"y");
    }
    EXPECT_TRUE(Made(data, "type", "x") == expected);
}

TEST(CreateKeyValueDataVariant, EntriesWithoutKeyOrValueAreLeftOut) {
    EXPECT_EQ(Made({{"", valueX}, {"a", nullptr}, {"b", valueY}, {"c", nullptr}}, "type", "x"),
              (Rows{{L"type", L"x"}, {L"b", L"y"}}));
}

TEST(CreateKeyValueDataVariant, EmptyValueMakesARow) {
    EXPECT_EQ(Made({{"a", valueEmpty}, {"b", valueX}}, nullptr, nullptr),
              (Rows{{L"a", L""}, {L"b", L"x"}}));
}

TEST(CreateKeyValueDataVariant, TextsInTheAnsiCodePage) {
    char euro[] = "\x80 100";
    EXPECT_EQ(Made({{"caf\xe9", euro}}, "\x8a", "\xff"),
              (Rows{{L"\u0160", L"\u00ff"}, {L"caf\u00e9", L"\u20ac 100"}}));
}

TEST(CreateKeyValueDataVariant, KeysEndAtANul) {
    EXPECT_EQ(Made({{"a\0b"s, valueX}}, nullptr, nullptr), (Rows{{L"a", L"x"}}));
}

TEST(CreateKeyValueDataVariant, BlanksOfEntriesAreKept) {
    char spaced[] = " x ";
    EXPECT_EQ(Made({{" a ", spaced}}, nullptr, nullptr), (Rows{{L" a ", L" x "}}));
}

TEST(CreateKeyValueDataVariant, RulesOfTheFirstRow) {
    const Rows none = {{L"a", L"y"}};
    const struct {
        const char* what;
        const char* firstKey;
        const char* firstValue;
        Rows rows;
    } rows[] = {
        {"both", "type", "x", {{L"type", L"x"}, {L"a", L"y"}}},
        {"key of an entry", "a", "x", {{L"a", L"x"}, {L"a", L"y"}}},
        {"null value", "type", nullptr, none},
        {"null key", nullptr, "x", none},
        {"empty key", "", "x", none},
        {"key of spaces", "   ", "x", none},
        {"neither", nullptr, nullptr, none},
        {"empty key and value", "", "", none},
        {"null key, empty value", nullptr, "", none},
        {"key of spaces, empty value", " ", "", none},
        {"spaces around the key", "  type ", "x", {{L"type", L"x"}, {L"a", L"y"}}},
        {"a space starts the trimming", "\ttype\n ", "x", {{L"type", L"x"}, {L"a", L"y"}}},
        {"a tab does not", "\ttype\n", "x", {{L"\ttype\n", L"x"}, {L"a", L"y"}}},
        {"nor a tab alone", "\t", "x", {{L"\t", L"x"}, {L"a", L"y"}}},
        {"value is not trimmed", "type", " x ", {{L"type", L" x "}, {L"a", L"y"}}},
        {"value of spaces", "type", " ", {{L"type", L" "}, {L"a", L"y"}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Made({{"a", valueY}}, row.firstKey, row.firstValue), row.rows) << row.what;
}

TEST(CreateKeyValueDataVariant, EmptyFirstValueFails_Kept) {
    const Data data = {{"a", valueX}};
    for (const char* firstKey : {"type", " type ", "\t"})
        ExpectEmptiedWithoutRelease([&](VARIANT* out) {
            return TEVUtilWindows::CreateKeyValueDataVariant(&data, out, firstKey, "");
        });
}

TEST(CreateKeyValueDataVariant, RefusalEmptiesTheOutput) {
    const Data empty;
    const Data unusable = {{"", valueX}, {"a", nullptr}};
    for (const Data* data : {static_cast<const Data*>(nullptr), &empty, &unusable})
        for (const char* first : {static_cast<const char*>(nullptr), "x"})
            ExpectEmptiedWithoutRelease([&](VARIANT* out) {
                return TEVUtilWindows::CreateKeyValueDataVariant(data, out, first, first);
            });
}

TEST(CreateKeyValueDataVariant, NullOutputIsRefused) {
    const Data data = {{"a", valueX}};
    EXPECT_FALSE(TEVUtilWindows::CreateKeyValueDataVariant(&data, nullptr, "type", "x"));
    EXPECT_FALSE(TEVUtilWindows::CreateKeyValueDataVariant(nullptr, nullptr, nullptr, nullptr));
}

TEST(CreateKeyValueDataVariant, OutputIsOverwrittenNotReleased) {
    const SafeArray held(VT_BSTR, {{1, 0}});
    VARIANT out;
    out.vt = kTable;
    out.parray = held.get();
    const Data data = {{"a", valueX}};
    ASSERT_TRUE(TEVUtilWindows::CreateKeyValueDataVariant(&data, &out, nullptr, nullptr));
    EXPECT_NE(out.parray, held.get());
    EXPECT_EQ(BoundsOf(held.get(), 1), std::pair(LONG{1}, LONG{0}));
    EXPECT_TRUE(SUCCEEDED(VariantClear(&out)));
}

TEST(CreateKeyValueDataVariant, DataIsLeftAsItWas) {
    const Data data = {{"a", valueX}, {"b", nullptr}};
    Made(data, "type", "x");
    EXPECT_EQ(data, (Data{{"a", valueX}, {"b", nullptr}}));
    EXPECT_STREQ(valueX, "x");
}

}  // namespace
