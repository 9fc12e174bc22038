#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "models/ArrayModel.h"
#include "models/TextModel.h"
#include "support/Com.h"
#include "util/windows/RandomArrays.h"

// Tables of keys and values beside ones that the system fills and reads one element after the
// other.
namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Bstr;
using tev::test::ForRandomSizes;
using tev::test::HoldTheSameTexts;
using tev::test::RandomArrays;
using tev::test::SafeArray;
using tev::test::TextIn;
using tev::test::TrimmedIfSpaced;
using tev::test::Variant;

using Value = std::optional<std::string>;
using Values = std::map<std::string, Value>;
using Rows = std::vector<std::pair<std::string, std::string>>;

constexpr VARTYPE kTable = VT_ARRAY | VT_BSTR;

Value RandomValue(RandomArrays& random) {
    return random.Below(8) == 0 ? Value() : Value(random.Text());
}

Values RandomValues(RandomArrays& random, std::size_t size) {
    Values values;
    for (std::size_t i = 0; i < size; ++i) values[random.Text()] = RandomValue(random);
    return values;
}

// Nothing when no table is to be made.
std::optional<Rows> ExpectedRows(const Values& values, const Value& firstKey,
                                 const Value& firstValue) {
    Rows rows;
    for (const auto& [key, value] : values)
        if (!key.empty() && value) rows.emplace_back(key, *value);
    if (rows.empty()) return std::nullopt;
    const std::string key = TrimmedIfSpaced(firstKey.value_or(""));
    if (key.empty() || !firstValue) return rows;
    if (firstValue->empty()) return std::nullopt;
    rows.insert(rows.begin(), {key, *firstValue});
    return rows;
}

template <typename Text>
auto PointerTo(Text& text) {
    return text ? text->data() : nullptr;
}

SafeArray TableOf(const Rows& rows) {
    SafeArray array(VT_BSTR, {{static_cast<ULONG>(rows.size()), 0}, {2, 0}});
    tev::test::PutRows(array.get(), rows);
    return array;
}

TEST(CreateKeyValueDataVariant, RandomTablesAsOneByOne) {
    ForRandomSizes(2, [](RandomArrays& random, std::size_t size) {
        Values values = RandomValues(random, size);
        std::map<std::string, char*> data;
        for (auto& [key, value] : values) data[key] = PointerTo(value);
        const Value firstKey = RandomValue(random);
        const Value firstValue = RandomValue(random);
        const std::optional<Rows> rows = ExpectedRows(values, firstKey, firstValue);
        Variant variant;
        ASSERT_EQ(TEVUtilWindows::CreateKeyValueDataVariant(
                      &data, variant.Out(), PointerTo(firstKey), PointerTo(firstValue)),
                  rows.has_value());
        if (!rows) return;
        ASSERT_EQ(variant.Type(), kTable);
        ASSERT_TRUE(HoldTheSameTexts(variant.Array(), TableOf(*rows).get()));
    });
}

// Keys at (0, entry) and values at (1, entry); some of both are null or empty.
SafeArray RandomTable(RandomArrays& random, std::size_t size) {
    SafeArray array(VT_BSTR, {{2, 0}, {static_cast<ULONG>(size), 0}});
    for (LONG entry = 0; entry < static_cast<LONG>(size); ++entry) {
        for (const LONG column : {0, 1}) {
            LONG index[] = {column, entry};
            const std::wstring text = random.Wide();
            if (random.Below(16) != 0) SafeArrayPutElement(array.get(), index, Bstr(text).get());
        }
    }
    return array;
}

// Null values as "(null)"; nothing when the value of a key has no text.
std::optional<std::map<std::string, std::string>> TableIn(SAFEARRAY* array, std::size_t size) {
    std::map<std::string, std::string> table;
    for (LONG entry = 0; entry < static_cast<LONG>(size); ++entry) {
        LONG index[] = {0, entry};
        const std::optional<std::string> key = TextIn(array, index);
        if (!key || *key == "(null)" || table.count(*key) != 0) continue;
        index[0] = 1;
        const std::optional<std::string> value = TextIn(array, index);
        if (!value) return std::nullopt;
        table[*key] = *value;
    }
    return table;
}

TEST(ExtractKeyValueDataFromVARIANT, RandomTablesAsOneByOne) {
    std::int64_t refused = 0;
    ForRandomSizes(2, [&refused](RandomArrays& random, std::size_t size) {
        SafeArray array = RandomTable(random, size);
        const auto expected = TableIn(array.get(), size);
        Variant variant(kTable, std::move(array));
        std::map<std::string, char*> table;
        const bool isExtracted =
            TEVUtilWindows::ExtractKeyValueDataFromVARIANT(variant.get(), table);
        std::map<std::string, std::string> shown;
        for (auto& [key, value] : table) {
            shown[key] = value == nullptr ? "(null)" : value;
            TEVUtilWindows::DeleteCharBuffer(&value);
        }
        ASSERT_EQ(isExtracted, expected && size > 0);
        ASSERT_EQ(shown, isExtracted ? *expected : decltype(shown)());
        refused += isExtracted ? 0 : 1;
    });
    EXPECT_GT(refused, 0);
}

}  // namespace
