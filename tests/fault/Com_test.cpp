// What the COM conversions give back to the system, also when it has no memory for a BSTR.
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>
// comdef.h needs windows.h before it.
#include <comdef.h>

#include <map>
#include <string>

#include "fault/ComCalls.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::FailBstr;
using tev::fault::LiveArrays;
using tev::fault::LiveBstrs;
using tev::fault::TaskMemoryReleases;

// Calls `attempt` with the n-th allocation failing, n = 0, 1, 2 ... until it succeeds, and gives
// the number of failures. `check` is called after each failure.
template <typename Attempt, typename Check>
int FailuresUntilSuccess(Attempt attempt, Check check) {
    constexpr int kTooMany = 100;
    for (int n = 0; n < kTooMany; ++n) {
        const auto before = LiveBstrs();
        const auto arraysBefore = LiveArrays();
        FailBstr(n);
        const bool succeeded = attempt();
        FailBstr(-1);
        if (succeeded) return n;
        check(LiveBstrs() - before, n);
        EXPECT_EQ(LiveArrays(), arraysBefore) << "after failure " << n;
    }
    return kTooMany;
}

void ExpectNothingLeft(std::ptrdiff_t left, int n) { EXPECT_EQ(left, 0) << "after failure " << n; }

// The array frees the elements that it holds itself, past the counters: only what was stored is
// gone.
void ExpectOnlyStoredOnes(std::ptrdiff_t left, int n) { EXPECT_EQ(left, n); }

TEST(FromMultibyteCharToBSTR, ExhaustedMemoryLeavesAsTheComError_Kept) {
    wchar_t* text = nullptr;
    FailBstr(0);
    HRESULT code = S_OK;
    try {
        TEVUtilWindows::FromMultibyteCharToBSTR("text", &text);
    } catch (const _com_error& error) {
        code = error.Error();
    }
    FailBstr(-1);
    EXPECT_EQ(code, E_OUTOFMEMORY);
    EXPECT_EQ(text, nullptr);
}

TEST(CopyBSTR, FailureIsFalseWithNull) {
    wchar_t source[] = L"text";
    wchar_t* copy = source;
    FailBstr(0);
    EXPECT_FALSE(TEVUtilWindows::CopyBSTR(source, &copy));
    FailBstr(-1);
    EXPECT_EQ(copy, nullptr);
}

TEST(SetStringArrayVARIANT, FailureAtAnyElementLeavesNothing) {
    const char* texts[] = {"a", "b", nullptr, "d"};
    const char** strings = texts;
    VARIANT variant;
    EXPECT_EQ(FailuresUntilSuccess(
                  [&] {
                      const bool isSet =
                          TEVUtilWindows::SetStringArrayVARIANT(strings, 4, &variant);
                      EXPECT_EQ(isSet, variant.vt != VT_EMPTY);
                      VariantClear(&variant);
                      return isSet;
                  },
                  ExpectOnlyStoredOnes),
              4);
}

TEST(CreateKeyValueDataVariant, FailureAtAnyElementLeavesNothing) {
    char one[] = "1";
    char two[] = "2";
    const std::map<std::string, char*> data{{"a", one}, {"b", two}};
    VARIANT variant;
    EXPECT_EQ(FailuresUntilSuccess(
                  [&] {
                      const bool isMade = TEVUtilWindows::CreateKeyValueDataVariant(
                          &data, &variant, "first", "value");
                      EXPECT_EQ(isMade, variant.vt != VT_EMPTY);
                      VariantClear(&variant);
                      return isMade;
                  },
                  ExpectNothingLeft),
              6);
}

TEST(WideSignificantFigures, FailureOfEitherTextLeavesNothing) {
    EXPECT_EQ(FailuresUntilSuccess(
                  [] {
                      wchar_t* value = nullptr;
                      wchar_t* uncertainty = nullptr;
                      const bool isMade = TEVUtilWindows::SignificantFigures(123.456, 0.02, &value,
                                                                             &uncertainty, false);
                      EXPECT_EQ(isMade, value != nullptr);
                      EXPECT_EQ(isMade, uncertainty != nullptr);
                      TEVUtilWindows::FreeBSTR(&value);
                      TEVUtilWindows::FreeBSTR(&uncertainty);
                      return isMade;
                  },
                  ExpectNothingLeft),
              2);
}

TEST(TaskMemory, ThePathOfTheShellIsGivenBack) {
    tev::test::Text folder;
    const auto before = TaskMemoryReleases();
    EXPECT_TRUE(TEVUtilWindows::GetCurrentUserHomeFolder(folder.Out()));
    EXPECT_EQ(TaskMemoryReleases() - before, 1);
}

TEST(TaskMemory, TheTextOfAClassIdIsGivenBack) {
    tev::test::Text text;
    const auto before = TaskMemoryReleases();
    EXPECT_TRUE(TEVUtilWindows::ConvertCLSIDToString(GUID{}, text.Out()));
    EXPECT_EQ(TaskMemoryReleases() - before, 1);
}

}  // namespace
