// Extracting arrays of variants when the system refuses one of the calls.
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "fault/Ledger.h"
#include "fault/SystemCalls.h"
#include "support/Com.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::Calls;
using tev::fault::CountLoans;
using tev::fault::Fail;
using tev::fault::FailNth;
using tev::fault::Loan;
using tev::test::PutText;
using tev::test::SafeArray;
using tev::test::Variant;

namespace calls = tev::fault::calls;

using Table = std::map<std::string, std::string>;

SafeArray Texts() {
    SafeArray array(VT_BSTR, {{3, 0}});
    for (const LONG i : {0, 1, 2}) EXPECT_TRUE(PutText(array.get(), {i}, L"t\x00E9xt"));
    return array;
}

// Keys in the first column, as the reader looks for them; more than ASCII, so that the system
// converts them.
SafeArray KeysAndValues() {
    SafeArray array(VT_BSTR, {{2, 0}, {3, 0}});
    const wchar_t* const rows[][2] = {{L"\xE4", L"\xB9"}, {L"\xF6", L"\xB2"}, {L"\xFC", L"\xB3"}};
    for (LONG i = 0; i < 3; ++i) {
        EXPECT_TRUE(PutText(array.get(), {0, i}, rows[i][0]));
        EXPECT_TRUE(PutText(array.get(), {1, i}, rows[i][1]));
    }
    return array;
}

void ExpectRefusedWithItsCount(VARIANT* variant) {
    char* stale = nullptr;
    char** out = &stale;
    std::uint64_t count = 77;
    EXPECT_FALSE(TEVUtilWindows::ExtractStringArrayFromVariant(out, count, variant));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(count, 3U);
    EXPECT_EQ(variant->parray->cLocks, 0U);
}

TEST(ExtractStringArrayFaults, RefusedLockKeepsTheCount_Kept) {
    Variant variant(VT_ARRAY | VT_BSTR, Texts());
    const Calls unlocks(calls::SafeArrayUnlock);
    const auto fails = Fail(calls::SafeArrayLock, E_UNEXPECTED);
    ExpectRefusedWithItsCount(variant.get());
    EXPECT_EQ(unlocks.Made(), 0);
}

// Each element takes two calls, since it is more than ASCII.
TEST(ExtractStringArrayFaults, ElementThatDoesNotConvertKeepsTheCount_Kept) {
    Variant variant(VT_ARRAY | VT_BSTR, Texts());
    for (int n = 0; n < 6; ++n) {
        SCOPED_TRACE(n);
        const auto before = CountLoans();
        const auto fails = FailNth(n, calls::WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER);
        ExpectRefusedWithItsCount(variant.get());
        EXPECT_EQ(CountLoans().Of(Loan::ArrayLock), before.Of(Loan::ArrayLock));
    }
}

// The table; a map with one entry "(none)" for a failure, which leaves the output empty.
Table Extract(const VARIANT* variant) {
    char stale[] = "stale";
    std::map<std::string, char*> out{{"stale", stale}};
    const auto before = CountLoans();
    const bool isExtracted = TEVUtilWindows::ExtractKeyValueDataFromVARIANT(variant, out);
    EXPECT_EQ(CountLoans().live, before.live);
    if (!isExtracted) {
        EXPECT_TRUE(out.empty());
        return {{"(none)", ""}};
    }
    Table table;
    for (auto& [key, value] : out) {
        table[key] = value == nullptr ? "(null)" : value;
        TEVUtilWindows::DeleteCharBuffer(&value);
    }
    return table;
}

const Table kAll{{"\xE4", "\xB9"}, {"\xF6", "\xB2"}, {"\xFC", "\xB3"}};
const Table kNone{{"(none)", ""}};

Table Without(const std::string& key) {
    Table table = kAll;
    table.erase(key);
    return table;
}

TEST(ExtractKeyValueFaults, KeyThatIsNotReadIsPassedOver) {
    Variant variant(VT_ARRAY | VT_BSTR, KeysAndValues());
    const std::pair<int, const char*> keys[] = {{0, "\xE4"}, {2, "\xF6"}, {4, "\xFC"}};
    for (const auto& [n, key] : keys) {
        const auto fails = FailNth(n, calls::SafeArrayGetElement, E_OUTOFMEMORY);
        EXPECT_EQ(Extract(variant.get()), Without(key));
    }
    const auto fails = FailNth(6, calls::SafeArrayGetElement, E_OUTOFMEMORY);
    EXPECT_EQ(Extract(variant.get()), kAll);
}

TEST(ExtractKeyValueFaults, ValueThatIsNotReadFailsTheExtraction_Kept) {
    Variant variant(VT_ARRAY | VT_BSTR, KeysAndValues());
    for (const int n : {1, 3, 5}) {
        const auto fails = FailNth(n, calls::SafeArrayGetElement, E_OUTOFMEMORY);
        EXPECT_EQ(Extract(variant.get()), kNone) << n;
    }
}

// Each key and each value takes two calls.
TEST(ExtractKeyValueFaults, TextThatDoesNotConvertFailsTheExtraction) {
    Variant variant(VT_ARRAY | VT_BSTR, KeysAndValues());
    constexpr int kConversions = 12;
    for (int n = 0; n < kConversions; ++n) {
        const auto fails = FailNth(n, calls::WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER);
        EXPECT_EQ(Extract(variant.get()), kNone) << n;
    }
    const auto fails = FailNth(kConversions, calls::WideCharToMultiByte, 0);
    EXPECT_EQ(Extract(variant.get()), kAll);
}

}  // namespace
