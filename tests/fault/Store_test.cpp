// Loading the store and saving the user's properties when the layer below fails.
#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fault/FaultyFiles.h"
#include "fault/ReadFaults.h"
#include "system/StoreFixture.h"

namespace {

using ::testing::IsEmpty;
using ::testing::Optional;
using tev::fault::FaultyFiles;
using tev::fault::FileCall;
using tev::fault::kReadContent;
using tev::fault::kReadFaults;
using tev::fault::ReadFault;
using tev::test::kSystemFile;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Table;

const std::string kSystemFolder = "/vsifaulty/system/";
const std::string kUserFolder = "/vsifaulty/user/";
const std::string kAppDataFolder = "/vsifaulty/app\\Tamo\\";
const Table kNoSystemFile{{"tev.sys.config.dir", ""}, {kSystemFile, kSystemFile}};

Table SystemNotes() {
    return {{"tev.sys.config.dir", kSystemFolder}, {kSystemFile, kSystemFolder + kSystemFile}};
}

Table UserNotes(const std::string& folder = kUserFolder) {
    return {{"tev.user.config.dir", folder}, {kUserFile, folder + kUserFile}};
}

Table Joined(Table table, const Table& other) {
    table.insert(other.begin(), other.end());
    return table;
}

std::string Lines(const Table& table) {
    std::string lines;
    for (const auto& [key, value] : table) lines += key + " = " + value + "\n";
    return lines;
}

// All candidates but the modules' folders lie in the faulty files.
class StoreFaults : public StoreFixture {
 protected:
    StoreFaults() {
        systemVariable_.Set(kSystemFolder);
        userVariable_.Set(kUserFolder);
        appDataVariable_.Set("/vsifaulty/app");
    }

    std::string AddSystemFile(std::string_view content) {
        return files_.Add("system/tev.system.properties", content);
    }
    std::string AddUserFile(std::string_view content) {
        return files_.Add("user/tev.user.properties", content);
    }
    std::string AddAppDataFile(std::string_view content) {
        return files_.Add("app\\Tamo\\tev.user.properties", content);
    }

    FaultyFiles files_;
};

class LoadFaults : public StoreFaults, public ::testing::WithParamInterface<ReadFault> {};

INSTANTIATE_TEST_SUITE_P(WhileReading, LoadFaults, ::testing::ValuesIn(kReadFaults));

TEST_P(LoadFaults, SystemFileAddsWhatWasReadToItsNotes) {
    const std::string path = AddSystemFile(kReadContent);
    GetParam().arrange(files_, files_.Content(path));
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), Joined(SystemNotes(), GetParam().pairs)) << GetParam().name;
    EXPECT_THAT(OpenStore::User(), IsEmpty());
}

TEST_P(LoadFaults, UserFileAddsWhatWasReadToItsNotes) {
    const std::string path = AddUserFile(kReadContent);
    GetParam().arrange(files_, files_.Content(path));
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::User(), Joined(UserNotes(), GetParam().pairs)) << GetParam().name;
    EXPECT_EQ(OpenStore::System(), kNoSystemFile);
}

TEST_F(StoreFaults, WithoutAFaultBothFilesAreRead) {
    AddSystemFile("s=1\n");
    AddUserFile("u=%s%2\n");
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), Joined(SystemNotes(), {{"s", "1"}}));
    EXPECT_EQ(OpenStore::User(), Joined(UserNotes(), {{"u", "12"}}));
    EXPECT_EQ(files_.OpenHandles(), 0);
}

TEST_F(StoreFaults, WhatCannotBeExaminedIsPassedOver) {
    AddSystemFile("s=1\n");
    AddUserFile("u=2\n");
    AddAppDataFile("u=3\n");
    files_.Fail(FileCall::Stat, 1);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), Joined(SystemNotes(), {{"s", "1"}}));
    EXPECT_EQ(OpenStore::User(), Joined(UserNotes(kAppDataFolder), {{"u", "3"}}));
    files_.FailAll(FileCall::Stat);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), kNoSystemFile);
    EXPECT_THAT(OpenStore::User(), IsEmpty());
}

TEST_F(StoreFaults, AFileThatCannotBeReadIsNotReplacedByTheNextCandidate) {
    AddUserFile("u=2\n");
    AddAppDataFile("u=3\n");
    files_.Fail(FileCall::OpenToRead);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::User(), UserNotes());
}

TEST_F(StoreFaults, OneFileDoesNotSufferFromTheOther) {
    AddSystemFile("s=%u%\n");
    AddUserFile("u=2\n");
    files_.Fail(FileCall::ReadRange, 0);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), SystemNotes());
    EXPECT_THAT(Get("u"), Optional(std::string("2")));
    files_.Fail(FileCall::ReadRange, 1);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::User(), UserNotes());
    EXPECT_THAT(Get("s"), Optional(std::string("%u%"))) << "nothing is known of u";
}

TEST_F(StoreFaults, AReloadThatFailsKeepsNothingOfBeforeAndTheNextReadsAgain) {
    AddSystemFile("s=1\n");
    AddUserFile("u=2\n");
    Store::InitializeProperties();
    const Table system = OpenStore::System();
    const Table user = OpenStore::User();
    files_.FailAll(FileCall::OpenToRead);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), SystemNotes());
    EXPECT_EQ(OpenStore::User(), UserNotes());
    files_.FailNone(FileCall::OpenToRead);
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), system);
    EXPECT_EQ(OpenStore::User(), user);
}

class SaveFaults : public StoreFaults {
 protected:
    SaveFaults() {
        Store::InitializeProperties();
        Store::SetUserProperty("b", "new value");
    }

    const std::string path_ = AddUserFile("# old\nb = old\nc = 3\n");
    const Table saved_ = Joined(UserNotes(), {{"b", "new value"}, {"c", "3"}});
};

TEST_F(SaveFaults, WithoutAFaultTheTableIsWrittenInOneCall) {
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(files_.Content(path_), Lines(saved_));
    EXPECT_EQ(files_.Calls(FileCall::Write), 1);
    EXPECT_EQ(files_.OpenHandles(), 0);
}

TEST_F(SaveFaults, AFullDiskLeavesTheStartOfTheNewTextInPlaceOfTheOld_Kept) {
    const std::string lines = Lines(saved_);
    for (std::size_t room = 0; room < lines.size(); ++room) {
        SCOPED_TRACE(room);
        files_.Content(path_) = "b = old\n";
        files_.room = room;
        EXPECT_FALSE(Store::SaveUserProperties());
        EXPECT_EQ(files_.Content(path_), lines.substr(0, room));
        EXPECT_EQ(OpenStore::User(), saved_) << "the table is unharmed";
        EXPECT_EQ(files_.OpenHandles(), 0);
    }
    files_.room = lines.size();
    EXPECT_TRUE(Store::SaveUserProperties()) << "once there is room";
    EXPECT_EQ(files_.Content(path_), lines);
}

TEST_F(SaveFaults, ALineThatTheFullDiskCutReadsBackAsItStands) {
    files_.room = std::string("b = new").size();
    ASSERT_FALSE(Store::SaveUserProperties());
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::User(), Joined(UserNotes(), {{"b", "new"}}));
}

TEST_F(SaveFaults, AWriteThatIsRefusedLeavesAnEmptyFile_Kept) {
    files_.Fail(FileCall::Write);
    EXPECT_FALSE(Store::SaveUserProperties());
    EXPECT_EQ(files_.Content(path_), "");
    EXPECT_TRUE(Store::SaveUserProperties()) << "the empty file is still found";
    EXPECT_EQ(files_.Content(path_), Lines(saved_));
}

TEST_F(SaveFaults, AFileThatCannotBeExaminedOrOpenedIsUntouched) {
    const std::string before = files_.Content(path_);
    for (const auto call : {FileCall::Stat, FileCall::OpenToWrite}) {
        files_.Fail(call);
        EXPECT_FALSE(Store::SaveUserProperties());
        EXPECT_EQ(files_.Content(path_), before);
        EXPECT_EQ(OpenStore::User(), saved_);
    }
    EXPECT_EQ(files_.Calls(FileCall::Write), 0);
    EXPECT_TRUE(Store::SaveUserProperties()) << "the next attempt";
}

TEST_F(SaveFaults, AFileThatCannotBeExaminedGivesWayToTheNextCandidate_Kept) {
    const std::string before = files_.Content(path_);
    const std::string other = AddAppDataFile("# another\n");
    files_.Fail(FileCall::Stat, 0);
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(files_.Content(path_), before);
    EXPECT_EQ(files_.Content(other), Lines(saved_));
}

TEST_F(SaveFaults, ACountThatIsNotTheLengthIsAFailure) {
    files_.overstated = 1;
    EXPECT_FALSE(Store::SaveUserProperties());
    EXPECT_EQ(files_.Content(path_), Lines(saved_)) << "written all the same";
}

TEST_F(SaveFaults, WhatIsLostOnClosingIsNotSeen_Kept) {
    files_.Fail(FileCall::Close);
    files_.Before(FileCall::Close, [this] { files_.Content(path_).clear(); });
    EXPECT_TRUE(Store::SaveUserProperties());
    EXPECT_EQ(files_.Content(path_), "");
}

}  // namespace
