// Copies and encodings of text when memory is exhausted at any of their steps.
#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "fault/TextRows.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using TAMO::TEV::System::Util::TEVStringOps;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;

constexpr const wchar_t* kWide = L"A wide text of some length";
constexpr const char* kNarrow = "A wide text of some length";

char* OwnedCopy(const char* text) {
    char* copy = nullptr;
    TEVUtilString::Copy(text, &copy, nullptr);
    return copy;
}

void CopiesIntoVector(Attempt& attempt) {
    const Text owned(OwnedCopy(kText));
    const char* source = owned.get();
    std::vector<char*> copies;
    const bool isCopied =
        attempt.Call([&] { return TEVUtilString::Copy(source, copies, false, nullptr); });
    EXPECT_EQ(copies.size(), attempt.Succeeded(isCopied) ? 1U : 0U);
    for (char*& copy : copies) {
        EXPECT_STREQ(copy, kText);
        TEVUtilString::DeleteCString(&copy);
    }
}

void CopiesIntoVectorAndReleases(Attempt& attempt) {
    const char* const owned = OwnedCopy(kText);
    const char* source = owned;
    std::vector<char*> copies;
    const bool isCopied =
        attempt.Call([&] { return TEVUtilString::Copy(source, copies, true, nullptr); });
    const bool succeeded = attempt.Succeeded(isCopied);
    EXPECT_EQ(source, succeeded ? nullptr : owned);
    EXPECT_EQ(copies.size(), succeeded ? 1U : 0U);
    TEVStringOps::Delete(const_cast<char*>(source));
    for (char*& copy : copies) TEVUtilString::DeleteCString(&copy);
}

void SubStringKeepsARefusedString(Attempt& attempt) {
    std::string out = "held";
    const bool isCut = attempt.Call([&] { return TEVUtilString::SubString(kText, 2, 30, out); });
    EXPECT_EQ(out, attempt.Succeeded(isCut) ? std::string(kText + 2, 30) : "held");
}

void GetBytesClearsAFailedString(Attempt& attempt) {
    std::string out = "held";
    const bool isCut = attempt.Call([&] { return TEVUtilString::GetBytes(kText, 2, 30, out); });
    EXPECT_EQ(out, attempt.Succeeded(isCut) ? std::string(kText + 2, 30) : "");
}

void TrimmedCopyReleasesWhatItHeldOnFailure(Attempt& attempt) {
    char* const held = OwnedCopy("held");
    char* out = held;
    const bool isCopied =
        attempt.Call([&] { return TEVUtilString::MemCopyTrimmedString(kSpacedText, &out); });
    const bool succeeded = attempt.Succeeded(isCopied);
    const Text copy(out);
    EXPECT_EQ(copy.str(), succeeded ? kText : "(null)");
    if (succeeded) TEVStringOps::Delete(held);
}

template <typename Char, typename Work>
void HandsOutWithLength(Attempt& attempt, const Char* expected, std::size_t expectedLength,
                        Work work) {
    std::size_t length = 77;
    HandsOut(attempt, expected, [&](Char** out) { return work(out, &length); });
    EXPECT_EQ(length, attempt.IsFaulted() ? 0 : expectedLength);
}

const AllocatingFunctions copies{
    {"TEVUtilString::Copy(char const*, char**, unsigned long long*)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kText,
                  [](char** out) { return TEVUtilString::Copy(kText, out, nullptr); });
     }},
    {"TEVUtilString::Copy(wchar_t const*, wchar_t**, unsigned long long*)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kWide,
                  [](wchar_t** out) { return TEVUtilString::Copy(kWide, out, nullptr); });
     }},
    {"TEVUtilString::Copy(wchar_t const*, wchar_t**, unsigned long long*)", "empty",
     [](Attempt& attempt) {
         HandsOut(attempt, L"",
                  [](wchar_t** out) { return TEVUtilString::Copy(L"", out, nullptr); });
     }},
    {"TEVUtilString::Copy(char const*&, std::vector<char*>&, bool, unsigned long long*)",
     "keeping the source", CopiesIntoVector},
    {"TEVUtilString::Copy(char const*&, std::vector<char*>&, bool, unsigned long long*)",
     "releasing the source", CopiesIntoVectorAndReleases},
    {"TEVStringOps::Copy(char const*, char**)", "",
     [](Attempt& attempt) {
         char* out = nullptr;
         attempt.Call([&] { TEVStringOps::Copy(kText, &out); });
         const Text copy(out);
         EXPECT_EQ(copy.str(), attempt.Succeeded(out != nullptr) ? kText : "(null)");
     }},
    {"TEVUtilString::GetCharArray(unsigned long long, char**, char)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, "****",
                  [](char** out) { return TEVUtilString::GetCharArray(4, out, '*') == 4; });
     }},
    {"TEVUtilString::SubString(char const*, unsigned long long, unsigned long long, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, "Text That",
                  [](char** out) { return TEVUtilString::SubString(kText, 2, 9, out); });
     }},
    {"TEVUtilString::SubString(char const*, unsigned long long, unsigned long long, std::string&)",
     "", SubStringKeepsARefusedString},
    {"TEVUtilString::GetBytes(char const*, unsigned long long, unsigned long long, char**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, "Text That",
                  [](char** out) { return TEVUtilString::GetBytes(kText, 2, 9, out); });
     }},
    {"TEVUtilString::GetBytes(char const*, unsigned long long, unsigned long long, std::string&)",
     "", GetBytesClearsAFailedString},
    {"TEVUtilString::MemCopyTrimmedString(char const*, char**)", "",
     TrimmedCopyReleasesWhatItHeldOnFailure},
};

const AllocatingFunctions encodings{
    {"TEVUtilString::Base64Encode(unsigned char const*, unsigned long long, char**)", "",
     [](Attempt& attempt) {
         const unsigned char data[] = {'f', 'o', 'o', 'b', 'a', 'r', 'f', 'o', 'o', 'b', 'a', 'r'};
         HandsOut(attempt, "Zm9vYmFyZm9vYmFy",
                  [&](char** out) { return TEVUtilString::Base64Encode(data, sizeof(data), out); });
     }},
    {"TEVUtilString::Base64Decode(char const*, char**, unsigned long long&)", "",
     [](Attempt& attempt) {
         HandsOutWithLength(attempt, "foobarfoobarfoobar", 18, [](char** out, std::size_t* length) {
             return TEVUtilString::Base64Decode("Zm9vYmFyZm9vYmFyZm9vYmFy", out, *length);
         });
     }},
    {"TEVUtilString::Base64Decode(char const*, char**, unsigned long long&)", "empty result",
     [](Attempt& attempt) {
         HandsOutWithLength(attempt, "", 0, [](char** out, std::size_t* length) {
             return TEVUtilString::Base64Decode("*", out, *length);
         });
     }},
    {"TEVUtilString::ConvertFromCharToWChar(char const*, wchar_t**)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, kWide, [](wchar_t** out) {
             return TEVUtilString::ConvertFromCharToWChar(kNarrow, out);
         });
     }},
    {"TEVUtilString::ConvertFromWCharToChar(wchar_t const*, char**)", "",
     [](Attempt& attempt) {
         HandsOut(
             attempt, kNarrow,
             [](char** out) { TEVUtilString::ConvertFromWCharToChar(kWide, out); }, ByRuntimeError);
     }},
    {"TEVUtilString::ConvertFromWCharToChar(wchar_t const*, char**)", "refused",
     [](Attempt& attempt) {
         char* out = nullptr;
         Refuses<std::runtime_error>(attempt, "Failed to convert data from wchar to char.", [&] {
             return TEVUtilString::ConvertFromWCharToChar(L"\u4e2d", &out), 0;
         });
         EXPECT_EQ(out, nullptr);
     }},
    {"TEVUtilString::ConvertFromMultiByteCharToWChar(char const*, unsigned long long, wchar_t**, "
     "unsigned long long*)",
     "",
     [](Attempt& attempt) {
         HandsOutWithLength(attempt, L"\u00e9t\u00e9", 3, [](wchar_t** out, std::size_t* length) {
             return TEVUtilString::ConvertFromMultiByteCharToWChar("\xC3\xA9t\xC3\xA9", 5, out,
                                                                   length);
         });
     }},
    {"TEVUtilString::ConvertFromWCharToMultiByteChar(char**, wchar_t const*, unsigned long long, "
     "unsigned long long*)",
     "",
     [](Attempt& attempt) {
         HandsOutWithLength(attempt, "\xC3\xA9t\xC3\xA9", 5, [](char** out, std::size_t* length) {
             return TEVUtilString::ConvertFromWCharToMultiByteChar(out, L"\u00e9t\u00e9", 3,
                                                                   length);
         });
     }},
};

}  // namespace
