#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::Util::TEVUtilString;
using testing::ElementsAre;
using testing::IsEmpty;

using Level = TEVSysCnst::MsgLevel;
using Vector = std::vector<char*>;
using Map = std::map<Level, Vector*>;
using Message = std::pair<int, std::string>;

constexpr Level kLevels[] = {TEVSysCnst::Debug, TEVSysCnst::Info, TEVSysCnst::Warn,
                             TEVSysCnst::Error};
constexpr int kForeignLevels[] = {
    4, -1, 5, 256, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};

// A collection made and released by the library.
class Collection {
 public:
    Collection() { TEVUtilString::GetMsgsMap(&map_); }
    ~Collection() { TEVUtilString::DeleteMsgsMap(&map_); }
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;

    bool Add(const char* message, Level level) {
        return TEVUtilString::AddMessage(message, level, *map_);
    }
    // The messages in the order of a visit; a null vector reads "(no vector)".
    std::vector<Message> Visit() const {
        std::vector<Message> messages;
        for (const auto& [level, vector] : *map_) {
            if (vector == nullptr) {
                messages.emplace_back(level, "(no vector)");
                continue;
            }
            for (const char* message : *vector)
                messages.emplace_back(level, message == nullptr ? "(null)" : message);
        }
        return messages;
    }
    Map& map() { return *map_; }
    Map** Out() { return &map_; }

 private:
    Map* map_ = nullptr;
};

Vector* NewVector() {
    Vector* vector = nullptr;
    TEVUtilString::GetMsgsVector(&vector);
    return vector;
}

TEST(MsgLevel, IsA32BitSignedEnumerationOfFourValues) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<Level>, int>));
    EXPECT_THAT(kLevels, ElementsAre(0, 1, 2, 3));
}

TEST(GetMsgsVector, GivesANewEmptyVector) {
    Vector held;
    Vector* vector = &held;
    TEVUtilString::GetMsgsVector(&vector);
    ASSERT_NE(vector, nullptr);
    EXPECT_NE(vector, &held);
    EXPECT_TRUE(vector->empty());
    TEVUtilString::DeleteMsgsVector(&vector);
}

TEST(GetMsgsVector, NullIsAccepted) { EXPECT_NO_THROW(TEVUtilString::GetMsgsVector(nullptr)); }

TEST(GetMsgsMap, GivesANewEmptyMap) {
    Map held;
    Map* map = &held;
    TEVUtilString::GetMsgsMap(&map);
    ASSERT_NE(map, nullptr);
    EXPECT_NE(map, &held);
    EXPECT_TRUE(map->empty());
    TEVUtilString::DeleteMsgsMap(&map);
}

TEST(GetMsgsMap, NullIsAccepted) { EXPECT_NO_THROW(TEVUtilString::GetMsgsMap(nullptr)); }

TEST(AddMessage, EveryLevelOfAnEmptyMap) {
    for (const Level level : kLevels) {
        Collection collection;
        EXPECT_TRUE(collection.Add("first", level));
        EXPECT_THAT(collection.Visit(), ElementsAre(Message(level, "first")));
    }
}

TEST(AddMessage, LevelsAreVisitedInAscendingOrderMessagesAsAdded) {
    Collection collection;
    EXPECT_TRUE(collection.Add("b", TEVSysCnst::Warn));
    EXPECT_TRUE(collection.Add("c", TEVSysCnst::Info));
    EXPECT_TRUE(collection.Add("a", TEVSysCnst::Warn));
    EXPECT_THAT(collection.Visit(), ElementsAre(Message(1, "c"), Message(2, "b"), Message(2, "a")));
    EXPECT_TRUE(collection.Add("e", TEVSysCnst::Error));
    EXPECT_TRUE(collection.Add("d", TEVSysCnst::Debug));
    EXPECT_TRUE(collection.Add("c", TEVSysCnst::Info));
    EXPECT_THAT(collection.Visit(), ElementsAre(Message(0, "d"), Message(1, "c"), Message(1, "c"),
                                                Message(2, "b"), Message(2, "a"), Message(3, "e")));
}

TEST(AddMessage, ForeignLevelIsRefusedAndTheMapUnchanged) {
    for (const int level : kForeignLevels) {
        SCOPED_TRACE(level);
        Collection collection;
        EXPECT_FALSE(collection.Add("text", static_cast<Level>(level)));
        EXPECT_TRUE(collection.map().empty());
        ASSERT_TRUE(collection.Add("kept", TEVSysCnst::Error));
        EXPECT_FALSE(collection.Add("text", static_cast<Level>(level)));
        EXPECT_THAT(collection.Visit(), ElementsAre(Message(3, "kept")));
        EXPECT_EQ(collection.map().size(), 1U);
    }
}

TEST(AddMessage, NullOrEmptyMessageIsRefusedAndTheMapUnchanged) {
    for (const char* message : {static_cast<const char*>(nullptr), ""}) {
        for (const Level level : kLevels) {
            Collection collection;
            EXPECT_FALSE(collection.Add(message, level));
            EXPECT_TRUE(collection.map().empty());
            ASSERT_TRUE(collection.Add("kept", level));
            EXPECT_FALSE(collection.Add(message, level));
            EXPECT_THAT(collection.Visit(), ElementsAre(Message(level, "kept")));
            EXPECT_EQ(collection.map().size(), 1U);
        }
    }
}

TEST(AddMessage, RefusalLeavesANullVectorNull) {
    Collection collection;
    collection.map()[TEVSysCnst::Info] = nullptr;
    EXPECT_FALSE(collection.Add("", TEVSysCnst::Info));
    EXPECT_FALSE(collection.Add(nullptr, TEVSysCnst::Info));
    EXPECT_FALSE(collection.Add("text", static_cast<Level>(4)));
    EXPECT_THAT(collection.Visit(), ElementsAre(Message(1, "(no vector)")));
}

TEST(AddMessage, NullVectorIsRepaired) {
    for (const Level level : kLevels) {
        Collection collection;
        for (const Level each : kLevels) collection.map()[each] = nullptr;
        EXPECT_TRUE(collection.Add("first", level));
        EXPECT_TRUE(collection.Add("second", level));
        ASSERT_EQ(collection.map().size(), 4U);
        for (const Level each : kLevels) {
            const Vector* const vector = collection.map()[each];
            EXPECT_EQ(vector != nullptr, each == level) << each;
        }
        ASSERT_NE(collection.map()[level], nullptr);
        ASSERT_THAT(*collection.map()[level], testing::SizeIs(2));
        EXPECT_STREQ(collection.map()[level]->front(), "first");
        EXPECT_STREQ(collection.map()[level]->back(), "second");
    }
}

TEST(AddMessage, AppendsToTheVectorThatIsThere) {
    Collection collection;
    Vector* const vector = NewVector();
    ASSERT_NE(vector, nullptr);
    vector->push_back(nullptr);
    collection.map()[TEVSysCnst::Debug] = vector;
    EXPECT_TRUE(collection.Add("after", TEVSysCnst::Debug));
    EXPECT_EQ(collection.map()[TEVSysCnst::Debug], vector);
    EXPECT_THAT(collection.Visit(), ElementsAre(Message(0, "(null)"), Message(0, "after")));
}

TEST(AddMessage, MessageIsCopiedAsItStands) {
    char text[] =
        " \tFehler \xFC"
        "ber alles\n ";
    const std::string before = text;
    Collection collection;
    ASSERT_TRUE(collection.Add(text, TEVSysCnst::Error));
    text[0] = '?';
    EXPECT_THAT(collection.Visit(), ElementsAre(Message(3, before)));
}

TEST(AddMessage, BlankMessageIsAMessage) {
    Collection collection;
    EXPECT_TRUE(collection.Add(" ", TEVSysCnst::Debug));
    EXPECT_THAT(collection.Visit(), ElementsAre(Message(0, " ")));
}

TEST(AddMessage, LongMessage) {
    const std::string text(1000000, 'm');
    Collection collection;
    EXPECT_TRUE(collection.Add(text.c_str(), TEVSysCnst::Warn));
    ASSERT_EQ(collection.Visit().size(), 1U);
    EXPECT_TRUE(collection.Visit().front().second == text);
}

TEST(AddMessage, ManyMessagesKeepTheirOrder) {
    Collection collection;
    std::vector<Message> expected[4];
    for (unsigned i = 0; i < 2000; ++i) {
        const Level level = kLevels[i * i % 7 % 4];
        const std::string text = "message " + std::to_string(i);
        ASSERT_TRUE(collection.Add(text.c_str(), level));
        expected[level].emplace_back(level, text);
    }
    std::vector<Message> all;
    for (const auto& level : expected) all.insert(all.end(), level.begin(), level.end());
    EXPECT_EQ(collection.Visit(), all);
}

TEST(AddMessage, MapOfTheCaller) {
    Map map;
    EXPECT_TRUE(TEVUtilString::AddMessage("text", TEVSysCnst::Info, map));
    ASSERT_EQ(map.size(), 1U);
    ASSERT_NE(map[TEVSysCnst::Info], nullptr);
    EXPECT_STREQ(map[TEVSysCnst::Info]->front(), "text");
    EXPECT_TRUE(TEVUtilString::DeleteMsgsVector(&map[TEVSysCnst::Info]));
}

TEST(DeleteMsgsVector, NullIsADoneDeletion) {
    Vector* vector = nullptr;
    EXPECT_TRUE(TEVUtilString::DeleteMsgsVector(nullptr));
    EXPECT_TRUE(TEVUtilString::DeleteMsgsVector(&vector));
    EXPECT_EQ(vector, nullptr);
}

TEST(DeleteMsgsVector, ReleasesStringsAndSkipsNullOnes) {
    Vector* vector = NewVector();
    ASSERT_NE(vector, nullptr);
    for (const char* text : {"one", "", "two", ""}) {
        vector->push_back(nullptr);
        TEVUtilString::Copy(text, &vector->back(), nullptr);
    }
    ASSERT_EQ(vector->at(1), nullptr);
    ASSERT_NE(vector->at(2), nullptr);
    EXPECT_TRUE(TEVUtilString::DeleteMsgsVector(&vector));
    EXPECT_EQ(vector, nullptr);
    EXPECT_TRUE(TEVUtilString::DeleteMsgsVector(&vector));
    EXPECT_EQ(vector, nullptr);
}

TEST(DeleteMsgsVector, EmptyVector) {
    Vector* vector = NewVector();
    ASSERT_NE(vector, nullptr);
    EXPECT_TRUE(TEVUtilString::DeleteMsgsVector(&vector));
    EXPECT_EQ(vector, nullptr);
}

TEST(DeleteMsgsMap, NullIsADoneDeletion) {
    Map* map = nullptr;
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(nullptr));
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(&map));
    EXPECT_EQ(map, nullptr);
}

TEST(DeleteMsgsMap, NullsThePointerAndASecondCallIsHarmless) {
    Collection collection;
    for (const Level level : kLevels) ASSERT_TRUE(collection.Add("text", level));
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(collection.Out()));
    EXPECT_EQ(*collection.Out(), nullptr);
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(collection.Out()));
    EXPECT_EQ(*collection.Out(), nullptr);
}

TEST(DeleteMsgsMap, EmptyMap) {
    Collection collection;
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(collection.Out()));
    EXPECT_EQ(*collection.Out(), nullptr);
}

TEST(DeleteMsgsMap, NullVectorsAreSkipped) {
    Collection collection;
    collection.map()[TEVSysCnst::Debug] = nullptr;
    ASSERT_TRUE(collection.Add("text", TEVSysCnst::Info));
    collection.map()[TEVSysCnst::Error] = nullptr;
    EXPECT_TRUE(TEVUtilString::DeleteMsgsMap(collection.Out()));
    EXPECT_EQ(*collection.Out(), nullptr);
}

}  // namespace
