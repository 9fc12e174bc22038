#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <type_traits>

#include "system/StoreFixture.h"

namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Not;
using ::testing::Optional;
using ::testing::Pair;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Variable;

class GetProperty : public StoreFixture {};
class GetPropertyAsBool : public StoreFixture {};
class Instance : public StoreFixture {};

TEST_F(GetProperty, FindsSystemAndUserValues) {
    Load("a=system\n", "b=user\n");
    EXPECT_THAT(Get("a"), Optional(std::string("system")));
    EXPECT_THAT(Get("b"), Optional(std::string("user")));
}

TEST_F(GetProperty, UserValueWinsOverSystemValue) {
    Load("a=system\n", "a=user\n");
    EXPECT_THAT(Get("a"), Optional(std::string("user")));
}

TEST_F(GetProperty, TablesWinOverTheEnvironment) {
    const Variable first("tev_test_system", "environment");
    const Variable second("tev_test_user", "environment");
    Load("tev_test_system=file\n", "tev_test_user=file\n");
    EXPECT_THAT(Get("tev_test_system"), Optional(std::string("file")));
    EXPECT_THAT(Get("tev_test_user"), Optional(std::string("file")));
}

TEST_F(GetProperty, AbsentKeyGivesFalseAndNull) {
    Load("a=1\n");
    const char* value = "before";
    EXPECT_FALSE(Store::GetProperty("tev.test.absent", value));
    EXPECT_EQ(value, nullptr);
}

TEST_F(GetProperty, EnvironmentIsAskedLast) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=1\n");
    EXPECT_THAT(Get("TEV_TEST_X"), Optional(std::string("environment")));
}

TEST_F(GetProperty, EnvironmentValueIsKeptUntilTheTablesAreRebuilt) {
    const Variable variable("TEV_TEST_X", "old");
    Load("a=1\n");
    EXPECT_THAT(Get("TEV_TEST_X"), Optional(std::string("old")));
    variable.Set("new");
    EXPECT_THAT(Get("TEV_TEST_X"), Optional(std::string("old")));
    variable.Set(std::nullopt);
    EXPECT_THAT(Get("TEV_TEST_X"), Optional(std::string("old")));
    Store::InitializeProperties();
    EXPECT_EQ(Get("TEV_TEST_X"), std::nullopt);
    variable.Set("new");
    EXPECT_THAT(Get("TEV_TEST_X"), Optional(std::string("new")));
}

TEST_F(GetProperty, EnvironmentValueIsCachedInTheSystemTable_Kept) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=1\n", "b=2\n");
    EXPECT_THAT(OpenStore::System(), Not(Contains(Key("TEV_TEST_X"))));
    Get("TEV_TEST_X");
    EXPECT_THAT(OpenStore::System(), Contains(Pair("TEV_TEST_X", "environment")));
    EXPECT_THAT(OpenStore::User(), Not(Contains(Key("TEV_TEST_X"))));
}

TEST_F(GetProperty, FailedLookupCachesNothing) {
    Load("a=1\n");
    const auto before = OpenStore::System();
    Get("tev.test.absent");
    EXPECT_EQ(OpenStore::System(), before);
}

TEST_F(GetProperty, EmptyVariableCountsAsAbsent) {
    const Variable variable("TEV_TEST_X", "x");
    Load("a=1\n");
    SetEnvironmentVariableA("TEV_TEST_X", "");
    EXPECT_EQ(Get("TEV_TEST_X"), std::nullopt);
}

TEST_F(GetProperty, VariableThatTheLocaleCannotShowCountsAsAbsent) {
    const Variable variable("TEV_TEST_X");
    Load("a=1\n");
    SetEnvironmentVariableW(L"TEV_TEST_X", L"\x4e2d");
    EXPECT_NO_THROW(EXPECT_EQ(Get("TEV_TEST_X"), std::nullopt));
}

TEST_F(GetProperty, LongestEnvironmentValueIsFoundWhole) {
    const std::string longest(32766, 'v');
    const Variable variable("TEV_TEST_X", longest);
    Load("a=1\n");
    EXPECT_EQ(Get("TEV_TEST_X"), longest);
}

TEST_F(GetProperty, NullKeyCountsAsEmpty) {
    Load("a=1\n");
    const char* value = "before";
    EXPECT_FALSE(Store::GetProperty(nullptr, value));
    EXPECT_EQ(value, nullptr);
    EXPECT_FALSE(Store::GetProperty("", value));
    ASSERT_TRUE(Store::SetUserProperty("", "nameless"));
    EXPECT_THAT(Get(nullptr), Optional(std::string("nameless")));
    EXPECT_THAT(Get(""), Optional(std::string("nameless")));
}

TEST_F(GetProperty, KeysAreComparedBytewise) {
    Load("tev.test.a=1\n", "tev.test.b=2\n");
    EXPECT_EQ(Get("TEV.test.a"), std::nullopt);
    EXPECT_EQ(Get("tev.test.B"), std::nullopt);
    EXPECT_EQ(Get("tev.test.a "), std::nullopt);
}

TEST_F(GetProperty, EnvironmentValueIsCachedUnderTheKeyAsAsked) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=1\n");
    EXPECT_THAT(Get("tev_test_x"), Optional(std::string("environment")));
    EXPECT_THAT(Get(" TEV_TEST_X "), Optional(std::string("environment")));
    EXPECT_THAT(OpenStore::System(), Contains(Pair("tev_test_x", "environment")));
    EXPECT_THAT(OpenStore::System(), Contains(Pair(" TEV_TEST_X ", "environment")));
    EXPECT_THAT(OpenStore::System(), Not(Contains(Key("TEV_TEST_X"))));
}

TEST_F(GetProperty, ValueStaysValidWhileOtherEntriesChange) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=system\nc=other\n", "b=user\n");
    const char* system = nullptr;
    const char* user = nullptr;
    ASSERT_TRUE(Store::GetProperty("a", system));
    ASSERT_TRUE(Store::GetProperty("b", user));
    Get("TEV_TEST_X");
    Store::SetUserProperty("a", "hides the system's");
    Store::SetUserProperty("c", "another");
    EXPECT_STREQ(system, "system");
    EXPECT_STREQ(user, "user");
}

TEST_F(GetPropertyAsBool, SwitchWordsInAnyLetterCase) {
    const struct {
        const char* text;
        bool isSwitch;
        bool value;
    } rows[] = {
        {"on", true, true},     {"ON", true, true},       {"true", true, true},
        {"True", true, true},   {"YES", true, true},      {"yes", true, true},
        {"1", true, true},      {"off", true, false},     {"Off", true, false},
        {"false", true, false}, {"FALSE", true, false},   {"NO", true, false},
        {"No", true, false},    {"0", true, false},       {"maybe", false, false},
        {"", false, false},     {"y", false, false},      {"2", false, false},
        {"01", false, false},   {"o", false, false},      {"onn", false, false},
        {"tru", false, false},  {"on off", false, false}, {"-1", false, false},
    };
    Load("a=1\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        ASSERT_TRUE(Store::SetUserProperty("tev.test.switch", row.text));
        bool value = !row.value;
        EXPECT_EQ(Store::GetPropertyAsBool(value, "tev.test.switch"), row.isSwitch);
        EXPECT_EQ(value, row.value);
    }
}

TEST_F(GetPropertyAsBool, ValueIsNotTrimmed) {
    for (const char* text : {" on", "on ", "\ttrue", " 1 "}) {
        SCOPED_TRACE(text);
        ASSERT_TRUE(Store::SetUserProperty("tev.test.switch", text));
        bool value = true;
        EXPECT_FALSE(Store::GetPropertyAsBool(value, "tev.test.switch"));
        EXPECT_FALSE(value);
    }
}

TEST_F(GetPropertyAsBool, AbsentKeyGivesFalseTwice) {
    Load("a=1\n");
    for (const char* key :
         {"tev.test.absent", "tev.ext.intersects.terrain", "", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(key == nullptr ? "(null)" : key);
        bool value = true;
        EXPECT_FALSE(Store::GetPropertyAsBool(value, key));
        EXPECT_FALSE(value);
    }
}

TEST_F(GetPropertyAsBool, ReadsThroughAllSourcesInTheirOrder) {
    const Variable variable("TEV_TEST_X", "Yes");
    Load("a=on\nb=off\n", "a=maybe\n");
    bool value = true;
    EXPECT_FALSE(Store::GetPropertyAsBool(value, "a")) << "the user's word counts, valid or not";
    EXPECT_FALSE(value);
    value = true;
    EXPECT_TRUE(Store::GetPropertyAsBool(value, "b"));
    EXPECT_FALSE(value);
    EXPECT_TRUE(Store::GetPropertyAsBool(value, "TEV_TEST_X"));
    EXPECT_TRUE(value);
}

TEST_F(Instance, IsTheSameOnEveryCall) {
    const Store* const first = OpenStore::Instance();
    Load("a=1\n");
    EXPECT_EQ(OpenStore::Instance(), first);
}

TEST_F(Instance, OnlyTheClassItselfMakesAndDestroysIt) {
    EXPECT_FALSE(std::is_default_constructible_v<Store>);
    EXPECT_FALSE(std::is_destructible_v<Store>);
}

struct AnotherStore : Store {
    std::map<std::string, std::string>& System() { return getProperties(); }
    std::map<std::string, std::string>& User() { return getUserProperties(); }
    void TakeTheStore() { Store::operator=(get()); }
};

TEST_F(Instance, TablesAreCreatedEmpty) {
    Load("a=1\n", "b=2\n");
    AnotherStore another;
    EXPECT_THAT(another.System(), IsEmpty());
    EXPECT_THAT(another.User(), IsEmpty());
    another.System()["c"] = "3";
    EXPECT_EQ(Get("c"), std::nullopt) << "each instance has tables of its own";
}

TEST_F(Instance, AssignmentCopiesNothing) {
    Load("a=1\n", "b=2\n");
    AnotherStore another;
    another.System()["c"] = "3";
    another.TakeTheStore();
    EXPECT_THAT(another.System(), testing::ElementsAre(Pair("c", "3")));
    EXPECT_THAT(another.User(), IsEmpty());
    Store& same = another;
    EXPECT_EQ(&(same = *OpenStore::Instance()), &same);
    EXPECT_THAT(Get("a"), Optional(std::string("1")));
}

}  // namespace
