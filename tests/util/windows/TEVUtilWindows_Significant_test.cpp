#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/Com.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Bstr;
using tev::test::Text;

constexpr bool kScientific = true;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(SignificantFiguresWide, TextsAsBstrs) {
    const struct {
        double value;
        double uncertainty;
        bool scientific;
        const wchar_t* valueText;
        const wchar_t* uncertaintyText;
    } rows[] = {
        {123.456, 0.0234, !kScientific, L"123.46", L"0.02"},
        {-123.456, 0.0234, !kScientific, L"-123.46", L"0.02"},
        {123.456, 0.0234, kScientific, L"1.2346e+02", L"2e-02"},
        {-123.456, 0.0234, kScientific, L"-1.2346e+02", L"2e-02"},
        {0, 0.0234, !kScientific, L"0.0", L"0.02"},
        {0, 5, kScientific, L"0.e+00", L"5e+00"},
        {10.5, 1, !kScientific, L"11", L"1"},
        {12.5, 1, !kScientific, L"12", L"1"},
        {13.5, 1, !kScientific, L"14", L"1"},
        {9.96, 0.1, !kScientific, L"10.0", L"0.1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        Bstr value;
        Bstr uncertainty;
        EXPECT_TRUE(TEVUtilWindows::SignificantFigures(row.value, row.uncertainty, value.Out(),
                                                       uncertainty.Out(), row.scientific));
        // The system counts their characters, so they are BSTRs.
        EXPECT_EQ(value.str(), row.valueText);
        EXPECT_EQ(uncertainty.str(), row.uncertaintyText);
    }
}

// Success and texts are those of the narrow function.
TEST(SignificantFiguresWide, TwinOfTheNarrowFunction) {
    int accepted = 0;
    for (int power = -24; power <= 18; ++power) {
        for (const double factor : {1.0, 1.05, 2.5, 4.999, 5.5, 9.5, 9.96}) {
            const double value = factor * std::pow(10.0, power);
            for (const double uncertainty : {value / 1000, value / 7, value, 30 * value}) {
                for (const bool scientific : {true, false}) {
                    SCOPED_TRACE(testing::Message() << value << " and " << uncertainty);
                    Bstr wideValue;
                    Bstr wideUncertainty;
                    Text narrowValue;
                    Text narrowUncertainty;
                    const bool result = TEVUtilWindows::SignificantFigures(
                        value, uncertainty, wideValue.Out(), wideUncertainty.Out(), scientific);
                    EXPECT_EQ(result, TEVUtilString::SignificantFigures(
                                          value, uncertainty, narrowValue.Out(),
                                          narrowUncertainty.Out(), scientific));
                    const std::string first = narrowValue.str();
                    const std::string second = narrowUncertainty.str();
                    EXPECT_EQ(wideValue.str(), std::wstring(first.begin(), first.end()));
                    EXPECT_EQ(wideUncertainty.str(), std::wstring(second.begin(), second.end()));
                    accepted += result ? 1 : 0;
                }
            }
        }
    }
    EXPECT_GT(accepted, 2000);
}

TEST(SignificantFiguresWide, RefusalGivesNulls) {
    const struct {
        double value;
        double uncertainty;
    } rows[] = {
        {1, 0},          {1, -0.0},
        {1, -1},         {0, 0},
        {1, -kInfinity}, {1, std::numeric_limits<double>::quiet_NaN()},
        {1, kInfinity},  {kInfinity, 1},
        {1, 1e-30},      {std::numeric_limits<double>::quiet_NaN(), 1},
    };
    for (const auto& row : rows) {
        for (const bool scientific : {true, false}) {
            SCOPED_TRACE(testing::Message() << row.value << " and " << row.uncertainty);
            wchar_t held[] = L"held";
            wchar_t* value = held;
            wchar_t* uncertainty = held;
            EXPECT_FALSE(TEVUtilWindows::SignificantFigures(row.value, row.uncertainty, &value,
                                                            &uncertainty, scientific));
            EXPECT_EQ(value, nullptr);
            EXPECT_EQ(uncertainty, nullptr);
        }
    }
}

TEST(SignificantFiguresWide, NullOutputsAreRefused) {
    wchar_t held[] = L"held";
    wchar_t* text = held;
    EXPECT_FALSE(TEVUtilWindows::SignificantFigures(1, 0.1, nullptr, &text, kScientific));
    EXPECT_EQ(text, nullptr);
    text = held;
    EXPECT_FALSE(TEVUtilWindows::SignificantFigures(1, 0.1, &text, nullptr, kScientific));
    EXPECT_EQ(text, nullptr);
    EXPECT_FALSE(TEVUtilWindows::SignificantFigures(1, 0.1, nullptr, nullptr, kScientific));
}

TEST(SignificantFiguresWide, OutputsAreOverwrittenNotReleased) {
    wchar_t held[] = L"held";
    wchar_t* value = held;
    wchar_t* uncertainty = held;
    ASSERT_TRUE(TEVUtilWindows::SignificantFigures(1.5, 0.1, &value, &uncertainty, !kScientific));
    EXPECT_STREQ(held, L"held");
    TEVUtilWindows::FreeBSTR(&value);
    TEVUtilWindows::FreeBSTR(&uncertainty);
    EXPECT_EQ(value, nullptr);
    EXPECT_EQ(uncertainty, nullptr);
}

}  // namespace
