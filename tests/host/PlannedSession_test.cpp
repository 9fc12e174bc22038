#include "TEVSystemLib/system/detail/PlannedSession.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using TAMO::TEV::System::detail::PlannedSession;

class Planned : public ::testing::Test {
 protected:
    static std::optional<std::string> Set(const std::string& name) {
        return name == "LIST" ? std::optional<std::string>("a;b") : std::nullopt;
    }
    static std::optional<std::string> Same(const std::string& value) { return value; }

    PlannedSession session_{Set, Same};
};

TEST_F(Planned, ReadsWhatWasThereUntilItIsChanged) {
    EXPECT_EQ(session_.Read("LIST"), "a;b");
    EXPECT_EQ(session_.Read("X"), std::nullopt);
    EXPECT_TRUE(session_.Set(" x ", " 1 "));
    EXPECT_EQ(session_.Read("X"), "1");
    EXPECT_TRUE(session_.Exists("x"));
}

TEST_F(Planned, DoesNotTellTheCasesOfLettersApart) {
    EXPECT_TRUE(session_.Set("a\xE9\xF7", "1"));
    EXPECT_EQ(session_.Read("A\xC9\xF7"), "1");
    EXPECT_EQ(session_.Read("A\xC9\xD7"), std::nullopt) << "signs, no letters";
    EXPECT_TRUE(session_.Set("\xFF", "1"));
    EXPECT_EQ(session_.Read("\xFF"), "1");
    EXPECT_EQ(session_.Read("\xDF"), std::nullopt) << "no pair in Latin-1";
}

TEST_F(Planned, FoldsTheLettersOfLatin1Only) {
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const std::string name{'N', static_cast<char>(byte)};
        const std::string capital{'n', static_cast<char>(byte - 0x20)};
        const bool isLetter = byte >= 0xE0 && byte <= 0xFE && byte != 0xF7;
        PlannedSession session(Set, Same);
        EXPECT_TRUE(session.Set(name, "1"));
        EXPECT_EQ(session.Read(capital), isLetter ? std::optional<std::string>("1") : std::nullopt)
            << byte;
    }
}

TEST_F(Planned, NoTextDeletes) {
    EXPECT_TRUE(session_.Set("LIST", nullptr));
    EXPECT_FALSE(session_.Exists("LIST"));
    EXPECT_TRUE(session_.Set("LIST", "1"));
    EXPECT_TRUE(session_.Set("LIST", " "));
    EXPECT_FALSE(session_.Exists("LIST"));
}

TEST_F(Planned, RefusesWhatTheSetterRefuses) {
    EXPECT_FALSE(session_.Set(" ", "1"));
    EXPECT_FALSE(session_.Set("A=B", "1"));
    EXPECT_FALSE(session_.Set("AB=C", "1"));
    EXPECT_FALSE(session_.Set("=C:=", "1"));
    EXPECT_TRUE(session_.Set("=C:", "1")) << "a folder of a drive";
    EXPECT_EQ(session_.Read("=c:"), "1");
    EXPECT_FALSE(session_.Set("X", std::string(32767, 'x').c_str()));
    EXPECT_TRUE(session_.Set("X", std::string(32766, 'x').c_str()));
}

TEST_F(Planned, ChangesListsThatAreSet) {
    constexpr int kAdd = 0;
    constexpr int kRemove = 1;
    EXPECT_TRUE(session_.Modify("LIST", "c", false, kAdd));
    EXPECT_TRUE(session_.Modify("list", "d", true, kAdd));
    EXPECT_EQ(session_.Read("LIST"), "d;a;b;c");
    EXPECT_TRUE(session_.Modify("LIST", "A", false, kAdd)) << "it is there";
    EXPECT_TRUE(session_.Modify("LIST", "A", false, kRemove));
    EXPECT_EQ(session_.Read("LIST"), "d;b;c");
    EXPECT_FALSE(session_.Modify("LIST", std::string(32767, 'x'), false, kAdd));
    EXPECT_EQ(session_.Read("LIST"), "d;b;c");
    EXPECT_FALSE(session_.Modify("X", "a", false, kAdd));
    EXPECT_FALSE(session_.Modify("LIST", "a", false, 2));
}

}  // namespace
