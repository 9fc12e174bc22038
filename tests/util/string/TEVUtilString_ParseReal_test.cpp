#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Shown(const char* text) {
    return text == nullptr ? "(null)" : testing::PrintToString(std::string(text));
}

TEST(ToDouble, AcceptedTexts) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"0", 0.0},
        {"-0", 0.0},
        {"0.0", 0.0},
        {"42", 42.0},
        {"+42", 42.0},
        {"-42", -42.0},
        {"007", 7.0},
        {"1.5", 1.5},
        {"-12.75", -12.75},
        {".5", 0.5},
        {"-.5", -0.5},
        {"+.25", 0.25},
        {"5.", 5.0},
        {"0.1", 0.1},
        {"1.5e3", 1500.0},
        {"1.5E3", 1500.0},
        {"1.5e+3", 1500.0},
        {"-2.5E-3", -0.0025},
        {"+1e0", 1.0},
        {"5.e1", 50.0},
        {".5e1", 5.0},
        {"-.5e1", -5.0},
        {"1e003", 1000.0},
        {"0e999", 0.0},
        {"1e308", 1e308},
        {"-1e308", -1e308},
        {"1e-300", 1e-300},
        {"9007199254740992", 9007199254740992.0},
        {"123456789012345678901234567890", 1.2345678901234568e29},
        {" 1.5 ", 1.5},
        {"1.5 ", 1.5},
        {"\t1.5 ", 1.5},
        {" 1.5\r\n", 1.5},
    };
    for (const auto& row : rows) {
        double value = 77.0;
        EXPECT_TRUE(TEVUtilString::ToDouble(row.text, value)) << Shown(row.text);
        EXPECT_DOUBLE_EQ(value, row.value) << Shown(row.text);
    }
}

TEST(ToDouble, RefusedTextsLeaveTheOutputUntouched) {
    const char* const texts[] = {
        nullptr,
        "",
        " ",
        "    ",
        " \t ",
        // Nothing that converts.
        ".",
        "-",
        "+",
        "-.",
        "+.",
        "-+1e5",
        "--1e3",
        "+.e1",
        ".-5e1",
        // Other characters.
        "abc",
        "1x",
        "x1",
        "0x1A",
        "0x1p3",
        "1d3",
        "1D3",
        "1f",
        "1.5f",
        "inf",
        "-inf",
        "infinity",
        "INF",
        "nan",
        "NaN",
        "1,5",
        "1 2",
        "- 1",
        "1 e5",
        "1.5%",
        "4\xB2",
        "\xA0"
        "1",
        // Too many of a kind.
        "1e3e",
        "1e3E4",
        "1eE4",
        "1.2.3",
        "..",
        "1.5e.5",
        "--1",
        "+-1",
        "1-2-",
        "-1e-5-",
        "+-1-e5",
        // A sign that is not in front, without an exponent.
        "1-",
        "1+",
        "1-2",
        ".-5",
        ".5+",
        // Nothing in front of the exponent.
        "e5",
        "E5",
        "e",
        "e-5",
        "e.5",
        ".e5",
        ".E5",
        "-e5",
        "+e5",
        "-e",
        ".e",
        // Only a plain space starts the trimming.
        "\t1.5",
        "1.5\t",
        "\n1",
        "1\r",
    };
    for (const char* text : texts) {
        double value = 77.0;
        EXPECT_FALSE(TEVUtilString::ToDouble(text, value)) << Shown(text);
        EXPECT_EQ(value, 77.0) << Shown(text);
    }
}

TEST(ToDouble, ExponentWithoutDigitsIsRefused) {
    for (const char* text : {"1e", "1E", "1.5e", "1e+", "1e-", "-1e-", "1e.5", "5e+-3", ".5e"}) {
        double value = 77.0;
        EXPECT_FALSE(TEVUtilString::ToDouble(text, value)) << text;
        EXPECT_EQ(value, 77.0) << text;
    }
}

TEST(ToDouble, PlaceOfSignsIsNotCheckedWithAnExponent_Kept) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"5-e3", 5.0},      {"5+e3", 5.0},        {"-5-e3", -5.0},    {"1+2e3", 1.0},
        {"1e5-", 100000.0}, {"-1e5+", -100000.0}, {"1e-5+", 0.00001}, {"1.5-2e3", 1.5},
        {"1-.e5", 1.0},     {"1--1e5", 1.0},      {"2.5-e", 2.5},
    };
    for (const auto& row : rows) {
        double value = 77.0;
        EXPECT_TRUE(TEVUtilString::ToDouble(row.text, value)) << row.text;
        EXPECT_DOUBLE_EQ(value, row.value) << row.text;
    }
}

TEST(ToDouble, PointBehindTheExponentEndsTheNumber_Kept) {
    const struct {
        const char* text;
        double value;
    } rows[] = {{"1e5.3", 100000.0}, {"1e5.", 100000.0}, {"-2e1.9", -20.0}};
    for (const auto& row : rows) {
        double value = 77.0;
        EXPECT_TRUE(TEVUtilString::ToDouble(row.text, value)) << row.text;
        EXPECT_DOUBLE_EQ(value, row.value) << row.text;
    }
}

TEST(ToDouble, OverflowIsRefusedWithInfinityInTheOutput_Kept) {
    const std::string digits = "1" + std::string(400, '0');
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"1e400", kInfinity},         {"-1e400", -kInfinity},      {"+1E+400", kInfinity},
        {"1.8e308", kInfinity},       {"-1.8e308", -kInfinity},    {" 1e400 ", kInfinity},
        {"1e99999999999", kInfinity}, {digits.c_str(), kInfinity},
    };
    for (const auto& row : rows) {
        double value = 77.0;
        EXPECT_FALSE(TEVUtilString::ToDouble(row.text, value)) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
    }
}

TEST(ToDouble, UnderflowIsASuccess) {
    const std::string digits = "0." + std::string(400, '0') + "1";
    for (const char* text : {"1e-400", "-1e-400", "1E-99999999999", digits.c_str()}) {
        double value = 77.0;
        EXPECT_TRUE(TEVUtilString::ToDouble(text, value)) << text;
        EXPECT_LT(std::abs(value), std::numeric_limits<double>::min()) << text;
    }
}

TEST(ToDouble, LongTexts) {
    const std::string zeros(1000, '0');
    const std::string blanks(100000, ' ');
    const std::string text = blanks + '-' + zeros + "12.5" + zeros + blanks;
    double value = 77.0;
    EXPECT_TRUE(TEVUtilString::ToDouble(text.c_str(), value));
    EXPECT_EQ(value, -12.5);
    value = 77.0;
    EXPECT_FALSE(TEVUtilString::ToDouble((text + 'x').c_str(), value));
    EXPECT_EQ(value, 77.0);
}

}  // namespace
