#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "util/string/ArrayTexts.h"

using TAMO::TEV::System::Util::TEVUtilString;
using testing::Each;
using testing::ElementsAre;
using testing::IsNull;
using testing::Pointee;
using tev::test::Joined;
using tev::test::State;
using tev::test::Strings;
using tev::test::Texts;

namespace {

TEST(AddEntryToStringArray, NullArrayBecomesOneElement) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts;
        EXPECT_TRUE(TEVUtilString::AddEntryToStringArray(texts.array, "a", texts.count, append));
        EXPECT_THAT(texts.Strings(), ElementsAre("a"));
    }
}

TEST(AddEntryToStringArray, AppendAddsAtTheEnd) {
    Texts texts{"x", "y"};
    EXPECT_TRUE(TEVUtilString::AddEntryToStringArray(texts.array, "a", texts.count, true));
    EXPECT_THAT(texts.Strings(), ElementsAre("x", "y", "a"));
}

TEST(AddEntryToStringArray, WithoutAppendAddsAtTheFront) {
    Texts texts{"x", "y"};
    EXPECT_TRUE(TEVUtilString::AddEntryToStringArray(texts.array, "a", texts.count, false));
    EXPECT_THAT(texts.Strings(), ElementsAre("a", "x", "y"));
}

TEST(AddEntryToStringArray, OldStringsAreMovedAndTheEntryIsCopied) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x", "y"};
        const State before(texts);
        const char entry[] = "a";
        ASSERT_TRUE(TEVUtilString::AddEntryToStringArray(texts.array, entry, texts.count, append));
        ASSERT_EQ(texts.count, 3U);
        EXPECT_EQ(texts.array[append ? 0 : 1], before.slots[0]);
        EXPECT_EQ(texts.array[append ? 1 : 2], before.slots[1]);
        EXPECT_NE(texts.array[append ? 2 : 0], entry);
    }
}

TEST(AddEntryToStringArray, NullSlotsKeepTheirPlaces) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{nullptr, "x", nullptr};
        EXPECT_TRUE(TEVUtilString::AddEntryToStringArray(texts.array, "a", texts.count, append));
        EXPECT_EQ(texts.Strings(), Joined(append, {"(null)", "x", "(null)"}, {"a"}));
    }
}

TEST(AddEntryToStringArray, OwnStringCanBeAddedAgain) {
    Texts texts{"x"};
    EXPECT_TRUE(
        TEVUtilString::AddEntryToStringArray(texts.array, texts.array[0], texts.count, false));
    ASSERT_THAT(texts.Strings(), ElementsAre("x", "x"));
    EXPECT_NE(texts.array[0], texts.array[1]);
}

TEST(AddEntryToStringArray, NullOrEmptyEntryIsRefused) {
    for (const char* entry : {static_cast<const char*>(nullptr), ""}) {
        Texts texts{"x"};
        const State before(texts);
        EXPECT_FALSE(TEVUtilString::AddEntryToStringArray(texts.array, entry, texts.count, true));
        EXPECT_EQ(State(texts), before);
        Texts none;
        EXPECT_FALSE(TEVUtilString::AddEntryToStringArray(none.array, entry, none.count, true));
        EXPECT_EQ(none.array, nullptr);
        EXPECT_EQ(none.count, 0U);
    }
}

TEST(AddEntryToStringArray, NullArrayWithCountIsRefused) {
    char** array = nullptr;
    std::size_t count = 2;
    EXPECT_FALSE(TEVUtilString::AddEntryToStringArray(array, "a", count, true));
    EXPECT_EQ(array, nullptr);
    EXPECT_EQ(count, 2U);
}

TEST(AddEntryToStringArray, ArrayWithoutCountIsRefused) {
    Texts texts{"x"};
    const State before(texts);
    std::size_t count = 0;
    EXPECT_FALSE(TEVUtilString::AddEntryToStringArray(texts.array, "a", count, true));
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(State(texts), before);
}

TEST(AddEntryToStringArray, GrowsEntryByEntry) {
    Texts texts;
    for (int i = 0; i < 100; ++i)
        ASSERT_TRUE(TEVUtilString::AddEntryToStringArray(texts.array, std::to_string(i).c_str(),
                                                         texts.count, true));
    ASSERT_EQ(texts.count, 100U);
    for (std::size_t i = 0; i < texts.count; ++i) EXPECT_EQ(texts.array[i], std::to_string(i));
}

TEST(GetCStringVectorContainerArray, GivesNullPointers) {
    std::vector<const char*>** containers = nullptr;
    ASSERT_EQ(TEVUtilString::GetCStringVectorContainerArray(3, containers), 3U);
    ASSERT_NE(containers, nullptr);
    const std::vector<std::vector<const char*>*> slots(containers, containers + 3);
    TEVUtilString::DeleteCStringVectorContainerArray(3, containers);
    EXPECT_THAT(slots, Each(IsNull()));
    EXPECT_EQ(slots.size(), 3U);
}

TEST(GetCStringVectorContainerArray, CountZeroLeavesTheOutputUntouched) {
    std::vector<const char*>* slot = nullptr;
    std::vector<const char*>** containers = &slot;
    EXPECT_EQ(TEVUtilString::GetCStringVectorContainerArray(0, containers), 0U);
    EXPECT_EQ(containers, &slot);
}

TEST(GetCStringVectorContainerArray, CountBeyondMemoryGivesNullAndZero) {
    for (const std::size_t count : {SIZE_MAX, SIZE_MAX / sizeof(void*) + 2}) {
        std::vector<const char*>* slot = nullptr;
        std::vector<const char*>** containers = &slot;
        EXPECT_EQ(TEVUtilString::GetCStringVectorContainerArray(count, containers), 0U);
        EXPECT_EQ(containers, nullptr);
    }
}

TEST(DeleteCStringVectorContainerArray, LeavesTheVectorsToTheCaller_Kept) {
    std::vector<const char*> first{"a"};
    std::vector<const char*> second{"b"};
    std::vector<const char*>** containers = nullptr;
    ASSERT_EQ(TEVUtilString::GetCStringVectorContainerArray(2, containers), 2U);
    containers[0] = &first;
    containers[1] = &second;
    TEVUtilString::DeleteCStringVectorContainerArray(2, containers);
    EXPECT_EQ(containers, nullptr);
    EXPECT_THAT(first, ElementsAre(Pointee('a')));
    EXPECT_THAT(second, ElementsAre(Pointee('b')));
}

TEST(DeleteCStringVectorContainerArray, NullIsAccepted) {
    std::vector<const char*>** containers = nullptr;
    TEVUtilString::DeleteCStringVectorContainerArray(5, containers);
    EXPECT_EQ(containers, nullptr);
}

}  // namespace
