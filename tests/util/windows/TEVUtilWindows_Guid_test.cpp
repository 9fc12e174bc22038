#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>
// objbase.h needs windows.h before it.
#include <objbase.h>

#include <set>
#include <string>
#include <string_view>

#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Text;
using tev::test::WideText;

constexpr GUID kZero = {};
constexpr GUID kGuid = {
    0x01234567, 0x89ab, 0xcdef, {0xfe, 0xdc, 0xba, 0x98, 0x76, 0x54, 0x32, 0x10}};
constexpr GUID kUnknown = {0x00000000, 0x0000, 0x0000, {0xc0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID kLargest = {
    0xffffffff, 0xffff, 0xffff, {0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff}};

constexpr struct {
    GUID guid;
    const char* narrow;
    const wchar_t* wide;
} kForms[] = {
    {kZero, "{00000000-0000-0000-0000-000000000000}", L"{00000000-0000-0000-0000-000000000000}"},
    {kGuid, "{01234567-89AB-CDEF-FEDC-BA9876543210}", L"{01234567-89AB-CDEF-FEDC-BA9876543210}"},
    {kUnknown, "{00000000-0000-0000-C000-000000000046}", L"{00000000-0000-0000-C000-000000000046}"},
    {kLargest, "{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}", L"{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}"},
};

// Eight, four, four, four and twelve lower-case hexadecimal digits.
bool IsPlainForm(std::string_view text) {
    constexpr std::string_view kForm = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    constexpr std::string_view kDigits = "0123456789abcdef";
    if (text.size() != kForm.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = kDigits.find(text[i]) != std::string_view::npos;
        if (kForm[i] == 'x' ? !isDigit : text[i] != '-') return false;
    }
    return true;
}

TEST(ConvertCLSIDToString, BracedUpperCaseText) {
    for (const auto& row : kForms) {
        WideText wide;
        EXPECT_TRUE(TEVUtilWindows::ConvertCLSIDToString(row.guid, wide.Out()));
        EXPECT_EQ(wide.str(), row.wide);
        Text narrow;
        EXPECT_TRUE(TEVUtilWindows::ConvertCLSIDToString(row.guid, narrow.Out()));
        EXPECT_EQ(narrow.str(), row.narrow);
    }
}

TEST(ConvertCLSIDToString, OutputIsOverwrittenNotReleased) {
    wchar_t wideHeld[] = L"held";
    wchar_t* wide = wideHeld;
    ASSERT_TRUE(TEVUtilWindows::ConvertCLSIDToString(kGuid, &wide));
    EXPECT_NE(wide, wideHeld);
    TEVUtilString::DeleteWCharBuffer(&wide);
    char narrowHeld[] = "held";
    char* narrow = narrowHeld;
    ASSERT_TRUE(TEVUtilWindows::ConvertCLSIDToString(kGuid, &narrow));
    EXPECT_NE(narrow, narrowHeld);
    TEVUtilString::DeleteCString(&narrow);
}

TEST(ConvertCLSIDToString, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::ConvertCLSIDToString(kGuid, static_cast<wchar_t**>(nullptr)));
    EXPECT_FALSE(TEVUtilWindows::ConvertCLSIDToString(kGuid, static_cast<char**>(nullptr)));
}

TEST(GetCLSIDFromString, BracedText) {
    for (const auto& row : kForms) {
        SCOPED_TRACE(row.narrow);
        GUID guid = kGuid;
        EXPECT_TRUE(TEVUtilWindows::GetCLSIDFromString(row.wide, guid));
        EXPECT_TRUE(guid == row.guid);
        guid = kUnknown;
        EXPECT_TRUE(TEVUtilWindows::GetCLSIDFromString(row.narrow, guid));
        EXPECT_TRUE(guid == row.guid);
    }
}

TEST(GetCLSIDFromString, LettersOfEitherCase) {
    GUID guid = kZero;
    EXPECT_TRUE(TEVUtilWindows::GetCLSIDFromString("{01234567-89ab-cdef-FEDC-ba9876543210}", guid));
    EXPECT_TRUE(guid == kGuid);
    guid = kZero;
    EXPECT_TRUE(
        TEVUtilWindows::GetCLSIDFromString(L"{01234567-89ab-cdef-FEDC-ba9876543210}", guid));
    EXPECT_TRUE(guid == kGuid);
}

TEST(GetCLSIDFromString, OtherTextsAreRefused) {
    const char* const rows[] = {
        nullptr,
        "",
        " ",
        "01234567-89AB-CDEF-FEDC-BA9876543210",
        "{01234567-89AB-CDEF-FEDC-BA9876543210",
        "{01234567-89AB-CDEF-FEDC-BA987654321}",
        "{01234567-89AB-CDEF-FEDC-BA98765432100}",
        "{01234567-89AB-CDEF-FEDC-BA9876543210} ",
        " {01234567-89AB-CDEF-FEDC-BA9876543210}",
        "{0123456789ABCDEFFEDCBA9876543210}",
        "{01234567-89AB-CDEF-FEDC-BA987654321G}",
        "{01234567-89AB-CDEF-FEDC-BA987654321\xe9}",
        "TEV.No.Such.Program.1",
    };
    for (const char* row : rows) {
        SCOPED_TRACE(row == nullptr ? "(null)" : row);
        GUID guid = kGuid;
        EXPECT_FALSE(TEVUtilWindows::GetCLSIDFromString(row, guid));
        const std::string text = row == nullptr ? "" : row;
        const std::wstring wide(text.begin(), text.end());
        EXPECT_FALSE(
            TEVUtilWindows::GetCLSIDFromString(row == nullptr ? nullptr : wide.c_str(), guid));
    }
}

TEST(GetGUID, NewOneEachTime) {
    GUID first = kZero;
    GUID second = kZero;
    EXPECT_TRUE(TEVUtilWindows::GetGUID(&first));
    EXPECT_TRUE(TEVUtilWindows::GetGUID(&second));
    EXPECT_FALSE(first == kZero);
    EXPECT_FALSE(first == second);
}

TEST(GetGUID, TextOf36LowerCaseCharactersWithoutBraces) {
    std::set<std::string> texts;
    constexpr int kTimes = 100;
    for (int i = 0; i < kTimes; ++i) {
        Text text;
        EXPECT_TRUE(TEVUtilWindows::GetGUID(text.Out()));
        EXPECT_TRUE(IsPlainForm(text.str())) << text.str();
        texts.insert(text.str());
        const std::string another = TEVUtilWindows::GetGUID();
        EXPECT_TRUE(IsPlainForm(another)) << another;
        texts.insert(another);
    }
    EXPECT_EQ(texts.size(), 2u * kTimes);
}

TEST(GetGUID, BracedTextReadsBack) {
    const std::string text = TEVUtilWindows::GetGUID();
    GUID guid = kZero;
    ASSERT_TRUE(TEVUtilWindows::GetCLSIDFromString(("{" + text + "}").c_str(), guid)) << text;
    Text again;
    ASSERT_TRUE(TEVUtilWindows::ConvertCLSIDToString(guid, again.Out()));
    EXPECT_EQ(TEVUtilString::ToLower(again.str()), "{" + text + "}");
}

TEST(GetGUID, OutputIsOverwrittenNotReleased) {
    char held[] = "held";
    char* text = held;
    ASSERT_TRUE(TEVUtilWindows::GetGUID(&text));
    EXPECT_NE(text, held);
    TEVUtilString::DeleteCString(&text);
}

TEST(GetGUID, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::GetGUID(static_cast<GUID*>(nullptr)));
    EXPECT_FALSE(TEVUtilWindows::GetGUID(static_cast<char**>(nullptr)));
}

// A program name that the system knows, as long as this lives.
class RegisteredProgram {
 public:
    RegisteredProgram() {
        EXPECT_EQ(
            RegSetKeyValueW(HKEY_CLASSES_ROOT, kClass, nullptr, REG_SZ, kClsid, sizeof(kClsid)),
            ERROR_SUCCESS);
    }
    ~RegisteredProgram() { RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgram); }
    RegisteredProgram(const RegisteredProgram&) = delete;
    RegisteredProgram& operator=(const RegisteredProgram&) = delete;

 private:
    static constexpr wchar_t kProgram[] = L"TEVSystemLib.Test.1";
    static constexpr wchar_t kClass[] = L"TEVSystemLib.Test.1\\CLSID";
    static constexpr wchar_t kClsid[] = L"{01234567-89AB-CDEF-FEDC-BA9876543210}";
};

TEST(GetCLSIDFromString, KnownProgramNames) {
    const RegisteredProgram program;
    GUID guid = kZero;
    EXPECT_TRUE(TEVUtilWindows::GetCLSIDFromString(L"TEVSystemLib.Test.1", guid));
    EXPECT_EQ(guid, kGuid);
    guid = kZero;
    EXPECT_TRUE(TEVUtilWindows::GetCLSIDFromString("TEVSystemLib.Test.1", guid));
    EXPECT_EQ(guid, kGuid);
}

}  // namespace
