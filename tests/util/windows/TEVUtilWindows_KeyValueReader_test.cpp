#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Com.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::PutText;
using tev::test::SafeArray;
using tev::test::Text;
using tev::test::Variant;

using namespace std::string_view_literals;

using Cell = std::optional<std::wstring_view>;
using Entries = std::vector<std::pair<Cell, Cell>>;
using Strings = std::map<std::string, std::string>;

constexpr VARTYPE kTable = 0x2008;
constexpr ULONG kColumns = 2;

// The array as a sender makes it: keys at (0, entry), values at (1, entry); no text is a null BSTR.
SafeArray ArrayOf(const Entries& entries) {
    SafeArray array(VT_BSTR, {{kColumns, 0}, {static_cast<ULONG>(entries.size()), 0}});
    LONG entry = 0;
    for (const auto& [key, value] : entries) {
        EXPECT_TRUE(!key || PutText(array.get(), {0, entry}, *key));
        EXPECT_TRUE(!value || PutText(array.get(), {1, entry}, *value));
        ++entry;
    }
    return array;
}

// A table that owns its strings and is full before an extraction.
class Extraction {
 public:
    explicit Extraction(VARIANT* variant) {
        EXPECT_TRUE(TEVUtilString::Copy("held", held_.Out(), nullptr));
        table_["held"] = held_.get();
        result_ = TEVUtilWindows::ExtractKeyValueDataFromVARIANT(variant, table_);
    }
    ~Extraction() {
        for (auto& [key, value] : table_) TEVUtilWindows::DeleteCharBuffer(&value);
    }
    Extraction(const Extraction&) = delete;
    Extraction& operator=(const Extraction&) = delete;

    bool Result() const { return result_; }
    // Null values as "(null)".
    Strings Table() const {
        Strings strings;
        for (const auto& [key, value] : table_) strings[key] = value == nullptr ? "(null)" : value;
        return strings;
    }
    // The string that the table held before: the caller's still.
    std::string Held() const { return held_.str(); }

 private:
    Text held_;
    std::map<std::string, char*> table_;
    bool result_ = false;
};

void ExpectTable(SafeArray array, const Strings& expected) {
    Variant variant(kTable, std::move(array));
    SAFEARRAY* const before = variant.Array();
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.Result());
    EXPECT_EQ(extraction.Table(), expected);
    EXPECT_EQ(variant.Array(), before);
    EXPECT_EQ(before->cLocks, 0u);
}

void ExpectFailure(VARIANT* variant) {
    const Extraction extraction(variant);
    EXPECT_FALSE(extraction.Result());
    EXPECT_EQ(extraction.Table(), Strings{});
    EXPECT_EQ(extraction.Held(), "held");
}

TEST(ExtractKeyValueDataFromVARIANT, KeysInTheFirstColumnValuesInTheSecond) {
    ExpectTable(ArrayOf({{L"b", L"2"}, {L"a", L"1"}, {L"c", L"3"}}),
                {{"a", "1"}, {"b", "2"}, {"c", "3"}});
}

TEST(ExtractKeyValueDataFromVARIANT, OneEntry) {
    ExpectTable(ArrayOf({{L"a", L"1"}}), {{"a", "1"}});
}

TEST(ExtractKeyValueDataFromVARIANT, ManyEntries) {
    constexpr LONG kCount = 10'000;
    SafeArray array(VT_BSTR, {{kColumns, 0}, {kCount, 0}});
    Strings expected;
    for (LONG i = 0; i < kCount; ++i) {
        ASSERT_TRUE(PutText(array.get(), {0, i}, L"key " + std::to_wstring(i)));
        ASSERT_TRUE(PutText(array.get(), {1, i}, L"value " + std::to_wstring(i)));
        expected["key " + std::to_string(i)] = "value " + std::to_string(i);
    }
    Variant variant(kTable, std::move(array));
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.Result());
    EXPECT_TRUE(extraction.Table() == expected);
}

TEST(ExtractKeyValueDataFromVARIANT, FirstOfEqualKeysWins) {
    ExpectTable(ArrayOf({{L"a", L"first"}, {L"b", L"2"}, {L"a", L"second"}, {L"A", L"other"}}),
                {{"A", "other"}, {"a", "first"}, {"b", "2"}});
}

TEST(ExtractKeyValueDataFromVARIANT, FirstWinsWithoutAValueToo) {
    ExpectTable(ArrayOf({{L"a", L""}, {L"a", L"second"}}), {{"a", "(null)"}});
}

TEST(ExtractKeyValueDataFromVARIANT, KeysCompareAfterConversion) {
    ExpectTable(ArrayOf({{L"\u4e2d", L"first"}, {L"\u6587", L"second"}}), {{"?", "first"}});
    ExpectTable(ArrayOf({{L"a\0b"sv, L"first"}, {L"a\0c"sv, L"second"}}), {{"a", "first"}});
}

TEST(ExtractKeyValueDataFromVARIANT, EntriesWithoutKeyAreSkipped) {
    ExpectTable(ArrayOf({{std::nullopt, L"1"}, {L"", L"2"}, {L"a", L"3"}, {L"\0x"sv, L"4"}}),
                {{"a", "3"}});
}

TEST(ExtractKeyValueDataFromVARIANT, NullAndEmptyValuesAreNull) {
    ExpectTable(ArrayOf({{L"a", std::nullopt}, {L"b", L""}, {L"c", L" "}}),
                {{"a", "(null)"}, {"b", "(null)"}, {"c", " "}});
}

TEST(ExtractKeyValueDataFromVARIANT, NoKeyAtAllIsASuccess) {
    ExpectTable(ArrayOf({{std::nullopt, L"1"}, {L"", L"2"}}), {});
}

TEST(ExtractKeyValueDataFromVARIANT, TextsInTheAnsiCodePageUpToANul) {
    ExpectTable(ArrayOf({{L"caf\u00e9", L"\u20ac 100"}, {L"a\0b"sv, L"x\0y"sv}, {L" k ", L" v "}}),
                {{"caf\xe9", "\x80 100"}, {"a", "x"}, {" k ", " v "}});
}

TEST(ExtractKeyValueDataFromVARIANT, UnreadableKeysAreSkipped) {
    // There is nothing at (0, entry).
    SafeArray array(VT_BSTR, {{kColumns, 1}, {2, 0}});
    ASSERT_TRUE(PutText(array.get(), {1, 0}, L"a"));
    ASSERT_TRUE(PutText(array.get(), {2, 0}, L"1"));
    ExpectTable(std::move(array), {});
}

TEST(ExtractKeyValueDataFromVARIANT, UnreadableValueFails) {
    // There is nothing at (1, entry).
    SafeArray array(VT_BSTR, {{1, 0}, {2, 0}});
    ASSERT_TRUE(PutText(array.get(), {0, 1}, L"a"));
    Variant variant(kTable, std::move(array));
    ExpectFailure(variant.get());
}

TEST(ExtractKeyValueDataFromVARIANT, ValueWithoutTextFails) {
    // Characters, but none before the NUL: there is nothing to copy. What was read before is lost.
    Variant variant(kTable, ArrayOf({{L"a", L"1"}, {L"b", L"\0x"sv}, {L"c", L"3"}}));
    ExpectFailure(variant.get());
}

TEST(ExtractKeyValueDataFromVARIANT, FurtherColumnsAreNotRead) {
    SafeArray array(VT_BSTR, {{3, 0}, {1, 0}});
    for (const LONG column : {0, 1, 2})
        ASSERT_TRUE(PutText(array.get(), {column, 0}, std::to_wstring(column)));
    ExpectTable(std::move(array), {{"0", "1"}});
}

TEST(ExtractKeyValueDataFromVARIANT, OtherTypesAreRefused) {
    SafeArray array = ArrayOf({{L"a", L"1"}});
    for (const int type : {+VT_EMPTY, +VT_BSTR, VT_ARRAY | VT_VARIANT, VT_ARRAY | VT_R8,
                           VT_ARRAY | VT_I4, VT_VECTOR | VT_BSTR}) {
        SCOPED_TRACE(type);
        VARIANT variant = {};
        variant.vt = static_cast<VARTYPE>(type);
        variant.parray = array.get();
        ExpectFailure(&variant);
    }
    SAFEARRAY* pointer = array.get();
    VARIANT reference = {};
    reference.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    reference.pparray = &pointer;
    ExpectFailure(&reference);
}

TEST(ExtractKeyValueDataFromVARIANT, NullsAreRefused) {
    ExpectFailure(nullptr);
    VARIANT variant = {};
    variant.vt = kTable;
    ExpectFailure(&variant);
}

TEST(ExtractKeyValueDataFromVARIANT, OtherShapesAreRefused) {
    const struct {
        const char* what;
        std::vector<SAFEARRAYBOUND> bounds;
    } rows[] = {
        {"one dimension", {{2, 0}}},          {"three dimensions", {{2, 0}, {2, 0}, {2, 0}}},
        {"entries from 1", {{2, 0}, {2, 1}}}, {"entries from -1", {{2, 0}, {2, -1}}},
        {"both from 1", {{2, 1}, {2, 1}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Variant variant(kTable, SafeArray(VT_BSTR, row.bounds));
        ExpectFailure(variant.get());
    }
}

TEST(ExtractKeyValueDataFromVARIANT, NoEntriesAreRefused) {
    Variant variant(kTable, SafeArray(VT_BSTR, {{kColumns, 0}, {1, 0}}));
    const ULONG count = std::exchange(variant.Array()->rgsabound[0].cElements, 0u);
    ExpectFailure(variant.get());
    variant.Array()->rgsabound[0].cElements = count;
}

// The writer's rows are the reader's columns.
TEST(ExtractKeyValueDataFromVARIANT, ReadsAWrittenTableCrosswise_Kept) {
    char one[] = "1";
    char two[] = "2";
    const std::map<std::string, char*> data = {{"a", one}, {"b", two}};
    Variant variant;
    ASSERT_TRUE(TEVUtilWindows::CreateKeyValueDataVariant(&data, variant.Out(), nullptr, nullptr));
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.Result());
    EXPECT_EQ(extraction.Table(), (Strings{{"a", "b"}, {"1", "2"}}));
}

TEST(ExtractKeyValueDataFromVARIANT, FailsOnAWrittenTableOfOneRow_Kept) {
    char one[] = "1";
    const std::map<std::string, char*> data = {{"a", one}};
    Variant variant;
    ASSERT_TRUE(TEVUtilWindows::CreateKeyValueDataVariant(&data, variant.Out(), nullptr, nullptr));
    ExpectFailure(variant.get());
}

TEST(ExtractKeyValueDataFromVARIANT, SeesTheFirstTwoRowsOfAWrittenTable_Kept) {
    char one[] = "1";
    char two[] = "2";
    const std::map<std::string, char*> data = {{"a", one}, {"b", two}};
    Variant variant;
    ASSERT_TRUE(TEVUtilWindows::CreateKeyValueDataVariant(&data, variant.Out(), "type", "x"));
    const Extraction extraction(variant.get());
    EXPECT_TRUE(extraction.Result());
    EXPECT_EQ(extraction.Table(), (Strings{{"type", "a"}, {"x", "1"}}));
}

}  // namespace
