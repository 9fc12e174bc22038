#include <TEVSystemLib/system/XCode.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

namespace {

using TAMO::TEV::System::XCode;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

const struct {
    const char* text;
    XCode::Instruction level;
    int value;
} kLevels[] = {
    {"basic", XCode::Basic, 0},
    {"default", XCode::Default, 1},
    {"maximum", XCode::Maximum, 2},
    {"minimum", XCode::Minimum, 3},
    {"uninitialized", XCode::Uninitialized, -2},
};

TEST(FromIntToXCodeInstruction, NumberOfALevel) {
    for (const auto& level : kLevels)
        EXPECT_EQ(XCode::FromIntToXCodeInstruction(level.value), level.level) << level.text;
}

TEST(FromIntToXCodeInstruction, EveryOtherNumberIsUnknown) {
    for (const int value : {-1, -3, 4, 256, 65536, kLowest, kLowest + 1, kHighest})
        EXPECT_EQ(XCode::FromIntToXCodeInstruction(value), XCode::Unknown) << value;
    for (int value = 4; value <= 1000; ++value) {
        EXPECT_EQ(XCode::FromIntToXCodeInstruction(value), XCode::Unknown) << value;
        EXPECT_EQ(XCode::FromIntToXCodeInstruction(1 - value), XCode::Unknown) << 1 - value;
    }
}

TEST(FromXCodeInstructionToInt, ValueOfALevel) {
    for (const auto& level : kLevels)
        EXPECT_EQ(XCode::FromXCodeInstructionToInt(level.level), level.value) << level.text;
}

TEST(FromXCodeInstructionToInt, EveryOtherValueIsMinusOne) {
    EXPECT_EQ(XCode::FromXCodeInstructionToInt(XCode::Unknown), -1);
    for (const int value : {-3, 4, 256, 65536, kLowest, kHighest})
        EXPECT_EQ(XCode::FromXCodeInstructionToInt(static_cast<XCode::Instruction>(value)), -1)
            << value;
}

TEST(FromXCodeInstructionToInt, InvertsTheOtherDirection) {
    for (int value = -2; value <= 3; ++value)
        EXPECT_EQ(XCode::FromXCodeInstructionToInt(XCode::FromIntToXCodeInstruction(value)), value);
}

TEST(GetXCodeInstruction, TextOfALevel) {
    for (const auto& level : kLevels)
        EXPECT_EQ(XCode::GetXCodeInstruction(level.text), level.level) << level.text;
    EXPECT_EQ(XCode::GetXCodeInstruction(XCode::STR_MINIMUM), XCode::Minimum);
}

TEST(GetXCodeInstruction, IgnoresLetterCase) {
    EXPECT_EQ(XCode::GetXCodeInstruction("DEFAULT"), XCode::Default);
    EXPECT_EQ(XCode::GetXCodeInstruction("UnInitialized"), XCode::Uninitialized);
    for (const auto& level : kLevels) {
        const std::string plain = level.text;
        // One letter in capitals, then all letters but one.
        for (std::size_t i = 0; i < plain.size(); ++i) {
            std::string one = plain;
            std::string others;
            for (const char c : plain) others += static_cast<char>(std::toupper(c));
            std::swap(one[i], others[i]);
            EXPECT_EQ(XCode::GetXCodeInstruction(one.c_str()), level.level) << one;
            EXPECT_EQ(XCode::GetXCodeInstruction(others.c_str()), level.level) << others;
        }
    }
}

TEST(GetXCodeInstruction, BlanksAroundATextAreRemoved) {
    const struct {
        const char* text;
        XCode::Instruction level;
    } rows[] = {
        {" Maximum ", XCode::Maximum},
        {" basic", XCode::Basic},
        {"basic ", XCode::Basic},
        {"     default     ", XCode::Default},
        {"\tminimum ", XCode::Minimum},
        {" minimum\r\n", XCode::Minimum},
        {" \t\n\v\f\runinitialized\r\f\v\n\t ", XCode::Uninitialized},
    };
    for (const auto& row : rows)
        EXPECT_EQ(XCode::GetXCodeInstruction(row.text), row.level)
            << testing::PrintToString(row.text);
}

TEST(GetXCodeInstruction, OnlyAPlainSpaceStartsTheTrimming_Kept) {
    for (const char* text : {"\tbasic", "basic\t", "\nbasic\n", "basic\r", "\vbasic", "basic\f"})
        EXPECT_EQ(XCode::GetXCodeInstruction(text), XCode::Unknown) << testing::PrintToString(text);
}

TEST(GetXCodeInstruction, EveryOtherTextIsUnknown) {
    const char* const texts[] = {
        nullptr,
        "",
        " ",
        "    ",
        " \t ",
        "\t",
        "max",
        "minimum1",
        "1minimum",
        "minimu",
        "inimum",
        "ba sic",
        "basicbasic",
        "basi",
        "b",
        "unknown",
        "none",
        "maximun",
        "uninitialised",
        "uninitialized2",
        "0",
        "1",
        "2",
        "3",
        "-1",
        "-2",
        "basic,",
        "=basic",
        "basic default",
        "b\xE4sic",
        "bas\xEF"
        "c",
        "BAS\xCC"
        "C",
        "@asic",
        "b!sic",
        "basi#",
    };
    for (const char* text : texts)
        EXPECT_EQ(XCode::GetXCodeInstruction(text), XCode::Unknown) << testing::PrintToString(text);
}

TEST(GetXCodeInstruction, EveryTextThatIsOneCharacterOffIsUnknown) {
    for (const auto& level : kLevels) {
        const std::string plain = level.text;
        for (const char extra : {'1', 's', '.', '\t'}) {
            const std::string longer = plain + extra;
            EXPECT_EQ(XCode::GetXCodeInstruction(longer.c_str()), XCode::Unknown) << longer;
            EXPECT_EQ(XCode::GetXCodeInstruction((extra + plain).c_str()), XCode::Unknown)
                << extra + plain;
        }
        for (std::size_t i = 0; i < plain.size(); ++i) {
            std::string cut = plain;
            cut.erase(i, 1);
            EXPECT_EQ(XCode::GetXCodeInstruction(cut.c_str()), XCode::Unknown) << cut;
            // Not 0x20, which is the letter case.
            for (const int flip : {0x40, 0x80, 0x01}) {
                std::string changed = plain;
                changed[i] = static_cast<char>(changed[i] ^ flip);
                EXPECT_EQ(XCode::GetXCodeInstruction(changed.c_str()), XCode::Unknown)
                    << testing::PrintToString(changed);
            }
        }
    }
}

TEST(GetXCodeInstruction, LongTexts) {
    const std::string blanks(1000000, ' ');
    EXPECT_EQ(XCode::GetXCodeInstruction((blanks + "basic" + blanks).c_str()), XCode::Basic);
    EXPECT_EQ(XCode::GetXCodeInstruction(blanks.c_str()), XCode::Unknown);
    EXPECT_EQ(XCode::GetXCodeInstruction(std::string(1000000, 'b').c_str()), XCode::Unknown);
}

}  // namespace
