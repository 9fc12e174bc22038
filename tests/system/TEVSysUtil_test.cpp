#include <TEVSystemLib/system/TEVSysUtil.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/Owned.h"
#include "system/Constants.h"

namespace {

using TAMO::TEV::System::Util::TEVSysUtil;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;

TEST(TEVSysUtil, IsAssignedButNeverMade) { tev::test::ExpectConstantsOnly<TEVSysUtil>(); }

TEST(GetTEVSystemObjectID, JoinsClassNameCountAndName) {
    const struct {
        const char* name;
        const char* className;
        std::size_t count;
        const char* id;
        const char* classNameCopy;
    } rows[] = {
        {"left", "ImageView", 3, "ImageView:3:left", "ImageView"},
        {"left", "ImageView", 0, "ImageView:0:left", "ImageView"},
        {"n", "C", 1234567890, "C:1234567890:n", "C"},
        {"n", "C", SIZE_MAX, "C:18446744073709551615:n", "C"},
        // Both ends are trimmed as soon as a plain space stands at one of them.
        {" left", "ImageView ", 3, "ImageView:3:left", "ImageView"},
        {"\t\n left ", " ImageView\v\f\r", 3, "ImageView:3:left", "ImageView"},
        {"upper left", "Image View", 3, "Image View:3:upper left", "Image View"},
        {"a:b", "C:D", 3, "C:D:3:a:b", "C:D"},
        {"\xE9t\xE9", "\xC9t\xE9", 3, "\xC9t\xE9:3:\xE9t\xE9", "\xC9t\xE9"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        Text copy;
        const Text id(
            TEVSysUtil::GetTEVSystemObjectID(row.name, row.className, row.count, copy.Out()));
        EXPECT_EQ(id.str(), row.id);
        EXPECT_EQ(copy.str(), row.classNameCopy);
    }
}

TEST(GetTEVSystemObjectID, BlanksOtherThanTheSpaceAtTheEndsStay_Kept) {
    const struct {
        const char* name;
        const char* className;
        const char* id;
        const char* classNameCopy;
    } rows[] = {
        {"\tleft", "ImageView", "ImageView:3:\tleft", "ImageView"},
        {"left\n", "ImageView", "ImageView:3:left\n", "ImageView"},
        {"left", "\tImageView\t", "\tImageView\t:3:left", "\tImageView\t"},
        {"\t", "\n", "\n:3:\t", "\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.id));
        Text copy;
        const Text id(TEVSysUtil::GetTEVSystemObjectID(row.name, row.className, 3, copy.Out()));
        EXPECT_EQ(id.str(), row.id);
        EXPECT_EQ(copy.str(), row.classNameCopy);
    }
}

TEST(GetTEVSystemObjectID, TextWithNothingInItGivesNull) {
    const struct {
        const char* row;
        const char* name;
        const char* className;
    } rows[] = {
        {"null name", nullptr, "ImageView"},
        {"null class name", "left", nullptr},
        {"both null", nullptr, nullptr},
        {"empty name", "", "ImageView"},
        {"empty class name", "left", ""},
        {"both empty", "", ""},
        {"blank name", " ", "ImageView"},
        {"blank class name", "left", "   "},
        {"blank name of kinds", " \t\n ", "ImageView"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.row);
        Text copy;
        const Text id(TEVSysUtil::GetTEVSystemObjectID(row.name, row.className, 3, copy.Out()));
        EXPECT_TRUE(id.IsNull());
        EXPECT_TRUE(copy.IsNull());
        const Text alone(TEVSysUtil::GetTEVSystemObjectID(row.name, row.className, 3, nullptr));
        EXPECT_TRUE(alone.IsNull());
    }
}

TEST(GetTEVSystemObjectID, RefusalNullsTheCopyWithoutReleasingIt) {
    char held[] = "held";
    char* copy = held;
    const Text id(TEVSysUtil::GetTEVSystemObjectID("", "ImageView", 3, &copy));
    EXPECT_TRUE(id.IsNull());
    EXPECT_EQ(copy, nullptr);
    EXPECT_STREQ(held, "held");
}

TEST(GetTEVSystemObjectID, CopyIsOptional) {
    const Text id(TEVSysUtil::GetTEVSystemObjectID("left", "ImageView", 3, nullptr));
    EXPECT_EQ(id.str(), "ImageView:3:left");
}

TEST(GetTEVSystemObjectID, CopyIsOverwrittenNotFreed) {
    char held[] = "held";
    char* out = held;
    const Text id(TEVSysUtil::GetTEVSystemObjectID("left", "ImageView", 3, &out));
    ASSERT_NE(out, held);
    const Text copy(out);
    EXPECT_EQ(copy.str(), "ImageView");
    EXPECT_STREQ(held, "held");
}

TEST(GetTEVSystemObjectID, CallerOwnsBothTexts) {
    char className[] = "ImageView";
    char* copy = nullptr;
    char* id = TEVSysUtil::GetTEVSystemObjectID("left", className, 3, &copy);
    ASSERT_NE(id, nullptr);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, className);
    const Text again(TEVSysUtil::GetTEVSystemObjectID("left", className, 3, nullptr));
    EXPECT_NE(again.get(), id);
    className[0] = id[0] = '?';
    EXPECT_STREQ(copy, "ImageView");
    EXPECT_EQ(again.str(), "ImageView:3:left");
    TEVUtilString::DeleteCString(&id);
    TEVUtilString::DeleteCString(&copy);
}

TEST(GetTEVSystemObjectID, LongTexts) {
    const std::string name(1000000, 'n');
    const std::string className(1000000, 'C');
    Text copy;
    const Text id(TEVSysUtil::GetTEVSystemObjectID(name.c_str(), className.c_str(), 7, copy.Out()));
    EXPECT_TRUE(id.str() == className + ":7:" + name);
    EXPECT_TRUE(copy.str() == className);
}

}  // namespace
