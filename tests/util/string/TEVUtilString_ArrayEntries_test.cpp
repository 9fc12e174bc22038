#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "util/string/ArrayTexts.h"

using TAMO::TEV::System::Util::TEVUtilString;
using testing::ElementsAre;
using testing::IsEmpty;
using tev::test::Entries;
using tev::test::Joined;
using tev::test::State;
using tev::test::Strings;
using tev::test::Texts;

namespace {

TEST(AddEntriesToStringArray, VectorFrontInsertionKeepsBothOrders) {
    for (const bool copy : {true, false}) {
        SCOPED_TRACE(copy);
        Texts texts{"x", "y"};
        Entries entries{"a", "b"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           false, copy));
        EXPECT_THAT(texts.Strings(), ElementsAre("a", "b", "x", "y"));
    }
}

TEST(AddEntriesToStringArray, VectorAppendKeepsBothOrders) {
    for (const bool copy : {true, false}) {
        SCOPED_TRACE(copy);
        Texts texts{"x", "y"};
        Entries entries{"a", "b"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           true, copy));
        EXPECT_THAT(texts.Strings(), ElementsAre("x", "y", "a", "b"));
    }
}

TEST(AddEntriesToStringArray, VectorCopiesLeaveTheVectorAsItWas) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x"};
        Entries entries{"a", nullptr, "b"};
        const std::vector<char*> before = entries.vector;
        ASSERT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           append, true));
        EXPECT_EQ(entries.vector, before);
        ASSERT_EQ(texts.Strings(), Joined(append, {"x"}, {"a", "b"}));
        EXPECT_NE(texts.array[append ? 1 : 0], before[0]);
        EXPECT_NE(texts.array[append ? 2 : 1], before[2]);
    }
}

TEST(AddEntriesToStringArray, VectorTakenOverStringsMoveAndTheVectorIsCleared) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x"};
        Entries entries{"a", nullptr, "b"};
        const std::vector<char*> before = entries.vector;
        ASSERT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           append, false));
        EXPECT_THAT(entries.vector, IsEmpty());
        ASSERT_EQ(texts.Strings(), Joined(append, {"x"}, {"a", "b"}));
        EXPECT_EQ(texts.array[append ? 1 : 0], before[0]);
        EXPECT_EQ(texts.array[append ? 2 : 1], before[2]);
    }
}

TEST(AddEntriesToStringArray, VectorOldStringsAreMovedAndNullSlotsDropped) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{nullptr, "x", nullptr, "y", nullptr};
        const State before(texts);
        Entries entries{"a"};
        ASSERT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           append, true));
        ASSERT_EQ(texts.Strings(), Joined(append, {"x", "y"}, {"a"}));
        EXPECT_EQ(texts.array[append ? 0 : 1], before.slots[1]);
        EXPECT_EQ(texts.array[append ? 1 : 2], before.slots[3]);
    }
}

TEST(AddEntriesToStringArray, VectorNullArrayIsCreated) {
    for (const bool copy : {true, false}) {
        SCOPED_TRACE(copy);
        Texts texts;
        Entries entries{"a", "b"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           true, copy));
        EXPECT_THAT(texts.Strings(), ElementsAre("a", "b"));
    }
}

// Both values of `append` with both of the last argument.
constexpr struct {
    bool append;
    bool last;
} kFlags[] = {{true, true}, {true, false}, {false, true}, {false, false}};

TEST(AddEntriesToStringArray, VectorEmptyVectorChangesNothing) {
    Texts texts{"x", nullptr};
    const State before(texts);
    std::vector<char*> none;
    for (const auto [append, copy] : kFlags)
        EXPECT_TRUE(
            TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, none, append, copy));
    EXPECT_EQ(State(texts), before);
}

TEST(AddEntriesToStringArray, VectorNothingButNullsCompactsTheArray) {
    for (const auto [append, copy] : kFlags) {
        SCOPED_TRACE(testing::Message() << append << ' ' << copy);
        Texts texts{"x", nullptr, "y"};
        Entries entries{nullptr, nullptr};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                           append, copy));
        EXPECT_THAT(texts.Strings(), ElementsAre("x", "y"));
        EXPECT_EQ(entries.vector.size(), copy ? 2U : 0U);
    }
}

TEST(AddEntriesToStringArray, VectorNothingButNullsOntoNothingGivesNull) {
    for (const auto [append, copy] : kFlags) {
        SCOPED_TRACE(testing::Message() << append << ' ' << copy);
        Texts null;
        Entries entries{nullptr};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(null.array, null.count, entries.vector,
                                                           append, copy));
        EXPECT_EQ(null.array, nullptr);
        EXPECT_EQ(null.count, 0U);

        Texts nullSlots{nullptr, nullptr};
        Entries more{nullptr, nullptr, nullptr};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(nullSlots.array, nullSlots.count,
                                                           more.vector, append, copy));
        EXPECT_EQ(nullSlots.array, nullptr);
        EXPECT_EQ(nullSlots.count, 0U);
    }
}

TEST(AddEntriesToStringArray, VectorFirstFailedCopyStopsWithNothingChanged) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x", nullptr};
        const State before(texts);
        Entries entries{"a", nullptr, "", "b"};
        const std::vector<char*> vector = entries.vector;
        EXPECT_FALSE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count,
                                                            entries.vector, append, true));
        EXPECT_EQ(State(texts), before);
        EXPECT_EQ(entries.vector, vector);
    }
}

TEST(AddEntriesToStringArray, VectorEmptyStringsCanBeTakenOver) {
    Texts texts{"x"};
    Entries entries{""};
    EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                       true, false));
    EXPECT_THAT(texts.Strings(), ElementsAre("x", ""));
}

TEST(AddEntriesToStringArray, VectorPairIsNotChecked_Kept) {
    Texts texts{nullptr};
    texts.count = 0;
    Entries entries{"a"};
    EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, texts.count, entries.vector,
                                                       true, true));
    EXPECT_THAT(texts.Strings(), ElementsAre("a"));

    char** array = nullptr;
    std::size_t count = 2;
    std::vector<char*> none;
    EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(array, count, none, true, true));
    EXPECT_EQ(count, 2U);
}

TEST(AddEntriesToStringArray, ArrayBothEndsKeepBothOrders) {
    for (const bool takeOver : {true, false}) {
        SCOPED_TRACE(takeOver);
        Texts back{"x", "y"};
        Texts source{"a", "b"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(back.array, source.array, back.count,
                                                           source.count, true, takeOver));
        EXPECT_THAT(back.Strings(), ElementsAre("x", "y", "a", "b"));

        Texts front{"x", "y"};
        Texts second{"a", "b"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(front.array, second.array, front.count,
                                                           second.count, false, takeOver));
        EXPECT_THAT(front.Strings(), ElementsAre("a", "b", "x", "y"));
    }
}

TEST(AddEntriesToStringArray, ArrayTakenOverSourceIsReleased) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x"};
        Texts source{"a", nullptr, "b"};
        const State before(source);
        ASSERT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, append, true));
        EXPECT_EQ(source.array, nullptr);
        EXPECT_EQ(source.count, 0U);
        ASSERT_EQ(texts.Strings(), Joined(append, {"x"}, {"a", "b"}));
        EXPECT_EQ(texts.array[append ? 1 : 0], before.slots[0]);
        EXPECT_EQ(texts.array[append ? 2 : 1], before.slots[2]);
    }
}

TEST(AddEntriesToStringArray, ArrayCopiedSourceIsLeftAsItWas) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x"};
        Texts source{"a", nullptr, "b"};
        const State before(source);
        ASSERT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, append, false));
        EXPECT_EQ(State(source), before);
        ASSERT_EQ(texts.Strings(), Joined(append, {"x"}, {"a", "b"}));
        EXPECT_NE(texts.array[append ? 1 : 0], before.slots[0]);
        EXPECT_NE(texts.array[append ? 2 : 1], before.slots[2]);
    }
}

TEST(AddEntriesToStringArray, ArrayNullSlotsOfTheArrayAreDropped) {
    for (const auto [append, takeOver] : kFlags) {
        SCOPED_TRACE(testing::Message() << append << ' ' << takeOver);
        Texts texts{nullptr, "x", nullptr};
        Texts source{"a"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, append, takeOver));
        EXPECT_EQ(texts.Strings(), Joined(append, {"x"}, {"a"}));
    }
}

TEST(AddEntriesToStringArray, ArrayNullArrayIsCreated) {
    for (const bool takeOver : {true, false}) {
        SCOPED_TRACE(takeOver);
        Texts texts;
        Texts source{"a", "b"};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, true, takeOver));
        EXPECT_THAT(texts.Strings(), ElementsAre("a", "b"));
    }
}

TEST(AddEntriesToStringArray, ArrayNullSourceChangesNothing) {
    for (const auto [append, takeOver] : kFlags) {
        SCOPED_TRACE(testing::Message() << append << ' ' << takeOver);
        Texts texts{"x", nullptr};
        const State before(texts);
        Texts source;
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, append, takeOver));
        EXPECT_EQ(State(texts), before);
        EXPECT_EQ(source.array, nullptr);
        EXPECT_EQ(source.count, 0U);
    }
}

TEST(AddEntriesToStringArray, ArraySourceOfNullsIsReleasedWhenTakenOver) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x", nullptr};
        const State before(texts);
        Texts source{nullptr, nullptr};
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, append, true));
        EXPECT_EQ(source.array, nullptr);
        EXPECT_EQ(source.count, 0U);
        EXPECT_EQ(State(texts), before);
    }
}

TEST(AddEntriesToStringArray, ArraySourceOfNullsIsKeptWhenCopied) {
    for (const bool append : {true, false}) {
        SCOPED_TRACE(append);
        Texts texts{"x", nullptr};
        const State before(texts);
        Texts source{nullptr, nullptr};
        const State sourceBefore(source);
        EXPECT_TRUE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                           source.count, append, false));
        EXPECT_EQ(State(source), sourceBefore);
        EXPECT_EQ(State(texts), before);
    }
}

TEST(AddEntriesToStringArray, ArrayBrokenPairsAreRefused) {
    for (const bool takeOver : {true, false}) {
        SCOPED_TRACE(takeOver);
        Texts whole{"x"};
        const State before(whole);
        char** null = nullptr;
        std::size_t zero = 0;
        std::size_t two = 2;
        Texts other{"y"};
        const State otherBefore(other);

        EXPECT_FALSE(TEVUtilString::AddEntriesToStringArray(null, whole.array, two, whole.count,
                                                            true, takeOver));
        EXPECT_FALSE(TEVUtilString::AddEntriesToStringArray(whole.array, null, whole.count, two,
                                                            true, takeOver));
        EXPECT_FALSE(TEVUtilString::AddEntriesToStringArray(other.array, whole.array, zero,
                                                            whole.count, true, takeOver));
        EXPECT_FALSE(TEVUtilString::AddEntriesToStringArray(whole.array, other.array, whole.count,
                                                            zero, true, takeOver));
        EXPECT_EQ(State(whole), before);
        EXPECT_EQ(State(other), otherBefore);
        EXPECT_EQ(null, nullptr);
        EXPECT_EQ(zero, 0U);
        EXPECT_EQ(two, 2U);
    }
}

TEST(AddEntriesToStringArray, ArrayFailedCopyLeavesBothAsTheyWere) {
    Texts texts{"x"};
    const State before(texts);
    Texts source{"a", ""};
    const State sourceBefore(source);
    EXPECT_FALSE(TEVUtilString::AddEntriesToStringArray(texts.array, source.array, texts.count,
                                                        source.count, true, false));
    EXPECT_EQ(State(texts), before);
    EXPECT_EQ(State(source), sourceBefore);
}

}  // namespace
