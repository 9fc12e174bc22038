// The faithful save when the layer below fails: the old file or the new one, never less.
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "fault/FaultyFiles.h"
#include "fault/SystemCalls.h"
#include "system/StoreFixture.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using ::testing::ElementsAre;
using tev::fault::FaultyFiles;
using tev::fault::FileCall;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::ReadAll;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Table;

constexpr char kOld[] = "# kept\r\nb = %TEV_NONE%\r\na = old # text\r\n";
constexpr char kNew[] = "# kept\r\nb = %TEV_NONE%\r\na = new value\r\nc = added\r\n";

bool Save() { return TEVSystemDiagnostics::SaveUserPropertiesPreserving(nullptr); }

class FaithfulSave : public StoreFixture {
 protected:
    FaithfulSave() {
        userVariable_.Set("/vsifaulty/user/");
        Begin();
    }

    void Begin() {
        files_.Content(path_) = kOld;
        Store::InitializeProperties();
        Store::SetUserProperty("a", "new value");
        Store::SetUserProperty("c", "added");
        table_ = OpenStore::User();
    }

    void ExpectOld() {
        EXPECT_EQ(files_.Content(path_), kOld);
        ExpectTheRest();
    }

    void ExpectNew() {
        EXPECT_EQ(files_.Content(path_), kNew);
        EXPECT_THAT(files_.Names(), ElementsAre(path_));
        ExpectTheRest();
    }

    void ExpectTheRest() {
        EXPECT_EQ(OpenStore::User(), table_);
        EXPECT_EQ(files_.OpenHandles(), 0);
    }

    FaultyFiles files_;
    const std::string path_ = files_.Add("user/tev.user.properties", kOld);
    Table table_;
};

TEST_F(FaithfulSave, WithoutAFaultTheNewFileTakesThePlaceOfTheOld) {
    EXPECT_TRUE(Save());
    ExpectNew();
    EXPECT_EQ(files_.Calls(FileCall::Write), 1);
    EXPECT_EQ(files_.Calls(FileCall::Rename), 1);
    EXPECT_TRUE(Save()) << "nothing is left to be saved";
    EXPECT_EQ(files_.Calls(FileCall::Write), 1);
}

TEST_F(FaithfulSave, AFullDiskLosesNothing) {
    for (std::size_t room = 0; room < sizeof kNew - 1; ++room) {
        SCOPED_TRACE(room);
        files_.room = room;
        EXPECT_FALSE(Save());
        ExpectOld();
    }
    files_.room = sizeof kNew - 1;
    EXPECT_TRUE(Save()) << "once there is room";
    ExpectNew();
}

TEST_F(FaithfulSave, ACallThatFailsLosesNothing) {
    constexpr int kMoreThanAreMade = 12;
    int refused = 0;
    for (const FileCall call : {FileCall::Stat, FileCall::OpenToRead, FileCall::OpenToWrite,
                                FileCall::Tell, FileCall::Seek, FileCall::ReadRange,
                                FileCall::Write, FileCall::Close, FileCall::Rename}) {
        for (int n = 0; n < kMoreThanAreMade; ++n) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(call) << " number " << n);
            Begin();
            files_.Fail(call, n);
            const bool isSaved = Save();
            files_.FailNone(call);
            isSaved ? ExpectNew() : ExpectOld();
            if (isSaved) continue;
            ++refused;
            EXPECT_TRUE(Save()) << "the next attempt";
            ExpectNew();
        }
    }
    EXPECT_GE(refused, 9);
}

TEST_F(FaithfulSave, WhatIsLostOnClosingIsSeen) {
    // The first file to be read is the old one, the second is read back.
    files_.Before(FileCall::OpenToRead, [this] {
        files_.Before(FileCall::OpenToRead, [this] {
            for (const std::string& name : files_.Names())
                if (name != path_) files_.Content(name).resize(3);
        });
    });
    EXPECT_FALSE(Save());
    ExpectOld();
}

class FaithfulSaveOnDisk : public StoreFixture {
 protected:
    FaithfulSaveOnDisk() {
        Load(std::nullopt, "a = old\n");
        Store::SetUserProperty("a", "new");
    }

    std::ptrdiff_t Files() const {
        const std::filesystem::directory_iterator files(user_.Path());
        return std::distance(begin(files), end(files));
    }

    void ExpectSaved() const {
        EXPECT_TRUE(Save());
        EXPECT_EQ(ReadAll(user_ / kUserFile), "a = new\n");
        EXPECT_EQ(Files(), 1);
    }

    // The old file is kept while the n-th call is refused, or each, and is replaced when none is.
    template <typename Call, typename Result>
    void ExpectKeptWhileRefused(Call& call, Result refusal, int n = -1) {
        {
            const auto refused = FailNth(n, call, refusal, ERROR_ACCESS_DENIED);
            EXPECT_FALSE(Save());
            EXPECT_EQ(ReadAll(user_ / kUserFile), "a = old\n");
            EXPECT_EQ(Files(), 1) << "nothing is left beside it";
        }
        ExpectSaved();
    }
};

namespace calls = tev::fault::calls;

TEST_F(FaithfulSaveOnDisk, TheFolderOfTheFileMayHaveANameBeyondAscii) {
    const std::string folder = user_ / "d\xE9p\xF4t";
    ASSERT_NE(CreateDirectoryA(folder.c_str(), nullptr), 0);
    const std::string file = user_.Write(std::string("d\xE9p\xF4t\\") + kUserFile, "a = old\n");
    userVariable_.Set(folder);
    Store::InitializeProperties();
    Store::SetUserProperty("a", "new");
    EXPECT_TRUE(Save());
    EXPECT_EQ(ReadAll(file), "a = new\n");
}

TEST_F(FaithfulSaveOnDisk, ARefusedMoveKeepsTheOldFile) {
    ExpectKeptWhileRefused(calls::MoveFileExW, FALSE);
}

TEST_F(FaithfulSaveOnDisk, ContentThatDoesNotReachTheDiskKeepsTheOldFile) {
    ExpectKeptWhileRefused(calls::FlushFileBuffers, FALSE);
}

TEST_F(FaithfulSaveOnDisk, AFileThatCannotBeOpenedToReachTheDiskKeepsTheOldFile) {
    ExpectKeptWhileRefused(calls::CreateFileW, INVALID_HANDLE_VALUE);
}

TEST_F(FaithfulSaveOnDisk, APathThatCannotBeConvertedKeepsTheOldFile) {
    ExpectKeptWhileRefused(calls::CPLRecodeToWChar, nullptr, 0);
}

TEST_F(FaithfulSaveOnDisk, ATargetThatCannotBeConvertedKeepsTheOldFile) {
    ExpectKeptWhileRefused(calls::CPLRecodeToWChar, nullptr, 1);
}

TEST_F(FaithfulSaveOnDisk, ANewFileThatCannotBeRemovedIsTakenAtTheNextSave) {
    {
        const auto refused = Fail(calls::FlushFileBuffers, FALSE, ERROR_ACCESS_DENIED);
        const auto stays = Fail(calls::VSIUnlink, -1);
        EXPECT_FALSE(Save());
        EXPECT_EQ(ReadAll(user_ / kUserFile), "a = old\n");
        EXPECT_EQ(Files(), 2);
    }
    ExpectSaved();
}

}  // namespace
