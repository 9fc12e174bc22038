#include "TEVSystemLib/system/detail/PropertyIndex.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>

#include "support/Effort.h"

namespace {

using TAMO::TEV::System::detail::Properties;
using TAMO::TEV::System::detail::PropertyIndex;

const std::string* ValueOf(const PropertyIndex& index, std::string_view key) {
    const auto* entry = index.Find(key);
    return entry == nullptr ? nullptr : &entry->second;
}

TEST(PropertyIndex, TheUserTableHidesTheSystemTable) {
    Properties system{{"a", "1"}, {"b", "2"}};
    Properties user{{"b", "3"}, {"c", "4"}};
    PropertyIndex index;
    index.Open({system, user});
    EXPECT_EQ(ValueOf(index, "a"), &system["a"]);
    EXPECT_EQ(ValueOf(index, "b"), &user["b"]);
    EXPECT_EQ(ValueOf(index, "c"), &user["c"]);
    for (const char* other : {"", "A", "ab", "d"}) EXPECT_EQ(ValueOf(index, other), nullptr);
}

TEST(PropertyIndex, KeysOfAnyBytes) {
    Properties system{{"", "empty"}, {std::string("a\0b", 3), "zero"}, {"\xC3\xA4", "beyond"}};
    Properties user;
    PropertyIndex index;
    index.Open({system, user});
    for (const auto& [key, value] : system) EXPECT_EQ(ValueOf(index, key), &value);
    EXPECT_EQ(ValueOf(index, "a"), nullptr);
}

TEST(PropertyIndex, WhatIsPutInHidesWhatWasThere) {
    Properties system{{"a", "1"}};
    Properties user;
    PropertyIndex index;
    index.Open({system, user});
    index.Put(*user.emplace("a", "2").first);
    index.Put(*system.emplace("b", "3").first);
    EXPECT_EQ(ValueOf(index, "a"), &user["a"]);
    EXPECT_EQ(ValueOf(index, "b"), &system["b"]);
}

TEST(PropertyIndex, StaysClosedUntilItIsOpened) {
    Properties system{{"a", "1"}};
    Properties user;
    PropertyIndex index;
    EXPECT_FALSE(index.IsOpen());
    index.Put(*system.begin());
    EXPECT_FALSE(index.IsOpen());
    index.Open({system, user});
    EXPECT_TRUE(index.IsOpen());
    index.Close();
    EXPECT_FALSE(index.IsOpen());
}

TEST(PropertyIndex, ClosedForGoodItIsNotOpenedAgain) {
    Properties system{{"a", "1"}};
    Properties user;
    PropertyIndex index;
    index.Open({system, user});
    index.CloseForGood();
    EXPECT_FALSE(index.IsOpen());
    index.Open({system, user});
    index.Put(*system.begin());
    EXPECT_FALSE(index.IsOpen());
}

TEST(PropertyIndex, OpenedAgainItKnowsNothingOfBefore) {
    Properties first{{"a", "1"}, {"b", "2"}};
    Properties second{{"b", "3"}};
    Properties user;
    PropertyIndex index;
    index.Open({first, user});
    index.Open({second, user});
    EXPECT_EQ(ValueOf(index, "a"), nullptr);
    EXPECT_EQ(ValueOf(index, "b"), &second["b"]);
}

// Two keys of the same hash of 64 bits, as the C++ library of our compilers makes it.
TEST(PropertyIndex, KeysOfOneHashStayApart) {
    const std::string first = "key.one.aaaaaaaa";
    const std::string second = "key.two.\x1F\xDF\xF7\x4E\x2A\xCC\xE5\xB0";
    ASSERT_EQ(std::hash<std::string_view>()(first), std::hash<std::string_view>()(second));
    Properties system{{first, "1"}};
    Properties user;
    PropertyIndex index;
    index.Open({system, user});
    EXPECT_EQ(ValueOf(index, first), &system[first]);
    EXPECT_EQ(ValueOf(index, second), nullptr);
    index.Put(*user.emplace(second, "2").first);
    EXPECT_EQ(ValueOf(index, first), &system[first]);
    EXPECT_EQ(ValueOf(index, second), &user[second]);
}

// Each answer is that of the two tables, asked one after the other.
void ExpectAsTheTables(const PropertyIndex& index, Properties& system, Properties& user,
                       const std::string& key) {
    const auto inUser = user.find(key);
    const auto inSystem = system.find(key);
    const std::string* expected = inUser != user.end()       ? &inUser->second
                                  : inSystem != system.end() ? &inSystem->second
                                                             : nullptr;
    ASSERT_EQ(ValueOf(index, key), expected) << key;
}

TEST(PropertyIndex, AnswersAsTheTablesDo) {
    constexpr unsigned kSeed = 4711;
    constexpr unsigned kKeysAtMost = 3000;
    RecordProperty("seed", kSeed);
    std::mt19937 engine(kSeed);
    const auto random = [&engine] { return static_cast<unsigned>(engine()); };
    for (std::int64_t left = tev::test::Repetitions(1'000'000); left > 0;) {
        Properties tables[2];
        Properties& system = tables[0];
        Properties& user = tables[1];
        PropertyIndex index;
        const unsigned keys = 1 + random() % (1 + random() % kKeysAtMost);
        const auto anyKey = [&] { return "k" + std::to_string(random() % keys); };
        for (unsigned i = random() % keys; i > 0; --i) tables[random() % 2][anyKey()];
        index.Open({system, user});
        for (unsigned i = 0; i < keys; ++i, --left) {
            // Into the system table only what no table has.
            const std::string key = anyKey();
            if (random() % 4 == 0)
                index.Put(*user.emplace(key, "").first);
            else if (random() % 4 == 0 && index.Find(key) == nullptr)
                index.Put(*system.emplace(key, "").first);
            ASSERT_NO_FATAL_FAILURE(ExpectAsTheTables(index, system, user, anyKey()));
        }
    }
}

}  // namespace
