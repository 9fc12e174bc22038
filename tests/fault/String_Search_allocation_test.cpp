// Searching and comparing need memory for the text of a refusal only; numbers in place need none.
#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

#include "fault/TextRows.h"

namespace {

using namespace tev::fault;
using String = TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::Util::TEVStringOps;

constexpr const char* kLower = "a text that is longer than what a string keeps in itself";

const AllocatingFunctions refusals{
    {"TEVUtilString::Find(char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be NULL or empty strings.",
                 [] { return String::Find(kText, ""); });
     }},
    {"TEVUtilString::IndexOf(char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be a nullptr or an empty string.",
                 [] { return String::IndexOf(kText, ""); });
     }},
    {"TEVUtilString::LastIndexOf(char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be a nullptr or empty strings.",
                 [] { return String::LastIndexOf(kText, ""); });
     }},
    {"TEVUtilString::Contains(char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be a nullptr.",
                 [] { return String::Contains(kText, nullptr); });
     }},
    {"TEVUtilString::StartWith(char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be NULL.",
                 [] { return String::StartWith(kText, nullptr); });
     }},
    {"TEVUtilString::StartWith(bool, char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be NULL.",
                 [] { return String::StartWith(true, nullptr, kText); });
     }},
    {"TEVUtilString::EndWith(char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be a nullptr.",
                 [] { return String::EndWith(kText, nullptr); });
     }},
    {"TEVUtilString::EndWith(bool, char const*, char const*)", "refused",
     [](Attempt& attempt) {
         Refuses(attempt, "Input arguments cannot be a nullptr.",
                 [] { return String::EndWith(true, nullptr, kText); });
     }},
};

const IdleFunctions searches{
    {"TEVUtilString::Find(char const*, char const*)", "found",
     [](Attempt& attempt) { Finds(attempt, 2, [] { return String::Find(kText, "Text"); }); }},
    {"TEVUtilString::IndexOf(char const*, char const*)", "found",
     [](Attempt& attempt) { Finds(attempt, 2, [] { return String::IndexOf(kText, "T"); }); }},
    {"TEVUtilString::LastIndexOf(char const*, char const*)", "found",
     [](Attempt& attempt) { Finds(attempt, 50, [] { return String::LastIndexOf(kText, "I"); }); }},
    {"TEVUtilString::Contains(char const*, char const*)", "found",
     [](Attempt& attempt) {
         Finds(attempt, true, [] { return String::Contains(kText, "Text"); });
     }},
    {"TEVUtilString::StartWith(char const*, char const*)", "found",
     [](Attempt& attempt) {
         Finds(attempt, true, [] { return String::StartWith("A Text", kText); });
     }},
    {"TEVUtilString::StartWith(bool, char const*, char const*)", "found",
     [](Attempt& attempt) {
         Finds(attempt, true, [] { return String::StartWith(true, kLower, kText); });
     }},
    {"TEVUtilString::EndWith(char const*, char const*)", "found",
     [](Attempt& attempt) {
         Finds(attempt, true, [] { return String::EndWith("Itself", kText); });
     }},
    {"TEVUtilString::EndWith(bool, char const*, char const*)", "found",
     [](Attempt& attempt) {
         Finds(attempt, true, [] { return String::EndWith(true, kLower, kText); });
     }},
    {"TEVUtilString::CharacterCount(char, char const*)", "",
     [](Attempt& attempt) {
         Finds(attempt, std::size_t{3}, [] { return String::CharacterCount('T', kText); });
     }},
    {"TEVUtilString::IsInRange(char const*&, char const*, unsigned long long*)", "",
     [](Attempt& attempt) {
         const char* allowed = kText;
         Finds(attempt, true, [&] { return String::IsInRange(allowed, "Longer Than", nullptr); });
     }},
    {"TEVUtilString::Trim(char const*, unsigned long long&, bool, bool)", "",
     [](Attempt& attempt) {
         std::size_t length = 0;
         Finds(attempt, kSpacedText + 2,
               [&] { return String::Trim(kSpacedText, length, true, true); });
     }},
};

const IdleFunctions comparisons{
    {"TEVUtilString::Compare(char const*, char const*)", "",
     [](Attempt& attempt) { Finds(attempt, 0, [] { return String::Compare(kText, kText); }); }},
    {"TEVUtilString::Compare(bool, char const*, char const*)", "",
     [](Attempt& attempt) {
         Finds(attempt, 0, [] { return String::Compare(true, kText, kLower); });
     }},
    // Its arguments are the caller's copies.
    {"TEVUtilString::Compare(bool, std::string, std::string)", "",
     [](Attempt& attempt) {
         std::string first = kText;
         std::string second = kLower;
         Finds(attempt, 0,
               [&] { return String::Compare(true, std::move(first), std::move(second)); });
     }},
};

bool IsSigned(bool& isZero, const std::string& text);
bool IsUnsigned(bool& isZero, const std::string& text);

// The validators are private; an explicit instantiation may name them all the same.
template <auto kSigned, auto kUnsigned>
struct Opened {
    friend bool IsSigned(bool& isZero, const std::string& text) { return kSigned(isZero, text); }
    friend bool IsUnsigned(bool& isZero, const std::string& text) {
        return kUnsigned(isZero, text);
    }
};
template struct Opened<&String::IsValidSignedInteger, &String::IsValidUnsignedInteger>;

template <bool (*isValid)(bool&, const std::string&)>
void Validates(Attempt& attempt) {
    const std::string text(40, '7');
    bool isZero = true;
    Finds(attempt, true, [&] { return isValid(isZero, text); });
}

const IdleFunctions conversions{
    {"TEVUtilString::IsValidSignedInteger(bool&, std::string const&)", "", Validates<IsSigned>},
    {"TEVUtilString::IsValidUnsignedInteger(bool&, std::string const&)", "", Validates<IsUnsigned>},
    {"TEVUtilString::ToBool(char const*, bool&)", "",
     [](Attempt& attempt) {
         Converts(attempt, true,
                  [](bool& value) { return String::ToBool("                    true", value); });
     }},
    {"TEVUtilString::GetSignificantFiguresInfo(char const*, bool&, bool&, int&, int&, int&, int&)",
     "",
     [](Attempt& attempt) {
         bool flags[2];
         int numbers[4];
         Finds(attempt, true, [&] {
             return String::GetSignificantFiguresInfo("0000000000000000012345.678900", flags[0],
                                                      flags[1], numbers[0], numbers[1], numbers[2],
                                                      numbers[3]);
         });
     }},
    {"TEVUtilString::BinaryToUnsignedInt64(char const*, unsigned long long, unsigned long long&)",
     "",
     [](Attempt& attempt) {
         Converts(attempt, std::uint64_t{0x6162}, [](std::uint64_t& value) {
             return String::BinaryToUnsignedInt64("ab", 2, value);
         });
     }},
    {"TEVUtilString::BinaryToUnsignedLong(char const*, unsigned long long, unsigned long&)", "",
     [](Attempt& attempt) {
         Converts(attempt, 0x6162UL, [](unsigned long& value) {
             return String::BinaryToUnsignedLong("ab", 2, value);
         });
     }},
    {"TEVUtilString::BitsToSignedInt64(char, char const*, long long&, unsigned long long, "
     "unsigned long long)",
     "",
     [](Attempt& attempt) {
         Converts(attempt, std::int64_t{0x6162}, [](std::int64_t& value) {
             return String::BitsToSignedInt64('R', "ab", value, 16, 2);
         });
     }},
    {"TEVUtilString::BitsToSignedLong(char, char const*, long&, unsigned long long, "
     "unsigned long long)",
     "",
     [](Attempt& attempt) {
         Converts(attempt, 0x6162L,
                  [](long& value) { return String::BitsToSignedLong('R', "ab", value, 16, 2); });
     }},
    {"TEVUtilString::AddTwoBinaryBitArrays(bool&, char*, char*, char*, unsigned long long)", "",
     [](Attempt& attempt) {
         bool carry = false;
         char bits[40] = {1};
         Finds(attempt, true,
               [&] { return String::AddTwoBinaryBitArrays(carry, bits, bits, bits, 40); });
         EXPECT_TRUE(carry);
     }},
    {"TEVUtilString::SystemByteOrder()", "",
     [](Attempt& attempt) { Finds(attempt, TEVSysCnst::LittleEndian, String::SystemByteOrder); }},
};

template <typename T, bool (*swap)(T*, int)>
void Swaps(Attempt& attempt) {
    T array[40] = {};
    Finds(attempt, true, [&] { return swap(array, 40); });
}

const IdleFunctions swaps{
    {"TEVUtilString::Swap16BitWord(short*, int)", "", Swaps<short, String::Swap16BitWord>},
    {"TEVUtilString::Swap16BitWord(unsigned short*, int)", "",
     Swaps<unsigned short, String::Swap16BitWord>},
    {"TEVUtilString::Swap32BitWord(int*, int)", "", Swaps<int, String::Swap32BitWord>},
    {"TEVUtilString::Swap32BitWord(unsigned int*, int)", "",
     Swaps<unsigned int, String::Swap32BitWord>},
    {"TEVUtilString::Swap32BitFloat(float*, int)", "", Swaps<float, String::Swap32BitFloat>},
    {"TEVUtilString::Swap64BitDouble(double*, int)", "", Swaps<double, String::Swap64BitDouble>},
};

// A buffer is released; `make` fills it.
template <typename T>
void Releases(Attempt& attempt, std::size_t (*make)(std::size_t, T**), void (*release)(T**)) {
    T* buffer = nullptr;
    EXPECT_EQ(make(5, &buffer), 5U);
    attempt.Call([&] { release(&buffer); });
    attempt.Succeeded(buffer == nullptr);
}

const IdleFunctions releases{
    {"TEVUtilString::DeleteCString(char**)", "",
     [](Attempt& attempt) {
         Releases<char>(attempt, String::GetCharArray, String::DeleteCString);
     }},
    {"TEVUtilString::DeleteUnsignedCharArray(unsigned char**)", "",
     [](Attempt& attempt) {
         Releases<unsigned char>(attempt, String::GetUnsignedCharArray,
                                 String::DeleteUnsignedCharArray);
     }},
    {"TEVUtilString::DeleteWCharBuffer(wchar_t**)", "",
     [](Attempt& attempt) {
         wchar_t* text = nullptr;
         String::Copy(L"text", &text, nullptr);
         attempt.Call([&] { String::DeleteWCharBuffer(&text); });
         attempt.Succeeded(text == nullptr);
     }},
    {"TEVStringOps::Delete(char*)", "",
     [](Attempt& attempt) {
         char* text = nullptr;
         TEVStringOps::Copy(kText, &text);
         attempt.Call([&] { TEVStringOps::Delete(text); });
         attempt.Succeeded(true);
     }},
};

}  // namespace
