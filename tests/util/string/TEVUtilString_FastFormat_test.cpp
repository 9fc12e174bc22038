#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <iomanip>
#include <limits>
#include <ostream>
#include <string>

#include "support/Effort.h"
#include "util/string/RandomNumbers.h"
#include "util/string/StreamedNumbers.h"

// Numbers are written without a stream where the result is the same: here both ways run side by
// side.
namespace tev::test {

std::ostream& operator<<(std::ostream& out, const Justification& how) {
    return out << how.selector << " width " << how.width << (how.showPlus ? " plus" : "")
               << (how.zeroFill ? " zeros" : "");
}

}  // namespace tev::test

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Justification;
using tev::test::Justified;
using tev::test::RandomNumbers;
using tev::test::Repetitions;
using tev::test::Streamed;

constexpr std::int64_t kInputs = 1'000'000;

Justification RandomJustification(RandomNumbers& numbers, std::uint64_t width) {
    return {"LRr"[numbers.Below(3)], width, numbers.Coin(), numbers.Coin()};
}

// Calls `check` with each way to fill and with each of the widths.
template <typename Check>
void ForEachJustification(std::initializer_list<std::uint64_t> widths, Check check) {
    for (const char selector : {'L', 'R', 'x'}) {
        for (const std::uint64_t width : widths) {
            for (const bool showPlus : {false, true}) {
                for (const bool zeroFill : {false, true})
                    check(Justification{selector, width, showPlus, zeroFill});
            }
        }
    }
}

template <typename Check>
void ForEachEdgeDouble(Check check) {
    using Limits = std::numeric_limits<double>;
    for (const double magnitude :
         {0.0, 0.5, 1.0, 9.5, 9.9999999999999999e14, 1e15, 1e16, 1e17, 1e22, 1e23, Limits::min(),
          Limits::denorm_min(), Limits::max(), Limits::infinity(), Limits::quiet_NaN()}) {
        check(magnitude);
        check(-magnitude);
    }
}

TEST(ToString, DoublesAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const double value = numbers.Double();
        const bool scientific = numbers.Coin();
        const auto precision = static_cast<int>(numbers.Below(numbers.Below(100) == 0 ? 80 : 25));
        ASSERT_EQ(TEVUtilString::ToString(value, scientific, precision),
                  Streamed(value, scientific, precision))
            << std::hexfloat << value << ' ' << precision;
    }
}

TEST(ToString, EdgesAsAStreamWritesThem) {
    ForEachEdgeDouble([](double value) {
        for (const int precision : {0, 1, 19, 20, 63, 64, 65, 400, 1100}) {
            for (const bool scientific : {false, true})
                EXPECT_EQ(TEVUtilString::ToString(value, scientific, precision),
                          Streamed(value, scientific, precision));
        }
    });
}

void ExpectJustifiedDouble(const Justification& how, double value, std::uint64_t precision) {
    const bool isRefused = how.width < precision + (how.showPlus ? 3 : 2);
    const std::string number =
        Streamed(value, false, static_cast<int>(precision), std::ios::showpoint | how.Flags());
    ASSERT_EQ(TEVUtilString::ToString(how.selector, value, how.width, precision, how.showPlus,
                                      how.zeroFill),
              isRefused ? "" : how.Filled(number))
        << how << std::hexfloat << ' ' << value << " precision " << precision;
}

TEST(ToString, JustifiedDoublesAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs) && !HasFatalFailure(); ++i) {
        const std::uint64_t precision = numbers.Below(numbers.Below(100) == 0 ? 80 : 20);
        const Justification how = RandomJustification(numbers, precision + numbers.Below(30));
        ExpectJustifiedDouble(how, numbers.Double(), precision);
    }
}

TEST(ToString, JustifiedEdgesAsAStreamWritesThem) {
    ForEachEdgeDouble([](double value) {
        for (const std::uint64_t precision : {0U, 1U, 20U, 63U, 64U, 65U, 400U}) {
            ForEachJustification(
                {0, 1, precision, precision + 1, precision + 2, precision + 3, precision + 4,
                 precision + 30, 800},
                [&](const Justification& how) { ExpectJustifiedDouble(how, value, precision); });
        }
    });
}

// Calls `check` with the lowest bits of a number as an integer of each kind that is justified.
template <typename Check>
void AsEachInteger(std::uint64_t bits, Check check) {
    check(static_cast<int>(bits));
    check(static_cast<long>(bits));
    check(static_cast<unsigned int>(bits));
    check(static_cast<std::int64_t>(bits));
    check(bits);
}

template <typename Check>
void ForEachEdgeInteger(Check check) {
    for (const std::uint64_t magnitude :
         {0ULL, 1ULL, 9ULL, 10ULL, 99ULL, 100ULL, 999'999'999ULL, 1'000'000'000ULL, 0x7FFFFFFFULL,
          0x80000000ULL, 0xFFFFFFFFULL, 0x100000000ULL, 999'999'999'999'999'999ULL,
          1'000'000'000'000'000'000ULL, 0x7FFFFFFFFFFFFFFFULL, 0x8000000000000000ULL}) {
        AsEachInteger(magnitude, check);
        AsEachInteger(0 - magnitude, check);
    }
}

std::uint64_t RandomBits(RandomNumbers& numbers) {
    return numbers.Coin() ? numbers.Integer() : 0 - numbers.Integer();
}

constexpr auto kExpectPlain = [](auto value) {
    ASSERT_EQ(TEVUtilString::ToString(value), Streamed(value));
};

TEST(ToString, IntegersAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs) && !HasFatalFailure(); ++i) {
        const std::uint64_t bits = RandomBits(numbers);
        AsEachInteger(bits, kExpectPlain);
        kExpectPlain(static_cast<unsigned long>(bits));
    }
}

TEST(ToString, EdgeIntegersAsAStreamWritesThem) {
    ForEachEdgeInteger([](auto value) {
        kExpectPlain(value);
        kExpectPlain(static_cast<unsigned long>(value));
    });
}

template <typename T>
void ExpectJustifiedInteger(const Justification& how, T value) {
    const bool isRefused = how.width < (how.showPlus ? 2 : 1);
    ASSERT_EQ(Justified(how, value), isRefused ? "" : how.Filled(Streamed(value, how.Flags())))
        << how << ' ' << value;
}

TEST(ToString, JustifiedIntegersAsAStreamWritesThem) {
    RandomNumbers numbers;
    for (std::int64_t i = 0; i < Repetitions(kInputs) && !HasFatalFailure(); ++i) {
        const Justification how = RandomJustification(numbers, numbers.Below(28));
        AsEachInteger(RandomBits(numbers),
                      [&how](auto value) { ExpectJustifiedInteger(how, value); });
    }
}

TEST(ToString, JustifiedEdgeIntegersAsAStreamWritesThem) {
    ForEachEdgeInteger([](auto value) {
        ForEachJustification(
            {0, 1, 2, 3, 9, 10, 11, 12, 19, 20, 21, 22, 40},
            [value](const Justification& how) { ExpectJustifiedInteger(how, value); });
    });
}

}  // namespace
