#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/BstrText.h"
#include "TEVSystemLib/util/windows/detail/VariantArrays.h"

namespace TAMO::TEV::System::Util {

namespace {

using Row = std::pair<std::string_view, std::string_view>;
using Table = std::map<std::string, char*>;

constexpr ULONG kColumns = 2;

std::vector<Row> RowsOf(const Table& data) {
    std::vector<Row> rows;
    for (const auto& [key, value] : data) {
        if (!key.empty() && value != nullptr) rows.emplace_back(key, value);
    }
    return rows;
}

detail::OwnedSafeArray MakeTable(const std::vector<Row>& rows) {
    if (!detail::FitsArray(VT_BSTR, kColumns * rows.size())) return detail::OwnedSafeArray(nullptr);
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows.size()), 0}, {kColumns, 0}};
    detail::OwnedSafeArray array(SafeArrayCreate(VT_BSTR, 2, bounds));
    if (!array) return array;
    const detail::LockedSafeArray locked = detail::Lock(array.get());
    if (!locked) return detail::OwnedSafeArray(nullptr);
    // The first index runs fastest: the keys one after the other, then the values.
    auto* keys = static_cast<BSTR*>(array.get()->pvData);
    auto* values = keys + rows.size();
    for (const auto& [key, value] : rows) {
        *keys++ = detail::ToBstr(key).release();
        *values++ = detail::ToBstr(value).release();
    }
    return array;
}

std::optional<detail::OwnedBstr> Read(SAFEARRAY* array, LONG column, LONG entry) {
    // KEEP: column first, entry second, the reverse of what the writer does; both orders are the
    // interface's.
    LONG index[] = {column, entry};
    BSTR text = nullptr;
    if (FAILED(SafeArrayGetElement(array, index, &text))) return std::nullopt;
    return detail::OwnedBstr(text);
}

// Owns the strings of a table until it is handed out.
class OwnedTable {
 public:
    OwnedTable() = default;
    ~OwnedTable() {
        for (auto& [key, value] : table_) TEVUtilString::DeleteCString(&value);
    }
    OwnedTable(const OwnedTable&) = delete;
    OwnedTable& operator=(const OwnedTable&) = delete;

    bool Holds(const std::string& key) const { return table_.count(key) != 0; }
    void Add(const std::string& key, detail::OwnedText value) {
        char*& slot = table_[key];
        slot = value.release();
    }
    void HandOut(Table& out) { out.swap(table_); }

 private:
    Table table_;
};

// Adds one entry; false ends the extraction.
bool ReadEntry(SAFEARRAY* array, LONG entry, OwnedTable& table) {
    const auto key = Read(array, 0, entry);
    if (!key) return true;
    const std::string name = detail::FromBstr(key->get());
    // KEEP: a key without text is passed over, while a value without text ends the extraction.
    if (name.empty() || table.Holds(name)) return true;
    const auto value = Read(array, 1, entry);
    detail::OwnedText text;
    if (!value || !detail::TakeText(value->get(), text)) return false;
    table.Add(name, std::move(text));
    return true;
}

}  // namespace

bool TEVUtilWindows::CreateKeyValueDataVariant(std::map<std::string, char*> const* data,
                                               tagVARIANT* out, char const* firstKey,
                                               char const* firstValue) try {
    if (out == nullptr) return false;
    VariantInit(out);
    if (data == nullptr) return false;
    std::vector<Row> rows = RowsOf(*data);
    if (rows.empty()) return false;
    const std::string_view key = detail::TrimIfSpaced(detail::OrEmpty(firstKey));
    if (!key.empty() && firstValue != nullptr) {
        // KEEP: deliberately strict: a first row without a value fails the call.
        if (*firstValue == '\0') return false;
        rows.insert(rows.begin(), Row(key, firstValue));
    }
    detail::OwnedSafeArray array = MakeTable(rows);
    if (!array) return false;
    detail::Commit(array, VT_BSTR, out);
    return true;
} catch (...) {
    return false;
}

bool TEVUtilWindows::ExtractKeyValueDataFromVARIANT(tagVARIANT const* variant,
                                                    std::map<std::string, char*>& out) try {
    out.clear();
    SAFEARRAY* array = detail::ArrayIn(variant, VT_BSTR);
    if (array == nullptr || SafeArrayGetDim(array) != 2) return false;
    OwnedTable table;
    const auto count = static_cast<LONG>(detail::FirstCount(array));
    for (LONG entry = 0; entry < count; ++entry) {
        if (!ReadEntry(array, entry, table)) return false;
    }
    table.HandOut(out);
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
