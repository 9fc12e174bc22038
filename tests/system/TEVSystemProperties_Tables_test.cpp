#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "system/StoreFixture.h"

// Whoever asks the store for its tables may change them at any time.
namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using ::testing::Eq;
using ::testing::Optional;
using tev::test::kUserFile;
using tev::test::ReadAll;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Table;
using tev::test::Variable;

struct Tables : Store {
    static Table& System() { return (get().*(&Tables::getProperties))(); }
    static Table& User() { return (get().*(&Tables::getUserProperties))(); }
};

class StoreTables : public StoreFixture {
 protected:
    static auto Is(const char* value) { return Optional(std::string(value)); }
};

TEST_F(StoreTables, AreTwo) { EXPECT_NE(&Tables::System(), &Tables::User()); }

TEST_F(StoreTables, HoldWhatALookupPointsTo) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=system\n", "b=user\n");
    const char* value = nullptr;
    ASSERT_TRUE(Store::GetProperty("a", value));
    EXPECT_EQ(value, Tables::System().at("a").c_str());
    ASSERT_TRUE(Store::GetProperty("b", value));
    EXPECT_EQ(value, Tables::User().at("b").c_str());
    ASSERT_TRUE(Store::GetProperty("TEV_TEST_X", value));
    EXPECT_EQ(value, Tables::System().at("TEV_TEST_X").c_str());
}

TEST_F(StoreTables, MayBeChangedBetweenLookups) {
    Load("a = system\nb = system\n", "b = user\n");
    EXPECT_THAT(Get("a"), Is("system"));
    EXPECT_THAT(Get("b"), Is("user"));
    Tables::User()["a"] = "another";
    Tables::User().erase("b");
    Tables::System()["c"] = "new";
    EXPECT_THAT(Get("a"), Is("another"));
    EXPECT_THAT(Get("b"), Is("system"));
    EXPECT_THAT(Get("c"), Is("new"));
    Tables::System().clear();
    EXPECT_THAT(Get("b"), Eq(std::nullopt));
}

TEST_F(StoreTables, MayBeChangedAfterALaterLoad) {
    Load("a = 1\n", "b = 2\n");
    Table& system = Tables::System();
    Table& user = Tables::User();
    Store::InitializeProperties();
    EXPECT_THAT(Get("a"), Is("1"));
    system.erase("a");
    user["c"] = "3";
    EXPECT_THAT(Get("a"), Eq(std::nullopt));
    EXPECT_THAT(Get("c"), Is("3"));
    EXPECT_TRUE(Store::SetUserProperty("a", "4"));
    EXPECT_THAT(Get("a"), Is("4"));
}

TEST_F(StoreTables, SavingPassesOverWhatHasLeftThem) {
    Load(std::nullopt, "a = 1\n");
    Store::SetUserProperty("a", "2");
    Store::SetUserProperty("b", "3");
    Tables::User().erase("a");
    EXPECT_TRUE(TEVSystemDiagnostics::SaveUserPropertiesPreserving(nullptr));
    EXPECT_EQ(ReadAll(user_ / kUserFile), "a = 1\nb = 3\n");
}

}  // namespace
