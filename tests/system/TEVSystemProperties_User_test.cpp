#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "system/StoreFixture.h"

namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Not;
using ::testing::Optional;
using ::testing::Pair;
using tev::test::Folder;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::ReadAll;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Variable;

class SetUserProperty : public StoreFixture {};

class SaveUserProperties : public StoreFixture {
 protected:
    std::string UserPath() const { return user_ / kUserFile; }

    // The lines that saving writes for the bookkeeping entries of the user folder.
    std::string Bookkeeping() const {
        return "tev.user.config.dir = " + user_.Path() + "/\n" +
               "tev.user.properties = " + user_.Path() + "/tev.user.properties\n";
    }
};

TEST_F(SetUserProperty, AddsAnEntry) {
    Load("a=1\n", "b=2\n");
    EXPECT_TRUE(Store::SetUserProperty("c", "3"));
    EXPECT_THAT(Get("c"), Optional(std::string("3")));
    EXPECT_THAT(OpenStore::User(), Contains(Pair("c", "3")));
    EXPECT_THAT(OpenStore::System(), Not(Contains(Key("c"))));
}

TEST_F(SetUserProperty, ReplacesAnEntry) {
    Load("a=1\n", "b=2\n");
    EXPECT_TRUE(Store::SetUserProperty("b", "new"));
    EXPECT_THAT(Get("b"), Optional(std::string("new")));
    EXPECT_TRUE(Store::SetUserProperty("b", "newer"));
    EXPECT_THAT(Get("b"), Optional(std::string("newer")));
}

TEST_F(SetUserProperty, HidesSystemAndEnvironmentValuesAtOnce) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=1\n", "b=2\n");
    ASSERT_THAT(Get("TEV_TEST_X"), Optional(std::string("environment")));
    EXPECT_TRUE(Store::SetUserProperty("a", "mine"));
    EXPECT_TRUE(Store::SetUserProperty("TEV_TEST_X", "mine"));
    EXPECT_THAT(Get("a"), Optional(std::string("mine")));
    EXPECT_THAT(Get("TEV_TEST_X"), Optional(std::string("mine")));
    EXPECT_THAT(OpenStore::System(), Contains(Pair("a", "1")));
}

TEST_F(SetUserProperty, StoresTheValueAsItStands) {
    Load("a=1\n", "b=2\n");
    for (const char* value : {"%a%", " blanks around ", "", "x = y # z", "two\nlines"}) {
        SCOPED_TRACE(value);
        EXPECT_TRUE(Store::SetUserProperty("c", value));
        EXPECT_THAT(Get("c"), Optional(std::string(value)));
    }
    EXPECT_TRUE(Store::SetUserProperty("tev.log.level", "verbose"));
    EXPECT_TRUE(Store::SetUserProperty("tev.logging.status", "YES"));
    EXPECT_THAT(Get("tev.log.level"), Optional(std::string("verbose")));
    EXPECT_THAT(Get("tev.logging.status"), Optional(std::string("YES")));
}

TEST_F(SetUserProperty, TakesTheKeyAsItStands) {
    Load("a=1\n", "b=2\n");
    EXPECT_TRUE(Store::SetUserProperty(" b ", "3"));
    EXPECT_THAT(OpenStore::User(), Contains(Pair(" b ", "3")));
    EXPECT_THAT(Get("b"), Optional(std::string("2")));
}

TEST_F(SetUserProperty, NullKeyCountsAsEmpty) {
    Load("a=1\n", "b=2\n");
    EXPECT_TRUE(Store::SetUserProperty(nullptr, "nameless"));
    EXPECT_THAT(OpenStore::User(), Contains(Pair("", "nameless")));
    EXPECT_TRUE(Store::SetUserProperty("", "renamed"));
    EXPECT_THAT(OpenStore::User(), Contains(Pair("", "renamed")));
}

TEST_F(SetUserProperty, NullValueIsRefusedAndChangesNothing) {
    Load("a=1\n", "b=2\n");
    const auto before = OpenStore::User();
    EXPECT_FALSE(Store::SetUserProperty("b", nullptr));
    EXPECT_FALSE(Store::SetUserProperty("c", nullptr));
    EXPECT_FALSE(Store::SetUserProperty(nullptr, nullptr));
    EXPECT_EQ(OpenStore::User(), before);
}

TEST_F(SetUserProperty, WritesNothingToDisk) {
    Load("a=1\n", "b=2\n");
    EXPECT_TRUE(Store::SetUserProperty("b", "new"));
    EXPECT_EQ(ReadAll(user_ / kUserFile), "b=2\n");
}

TEST_F(SetUserProperty, NeedsNoUserFile) {
    Load("a=1\n");
    ASSERT_THAT(OpenStore::User(), IsEmpty());
    EXPECT_TRUE(Store::SetUserProperty("a", "mine"));
    EXPECT_THAT(Get("a"), Optional(std::string("mine")));
}

TEST_F(SaveUserProperties, RewritesTheFileAsSortedLines) {
    Load("a=1\n", "z=26\n# a comment\nB=2\nb=3\n\ndropped\n");
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "B = 2\nb = 3\n" + Bookkeeping() + "z = 26\n");
}

TEST_F(SaveUserProperties, WritesWhatWasSet) {
    Load("a=1\n", "b=2\nc=3\n");
    ASSERT_TRUE(Store::SetUserProperty("b", "new"));
    ASSERT_TRUE(Store::SetUserProperty("d", "4"));
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "b = new\nc = 3\nd = 4\n" + Bookkeeping());
}

TEST_F(SaveUserProperties, LeavesOutSystemAndEnvironmentEntries) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=1\n", "b=%a%%TEV_TEST_X%\n");
    Get("TEV_TEST_X");
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "b = 1environment\n" + Bookkeeping())
        << "only the user's entries, as they are in the table";
}

TEST_F(SaveUserProperties, WrittenFileReadsBackTheSame) {
    Load("a=1\n", "b=two words\n");
    ASSERT_TRUE(Store::SetUserProperty("c", "x = y # z"));
    ASSERT_TRUE(Store::SetUserProperty("d", std::string(100'000, 'd').c_str()));
    const auto before = OpenStore::User();
    ASSERT_TRUE(Store::SaveUserProperties());
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::User(), before);
}

TEST_F(SaveUserProperties, ShorterTextLeavesNothingOfTheOldFile) {
    Load("a=1\n", "# " + std::string(10'000, 'c') + "\nb=2\n");
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "b = 2\n" + Bookkeeping());
}

TEST_F(SaveUserProperties, NeverCreatesAFile_Kept) {
    Load("a=1\n");
    ASSERT_TRUE(Store::SetUserProperty("b", "2"));
    appData_.MakeFolder("Tamo");
    EXPECT_FALSE(Store::SaveUserProperties());
    EXPECT_FALSE(std::filesystem::exists(UserPath()));
    EXPECT_FALSE(std::filesystem::exists(appData_ / "Tamo\\tev.user.properties"));
    userVariable_.Set(std::nullopt);
    appDataVariable_.Set(std::nullopt);
    EXPECT_FALSE(Store::SaveUserProperties());
    EXPECT_THAT(Get("b"), Optional(std::string("2"))) << "the entry stays in memory";
}

TEST_F(SaveUserProperties, VanishedFileIsNotCreatedAgain) {
    Load("a=1\n", "b=2\n");
    std::filesystem::remove(UserPath());
    EXPECT_FALSE(Store::SaveUserProperties());
    EXPECT_FALSE(std::filesystem::exists(UserPath()));
}

TEST_F(SaveUserProperties, EmptyTableLeavesTheFileUntouched) {
    Load("a=1\n");
    ASSERT_THAT(OpenStore::User(), IsEmpty());
    user_.Write(kUserFile, "# not loaded\nb=2\n");
    EXPECT_FALSE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "# not loaded\nb=2\n");
}

TEST_F(SaveUserProperties, FileThatCannotBeOpenedIsAFailure) {
    Load("a=1\n", "b=2\n");
    ASSERT_TRUE(Store::SetUserProperty("b", "new"));
    const HANDLE exclusive = CreateFileA(UserPath().c_str(), GENERIC_READ, 0, nullptr,
                                         OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(exclusive, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(Store::SaveUserProperties());
    CloseHandle(exclusive);
    EXPECT_EQ(ReadAll(UserPath()), "b=2\n");
    EXPECT_TRUE(Store::SaveUserProperties());
}

TEST_F(SaveUserProperties, FolderIsSearchedAnew) {
    const Folder other;
    other.Write(kUserFile, "# the file to save into\n");
    Load("a=1\n", "b=2\n");
    userVariable_.Set(other.Path() + "\\");
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(other / kUserFile), "b = 2\n" + Bookkeeping())
        << "the bookkeeping still tells where the table came from";
    EXPECT_EQ(ReadAll(UserPath()), "b=2\n");
}

TEST_F(SaveUserProperties, SavesIntoTheAppDataFolder) {
    appData_.MakeFolder("Tamo");
    const std::string path = appData_.Write("Tamo\\tev.user.properties", "b=2\n");
    Load("a=1\n");
    ASSERT_TRUE(Store::SetUserProperty("b", "new"));
    EXPECT_TRUE(Store::SaveUserProperties());
    const std::string folder = appData_.Path() + "\\Tamo\\";
    EXPECT_EQ(ReadAll(path), "b = new\ntev.user.config.dir = " + folder +
                                 "\ntev.user.properties = " + folder + "tev.user.properties\n");
}

TEST_F(SaveUserProperties, EntriesSetWithoutAUserFileAreSavedOnceThereIsOne) {
    Load("a=1\n");
    ASSERT_TRUE(Store::SetUserProperty("b", "2"));
    user_.Write(kUserFile, "");
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "b = 2\n");
}

TEST_F(SaveUserProperties, InitialisingAgainDiscardsWhatWasNotSaved) {
    Load("a=1\n", "b=2\n");
    ASSERT_TRUE(Store::SetUserProperty("b", "unsaved"));
    Store::InitializeProperties();
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(ReadAll(UserPath()), "b = 2\n" + Bookkeeping());
}

}  // namespace
