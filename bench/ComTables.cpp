#include "ComTables.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "ComInputs.h"
#include "Files.h"
#include "Rows.h"

namespace tev::bench {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using Pointers = std::map<std::string, char*>;

Pairs RandomPairs(std::size_t count) {
    std::mt19937 random(20240311);
    Pairs pairs;
    while (pairs.size() < count) pairs.emplace(Word(random, 16), Word(random, 24));
    return pairs;
}

std::wstring Widened(const std::string& text) { return {text.begin(), text.end()}; }

// Two columns, key and value, rows in the order of the keys.
struct KeyValueTable {
    bool operator==(const Pairs& expected) const {
        LONG row = 0;
        for (const auto& [key, value] : expected) {
            if (test::TextAt(array, {row, 0}) != Widened(key) ||
                test::TextAt(array, {row, 1}) != Widened(value))
                return false;
            ++row;
        }
        return true;
    }
    SAFEARRAY* array;
};

struct Table {
    explicit Table(std::size_t count) : pairs(RandomPairs(count)) {
        for (auto& [key, value] : pairs) pointers[key] = value.data();
    }
    Pairs pairs;
    Pointers pointers;
};

SAFEARRAY* BareTable(const Pairs& pairs) {
    const auto rows = static_cast<ULONG>(pairs.size());
    SAFEARRAYBOUND bounds[] = {{rows, 0}, {2, 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_BSTR, 2, bounds);
    BSTR* data = nullptr;
    SafeArrayAccessData(array, reinterpret_cast<void**>(&data));
    // The first index runs fastest: all keys, then all values.
    for (const auto& [key, value] : pairs) {
        *data = test::AnsiBstr(key);
        data[rows] = test::AnsiBstr(value);
        ++data;
    }
    SafeArrayUnaccessData(array);
    return array;
}

SAFEARRAY* TableOneByOne(const Pairs& pairs) {
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(pairs.size()), 0}, {2, 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_BSTR, 2, bounds);
    test::PutRows(array, pairs);
    return array;
}

// The other way round, as the reader wants it: two rows, an entry a column.
SAFEARRAY* TableToRead(const Pairs& pairs) {
    SAFEARRAYBOUND bounds[] = {{2, 0}, {static_cast<ULONG>(pairs.size()), 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_BSTR, 2, bounds);
    auto* data = static_cast<BSTR*>(array->pvData);
    for (const auto& [key, value] : pairs) {
        *data++ = test::AnsiBstr(key);
        *data++ = test::AnsiBstr(value);
    }
    return array;
}

struct Read {
    bool operator==(const Pairs& expected) const {
        return std::equal(pairs->begin(), pairs->end(), expected.begin(), expected.end(),
                          [](const auto& a, const auto& b) {
                              return a.first == b.first && a.second == b.second;
                          });
    }
    const Pointers* pairs;
};

Pairs ReadOneByOne(SAFEARRAY* array, std::size_t count) {
    Pairs pairs;
    for (LONG entry = 0; entry < static_cast<LONG>(count); ++entry) {
        LONG key[] = {0, entry};
        LONG value[] = {1, entry};
        pairs.emplace(ElementText(array, key), ElementText(array, value));
    }
    return pairs;
}

}  // namespace

void AddTableIn(std::size_t count) {
    using Input = std::unique_ptr<const Table>;
    const auto build = [](auto way) {
        return [way](const Input& input, auto keep) {
            SAFEARRAY* array = way(input->pairs);
            keep(KeyValueTable{array});
            SafeArrayDestroy(array);
        };
    };
    Work(
        "table-in", static_cast<std::int64_t>(count),
        [count] { return std::make_unique<const Table>(count); },
        [](const Input& input) { return input->pairs; })
        .Ours([](const Input& input, auto keep) {
            VARIANT variant;
            TEVUtilWindows::CreateKeyValueDataVariant(&input->pointers, &variant, nullptr, nullptr);
            keep(KeyValueTable{variant.parray});
            VariantClear(&variant);
        })
        .Peer("SafeArrayPutElement", build(TableOneByOne))
        .CheckedLimit("bare creation + copy", build(BareTable));
}

void AddTableOut(std::size_t count) {
    const auto make = [count] {
        Pairs pairs = RandomPairs(count);
        SAFEARRAY* array = TableToRead(pairs);
        return std::make_unique<const Given<Pairs>>(std::move(pairs), VARTYPE{VT_BSTR}, array);
    };
    using Input = GivenPointer<Pairs>;
    Work("table-out", static_cast<std::int64_t>(count), make,
         [](const Input& input) { return input->data; })
        .Ours([](const Input& input, auto keep) {
            Pointers pairs;
            TEVUtilWindows::ExtractKeyValueDataFromVARIANT(input->variant.get(), pairs);
            keep(Read{&pairs});
            for (auto& [key, value] : pairs) TEVUtilString::DeleteCString(&value);
        })
        .Peer("SafeArrayGetElement",
              [](const Input& input, auto keep) {
                  keep(ReadOneByOne(input->variant.Array(), input->data.size()));
              })
        .CheckedLimit("bare calls + map insertion", [](const Input& input, auto keep) {
            const auto* element = static_cast<const BSTR*>(input->variant.Array()->pvData);
            Pointers pairs;
            for (std::size_t i = 0; i < input->data.size(); ++i, element += 2)
                pairs.emplace(BareString(element[0]), BareText(element[1]));
            keep(Read{&pairs});
            for (const auto& [key, value] : pairs) delete[] value;
        });
}

}  // namespace tev::bench
