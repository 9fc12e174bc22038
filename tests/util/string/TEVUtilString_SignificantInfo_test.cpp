#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

struct Info {
    bool accepted;
    bool hasDigits;
    bool hasPoint;
    int first;
    int last;
    int point;
    int count;
};

bool operator==(const Info& left, const Info& right) {
    return left.accepted == right.accepted && left.hasDigits == right.hasDigits &&
           left.hasPoint == right.hasPoint && left.first == right.first &&
           left.last == right.last && left.point == right.point && left.count == right.count;
}

std::ostream& operator<<(std::ostream& stream, const Info& info) {
    return stream << (info.accepted ? "accepted" : "refused") << ", digits " << info.hasDigits
                  << ", point " << info.hasPoint << ", first " << info.first << ", last "
                  << info.last << ", point at " << info.point << ", count " << info.count;
}

constexpr Info kRefused = {false, false, false, -1, -1, -1, -1};
constexpr Info kAllZeros = {true, false, false, -1, -1, -1, 0};

constexpr Info Integer(int first, int last, int count) {
    return {true, true, false, first, last, -1, count};
}

constexpr Info Decimal(int point, int first, int last, int count) {
    return {true, true, true, first, last, point, count};
}

// The outputs must be set in either direction, whatever they held.
Info InfoOf(const char* text) {
    Info infos[2];
    for (const bool before : {false, true}) {
        const int held = before ? 77 : -77;
        Info& info = infos[before];
        info = {false, before, before, held, held, held, held};
        info.accepted = TEVUtilString::GetSignificantFiguresInfo(
            text, info.hasDigits, info.hasPoint, info.first, info.last, info.point, info.count);
    }
    EXPECT_EQ(infos[0], infos[1]) << testing::PrintToString(text);
    return infos[0];
}

TEST(GetSignificantFiguresInfo, Integers) {
    const struct {
        const char* text;
        Info expected;
    } rows[] = {
        {"1", Integer(0, 0, 1)},         {"9", Integer(0, 0, 1)},
        {"1200", Integer(0, 1, 2)},      {"+1200", Integer(1, 2, 2)},
        {"-1200", Integer(1, 2, 2)},     {"1203", Integer(0, 3, 4)},
        {"1002", Integer(0, 3, 4)},      {"00120", Integer(2, 3, 2)},
        {"-00120300", Integer(3, 6, 4)}, {"007", Integer(2, 2, 1)},
        {"10", Integer(0, 0, 1)},        {"123456789012345678901234567890", Integer(0, 28, 29)},
    };
    for (const auto& row : rows) EXPECT_EQ(InfoOf(row.text), row.expected) << row.text;
}

TEST(GetSignificantFiguresInfo, IntegerOfZerosIsAcceptedWithoutDigits_Kept) {
    for (const char* text : {"0", "000", "+0", "-0", "-000"})
        EXPECT_EQ(InfoOf(text), kAllZeros) << text;
}

TEST(GetSignificantFiguresInfo, TrailingZerosCountBehindAPointOnly_Kept) {
    EXPECT_EQ(InfoOf("1200"), Integer(0, 1, 2));
    EXPECT_EQ(InfoOf("1200."), Decimal(4, 0, 3, 4));
    EXPECT_EQ(InfoOf("1200.0"), Decimal(4, 0, 5, 5));
    EXPECT_EQ(InfoOf("1.200"), Decimal(1, 0, 4, 4));
}

TEST(GetSignificantFiguresInfo, NumbersWithAPoint) {
    const struct {
        const char* text;
        Info expected;
    } rows[] = {
        {"-0.00450", Decimal(2, 5, 7, 3)},
        {"0.0012", Decimal(1, 4, 5, 2)},
        {"1.200", Decimal(1, 0, 4, 4)},
        {"1200.", Decimal(4, 0, 3, 4)},
        {"+1200.", Decimal(5, 1, 4, 4)},
        {"5.", Decimal(1, 0, 0, 1)},
        {"-5.", Decimal(2, 1, 1, 1)},
        {"10.", Decimal(2, 0, 1, 2)},
        {".5", Decimal(0, 1, 1, 1)},
        {"-.5", Decimal(1, 2, 2, 1)},
        {".050", Decimal(0, 2, 3, 2)},
        {"0.5", Decimal(1, 2, 2, 1)},
        {"1.5", Decimal(1, 0, 2, 2)},
        {"10.01", Decimal(2, 0, 4, 4)},
        {"0012.30", Decimal(4, 2, 6, 4)},
        {"00.5", Decimal(2, 3, 3, 1)},
        {"123.45678901234567890123", Decimal(3, 0, 23, 23)},
    };
    for (const auto& row : rows) EXPECT_EQ(InfoOf(row.text), row.expected) << row.text;
}

TEST(GetSignificantFiguresInfo, RefusesZerosWithAPoint) {
    for (const char* text : {"0.000", "0.", ".0", "-0.0", "+00.00", "."})
        EXPECT_EQ(InfoOf(text), kRefused) << text;
}

TEST(GetSignificantFiguresInfo, RefusesNothing) {
    EXPECT_EQ(InfoOf(nullptr), kRefused);
    EXPECT_EQ(InfoOf(""), kRefused);
}

TEST(GetSignificantFiguresInfo, RefusesABareSign) {
    for (const char* text : {"+", "-", "+.", "-."}) EXPECT_EQ(InfoOf(text), kRefused) << text;
}

TEST(GetSignificantFiguresInfo, RefusesBlanks) {
    for (const char* text : {" 12", "12 ", " 12 ", "\t12", "12\n", "12\v", "\f12", "12\r", "1 2",
                             "- 12", " ", "\t", " 0", "0 "})
        EXPECT_EQ(InfoOf(text), kRefused) << testing::PrintToString(std::string(text));
}

TEST(GetSignificantFiguresInfo, RefusesForeignCharacters) {
    for (const char* text : {"1.2e3",
                             "1e3",
                             "1E3",
                             "2.e-02",
                             "1.2.3",
                             "..",
                             "1..",
                             ".1.",
                             "1,5",
                             "12a",
                             "x12",
                             "0x12",
                             "+-1",
                             "-+1",
                             "--1",
                             "1-",
                             "1+",
                             "1-2",
                             "nan",
                             "inf",
                             "4\xB2",
                             "\xA0"
                             "12"})
        EXPECT_EQ(InfoOf(text), kRefused) << testing::PrintToString(std::string(text));
}

}  // namespace
