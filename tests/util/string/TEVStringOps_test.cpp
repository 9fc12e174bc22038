#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "util/string/OutputPointer.h"

namespace {

using TAMO::TEV::System::Util::TEVStringOps;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExpectNewText;
using tev::test::Stale;

TEST(TEVStringOps, IsAnEmptyTriviallyAssignableStruct) {
    EXPECT_TRUE(std::is_empty_v<TEVStringOps>);
    EXPECT_TRUE(std::is_trivially_copy_assignable_v<TEVStringOps>);
}

TEST(TEVStringOpsCopy, StoresANewText) {
    ExpectNewText([](char** out) { TEVStringOps::Copy("abcdef", out); }, "abcdef");
    ExpectNewText([](char** out) { TEVStringOps::Copy(" \t\xE9", out); }, " \t\xE9");
}

TEST(TEVStringOpsCopy, EmptyOrNullSourceGivesNull) {
    for (const char* const source : {static_cast<const char*>(nullptr), ""}) {
        char* out = Stale();
        TEVStringOps::Copy(source, &out);
        EXPECT_EQ(out, nullptr);
    }
}

TEST(TEVStringOpsCopy, NullOutputDoesNothing) {
    EXPECT_NO_THROW(TEVStringOps::Copy("abc", nullptr));
    EXPECT_NO_THROW(TEVStringOps::Copy(nullptr, nullptr));
}

TEST(TEVStringOpsDelete, ReleasesTheTextsOfBothClasses) {
    char* mine = nullptr;
    TEVStringOps::Copy("abc", &mine);
    ASSERT_STREQ(mine, "abc");
    TEVStringOps::Delete(mine);

    char* other = nullptr;
    ASSERT_TRUE(TEVUtilString::Copy("abc", &other, nullptr));
    TEVStringOps::Delete(other);

    char* third = nullptr;
    TEVStringOps::Copy("abc", &third);
    TEVUtilString::DeleteCString(&third);
    EXPECT_EQ(third, nullptr);
}

TEST(TEVStringOpsDelete, TakesThePointerByValue_Kept) {
    EXPECT_TRUE((std::is_same_v<decltype(&TEVStringOps::Delete), void (*)(char*)>));
}

TEST(TEVStringOpsDelete, AcceptsNull) { EXPECT_NO_THROW(TEVStringOps::Delete(nullptr)); }

}  // namespace
