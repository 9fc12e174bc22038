#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iomanip>
#include <string>
#include <string_view>

#include "models/NumberModel.h"
#include "models/TextModel.h"
#include "support/Effort.h"
#include "util/string/RandomNumbers.h"
#include "util/string/RandomTexts.h"
#include "util/string/StreamedNumbers.h"

// Numbers are read without a stream and without the C runtime's scan where the result is the same:
// here both ways run side by side, and must agree in the verdict and in every bit that is stored.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Extracted;
using tev::test::IntegerShape;
using tev::test::LooksReal;
using tev::test::RandomNumbers;
using tev::test::RandomTexts;
using tev::test::Repetitions;
using tev::test::TrimmedIfSpaced;

constexpr std::int64_t kInputs = 1'000'000;
constexpr unsigned kSeed = 5822;

bool Scanned(const std::string& text, int& value) {
    return sscanf_s(text.c_str(), "%d", &value) == 1;
}

template <typename T>
bool PlainInteger(const std::string& text, T& value, std::string_view signs,
                  bool (*convert)(const std::string&, T&)) {
    using TAMO::TEV::System::Util::detail::IntegerText;
    const std::string prepared = TrimmedIfSpaced(text);
    const IntegerText shape = IntegerShape(prepared, signs);
    if (shape == IntegerText::Zero) value = 0;
    return shape == IntegerText::Zero || (shape == IntegerText::Digits && convert(prepared, value));
}

// The plain way of each parser.
bool PlainInt(const std::string& text, int& value) {
    return PlainInteger(text, value, "+-", Scanned);
}

bool PlainLong(const std::string& text, long& value) {
    int scanned = 0;
    if (!PlainInt(text, scanned)) return false;
    value = scanned;
    return true;
}

bool PlainUnsigned(const std::string& text, unsigned int& value) {
    int scanned = -1;
    if (!PlainInteger(text, scanned, "+", Scanned) || scanned < 0) return false;
    value = static_cast<unsigned int>(scanned);
    return true;
}

bool PlainInt64(const std::string& text, std::int64_t& value) {
    return PlainInteger(text, value, "+-", Extracted<std::int64_t>);
}

bool PlainUInt64(const std::string& text, std::uint64_t& value) {
    return PlainInteger(text, value, "+", Extracted<std::uint64_t>);
}

bool PlainDouble(const std::string& text, double& value) {
    const std::string prepared = TrimmedIfSpaced(text);
    return LooksReal(prepared) && sscanf_s(prepared.c_str(), "%lf", &value) == 1 &&
           !std::isinf(value);
}

// A parser beside its plain way.
template <typename T>
struct Pair {
    bool (*parse)(const char*, T&);
    bool (*plain)(const std::string&, T&);

    // Gives the common verdict.
    bool Agree(const std::string& text) const {
        T expected = 77;
        T value = 77;
        const bool isAccepted = plain(text, expected);
        EXPECT_EQ(parse(text.c_str(), value), isAccepted) << testing::PrintToString(text);
        EXPECT_EQ(std::memcmp(&value, &expected, sizeof value), 0)
            << testing::PrintToString(text) << " gives " << std::hexfloat << value << ", not "
            << expected;
        return isAccepted;
    }
};

// Behind every kind of sign.
constexpr std::string_view kEdges[] = {
    "", ".", ".5", "5.", "0", "00", "0.0", "9", "10", "1-", "1+1", "1..", "1 ", " 1", "\t1 ",
    // Where a kind of integer ends, and where as many digits as surely fit do.
    "999999999", "1000000000", "2147483647", "2147483648", "2147483649", "4294967295", "4294967296",
    "999999999999999999", "1000000000000000000", "9223372036854775807", "9223372036854775808",
    "9223372036854775809", "9999999999999999999", "10000000000000000000", "18446744073709551615",
    "18446744073709551616", "99999999999999999999999999999999", "9223372036854775807.9",
    "000000000000000000000007",
    // Where doubles end, and halfway between two.
    "1.7976931348623157e308", "1.7976931348623158e308", "1.7976931348623159e308", "1e308", "1e309",
    "1e400", "2.2250738585072014e-308", "2.2250738585072011e-308", "1e-308", "4.9e-324", "2.5e-324",
    "2.4e-324", "1e-400", "0e0", "0e400", "0e-400", "0e99999999999", "1e99999999999",
    "1e-99999999999", "0.1", "1e22", "1e23", "9007199254740992", "9007199254740993",
    "9007199254740993.0000000000000000001", "9007199254740995",
    "0.500000000000000166533453693773481063544750213623046875", "8.5e22", "6.02214076e23", "1e",
    "1e+", "e1", "1e5.", "1e5.3", "5-e3", "1e--3", "1E5"};

// Texts of numbers, well-formed or not.
class NumberTexts {
 public:
    std::string Integer() {
        if (numbers_.Below(4) == 0) return texts_.Number();
        std::string text = Sign();
        if (numbers_.Below(8) == 0) text += std::string(numbers_.Below(30), '0');
        text += Digits();
        if (numbers_.Below(8) == 0) text += std::to_string(numbers_.Below(1000));
        if (numbers_.Below(4) == 0) text += "." + Digits();
        return Damaged(text);
    }

    std::string Real() {
        if (numbers_.Below(4) == 0) return texts_.Number();
        std::string text = Sign() + Digits();
        if (numbers_.Coin()) text += "." + Digits();
        if (numbers_.Below(8) == 0) text += Digits();
        if (numbers_.Below(3) == 0) text += (numbers_.Coin() ? "e" : "E") + Sign() + Exponent();
        return Damaged(text);
    }

 private:
    std::string Sign() { return numbers_.Coin() ? "" : numbers_.Coin() ? "-" : "+"; }
    std::string Digits() { return std::to_string(numbers_.Integer()); }
    std::string Exponent() {
        return std::to_string(numbers_.Below(numbers_.Coin() ? 40 : numbers_.Coin() ? 320 : 3000));
    }
    std::string Damaged(std::string text) {
        if (numbers_.Below(16) == 0)
            text.insert(numbers_.Below(text.size() + 1), 1, ".+-e "[numbers_.Below(5)]);
        return text;
    }

    RandomNumbers numbers_;
    RandomTexts texts_{kSeed};
};

template <typename T>
void ExpectAgreementAtTheEdges(const Pair<T>& pair) {
    for (const std::string_view edge : kEdges) {
        for (const char* sign : {"", "-", "+", "--", "+-", " "})
            pair.Agree(sign + std::string(edge));
    }
}

template <typename T>
void ExpectAgreement(const Pair<T>& pair, std::string (NumberTexts::*next)()) {
    ExpectAgreementAtTheEdges(pair);
    const std::int64_t inputs = Repetitions(kInputs);
    NumberTexts texts;
    std::int64_t accepted = 0;
    for (std::int64_t i = 0; i < inputs && !testing::Test::HasFailure(); ++i)
        accepted += pair.Agree((texts.*next)()) ? 1 : 0;
    EXPECT_GT(accepted, inputs / 4);
    EXPECT_GT(inputs - accepted, inputs / 20);
}

TEST(ToInteger, AsTheRuntimeScansThem) {
    ExpectAgreement(Pair<int>{TEVUtilString::ToInteger, PlainInt}, &NumberTexts::Integer);
}
TEST(ToLong, AsTheRuntimeScansThem) {
    ExpectAgreement(Pair<long>{TEVUtilString::ToLong, PlainLong}, &NumberTexts::Integer);
}
TEST(ToUnsignedInt, AsTheRuntimeScansThem) {
    ExpectAgreement(Pair<unsigned int>{TEVUtilString::ToUnsignedInt, PlainUnsigned},
                    &NumberTexts::Integer);
}
TEST(ToInt64, AsAStreamReadsThem) {
    ExpectAgreement(Pair<std::int64_t>{TEVUtilString::ToInt64, PlainInt64}, &NumberTexts::Integer);
}
TEST(ToUInt64, AsAStreamReadsThem) {
    ExpectAgreement(Pair<std::uint64_t>{TEVUtilString::ToUInt64, PlainUInt64},
                    &NumberTexts::Integer);
}
TEST(ToDouble, AsTheRuntimeScansThem) {
    ExpectAgreement(Pair<double>{TEVUtilString::ToDouble, PlainDouble}, &NumberTexts::Real);
}

}  // namespace
