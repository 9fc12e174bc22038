// What the COM conversions give back to the system, also when it refuses one of their calls.
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>
// comdef.h needs windows.h before it.
#include <comdef.h>

#include <map>
#include <stdexcept>
#include <string>

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
using tev::fault::Replace;
using tev::test::Bstr;
using tev::test::SafeArray;
using tev::test::Text;
using tev::test::Variant;

namespace calls = tev::fault::calls;

// Runs `attempt` with the n-th call failing, n = 0, 1, 2 ... until it succeeds, and gives the
// number of failures. None of them may leave anything of the system's behind.
template <typename Call, typename Result, typename Attempt>
int FailuresUntilSuccess(Call& call, Result failure, Attempt attempt) {
    constexpr int kTooMany = 100;
    for (int n = 0; n < kTooMany; ++n) {
        const auto before = CountLoans();
        const auto fails = FailNth(n, call, failure);
        if (attempt()) return n;
        EXPECT_EQ(CountLoans().live, before.live) << "after failure " << n;
        EXPECT_EQ(CountLoans().wrong, before.wrong) << "after failure " << n;
    }
    return kTooMany;
}

bool SetStrings() {
    const char* texts[] = {"a", "b", nullptr, "d"};
    const char** strings = texts;
    Variant variant;
    const bool isSet = TEVUtilWindows::SetStringArrayVARIANT(strings, 4, variant.get());
    EXPECT_EQ(isSet, variant.Type() != VT_EMPTY);
    return isSet;
}

bool CreateTable() {
    char one[] = "1";
    char two[] = "2";
    const std::map<std::string, char*> data{{"a", one}, {"b", two}};
    Variant variant;
    const bool isMade =
        TEVUtilWindows::CreateKeyValueDataVariant(&data, variant.get(), "first", "value");
    EXPECT_EQ(isMade, variant.Type() != VT_EMPTY);
    return isMade;
}

bool MakeSignificantFigures() {
    Bstr value;
    Bstr uncertainty;
    const bool isMade =
        TEVUtilWindows::SignificantFigures(123.456, 0.02, value.Out(), uncertainty.Out(), false);
    EXPECT_EQ(isMade, !value.IsNull());
    EXPECT_EQ(isMade, !uncertainty.IsNull());
    return isMade;
}

// The variant holds something before, which the call loses: a stale pointer that nobody follows.
template <typename Create>
void ExpectEmptyWithoutAnArray(Create create) {
    VARIANT variant = {};
    variant.vt = VT_ARRAY | VT_BSTR;
    variant.parray = reinterpret_cast<SAFEARRAY*>(&variant);
    const auto fails = Fail(calls::SafeArrayCreate, nullptr);
    EXPECT_FALSE(create(&variant));
    EXPECT_EQ(variant.vt, VT_EMPTY);
}

TEST(FromMultibyteCharToBSTR, ExhaustedMemoryLeavesAsTheComError_Kept) {
    wchar_t held[] = L"held";
    wchar_t* text = held;
    HRESULT code = S_OK;
    const auto fails = Fail(calls::SysAllocStringLen, nullptr);
    try {
        TEVUtilWindows::FromMultibyteCharToBSTR("text", &text);
    } catch (const _com_error& error) {
        code = error.Error();
    }
    EXPECT_EQ(code, E_OUTOFMEMORY);
    EXPECT_EQ(text, nullptr);
}

TEST(CopyBSTR, FailureIsFalseWithNull) {
    wchar_t source[] = L"text";
    wchar_t* copy = source;
    const auto fails = Fail(calls::SysAllocString, nullptr);
    EXPECT_FALSE(TEVUtilWindows::CopyBSTR(source, &copy));
    EXPECT_EQ(copy, nullptr);
}

TEST(CompareBSTR, RefusalOfTheSystemThrows) {
    const Bstr text(L"text");
    for (const int refusal : {0, 4, -1}) {
        const auto fails = Fail(calls::CompareStringW, refusal, ERROR_INVALID_FLAGS);
        try {
            TEVUtilWindows::CompareBSTR(false, text.get(), text.get());
            ADD_FAILURE() << "nothing thrown for " << refusal;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "BSTR comparison operation failed.");
        }
    }
}

TEST(CompareBSTR, AsksForTheInvariantLocaleAndWholeTexts) {
    const Bstr first(L"first");
    const Bstr second(L"second");
    for (const bool ignoreCase : {false, true}) {
        const Replace answers(calls::CompareStringW,
                              [&](LCID locale, DWORD flags, const wchar_t* one, int oneLength,
                                  const wchar_t* two, int twoLength) {
                                  EXPECT_EQ(locale, 0x7Fu);
                                  EXPECT_EQ(flags, ignoreCase ? NORM_IGNORECASE : 0u);
                                  EXPECT_EQ(one, first.get());
                                  EXPECT_EQ(two, second.get());
                                  EXPECT_EQ(oneLength, -1);
                                  EXPECT_EQ(twoLength, -1);
                                  return CSTR_GREATER_THAN;
                              });
        EXPECT_EQ(TEVUtilWindows::CompareBSTR(ignoreCase, first.get(), second.get()), 1);
    }
}

TEST(SetStringArrayVARIANT, FailureAtAnyTextLeavesNothing) {
    EXPECT_EQ(FailuresUntilSuccess(calls::SysAllocStringLen, nullptr, SetStrings), 4);
}

TEST(SetStringArrayVARIANT, RefusedLockLeavesNothing) {
    const Calls unlocks(calls::SafeArrayUnlock);
    EXPECT_EQ(FailuresUntilSuccess(calls::SafeArrayLock, E_UNEXPECTED, SetStrings), 1);
    EXPECT_EQ(unlocks.Made(), 1) << "for the lock that was had";
}

TEST(CreateKeyValueDataVariant, FailureAtAnyTextLeavesNothing) {
    EXPECT_EQ(FailuresUntilSuccess(calls::SysAllocStringLen, nullptr, CreateTable), 6);
}

TEST(CreateKeyValueDataVariant, RefusedLockLeavesNothing) {
    EXPECT_EQ(FailuresUntilSuccess(calls::SafeArrayLock, E_UNEXPECTED, CreateTable), 1);
}

TEST(WideSignificantFigures, FailureOfEitherTextLeavesNothing) {
    EXPECT_EQ(FailuresUntilSuccess(calls::SysAllocStringLen, nullptr, MakeSignificantFigures), 2);
}

TEST(SafeArrayCreate, RefusalIsFalseWithAnEmptyVariant) {
    ExpectEmptyWithoutAnArray([](VARIANT* out) {
        double number = 1;
        return TEVUtilWindows::SetDoubleArrayVARIANT(&number, 1, out);
    });
    ExpectEmptyWithoutAnArray([](VARIANT* out) {
        int number = 1;
        return TEVUtilWindows::SetIntArrayVARIANT(&number, 1, out);
    });
    ExpectEmptyWithoutAnArray([](VARIANT* out) {
        const char* text = "text";
        const char** texts = &text;
        return TEVUtilWindows::SetStringArrayVARIANT(texts, 1, out);
    });
    ExpectEmptyWithoutAnArray([](VARIANT* out) {
        char value[] = "value";
        const std::map<std::string, char*> data{{"key", value}};
        return TEVUtilWindows::CreateKeyValueDataVariant(&data, out, nullptr, nullptr);
    });
    ExpectEmptyWithoutAnArray(
        [](VARIANT* out) { return TEVUtilWindows::CreateSafeArrayOfVariants(out, 1); });
}

TEST(SafeArrayCreate, RefusalIsFalseWithANullArray) {
    VARIANT stale = {};
    auto* array = reinterpret_cast<SAFEARRAY*>(&stale);
    const auto fails = Fail(calls::SafeArrayCreate, nullptr);
    EXPECT_FALSE(TEVUtilWindows::CreateSafeArrayOfVariants(&array, 1));
    EXPECT_EQ(array, nullptr);
}

TEST(DestroySafeArray, RefusalIsFalse) {
    const SafeArray array(VT_I4, {{1, 0}});
    const auto fails = Fail(calls::SafeArrayDestroy, DISP_E_ARRAYISLOCKED);
    EXPECT_FALSE(TEVUtilWindows::DestroySafeArray(array.get()));
}

TEST(TaskMemory, TheTextOfAClassIdIsGivenBack) {
    const Calls given(calls::CoTaskMemFree);
    Text text;
    EXPECT_TRUE(TEVUtilWindows::ConvertCLSIDToString(GUID{}, text.Out()));
    EXPECT_EQ(given.Made(), 1);
}

TEST(ConvertCLSIDToString, RefusalIsFalseWithNull) {
    const auto fails = Fail(calls::StringFromCLSID, E_OUTOFMEMORY);
    char stale[] = "stale";
    char* text = stale;
    EXPECT_FALSE(TEVUtilWindows::ConvertCLSIDToString(GUID{}, &text));
    EXPECT_EQ(text, nullptr);
    wchar_t wideStale[] = L"stale";
    wchar_t* wide = wideStale;
    EXPECT_FALSE(TEVUtilWindows::ConvertCLSIDToString(GUID{}, &wide));
    EXPECT_EQ(wide, nullptr);
}

TEST(GetCLSIDFromString, RefusalIsFalse) {
    constexpr const char* kText = "{00000000-0000-0000-C000-000000000046}";
    GUID clsid;
    ASSERT_TRUE(TEVUtilWindows::GetCLSIDFromString(kText, clsid));
    const auto fails = Fail(calls::CLSIDFromString, E_OUTOFMEMORY);
    EXPECT_FALSE(TEVUtilWindows::GetCLSIDFromString(kText, clsid));
}

// Checks which of the three forms of GetGUID succeed; those that give a text agree.
void ExpectGuids(bool binary, bool text) {
    GUID guid;
    EXPECT_EQ(TEVUtilWindows::GetGUID(&guid), binary);
    char stale[] = "stale";
    char* made = stale;
    EXPECT_EQ(TEVUtilWindows::GetGUID(&made), text);
    EXPECT_EQ(made != nullptr, text);
    const Text owner(made);
    EXPECT_EQ(TEVUtilWindows::GetGUID().size(), text ? 36U : 0U);
}

TEST(GetGUID, IsEmptyWhenNoneIsMade) {
    ExpectGuids(true, true);
    const Calls texts(calls::UuidToStringW);
    const auto fails = Fail(calls::CoCreateGuid, RPC_E_SYS_CALL_FAILED);
    ExpectGuids(false, false);
    EXPECT_EQ(texts.Made(), 0);
}

TEST(GetGUID, TextIsEmptyWithoutOneOfTheSystem) {
    const Calls given(calls::RpcStringFreeW);
    const auto fails = Fail(calls::UuidToStringW, RPC_S_OUT_OF_MEMORY);
    ExpectGuids(true, false);
    EXPECT_EQ(given.Made(), 0);
}

TEST(GetGUID, TextIsEmptyWhenItDoesNotConvert) {
    const Calls given(calls::RpcStringFreeW);
    const auto fails = Fail(calls::WideCharToMultiByte, 0, ERROR_NO_UNICODE_TRANSLATION);
    ExpectGuids(true, false);
    EXPECT_EQ(given.Made(), 2) << "once for each form";
}

}  // namespace
