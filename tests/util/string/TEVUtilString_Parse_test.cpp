#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

template <typename Number>
using Parser = bool (*)(const char*, Number&);

std::string Shown(const char* text) {
    return text == nullptr ? "(null)" : testing::PrintToString(std::string(text));
}

TEST(Parsers, Signatures) {
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToBool), Parser<bool>>));
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToInteger), Parser<int>>));
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToLong), Parser<long>>));
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToUnsignedInt), Parser<unsigned int>>));
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToInt64), Parser<std::int64_t>>));
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToUInt64), Parser<std::uint64_t>>));
    EXPECT_TRUE((std::is_same_v<decltype(&TEVUtilString::ToDouble), Parser<double>>));
    EXPECT_EQ(sizeof(long), 4U);
}

TEST(ToBool, TrueAndFalseInAnyLetterCase) {
    const struct {
        const char* text;
        bool value;
    } rows[] = {
        {"true", true},    {"false", false},    {"TRUE", true},    {"FALSE", false},
        {"True", true},    {"fAlSe", false},    {" TRUE ", true},  {" false", false},
        {"false ", false}, {"    tRuE ", true}, {"\ttrue ", true}, {" false\r\n", false},
    };
    for (const auto& row : rows) {
        for (const bool before : {false, true}) {
            bool value = before;
            EXPECT_TRUE(TEVUtilString::ToBool(row.text, value)) << Shown(row.text);
            EXPECT_EQ(value, row.value) << Shown(row.text);
        }
    }
}

TEST(ToBool, NoOtherWordAndTheOutputUntouched) {
    for (const char* text : {static_cast<const char*>(nullptr),
                             "",
                             " ",
                             "    ",
                             " \t ",
                             "1",
                             "0",
                             "yes",
                             "no",
                             "on",
                             "off",
                             "t",
                             "f",
                             "y",
                             "tru",
                             "fals",
                             "truex",
                             "falsee",
                             "true false",
                             "tr ue",
                             "\ttrue",
                             "true\t",
                             "\nfalse\n",
                             "false\r",
                             "-true",
                             "true.",
                             "tr\xFC"
                             "e",
                             "TRUE1"}) {
        for (const bool before : {false, true}) {
            bool value = before;
            EXPECT_FALSE(TEVUtilString::ToBool(text, value)) << Shown(text);
            EXPECT_EQ(value, before) << Shown(text);
        }
    }
}

TEST(ExtractIndices, AcceptedTexts) {
    const struct {
        const char* text;
        int first;
        int second;
    } rows[] = {
        {"[3,14]", 3, 14},
        {"[1,2]", 1, 2},
        {"[0,0]", 0, 0},
        {"[-1,+2]", -1, 2},
        {"[-2147483648,2147483647]", -2147483647 - 1, 2147483647},
        // Each number is taken as ToInteger takes it.
        {"[007,1.9]", 7, 1},
        {"[-12.9,.5]", -12, 0},
        {"[.,.]", 0, 0},
        {"[ 3 , 14 ]", 3, 14},
        {"[ 3,14 ]", 3, 14},
        {"[\t3 , 14\n]", 3, 14},
    };
    for (const auto& row : rows) {
        int first = 77;
        int second = 78;
        EXPECT_TRUE(TEVUtilString::ExtractIndices(row.text, first, second)) << Shown(row.text);
        EXPECT_EQ(first, row.first) << Shown(row.text);
        EXPECT_EQ(second, row.second) << Shown(row.text);
    }
}

TEST(ExtractIndices, FailureStoresMinusOneInBoth_Kept) {
    const char* const texts[] = {
        nullptr,
        "",
        " ",
        // Too short.
        "[]",
        "[,]",
        "[,1]",
        "[1,]",
        "1,2",
        // No brackets around it.
        "3,14,5",
        "[3,14",
        "3,14]",
        "(3,14)",
        "{3,14}",
        "]3,14[",
        "[3,14]x",
        " [3,14]",
        "[3,14] ",
        "x[3,14]",
        // No comma.
        "[314]",
        "[3;14]",
        "[3 14]",
        "[     ]",
        // A part that is no integer.
        "[,12]",
        "[12,]",
        "[ ,12]",
        "[12, ]",
        "[a,14]",
        "[3,b]",
        "[-,14]",
        "[3,+]",
        "[3,1e3]",
        "[0x3,1]",
        "[3,14,15]",
        "[,3,14]",
        "[3,,14]",
        "[[3,14]",
        "[3,14]]",
        "[3 4,5]",
        "[\t3,4]",
        "[3,4\t]",
        "[--3,4]",
    };
    for (const char* text : texts) {
        int first = 77;
        int second = 78;
        EXPECT_FALSE(TEVUtilString::ExtractIndices(text, first, second)) << Shown(text);
        EXPECT_EQ(first, -1) << Shown(text);
        EXPECT_EQ(second, -1) << Shown(text);
    }
}

TEST(ExtractIndices, NumberOutOfRangeIsASuccess_Kept) {
    int first = 77;
    int second = 78;
    EXPECT_TRUE(TEVUtilString::ExtractIndices("[99999999999,14]", first, second));
    EXPECT_EQ(second, 14);
    EXPECT_TRUE(TEVUtilString::ExtractIndices("[3,-99999999999]", first, second));
    EXPECT_EQ(first, 3);
}

}  // namespace
