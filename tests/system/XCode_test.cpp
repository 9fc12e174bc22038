#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/XCode.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "system/Constants.h"

namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::XCode;
using tev::test::LengthConstant;
using tev::test::TextConstant;

TEST(XCode, Texts) {
    const TextConstant rows[] = {
        {"STR_BASIC", XCode::STR_BASIC, "basic"},
        {"STR_DEFAULT", XCode::STR_DEFAULT, "default"},
        {"STR_MAXIMUM", XCode::STR_MAXIMUM, "maximum"},
        {"STR_MINIMUM", XCode::STR_MINIMUM, "minimum"},
        {"STR_UNINITIALIZED", XCode::STR_UNINITIALIZED, "uninitialized"},
    };
    tev::test::ExpectTexts(rows);
}

TEST(XCode, LengthsAreThoseOfTheTexts) {
    const LengthConstant rows[] = {
        {{"SZ_STR_BASIC", XCode::SZ_STR_BASIC, 5}, XCode::STR_BASIC},
        {{"SZ_STR_DEFAULT", XCode::SZ_STR_DEFAULT, 7}, XCode::STR_DEFAULT},
        {{"SZ_STR_MAXIMUM", XCode::SZ_STR_MAXIMUM, 7}, XCode::STR_MAXIMUM},
        {{"SZ_STR_MINIMUM", XCode::SZ_STR_MINIMUM, 7}, XCode::STR_MINIMUM},
        {{"SZ_STR_UNINITIALIZED", XCode::SZ_STR_UNINITIALIZED, 13}, XCode::STR_UNINITIALIZED},
    };
    tev::test::ExpectLengths(rows);
}

TEST(XCode, ExtremesReadLikeTheSharedTexts) {
    EXPECT_STREQ(XCode::STR_MAXIMUM, TEVSysCnst::STR_MAXIMUM);
    EXPECT_STREQ(XCode::STR_MINIMUM, TEVSysCnst::STR_MINIMUM);
}

TEST(XCode, InstructionValues) {
    const struct {
        const char* name;
        XCode::Instruction instruction;
        int value;
    } rows[] = {
        {"Basic", XCode::Basic, 0},
        {"Default", XCode::Default, 1},
        {"Maximum", XCode::Maximum, 2},
        {"Minimum", XCode::Minimum, 3},
        {"Uninitialized", XCode::Uninitialized, TEVSysCnst::VALUE_UNINITIALIZED},
        {"Uninitialized", XCode::Uninitialized, -2},
        {"Unknown", XCode::Unknown, TEVSysCnst::VALUE_UNKNOWN},
        {"Unknown", XCode::Unknown, -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(static_cast<int>(row.instruction), row.value) << row.name;
}

TEST(XCode, InstructionIsA32BitSignedEnumeration) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<XCode::Instruction>, int>));
}

TEST(XCode, IsAssignedButNeverMade) { tev::test::ExpectConstantsOnly<XCode>(); }

}  // namespace
