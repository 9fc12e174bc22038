// COM data when memory is exhausted at any step. What the system itself refuses is tested beside.
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>
// comdef.h needs windows.h before it.
#include <comdef.h>

#include <map>
#include <string>
#include <vector>

#include "fault/TextRows.h"
#include "support/Com.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using Windows = TAMO::TEV::System::Util::TEVUtilWindows;
using TAMO::TEV::System::Util::TEVUtilMemory;
using tev::test::Bstr;
using tev::test::PutText;
using tev::test::SafeArray;
using tev::test::Text;
using tev::test::TextArray;
using tev::test::TextAt;
using tev::test::Variant;

constexpr const wchar_t* kWide = L"\xE4, a text that is longer than what a string keeps in itself";
constexpr const char* kNarrow = "\xE4, a text that is longer than what a string keeps in itself";
constexpr const char* kGuidText = "{01234567-89AB-4DEF-8EDC-BA9876543210}";
constexpr const wchar_t* kWideGuidText = L"{01234567-89AB-4DEF-8EDC-BA9876543210}";
const GUID kGuid = {0x01234567, 0x89ab, 0x4def, {0x8e, 0xdc, 0xba, 0x98, 0x76, 0x54, 0x32, 0x10}};

constexpr std::size_t kGuidLength = 36;

void MakesABstr(Attempt& attempt) {
    Bstr text(L"held");
    wchar_t* out = text.get();
    const bool isMade =
        attempt.Call([&] { return Windows::FromMultibyteCharToBSTR(kNarrow, &out); });
    const bool succeeded = attempt.Succeeded(isMade);
    EXPECT_EQ(out != nullptr, succeeded);
    if (succeeded) {
        EXPECT_STREQ(out, kWide);
    } else {
        EXPECT_TRUE(attempt.Threw<_com_error>());
    }
    Windows::FreeBSTR(&out);
}

void MakesMeasuredBstrs(Attempt& attempt) {
    wchar_t stale[] = L"";
    wchar_t* value = stale;
    wchar_t* uncertainty = stale;
    const bool isMade = attempt.Call([&] {
        return Windows::SignificantFigures(123456789.125, 0.00002, &value, &uncertainty, true);
    });
    const bool succeeded = attempt.Succeeded(isMade);
    EXPECT_EQ(value != nullptr, succeeded);
    EXPECT_EQ(uncertainty != nullptr, succeeded);
    Windows::FreeBSTR(&value);
    Windows::FreeBSTR(&uncertainty);
}

void MakesAGuidText(Attempt& attempt) {
    char stale[] = "";
    char* out = stale;
    const bool isMade = attempt.Call([&] { return Windows::GetGUID(&out); });
    const Text text(out);
    EXPECT_EQ(text.IsNull(), !attempt.Succeeded(isMade && text.str().size() == kGuidLength));
}

const AllocatingFunctions comTexts{
    {"TEVUtilWindows::FromMultibyteCharToBSTR(char const*, wchar_t**)", "", MakesABstr},
    {"TEVUtilWindows::FromBSTRToMultibyteChar(wchar_t* const&, char**)", "",
     [](Attempt& attempt) {
         const Bstr text(kWide);
         HandsOut(attempt, kNarrow,
                  [&](char** out) { return Windows::FromBSTRToMultibyteChar(text.get(), out); });
     }},
    {"TEVUtilWindows::CompareBSTR(bool, wchar_t* const&, wchar_t* const&)", "null",
     [](Attempt& attempt) {
         wchar_t* const none = nullptr;
         Refuses<std::runtime_error>(attempt, "BSTR comparison operation failed.",
                                     [&] { return Windows::CompareBSTR(true, none, none); });
     }},
    {"TEVUtilWindows::SignificantFigures(double, double, wchar_t**, wchar_t**, bool)", "",
     MakesMeasuredBstrs},
    {"TEVUtilWindows::ConvertCLSIDToString(_GUID const&, wchar_t**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kWideGuidText,
                  [](wchar_t** out) { return Windows::ConvertCLSIDToString(kGuid, out); });
     }},
    {"TEVUtilWindows::ConvertCLSIDToString(_GUID const&, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kGuidText,
                  [](char** out) { return Windows::ConvertCLSIDToString(kGuid, out); });
     }},
    {"TEVUtilWindows::GetCLSIDFromString(char const*, _GUID&)", "",
     [](Attempt& attempt) {
         GUID guid = {};
         const bool isRead =
             attempt.Call([&] { return Windows::GetCLSIDFromString(kGuidText, guid); });
         EXPECT_TRUE(!attempt.Succeeded(isRead) || guid == kGuid);
     }},
    {"TEVUtilWindows::GetGUID(char**)", "", MakesAGuidText},
    {"TEVUtilWindows::GetGUID()", "",
     [](Attempt& attempt) {
         const std::string text = attempt.Call([] { return Windows::GetGUID(); });
         EXPECT_EQ(text.size(), attempt.Succeeded(!text.empty()) ? kGuidLength : 0U);
     }},
};

void SetsTexts(Attempt& attempt) {
    const char* texts[] = {kNarrow, "a second text of some length", nullptr};
    const char** strings = texts;
    Variant variant;
    const bool isSet =
        attempt.Call([&] { return Windows::SetStringArrayVARIANT(strings, 3, variant.get()); });
    ASSERT_EQ(variant.Array() != nullptr, attempt.Succeeded(isSet));
    if (variant.Array() != nullptr) {
        EXPECT_EQ(TextAt(variant.Array(), {0}), kWide);
    }
}

void ExtractsTexts(Attempt& attempt) {
    SafeArray array(VT_BSTR, {{3, 0}});
    PutText(array.get(), {0}, kWide);
    PutText(array.get(), {2}, kWide);
    Variant variant(VT_ARRAY | VT_BSTR, std::move(array));
    char* none[] = {nullptr};
    TextArray texts;
    texts.array = none;
    const bool isExtracted = attempt.Call([&] {
        return Windows::ExtractStringArrayFromVariant(texts.array, texts.count, variant.get());
    });
    const bool succeeded = attempt.Succeeded(isExtracted);
    EXPECT_EQ(texts.array != nullptr, succeeded);
    EXPECT_EQ(texts.count, 3U) << "stays on failure";
    if (succeeded) {
        EXPECT_EQ(texts.Strings(), std::vector<std::string>({kNarrow, "(null)", kNarrow}));
    }
    EXPECT_EQ(variant.Array()->cLocks, 0U);
}

template <typename T>
void ExtractsNumbers(Attempt& attempt, VARTYPE type, bool (*extract)(T**, std::uint64_t&, VARIANT*),
                     void (*release)(T**)) {
    Variant variant(static_cast<VARTYPE>(VT_ARRAY | type), SafeArray(type, {{5, 0}}));
    T stale{};
    T* out = &stale;
    std::uint64_t count = 77;
    const bool isExtracted = attempt.Call([&] { return extract(&out, count, variant.get()); });
    const bool succeeded = attempt.Succeeded(isExtracted);
    EXPECT_EQ(out != nullptr, succeeded);
    EXPECT_EQ(count, succeeded ? 5U : 0U);
    release(&out);
}

// A table for the library to send.
class Sent {
 public:
    std::map<std::string, char*> table{{"a key of some length here", first_}, {"b", second_}};

 private:
    char first_[64] = "a value that is longer than what a string keeps";
    char second_[2] = "2";
};

void SendsATable(Attempt& attempt) {
    const Sent sent;
    Variant variant;
    const bool isMade = attempt.Call([&] {
        return Windows::CreateKeyValueDataVariant(&sent.table, variant.get(),
                                                  " the key of the first row", kNarrow);
    });
    const bool succeeded = attempt.Succeeded(isMade);
    ASSERT_EQ(variant.Array() != nullptr, succeeded);
    EXPECT_EQ(variant.Type(), succeeded ? VT_ARRAY | VT_BSTR : VT_EMPTY);
    if (succeeded) {
        EXPECT_EQ(TextAt(variant.Array(), {0, 1}), kWide);
        EXPECT_EQ(TextAt(variant.Array(), {2, 0}), L"b");
    }
}

void ReceivesATable(Attempt& attempt) {
    SafeArray array(VT_BSTR, {{2, 0}, {3, 0}});
    PutText(array.get(), {0, 0}, L"a key of some length here");
    PutText(array.get(), {1, 0}, kWide);
    PutText(array.get(), {0, 1}, L"b");
    PutText(array.get(), {1, 1}, kWide);
    PutText(array.get(), {0, 2}, L"c");
    Variant variant(VT_ARRAY | VT_BSTR, std::move(array));
    char held[] = "held";
    std::map<std::string, char*> table{{"held", held}};
    const bool isRead =
        attempt.Call([&] { return Windows::ExtractKeyValueDataFromVARIANT(variant.get(), table); });
    EXPECT_EQ(table.size(), attempt.Succeeded(isRead) ? 3U : 0U);
    for (auto& [key, value] : table) Windows::DeleteCharBuffer(&value);
}

const AllocatingFunctions comArrays{
    {"TEVUtilWindows::SetStringArrayVARIANT(char const**&, unsigned long long, tagVARIANT*)", "",
     SetsTexts},
    {"TEVUtilWindows::ExtractStringArrayFromVariant(char**&, unsigned long long&, tagVARIANT*)", "",
     ExtractsTexts},
    {"TEVUtilWindows::ExtractDoubleArrayFromVARIANT(double**, unsigned long long&, tagVARIANT*)",
     "",
     [](Attempt& attempt) {
         ExtractsNumbers(attempt, VT_R8, Windows::ExtractDoubleArrayFromVARIANT,
                         Windows::DeleteDoubleBuffer);
     }},
    {"TEVUtilWindows::ExtractIntArrayFromVARIANT(int**, unsigned long long&, tagVARIANT*)", "",
     [](Attempt& attempt) {
         ExtractsNumbers(attempt, VT_I4, Windows::ExtractIntArrayFromVARIANT,
                         Windows::DeleteIntBuffer);
     }},
    {"TEVUtilWindows::CreateKeyValueDataVariant(std::map<std::string, char*> const*, "
     "tagVARIANT*, char const*, char const*)",
     "", SendsATable},
    {"TEVUtilWindows::ExtractKeyValueDataFromVARIANT(tagVARIANT const*, "
     "std::map<std::string, char*>&)",
     "", ReceivesATable},
};

const IdleFunctions systemTexts{
    {"TEVUtilWindows::CompareBSTR(bool, wchar_t* const&, wchar_t* const&)", "",
     [](Attempt& attempt) {
         const Bstr text(kWide);
         Finds(attempt, 0, [&] { return Windows::CompareBSTR(true, text.get(), text.get()); });
     }},
    {"TEVUtilWindows::CopyBSTR(wchar_t*, wchar_t**)", "",
     [](Attempt& attempt) {
         const Bstr text(kWide);
         wchar_t* copy = nullptr;
         Finds(attempt, true, [&] { return Windows::CopyBSTR(text.get(), &copy); });
         Windows::FreeBSTR(&copy);
     }},
    {"TEVUtilWindows::FreeBSTR(wchar_t**)", "",
     [](Attempt& attempt) {
         wchar_t* text = SysAllocString(kWide);
         attempt.Call([&] { Windows::FreeBSTR(&text); });
         attempt.Succeeded(text == nullptr);
     }},
    {"TEVUtilWindows::GetBSTRLength(wchar_t* const&)", "",
     [](Attempt& attempt) {
         const Bstr text(kWide);
         Finds(attempt, std::uint64_t{59}, [&] { return Windows::GetBSTRLength(text.get()); });
     }},
    {"TEVUtilWindows::GetCLSIDFromString(wchar_t const*, _GUID&)", "",
     [](Attempt& attempt) {
         GUID guid = {};
         Finds(attempt, true, [&] { return Windows::GetCLSIDFromString(kWideGuidText, guid); });
     }},
    {"TEVUtilWindows::GetGUID(_GUID*)", "",
     [](Attempt& attempt) {
         GUID guid = {};
         Finds(attempt, true, [&] { return Windows::GetGUID(&guid); });
     }},
};

template <typename T>
void SetsNumbers(Attempt& attempt, bool (*set)(T*, std::uint64_t, VARIANT*)) {
    T data[5] = {};
    Variant variant;
    Finds(attempt, true, [&] { return set(data, 5, variant.get()); });
}

// A call of a releasing function on what was just made.
template <typename T>
void Releases(Attempt& attempt, T* made, void (*release)(T**)) {
    attempt.Call([&] { release(&made); });
    attempt.Succeeded(made == nullptr);
}

template <typename T>
T* Array(std::size_t (*allocate)(std::size_t, T**)) {
    T* array = nullptr;
    allocate(5, &array);
    return array;
}

const IdleFunctions systemArrays{
    {"TEVUtilWindows::CreateSafeArrayOfVariants(tagSAFEARRAY**, unsigned long long)", "",
     [](Attempt& attempt) {
         SAFEARRAY* array = nullptr;
         Finds(attempt, true, [&] { return Windows::CreateSafeArrayOfVariants(&array, 5); });
         const SafeArray owned(array);
     }},
    {"TEVUtilWindows::CreateSafeArrayOfVariants(tagVARIANT*, unsigned long long)", "",
     [](Attempt& attempt) {
         Variant variant;
         Finds(attempt, true, [&] { return Windows::CreateSafeArrayOfVariants(variant.get(), 5); });
     }},
    {"TEVUtilWindows::DestroySafeArray(tagSAFEARRAY*)", "",
     [](Attempt& attempt) {
         SafeArray array(VT_R8, {{5, 0}});
         Finds(attempt, true, [&] { return Windows::DestroySafeArray(array.release()); });
     }},
    {"TEVUtilWindows::SetDoubleArrayVARIANT(double*, unsigned long long, tagVARIANT*)", "",
     [](Attempt& attempt) { SetsNumbers<double>(attempt, Windows::SetDoubleArrayVARIANT); }},
    {"TEVUtilWindows::SetIntArrayVARIANT(int*, unsigned long long, tagVARIANT*)", "",
     [](Attempt& attempt) { SetsNumbers<int>(attempt, Windows::SetIntArrayVARIANT); }},
    {"TEVUtilWindows::DeleteCharBuffer(char**)", "",
     [](Attempt& attempt) {
         Releases(attempt, Array(TEVUtilMemory::AllocateCharArray), Windows::DeleteCharBuffer);
     }},
    {"TEVUtilWindows::DeleteDoubleBuffer(double**)", "",
     [](Attempt& attempt) {
         Releases(attempt, Array(TEVUtilMemory::AllocateDoubleArray), Windows::DeleteDoubleBuffer);
     }},
    {"TEVUtilWindows::DeleteIntBuffer(int**)", "",
     [](Attempt& attempt) {
         Releases(attempt, Array(TEVUtilMemory::AllocateIntArray), Windows::DeleteIntBuffer);
     }},
    {"TEVUtilWindows::DeleteCStringArray(char**&, unsigned long long)", "",
     [](Attempt& attempt) {
         char** array = nullptr;
         TEVUtilMemory::AllocateCStringArray(array, 2);
         array[0] = Array(TEVUtilMemory::AllocateCharArray);
         attempt.Call([&] { Windows::DeleteCStringArray(array, 2); });
         attempt.Succeeded(array == nullptr);
     }},
};

}  // namespace
