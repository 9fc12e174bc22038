#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>

#include "support/GlobalLocale.h"
#include "support/Owned.h"
#include "util/string/OutputPointer.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExpectNewText;
using tev::test::Stale;
using tev::test::Text;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
// Its first 20 decimals are zeros.
constexpr double kTooSmall = 4e-21;

std::string Zeros(std::size_t count) { return std::string(count, '0'); }

// "VALUE +- UNCERTAINTY", or "(refused)".
std::string Shown(double value, double uncertainty, bool scientific) {
    Text valueText;
    Text uncertaintyText;
    const bool shown = TEVUtilString::SignificantFigures(value, uncertainty, valueText.Out(),
                                                         uncertaintyText.Out(), scientific);
    EXPECT_NE(shown, valueText.IsNull());
    EXPECT_NE(shown, uncertaintyText.IsNull());
    return shown ? valueText.str() + " +- " + uncertaintyText.str() : "(refused)";
}

struct Measurement {
    double value;
    double uncertainty;
    std::string fixed;
    std::string scientific;
};

void ExpectShown(const Measurement& row) {
    SCOPED_TRACE(testing::Message() << row.value << " +- " << row.uncertainty);
    EXPECT_EQ(Shown(row.value, row.uncertainty, false), row.fixed);
    EXPECT_EQ(Shown(row.value, row.uncertainty, true), row.scientific);
}

TEST(SignificantFigures, ValueAboveOneIsRoundedToThePlaceOfTheUncertainty) {
    const Measurement rows[] = {
        {123.456, 0.0234, "123.46 +- 0.02", "1.2346e+02 +- 2e-02"},
        {123.456, 3, "123 +- 3", "1.23e+02 +- 3e+00"},
        {123.456, 0.00000123, "123.456000 +- 0.000001", "1.23456000e+02 +- 1e-06"},
        {1.5, 0.25, "1.5 +- 0.2", "1.5e+00 +- 2e-01"},
        {1.04, 0.1, "1.0 +- 0.1", "1.0e+00 +- 1e-01"},
        {1e18, 1e17, "1" + Zeros(18) + ". +- 1" + Zeros(17) + ".", "1.0e+18 +- 1e+17"},
        {1e300, 1e290, "1" + Zeros(300) + ". +- 1" + Zeros(290) + ".",
         "1.0000000000e+300 +- 1e+290"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, ValueBelowOneIsRoundedToThePlaceOfTheUncertainty) {
    const Measurement rows[] = {
        {0.04567, 0.0012, "0.046 +- 0.001", "4.6e-02 +- 1e-03"},
        {0.5, 0.25, "0.5 +- 0.2", "5e-01 +- 2e-01"},
        {0.25, 0.001, "0.250 +- 0.001", "2.50e-01 +- 1e-03"},
        {0.3, 1.0, "0.3 +- 1", "3e-01 +- 1e+00"},
        {1e-18, 1e-19, "0." + Zeros(17) + "10 +- 0." + Zeros(18) + "1", "1.0e-18 +- 1e-19"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, CarryKeepsThePlacesInFixedAndTheFiguresInExponentForm) {
    const Measurement rows[] = {
        {9.6, 1, "10. +- 1", "1e+01 +- 1e+00"},
        {9.99, 0.1, "10.0 +- 0.1", "1.0e+01 +- 1e-01"},
        {999.96, 0.1, "1000.0 +- 0.1", "1.000e+03 +- 1e-01"},
        {996, 10, "1000. +- 10.", "1.0e+03 +- 1e+01"},
        {0.96, 0.5, "1.0 +- 0.5", "1e+00 +- 5e-01"},
        {0.0996, 0.001, "0.100 +- 0.001", "1.0e-01 +- 1e-03"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, OneFigureIsKeptAtLeast) {
    const Measurement rows[] = {
        {3, 5000, "3 +- 5000.", "3e+00 +- 5e+03"},
        {96, 5000, "100. +- 5000.", "1e+02 +- 5e+03"},
        {123, 400, "100. +- 400.", "1e+02 +- 4e+02"},
        {0.004, 0.5, "0.004 +- 0.5", "4e-03 +- 5e-01"},
        {0.0456, 0.5, "0.05 +- 0.5", "5e-02 +- 5e-01"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, ValueBelowOneBesideAnUncertaintyAboveOneHasOneFigure) {
    const Measurement rows[] = {
        {0.5, 20, "0.5 +- 20.", "5e-01 +- 2e+01"},
        {0.123456, 1.5, "0.1 +- 2", "1e-01 +- 2e+00"},
        {0.96, 3e10, "1.0 +- 30000000000.", "1e+00 +- 3e+10"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, ValueOfOneHasAFigureMoreThanItsUncertainty_Kept) {
    const Measurement rows[] = {
        {1.0, 0.01, "1.000 +- 0.01", "1.000e+00 +- 1e-02"},
        {1.0, 0.5, "1.00 +- 0.5", "1.00e+00 +- 5e-01"},
        {1.0, 2, "1.0 +- 2", "1.0e+00 +- 2e+00"},
        {-1.0, 0.01, "-1.000 +- 0.01", "-1.000e+00 +- 1e-02"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, ExponentIsAddedWhateverItsSignForAValueOfOne_Kept) {
    const Measurement rows[] = {
        {1.0, 30, "1.00 +- 30.", "1.00e+00 +- 3e+01"},
        {-1.0, 400, "-1.000 +- 400.", "-1.000e+00 +- 4e+02"},
        {1.0, 1e30, "1." + Zeros(31) + " +- 1" + Zeros(30) + ".",
         "1." + Zeros(31) + "e+00 +- 1e+30"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, NegativeValueIsRoundedLikeItsMagnitude) {
    const Measurement rows[] = {
        {-123.456, 0.0234, "-123.46 +- 0.02", "-1.2346e+02 +- 2e-02"},
        {-500, 100, "-500. +- 100.", "-5e+02 +- 1e+02"},
        {-9.6, 1, "-10. +- 1", "-1e+01 +- 1e+00"},
        {-10.5, 1, "-11 +- 1", "-1.1e+01 +- 1e+00"},
        {-12.5, 1, "-12 +- 1", "-1.2e+01 +- 1e+00"},
        {-0.5, 20, "-0.5 +- 20.", "-5e-01 +- 2e+01"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, UncertaintyIsRoundedToOneFigure) {
    const Measurement rows[] = {
        {123.456, 0.014, "123.46 +- 0.01", "1.2346e+02 +- 1e-02"},
        {123.456, 0.016, "123.46 +- 0.02", "1.2346e+02 +- 2e-02"},
        // A carry moves the place of the value too, while the fixed form keeps its digits.
        {123.456, 0.0096, "123.46 +- 0.010", "1.2346e+02 +- 1e-02"},
        {15.2, 0.96, "15 +- 1.0", "1.5e+01 +- 1e+00"},
        {1234.5, 9.7, "1230. +- 10.", "1.23e+03 +- 1e+01"},
        // Exact halves.
        {20, 2.5, "20. +- 2", "2.0e+01 +- 2e+00"},
        {20, 3.5, "20. +- 4", "2.0e+01 +- 4e+00"},
        {20, 0.75, "20.0 +- 0.8", "2.00e+01 +- 8e-01"},
    };
    for (const Measurement& row : rows) ExpectShown(row);
}

TEST(SignificantFigures, ExactHalfGoesDownOntoTwoFourSixEight) {
    for (const double value : {12.5, 14.5, 16.5, 18.5}) {
        const std::string whole = std::to_string(static_cast<int>(value));
        EXPECT_EQ(Shown(value, 1, false), whole + " +- 1");
    }
}

TEST(SignificantFigures, ExactHalfGoesUpFromAnyOtherDigit) {
    for (const double value : {11.5, 13.5, 15.5, 17.5}) {
        const std::string next = std::to_string(static_cast<int>(value) + 1);
        EXPECT_EQ(Shown(value, 1, false), next + " +- 1");
    }
    EXPECT_EQ(Shown(19.5, 1, false), "20. +- 1");
}

TEST(SignificantFigures, ExactHalfGoesUpFromAKeptZero_Kept) {
    EXPECT_EQ(Shown(10.5, 1, false), "11 +- 1");
    EXPECT_EQ(Shown(20.5, 1, true), "2.1e+01 +- 1e+00");
    EXPECT_EQ(Shown(105, 10, false), "110. +- 10.");
}

TEST(SignificantFigures, PointAfterAZeroStaysAndAfterAnyOtherDigitGoes_Kept) {
    EXPECT_EQ(Shown(10.2, 1, false), "10. +- 1");
    EXPECT_EQ(Shown(50.4, 20, false), "50. +- 20.");
    EXPECT_EQ(Shown(123, 10, false), "120. +- 10.");
    for (int digit = 1; digit <= 9; ++digit)
        EXPECT_EQ(Shown(10.2 + digit, 1, false), '1' + std::to_string(digit) + " +- 1");
}

TEST(SignificantFigures, ValueOfZeroHasFixedTexts_Kept) {
    const struct {
        double uncertainty;
        std::string fixed;
        std::string scientific;
    } rows[] = {
        {1e-18, "0." + Zeros(17) + "1", "1e-18"},
        {0.0234, "0.02", "2e-02"},
        {1, "1", "1e+00"},
        {3400, "3000.", "3e+03"},
        {1e18, "1" + Zeros(18) + ".", "1e+18"},
        {1e300, "1" + Zeros(300) + ".", "1e+300"},
    };
    for (const auto& row : rows) {
        for (const double zero : {0.0, -0.0}) {
            ExpectShown(
                {zero, row.uncertainty, "0.0 +- " + row.fixed, "0.e+00 +- " + row.scientific});
        }
    }
}

TEST(SignificantFigures, RefusesAnUncertaintyThatIsNotAboveZero) {
    for (const double uncertainty : {0.0, -0.0, -0.0234, -1e18, kNotANumber, -kInfinity}) {
        for (const double value : {0.0, 1.0, -123.456})
            ExpectShown({value, uncertainty, "(refused)", "(refused)"});
    }
}

TEST(SignificantFigures, RefusesNumbersWithoutFiguresInTheirFirst20Decimals) {
    ExpectShown({1, kTooSmall, "(refused)", "(refused)"});
    ExpectShown({0, kTooSmall, "(refused)", "(refused)"});
    ExpectShown({kTooSmall, 0.1, "(refused)", "(refused)"});
    ExpectShown({-std::numeric_limits<double>::denorm_min(), 0.1, "(refused)", "(refused)"});
    ExpectShown({2e-20, 1e-20, "0." + Zeros(19) + "2 +- 0." + Zeros(19) + "1", "2e-20 +- 1e-20"});
}

TEST(SignificantFigures, RefusesWhatIsNotFinite) {
    ExpectShown({kNotANumber, 0.1, "(refused)", "(refused)"});
    ExpectShown({kInfinity, 0.1, "(refused)", "(refused)"});
    ExpectShown({-kInfinity, 0.1, "(refused)", "(refused)"});
    ExpectShown({1, kInfinity, "(refused)", "(refused)"});
    ExpectShown({0, kInfinity, "(refused)", "(refused)"});
}

TEST(SignificantFigures, RefusesAMissingOutput) {
    char held[] = "held";
    char* text = held;
    EXPECT_FALSE(TEVUtilString::SignificantFigures(1.5, 0.1, nullptr, &text, false));
    EXPECT_EQ(text, nullptr);
    text = held;
    EXPECT_FALSE(TEVUtilString::SignificantFigures(1.5, 0.1, &text, nullptr, false));
    EXPECT_EQ(text, nullptr);
    EXPECT_FALSE(TEVUtilString::SignificantFigures(1.5, 0.1, nullptr, nullptr, false));
}

TEST(SignificantFigures, RefusedOutputsAreNull) {
    const struct {
        double value;
        double uncertainty;
    } rows[] = {{1.5, 0},         {1.5, -0.1},      {1.5, kNotANumber}, {1.5, kTooSmall},
                {1.5, kInfinity}, {kTooSmall, 0.1}, {kNotANumber, 0.1}};
    for (const auto& row : rows) {
        for (const bool scientific : {false, true}) {
            char* value = Stale();
            char* uncertainty = Stale();
            EXPECT_FALSE(TEVUtilString::SignificantFigures(row.value, row.uncertainty, &value,
                                                           &uncertainty, scientific));
            EXPECT_EQ(value, nullptr) << row.value << " +- " << row.uncertainty;
            EXPECT_EQ(uncertainty, nullptr) << row.value << " +- " << row.uncertainty;
        }
    }
}

TEST(SignificantFigures, MakesNewTexts) {
    ExpectNewText(
        [](char** out) {
            Text uncertainty;
            TEVUtilString::SignificantFigures(123.456, 0.0234, out, uncertainty.Out(), false);
        },
        "123.46");
    ExpectNewText(
        [](char** out) {
            Text value;
            TEVUtilString::SignificantFigures(123.456, 0.0234, value.Out(), out, false);
        },
        "0.02");
}

TEST(SignificantFigures, TextsMayBeReleasedAsArrays) {
    char* value = nullptr;
    char* uncertainty = nullptr;
    ASSERT_TRUE(TEVUtilString::SignificantFigures(1.5, 0.1, &value, &uncertainty, false));
    TEVUtilMemory::DeallocateCharArray(&value);
    TEVUtilMemory::DeallocateCharArray(&uncertainty);
    EXPECT_EQ(value, nullptr);
    EXPECT_EQ(uncertainty, nullptr);
}

TEST(SignificantFigures, RefusesEveryNumberUnderAnotherDecimalPoint) {
    const tev::test::GlobalLocale locale(new tev::test::Punctuation(','));
    for (const double value : {123.456, 0.0}) {
        SCOPED_TRACE(value);
        char held[] = "held";
        char* valueText = held;
        char* uncertaintyText = held;
        EXPECT_FALSE(
            TEVUtilString::SignificantFigures(value, 0.02, &valueText, &uncertaintyText, false));
        EXPECT_EQ(valueText, nullptr);
        EXPECT_EQ(uncertaintyText, nullptr);
    }
    char held[] = "held";
    char* text = held;
    EXPECT_FALSE(TEVUtilString::TruncateUncertaintyValue(0.02, &text, false, 1));
    EXPECT_EQ(text, nullptr);
}

TEST(SignificantFigures, RefusesNumbersWhoseDigitsAreGrouped) {
    const tev::test::GlobalLocale locale(new tev::test::Punctuation('.', "\3"));
    Text valueText;
    Text uncertaintyText;
    EXPECT_TRUE(
        TEVUtilString::SignificantFigures(5, 0.1, valueText.Out(), uncertaintyText.Out(), false));
    EXPECT_EQ(valueText.str(), "5.0");
    EXPECT_EQ(uncertaintyText.str(), "0.1");
    Text refused;
    EXPECT_FALSE(
        TEVUtilString::SignificantFigures(1234, 1, refused.Out(), uncertaintyText.Out(), false));
    EXPECT_TRUE(refused.IsNull());
}

}  // namespace
