#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/system/TEVSystemObject.h>
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/system/XCode.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <gtest/gtest.h>

#include <type_traits>

// What hosts have compiled in: the room that objects take, and how enumerators are passed.
namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::TEVSystemObject;
using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::XCode;
using TAMO::TEV::System::Util::TEVIO;

TEST(Layout, ObjectIsATableTwoTextsAndACount) {
    EXPECT_EQ(sizeof(TEVSystemObject), 32U);
    EXPECT_EQ(alignof(TEVSystemObject), 8U);
    EXPECT_TRUE(std::is_polymorphic_v<TEVSystemObject>);
}

TEST(Layout, FileIsOnePointerWithoutATable) {
    EXPECT_EQ(sizeof(TEVIO), 8U);
    EXPECT_EQ(alignof(TEVIO), 8U);
    EXPECT_FALSE(std::is_polymorphic_v<TEVIO>);
}

TEST(Layout, StoreIsTwoPointersWithoutATable) {
    EXPECT_EQ(sizeof(TEVSystemProperties), 16U);
    EXPECT_FALSE(std::is_polymorphic_v<TEVSystemProperties>);
}

TEST(Layout, AnswersOfTheDiagnosticsKeepTheirSizes) {
    using Answer = TAMO::TEV::System::TEVSystemDiagnostics;
    EXPECT_EQ(sizeof(Answer::Place), 40U);
    EXPECT_EQ(sizeof(Answer::Reference), 112U);
    EXPECT_EQ(sizeof(Answer::Source), 112U);
    EXPECT_EQ(sizeof(Answer::DirectiveStep), 296U);
    EXPECT_EQ(sizeof(Answer::Explanation), 416U);
    EXPECT_EQ(sizeof(Answer::Finding), 176U);
    EXPECT_EQ(sizeof(Answer::Tables), 96U);
    EXPECT_EQ(sizeof(Answer::Change), 120U);
    EXPECT_EQ(sizeof(Answer::MissingFunction), 64U);
    EXPECT_EQ(sizeof(Answer::Module), 160U);
    EXPECT_EQ(sizeof(Answer::SearchedFolder), 40U);
    EXPECT_EQ(sizeof(Answer::LoadExplanation), 416U);
}

TEST(Layout, EnumerationsAreInts) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<TEVIO::OpenType>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<TEVSysCnst::ByteOrder>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<TEVSysCnst::MsgLevel>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<XCode::Instruction>, int>));
}

TEST(Layout, OpenTypesAreZeroAndOne) {
    EXPECT_EQ(static_cast<int>(TEVIO::Read), 0);
    EXPECT_EQ(static_cast<int>(TEVIO::Write), 1);
}

}  // namespace
