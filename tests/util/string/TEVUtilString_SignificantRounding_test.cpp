#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>

#include "support/Owned.h"
#include "util/string/OutputPointer.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExpectNewText;
using tev::test::Stale;
using tev::test::Text;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kTooSmall = 4e-21;

bool Round(bool scientific, char** out, double value, int* first, int* last, int* point,
           int figures);

// The rounding is private; an explicit instantiation may name it all the same.
template <auto kRound>
struct Opened {
    friend bool Round(bool scientific, char** out, double value, int* first, int* last, int* point,
                      int figures) {
        return kRound(scientific, out, value, first, last, point, figures);
    }
};
template struct Opened<&TEVUtilString::RoundToSignificantFigures>;

// The text, followed by the three positions on request; "(refused)".
std::string Rounded(double value, int figures, bool scientific, bool withPositions = false) {
    Text text;
    int first = 77;
    int last = 77;
    int point = 77;
    char held[] = "held";
    char* out = held;
    if (!Round(scientific, &out, value, &first, &last, &point, figures)) {
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(first, -1);
        EXPECT_EQ(last, -1);
        EXPECT_EQ(point, -1);
        return "(refused)";
    }
    *text.Out() = out;
    if (!withPositions) return text.str();
    return text.str() + ' ' + std::to_string(first) + ' ' + std::to_string(last) + ' ' +
           std::to_string(point);
}

std::string Truncated(double value, int figures, bool scientific) {
    Text text;
    const bool made =
        TEVUtilString::TruncateUncertaintyValue(value, text.Out(), scientific, figures);
    EXPECT_NE(made, text.IsNull());
    return made ? text.str() : "(refused)";
}

std::string Zeros(std::size_t count) { return std::string(count, '0'); }

struct Row {
    double value;
    int figures;
    std::string fixed;
    std::string scientific;
};

const Row kRows[] = {
    {0.0234, 1, "0.02", "2.e-02"},
    {0.0234, 2, "0.023", "2.3e-02"},
    {123.456, 1, "100.", "1.e+02"},
    {123.456, 3, "123.", "1.23e+02"},
    {123.456, 4, "123.5", "1.235e+02"},
    {123.456, 5, "123.46", "1.2346e+02"},
    {20, 1, "20.", "2.e+01"},
    {3, 1, "3.", "3.e+00"},
    {3, 2, "3.0", "3.0e+00"},
    {0.3, 1, "0.3", "3.e-01"},
    {1234, 2, "1200.", "1.2e+03"},
    {1000.5, 6, "1000.50", "1.00050e+03"},
    // The first dropped digit decides; behind a 5 the rest does.
    {1449, 2, "1400.", "1.4e+03"},
    {1460, 2, "1500.", "1.5e+03"},
    {1250.0078125, 2, "1300.", "1.3e+03"},
    {1250.5, 2, "1300.", "1.3e+03"},
    {12.50000000000001, 2, "13.", "1.3e+01"},
    {2.4999999999999996, 1, "2.", "2.e+00"},
    // Exact halves.
    {12.5, 2, "12.", "1.2e+01"},
    {13.5, 2, "14.", "1.4e+01"},
    {0.125, 2, "0.12", "1.2e-01"},
    {0.375, 2, "0.38", "3.8e-01"},
    {2.5, 1, "2.", "2.e+00"},
    {25, 1, "20.", "2.e+01"},
    {1750, 2, "1800.", "1.8e+03"},
    // A carry: the fixed form keeps its places, the exponent form its figures.
    {9.6, 1, "10.", "1.e+01"},
    {0.96, 1, "1.0", "1.e+00"},
    {96, 1, "100.", "1.e+02"},
    {0.0096, 1, "0.010", "1.e-02"},
    {9.96, 2, "10.0", "1.0e+01"},
    {1996, 3, "2000.", "2.00e+03"},
    {199.96, 4, "200.0", "2.000e+02"},
    {0.99951171875, 3, "1.000", "1.00e+00"},
    {999999.5, 6, "1000000.", "1.00000e+06"},
    // Figures beyond those that the number has.
    {0.5, 30, "0.5" + Zeros(29), "5." + Zeros(29) + "e-01"},
    {2, 25, "2." + Zeros(24), "2." + Zeros(24) + "e+00"},
    {1e-20, 3, "0." + Zeros(19) + "100", "1.00e-20"},
    // All magnitudes.
    {1e9, 1, "1000000000.", "1.e+09"},
    {1e10, 1, "10000000000.", "1.e+10"},
    {1e100, 1, "1" + Zeros(100) + ".", "1.e+100"},
    {9.6e99, 1, "1" + Zeros(100) + ".", "1.e+100"},
    {1e-9, 1, "0." + Zeros(8) + "1", "1.e-09"},
    {1e-10, 1, "0." + Zeros(9) + "1", "1.e-10"},
    {4e-19, 1, "0." + Zeros(18) + "4", "4.e-19"},
};

TEST(RoundToSignificantFigures, Table) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.value << " to " << row.figures);
        EXPECT_EQ(Rounded(row.value, row.figures, false), row.fixed);
        EXPECT_EQ(Rounded(row.value, row.figures, true), row.scientific);
        EXPECT_EQ(Rounded(-row.value, row.figures, false), row.fixed) << "takes the magnitude";
        EXPECT_EQ(Rounded(-row.value, row.figures, true), row.scientific) << "takes the magnitude";
    }
}

TEST(RoundToSignificantFigures, ExactHalfGoesUpFromAKeptZero_Kept) {
    EXPECT_EQ(Rounded(10.5, 2, false), "11.");
    EXPECT_EQ(Rounded(10.5, 2, true), "1.1e+01");
    EXPECT_EQ(Rounded(100.5, 3, false), "101.");
    EXPECT_EQ(Rounded(1050, 2, false), "1100.");
}

TEST(RoundToSignificantFigures, PositionsDescribeTheResult) {
    EXPECT_EQ(Rounded(123.456, 5, false, true), "123.46 0 5 3");
    EXPECT_EQ(Rounded(123.456, 5, true, true), "1.2346e+02 0 5 1");
    EXPECT_EQ(Rounded(0.0234, 1, false, true), "0.02 3 3 1");
    EXPECT_EQ(Rounded(0.0234, 1, true, true), "2.e-02 0 0 1");
    EXPECT_EQ(Rounded(12.5, 2, false, true), "12. 0 1 2");
    EXPECT_EQ(Rounded(0.5, 4, false, true), "0.5000 2 5 1");
    EXPECT_EQ(Rounded(199.96, 4, false, true), "200.0 0 4 3");
    EXPECT_EQ(Rounded(9.96, 2, true, true), "1.0e+01 0 2 1");
}

TEST(RoundToSignificantFigures, RefusesFewerFiguresThanOne) {
    for (const int figures : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(Rounded(1.5, figures, false), "(refused)") << figures;
        EXPECT_EQ(Rounded(1.5, figures, true), "(refused)") << figures;
    }
}

TEST(RoundToSignificantFigures, RefusesWhatHasNoFigures) {
    for (const double value : {0.0, -0.0, kTooSmall, kNotANumber, kInfinity, -kInfinity}) {
        EXPECT_EQ(Rounded(value, 1, false), "(refused)") << value;
        EXPECT_EQ(Rounded(value, 1, true), "(refused)") << value;
    }
}

TEST(TruncateUncertaintyValue, RoundsAndAlwaysShowsThePoint) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.value << " to " << row.figures);
        EXPECT_EQ(Truncated(row.value, row.figures, false), row.fixed);
        EXPECT_EQ(Truncated(row.value, row.figures, true), row.scientific);
    }
}

TEST(TruncateUncertaintyValue, KeepsOneFigureAtLeast) {
    for (const int figures : {0, -1, -5, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(Truncated(0.0234, figures, false), "0.02") << figures;
        EXPECT_EQ(Truncated(123.456, figures, true), "1.e+02") << figures;
    }
}

TEST(TruncateUncertaintyValue, RefusesAValueThatIsNotAboveZero) {
    for (const double value : {0.0, -0.0, -0.0234, -123.456, kNotANumber, -kInfinity}) {
        EXPECT_EQ(Truncated(value, 1, false), "(refused)") << value;
        EXPECT_EQ(Truncated(value, 1, true), "(refused)") << value;
    }
}

TEST(TruncateUncertaintyValue, RefusesWhatHasNoFigures) {
    for (const double value : {kTooSmall, kInfinity}) {
        EXPECT_EQ(Truncated(value, 1, false), "(refused)") << value;
        EXPECT_EQ(Truncated(value, 1, true), "(refused)") << value;
    }
}

TEST(TruncateUncertaintyValue, RefusesAMissingOutput) {
    EXPECT_FALSE(TEVUtilString::TruncateUncertaintyValue(1.5, nullptr, false, 1));
    EXPECT_FALSE(TEVUtilString::TruncateUncertaintyValue(1.5, nullptr, true, 1));
}

TEST(TruncateUncertaintyValue, RefusedOutputIsNull) {
    for (const double value : {0.0, -1.5, kNotANumber, kTooSmall, kInfinity}) {
        char* text = Stale();
        EXPECT_FALSE(TEVUtilString::TruncateUncertaintyValue(value, &text, false, 1));
        EXPECT_EQ(text, nullptr) << value;
    }
}

TEST(TruncateUncertaintyValue, MakesANewText) {
    ExpectNewText([](char** out) { TEVUtilString::TruncateUncertaintyValue(0.0234, out, true, 2); },
                  "2.3e-02");
}

}  // namespace
