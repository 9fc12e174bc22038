// Numbers to text and back when memory is exhausted at any step.
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "fault/TextRows.h"
#include "support/Owned.h"

namespace {

using namespace tev::fault;
using String = TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;

constexpr std::uint64_t kWidth = 40;
constexpr const char* kPadded = "                                      12";
constexpr const char* kZeros = "0000000000000000000000000000000000000012";

template <typename T>
void GivesPadded(Attempt& attempt) {
    Gives(attempt, kPadded, [] { return String::ToString('R', T{12}, kWidth, false, false); });
}

// The longest text of a type.
template <typename T>
void GivesPlain(Attempt& attempt) {
    constexpr T value =
        std::is_signed_v<T> ? std::numeric_limits<T>::min() : std::numeric_limits<T>::max();
    Gives(attempt, std::to_string(value), [] { return String::ToString(value); });
}

const AllocatingFunctions justified{
    {"TEVUtilString::ToString(char, int, unsigned long long, bool, bool)", "", GivesPadded<int>},
    {"TEVUtilString::ToString(char, long, unsigned long long, bool, bool)", "", GivesPadded<long>},
    {"TEVUtilString::ToString(char, long long, unsigned long long, bool, bool)", "",
     GivesPadded<std::int64_t>},
    {"TEVUtilString::ToString(char, unsigned long long, unsigned long long, bool, bool)", "",
     GivesPadded<std::uint64_t>},
    {"TEVUtilString::ToString(char, unsigned long long, unsigned int, bool, bool)", "",
     [](Attempt& attempt) {
         Gives(attempt, kPadded, [] { return String::ToString('R', kWidth, 12U, false, false); });
     }},
    {"TEVUtilString::ToString(char, int, unsigned long long, bool, bool)", "zeros",
     [](Attempt& attempt) {
         Gives(attempt, kZeros, [] { return String::ToString('R', 12, kWidth, false, true); });
     }},
    {"TEVUtilString::ToString(char, double, unsigned long long, unsigned long long, bool, bool)",
     "",
     [](Attempt& attempt) {
         Gives(attempt, "                                   12.50",
               [] { return String::ToString('R', 12.5, kWidth, 2, false, false); });
     }},
};

// A text of 32 bits is short enough for what a string keeps in itself.
const IdleFunctions shortNumbers{
    {"TEVUtilString::ToString(int)", "", GivesPlain<int>},
    {"TEVUtilString::ToString(unsigned int)", "", GivesPlain<unsigned int>},
    {"TEVUtilString::ToString(long)", "", GivesPlain<long>},
    {"TEVUtilString::ToString(unsigned long)", "", GivesPlain<unsigned long>},
};

const AllocatingFunctions plain{
    {"TEVUtilString::ToString(long long)", "", GivesPlain<std::int64_t>},
    {"TEVUtilString::ToString(unsigned long long)", "", GivesPlain<std::uint64_t>},
    {"TEVUtilString::ToString(double, bool, int)", "",
     [](Attempt& attempt) {
         Gives(attempt, "12.500000000000000000000000000000",
               [] { return String::ToString(12.5, false, 30); });
     }},
    {"TEVUtilString::ToString(double, bool, int)", "more digits than a stream writes",
     [](Attempt& attempt) {
         Gives(attempt, "1.5" + std::string(1999, '0') + "e+00",
               [] { return String::ToString(1.5, true, 2000); });
     }},
    {"TEVUtilString::ToString(char**, double, bool, int)", "",
     [](Attempt& attempt) {
         HandsOut(attempt, "12.500000000000000000000000000000",
                  [](char** out) { return String::ToString(out, 12.5, false, 30); });
     }},
};

template <typename T>
void ConvertsWithoutMemory(Attempt& attempt, bool (*parse)(const char*, T&)) {
    Converts(attempt, T{12}, [parse](T& value) { return parse(kZeros, value); });
}

// Numbers that fit are read as they stand.
const IdleFunctions plainNumbers{
    {"TEVUtilString::ToInteger(char const*, int&)", "",
     [](Attempt& attempt) { ConvertsWithoutMemory(attempt, String::ToInteger); }},
    {"TEVUtilString::ToInteger(char const*, int&)", "no digits before the point",
     [](Attempt& attempt) {
         Converts(attempt, 0, [](int& value) {
             return String::ToInteger(".00000000000000000000000000001", value);
         });
     }},
    {"TEVUtilString::ToLong(char const*, long&)", "",
     [](Attempt& attempt) { ConvertsWithoutMemory(attempt, String::ToLong); }},
    {"TEVUtilString::ToUnsignedInt(char const*, unsigned int&)", "",
     [](Attempt& attempt) { ConvertsWithoutMemory(attempt, String::ToUnsignedInt); }},
    {"TEVUtilString::ToInt64(char const*, long long&)", "",
     [](Attempt& attempt) { ConvertsWithoutMemory(attempt, String::ToInt64); }},
    {"TEVUtilString::ToUInt64(char const*, unsigned long long&)", "",
     [](Attempt& attempt) { ConvertsWithoutMemory(attempt, String::ToUInt64); }},
    {"TEVUtilString::ToDouble(char const*, double&)", "",
     [](Attempt& attempt) { ConvertsWithoutMemory(attempt, String::ToDouble); }},
};

// Of numbers that do not fit the C runtime and the streams make what they like.
template <typename T>
void ConvertsToo(Attempt& attempt, bool (*parse)(const char*, T&), const char* text) {
    T expected{};
    ASSERT_TRUE(parse(text, expected));
    Converts(attempt, expected, [parse, text](T& value) { return parse(text, value); });
}

constexpr const char* kBeyond32Bits = "0000000000000004294967308";
constexpr const char* kBeyond64Bits = "0000000018446744073709551628";

const AllocatingFunctions parsers{
    {"TEVUtilString::ToInteger(char const*, int&)", "beyond the type",
     [](Attempt& attempt) { ConvertsToo(attempt, String::ToInteger, kBeyond32Bits); }},
    {"TEVUtilString::ToLong(char const*, long&)", "beyond the type",
     [](Attempt& attempt) { ConvertsToo(attempt, String::ToLong, kBeyond32Bits); }},
    {"TEVUtilString::ToUnsignedInt(char const*, unsigned int&)", "beyond the type",
     [](Attempt& attempt) { ConvertsToo(attempt, String::ToUnsignedInt, kBeyond32Bits); }},
    {"TEVUtilString::ToInt64(char const*, long long&)", "beyond the type",
     [](Attempt& attempt) { ConvertsToo(attempt, String::ToInt64, kBeyond64Bits); }},
    {"TEVUtilString::ToUInt64(char const*, unsigned long long&)", "beyond the type",
     [](Attempt& attempt) { ConvertsToo(attempt, String::ToUInt64, kBeyond64Bits); }},
    {"TEVUtilString::ToDouble(char const*, double&)", "below the type",
     [](Attempt& attempt) {
         ConvertsToo(attempt, String::ToDouble, "0.00000000000000000000001e-400");
     }},
    {"TEVUtilString::ExtractIndices(char const*, int&, int&)", "",
     [](Attempt& attempt) {
         int first = 77;
         int second = 77;
         const bool isExtracted = attempt.Call([&] {
             return String::ExtractIndices("[000000000000000000007,000000000000000000008]", first,
                                           second);
         });
         const bool succeeded = attempt.Succeeded(isExtracted);
         EXPECT_EQ(first, succeeded ? 7 : -1);
         EXPECT_EQ(second, succeeded ? 8 : -1);
     }},
};

struct Measurement {
    double value;
    double uncertainty;
    bool scientific;
    const char* valueText;
    const char* uncertaintyText;
};

void Shows(Attempt& attempt, const Measurement& row) {
    char stale[1] = {};
    char* value = stale;
    char* uncertainty = stale;
    const bool isShown = attempt.Call([&] {
        return String::SignificantFigures(row.value, row.uncertainty, &value, &uncertainty,
                                          row.scientific);
    });
    const bool succeeded = attempt.Succeeded(isShown);
    const Text shownValue(value);
    const Text shownUncertainty(uncertainty);
    EXPECT_EQ(shownValue.str(), succeeded ? row.valueText : "(null)");
    EXPECT_EQ(shownUncertainty.str(), succeeded ? row.uncertaintyText : "(null)");
}

bool Round(bool scientific, char** out, double value, int* positions, int figures);

// The rounding is private; an explicit instantiation may name it all the same.
template <auto kRound>
struct Opened {
    friend bool Round(bool scientific, char** out, double value, int* positions, int figures) {
        return kRound(scientific, out, value, positions, positions + 1, positions + 2, figures);
    }
};
template struct Opened<&String::RoundToSignificantFigures>;

// Its callers answer for the exception.
void Rounds(Attempt& attempt) {
    char stale[1] = {};
    char* out = stale;
    int positions[] = {77, 77, 77};
    const bool isRounded = attempt.Call([&] { return Round(false, &out, 123.456, positions, 5); });
    const bool isThrown = attempt.Threw<std::bad_alloc>();
    const bool succeeded = attempt.Succeeded(isRounded && !isThrown);
    const Text rounded(out);
    EXPECT_EQ(rounded.str(), succeeded ? "123.46" : "(null)");
}

const AllocatingFunctions measuredValues{
    {"TEVUtilString::SignificantFigures(double, double, char**, char**, bool)", "fixed",
     [](Attempt& attempt) {
         Shows(attempt, {123.456, 0.00000123, false, "123.456000", "0.000001"});
     }},
    {"TEVUtilString::SignificantFigures(double, double, char**, char**, bool)", "scientific",
     [](Attempt& attempt) {
         Shows(attempt, {123.456, 0.00000123, true, "1.23456000e+02", "1e-06"});
     }},
    {"TEVUtilString::SignificantFigures(double, double, char**, char**, bool)", "value 0",
     [](Attempt& attempt) {
         Shows(attempt, {0, 0.00000123, false, "0.0", "0.000001"});
     }},
    {"TEVUtilString::TruncateUncertaintyValue(double, char**, bool, int)", "fixed",
     [](Attempt& attempt) {
         HandsOut(attempt, "123456789.12346", [](char** out) {
             return String::TruncateUncertaintyValue(123456789.123456, out, false, 14);
         });
     }},
    {"TEVUtilString::TruncateUncertaintyValue(double, char**, bool, int)", "scientific",
     [](Attempt& attempt) {
         HandsOut(attempt, "1.2346e+02", [](char** out) {
             return String::TruncateUncertaintyValue(123.456, out, true, 5);
         });
     }},
    {"TEVUtilString::RoundToSignificantFigures(bool, char**, double, int*, int*, int*, int)", "",
     Rounds},
};

template <bool commaSeparated, bool asBits>
void Represents(Attempt& attempt, const char* expected) {
    const char bytes[] = {1, 2, 3, 4, 5, 6, 7, 8};
    HandsOut(attempt, expected, [&](char** out) {
        return String::DecimalRepresentationOfBinary(bytes, sizeof(bytes), out, commaSeparated,
                                                     asBits);
    });
}

const AllocatingFunctions binary{
    {"TEVUtilString::DecimalRepresentationOfBinary(char const*, unsigned long long, char**, bool, "
     "bool)",
     "numbers", [](Attempt& attempt) { Represents<true, false>(attempt, "1,2,3,4,5,6,7,8"); }},
    {"TEVUtilString::DecimalRepresentationOfBinary(char const*, unsigned long long, char**, bool, "
     "bool)",
     "bits",
     [](Attempt& attempt) {
         Represents<false, true>(
             attempt, "0000000100000010000000110000010000000101000001100000011100001000");
     }},
};

}  // namespace
