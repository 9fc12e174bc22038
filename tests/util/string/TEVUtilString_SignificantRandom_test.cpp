#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <random>
#include <sstream>
#include <string>

#include "models/DecimalModel.h"
#include "support/Effort.h"
#include "support/Owned.h"

// The texts of random measured values against exact integers.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExponentText;
using tev::test::FixedText;
using tev::test::LeadingPlace;
using tev::test::Measure;
using tev::test::Measured;
using tev::test::MeasuredTexts;
using tev::test::PowerOfTen;
using tev::test::Repetitions;
using tev::test::Rounded;
using tev::test::RoundedTo;
using tev::test::Text;
using tev::test::Units;
using tev::test::UnitsOf;

constexpr std::uint64_t kSeed = 20240607;
constexpr std::int64_t kPairs = 200'000;
constexpr std::int64_t kTruncations = 200'000;
constexpr int kHighestPlace = 18;
constexpr int kMostDigits = 17;

// number * 10^exponent, exact or the nearest double to it for |exponent| up to 22.
double Scaled(std::uint64_t number, int exponent) {
    double power = 1;
    for (int i = 0; i < std::abs(exponent); ++i) power *= 10;
    return exponent < 0 ? static_cast<double>(number) / power : static_cast<double>(number) * power;
}

struct Pair {
    double value;
    double uncertainty;
};

class RandomPairs {
 public:
    // Every fourth pair stands close together, every eighth is an exact half of the uncertainty's
    // place. Half of the values are negative; a few are 0, 1 or -1.
    Pair Next() {
        const int kind = Below(8);
        Pair pair = kind == 0 ? Half() : kind < 3 ? Near() : Pair{Magnitude(), Magnitude()};
        const int special = Below(100);
        if (special < 2) pair.value = special;
        if (Below(2) == 0) pair.value = -pair.value;
        return pair;
    }

    // From 1e-18 to 1e18, each power of ten as often.
    double Magnitude() { return At(Below(2 * kHighestPlace + 1) - kHighestPlace); }

    int Below(int end) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(end)); }

 private:
    // Up to 17 digits, the first at 10^place; often with a row of nines or zeros, or a 5 last.
    double At(int place) {
        if (place == kHighestPlace) return 1e18;
        const int size = 1 + Below(kMostDigits);
        const int rowStart = Below(3) == 0 ? Below(size) : size;
        const std::uint64_t rowDigit = Below(2) == 0 ? 9 : 0;
        auto number = static_cast<std::uint64_t>(1 + Below(9));
        for (int i = 1; i < size; ++i)
            number =
                number * 10 + (i > rowStart ? rowDigit : static_cast<std::uint64_t>(Below(10)));
        if (Below(4) == 0 && size > 1) number = number / 10 * 10 + 5;
        return Scaled(number, place - size + 1);
    }

    Pair Near() {
        const int place = Below(2 * kHighestPlace + 1) - kHighestPlace;
        const int lower = std::max(place - Below(8), -kHighestPlace);
        return {At(place), At(lower)};
    }

    // Such as 1750 beside 100, or 12.5 beside 1.
    Pair Half() {
        const int place = Below(4);
        const auto kept =
            static_cast<std::uint64_t>(Below(2) == 0 ? Below(1000) : Below(100000000));
        const auto digit = static_cast<std::uint64_t>(1 + Below(9));
        return {Scaled(kept * 10 + 5, place - 1), Scaled(digit, place)};
    }

    std::mt19937_64 engine_{kSeed};
};

// How many pairs were of which kind: a run in which one is missing proves nothing.
struct Tally {
    void Add(const Pair& pair, const Measured& expected) {
        const double magnitude = std::abs(pair.value);
        zero += magnitude == 0;
        one += magnitude == 1;
        below += magnitude != 0 && magnitude < 1;
        above += magnitude > 1;
        negative += pair.value < 0;
        oneFigure += expected.value.figures == 1;
        halves += expected.value.fromHalf;
        carries += expected.value.carried;
        uncertaintyHalves += expected.uncertainty.fromHalf;
        uncertaintyCarries += expected.uncertainty.carried;
    }

    void Print() const {
        std::cout << "seed " << kSeed << ": " << Repetitions(kPairs) << " pairs; values: " << zero
                  << " of 0, " << one << " of 1, " << below << " below 1, " << above << " above 1, "
                  << negative << " negative, " << oneFigure << " with one figure, " << halves
                  << " halves, " << carries << " carries; uncertainties: " << uncertaintyHalves
                  << " halves, " << uncertaintyCarries << " carries\n";
        for (const int count : {zero, one, below, above, negative, oneFigure, halves, carries,
                                uncertaintyHalves, uncertaintyCarries})
            EXPECT_GT(count, Repetitions(kPairs) / 500);
    }

    int zero = 0;
    int one = 0;
    int below = 0;
    int above = 0;
    int negative = 0;
    int oneFigure = 0;
    int halves = 0;
    int carries = 0;
    int uncertaintyHalves = 0;
    int uncertaintyCarries = 0;
};

std::string Exactly(double number) {
    std::ostringstream text;
    text << std::setprecision(17) << number << " (" << std::hexfloat << number << ')';
    return text.str();
}

// Nothing when the texts are the expected ones, else what differs.
std::string Difference(const Pair& pair, bool scientific, const MeasuredTexts& expected) {
    Text value;
    Text uncertainty;
    const bool shown = TEVUtilString::SignificantFigures(pair.value, pair.uncertainty, value.Out(),
                                                         uncertainty.Out(), scientific);
    if (shown && value.str() == expected.value && uncertainty.str() == expected.uncertainty)
        return "";
    return Exactly(pair.value) + " +- " + Exactly(pair.uncertainty) +
           (scientific ? " in exponent form is " : " in fixed form is ") + value.str() + " +- " +
           uncertainty.str() + ", not " + expected.value + " +- " + expected.uncertainty;
}

std::string Truncated(double value, bool scientific, int figures) {
    Text text;
    TEVUtilString::TruncateUncertaintyValue(value, text.Out(), scientific, figures);
    return text.str();
}

TEST(SignificantFigures, RandomPairsAgreeWithExactIntegers) {
    RandomPairs pairs;
    Tally tally;
    for (std::int64_t i = 0; i < Repetitions(kPairs); ++i) {
        const Pair pair = pairs.Next();
        const Measured expected = Measure(pair.value, pair.uncertainty);
        ASSERT_EQ(Difference(pair, false, expected.fixed), "") << "pair " << i;
        ASSERT_EQ(Difference(pair, true, expected.scientific), "") << "pair " << i;
        tally.Add(pair, expected);
    }
    tally.Print();
}

TEST(TruncateUncertaintyValue, RandomValuesAgreeWithExactIntegers) {
    RandomPairs values;
    int carries = 0;
    for (std::int64_t i = 0; i < Repetitions(kTruncations); ++i) {
        const double value = values.Magnitude();
        const Units units = UnitsOf(value);
        // Not beyond what the model's integers hold.
        const int place = LeadingPlace(units) - values.Below(20);
        const Rounded expected = RoundedTo(units, std::max(place, -tev::test::kDecimals - 5));
        carries += expected.carried;
        ASSERT_EQ(Truncated(value, false, expected.figures), FixedText(expected))
            << Exactly(value) << " to " << expected.figures;
        ASSERT_EQ(Truncated(value, true, expected.figures), ExponentText(expected))
            << Exactly(value) << " to " << expected.figures;
    }
    std::cout << "seed " << kSeed << ": " << Repetitions(kTruncations) << " values, " << carries
              << " carries\n";
    EXPECT_GT(carries, Repetitions(kTruncations) / 500);
}

// kept * 10^place and half of 10^place; an exact half if the 20 decimals of its double say so.
struct Half {
    std::uint64_t kept;
    int place;

    double Value() const { return Scaled(kept * 10 + 5, place - 1); }
    bool IsExact() const {
        return UnitsOf(Value()) == (kept * 10 + 5) * PowerOfTen(tev::test::kDecimals + place - 1);
    }
    // What is expected of it.
    Rounded Result(bool goesUp) const {
        Rounded result;
        result.kept = kept + (goesUp ? 1 : 0);
        result.place = place;
        result.figures = static_cast<int>(std::to_string(kept).size());
        result.carried = std::to_string(kept + (goesUp ? 1 : 0)).size() >
                         static_cast<std::size_t>(result.figures);
        return result;
    }
};

template <typename Visitor>
void ForEachHalf(std::uint64_t lastDigit, Visitor visit) {
    int count = 0;
    for (const std::uint64_t front : {0U, 1U, 2U, 9U, 10U, 12U, 39U, 99U, 199U, 1009U, 99999U}) {
        const std::uint64_t kept = front * 10 + lastDigit;
        for (int place = -19; kept != 0 && place <= 12; ++place) {
            const Half half{kept, place};
            if (!half.IsExact()) continue;
            ++count;
            visit(half);
        }
    }
    EXPECT_GT(count, 150) << "halves behind a last digit of " << lastDigit;
}

void ExpectHalvesGo(bool up, std::uint64_t lastDigit) {
    ForEachHalf(lastDigit, [up](const Half& half) {
        const Rounded expected = half.Result(up);
        EXPECT_EQ(Truncated(half.Value(), false, expected.figures), FixedText(expected))
            << Exactly(half.Value());
        EXPECT_EQ(Truncated(half.Value(), true, expected.figures), ExponentText(expected))
            << Exactly(half.Value());
    });
}

TEST(TruncateUncertaintyValue, EveryHalfGoesDownOntoTwoFourSixEight) {
    for (const std::uint64_t lastDigit : {2U, 4U, 6U, 8U}) ExpectHalvesGo(false, lastDigit);
}

TEST(TruncateUncertaintyValue, EveryHalfGoesUpFromAnOddDigit) {
    for (const std::uint64_t lastDigit : {1U, 3U, 5U, 7U, 9U}) ExpectHalvesGo(true, lastDigit);
}

TEST(TruncateUncertaintyValue, EveryHalfGoesUpFromAKeptZero_Kept) { ExpectHalvesGo(true, 0); }

TEST(SignificantFigures, EveryHalfOnEveryLastDigit) {
    for (std::uint64_t lastDigit = 0; lastDigit <= 9; ++lastDigit) {
        const bool goesUp = lastDigit % 2 == 1 || lastDigit == 0;
        ForEachHalf(lastDigit, [goesUp](const Half& half) {
            const Rounded rounded = half.Result(goesUp);
            const std::string fixed = FixedText(rounded);
            const std::string scientific = ExponentText(rounded);
            for (const std::uint64_t digit : {1U, 9U}) {
                const Pair pair = {half.Value(), Scaled(digit, half.place)};
                const Measured beside = Measure(0, pair.uncertainty);
                EXPECT_EQ(
                    Difference(pair, false, {tev::test::Tidied(fixed), beside.fixed.uncertainty}),
                    "");
                EXPECT_EQ(
                    Difference(pair, true,
                               {tev::test::Tidied(scientific), beside.scientific.uncertainty}),
                    "");
            }
        });
    }
}

}  // namespace
