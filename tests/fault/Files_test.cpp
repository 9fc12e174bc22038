// The file object when the layer below fails.
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <cpl_vsi_error.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "fault/FaultyFiles.h"
#include "fault/ReadFaults.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::FaultyFiles;
using tev::fault::FileCall;

constexpr std::uint64_t kUnknown = ~std::uint64_t{0};

TEST(FaultyFiles, WithoutAFaultFilesAreWrittenAndRead) {
    FaultyFiles files;
    const std::string path = files.Add("a", "old");
    {
        TEVIO file(path, TEVIO::Write);
        EXPECT_EQ(file.write("abcdef", 6), 6U);
        EXPECT_TRUE(file.seek(2, SEEK_SET));
        EXPECT_EQ(file.write("XY", 2), 2U);
        EXPECT_EQ(files.OpenHandles(), 1);
    }
    EXPECT_EQ(files.Content(path), "abXYef");
    TEVIO file(path, TEVIO::Read);
    char bytes[] = "??????";
    EXPECT_EQ(file.read(bytes, 6), 6U);
    EXPECT_STREQ(bytes, "abXYef");
    EXPECT_EQ(file.tell(), 6U);
    EXPECT_EQ(file.fileSize(), 6U);
    EXPECT_EQ(TEVIO::fileSize(path.c_str()), 6U);
}

TEST(Open, FaultLeavesItClosedWithThePathAndTheContent) {
    FaultyFiles files;
    const std::string path = files.Add("a", "content");
    for (const auto type : {TEVIO::Read, TEVIO::Write}) {
        SCOPED_TRACE(static_cast<int>(type));
        const FileCall call = type == TEVIO::Read ? FileCall::OpenToRead : FileCall::OpenToWrite;
        VSIErrorReset();
        files.Fail(call);
        TEVIO file(path, type);
        EXPECT_FALSE(file.isOpen());
        EXPECT_EQ(file.getFilePath(), path);
        EXPECT_EQ(VSIGetLastErrorNo(), VSIE_FileError);
        EXPECT_EQ(files.Content(path), "content");
        EXPECT_TRUE(file.open(path, type)) << "the next attempt";
    }
    VSIErrorReset();
}

TEST(Open, FaultClosesTheFileBefore) {
    FaultyFiles files;
    const std::string first = files.Add("first", "1");
    const std::string second = files.Add("second", "2");
    TEVIO file(first, TEVIO::Read);
    files.Fail(FileCall::OpenToWrite);
    EXPECT_FALSE(file.open(second, TEVIO::Write));
    EXPECT_EQ(files.OpenHandles(), 0);
    EXPECT_EQ(files.Calls(FileCall::Close), 1);
    EXPECT_EQ(file.getFilePath(), second);
}

TEST(Open, CloseThatFailsIsNotRepeatedAndDoesNotStopTheNextFile) {
    FaultyFiles files;
    const std::string first = files.Add("first", "1");
    const std::string second = files.Add("second", "2");
    files.FailAll(FileCall::Close);
    {
        TEVIO file(first, TEVIO::Read);
        EXPECT_TRUE(file.open(second, TEVIO::Read));
        EXPECT_EQ(files.Calls(FileCall::Close), 1);
        EXPECT_EQ(files.OpenHandles(), 1);
    }
    EXPECT_EQ(files.Calls(FileCall::Close), 2);
    EXPECT_EQ(files.OpenHandles(), 0);
}

TEST(Open, NoTypeAsksForNothingButTheClose) {
    FaultyFiles files;
    const std::string first = files.Add("first", "1");
    TEVIO file(first, TEVIO::Read);
    EXPECT_FALSE(file.open(files.Add("second", "2"), static_cast<TEVIO::OpenType>(7)));
    EXPECT_EQ(files.Calls(FileCall::OpenToRead), 1);
    EXPECT_EQ(files.Calls(FileCall::OpenToWrite), 0);
    EXPECT_EQ(files.OpenHandles(), 0);
}

TEST(Open, RewindThatFailsGivesTrueAtTheOldPosition_Kept) {
    FaultyFiles files;
    const std::string path = files.Add("a", "abcdef");
    TEVIO file(path, TEVIO::Read);
    ASSERT_TRUE(file.seek(4, SEEK_SET));
    files.Fail(FileCall::Seek);
    EXPECT_TRUE(file.open(path, TEVIO::Read));
    EXPECT_EQ(file.tell(), 4U);
    EXPECT_EQ(files.Calls(FileCall::OpenToRead), 1);
}

TEST(Read, FaultGivesNoBytesAndKeepsThePosition) {
    FaultyFiles files;
    TEVIO file(files.Add("a", "abcdef"), TEVIO::Read);
    char bytes[] = "??";
    EXPECT_EQ(file.read(bytes, 2), 2U);
    files.Fail(FileCall::Read);
    EXPECT_EQ(file.read(bytes, 2), 0U);
    EXPECT_STREQ(bytes, "ab");
    EXPECT_EQ(file.tell(), 2U);
    EXPECT_EQ(file.read(bytes, 2), 2U);
    EXPECT_STREQ(bytes, "cd");
}

TEST(Read, AShortReadTellsWhatItGave) {
    FaultyFiles files;
    TEVIO file(files.Add("a", "abcdef"), TEVIO::Read);
    files.readLimit = 4;
    char bytes[] = "??????";
    EXPECT_EQ(file.read(bytes, 6), 4U);
    EXPECT_STREQ(bytes, "abcd??");
    EXPECT_EQ(file.tell(), 4U);
    EXPECT_EQ(file.read(bytes, 6), 2U);
    EXPECT_STREQ(bytes, "efcd??");
    EXPECT_EQ(file.read(bytes, 6), 0U);
}

TEST(Read, CountIsTheOneOfTheLayerBelow) {
    FaultyFiles files;
    const std::string path = files.Add("a", "abcdef");
    files.overstated = 3;
    char bytes[] = "????";
    EXPECT_EQ(TEVIO(path, TEVIO::Read).read(bytes, 2), 5U);
    EXPECT_STREQ(bytes, "ab??");
    EXPECT_EQ(TEVIO(path, TEVIO::Write).write("xy", 2), 5U);
}

TEST(ReadRange, FaultIsFalseAndTheNextCallReads) {
    const struct {
        const char* name;
        void (*arrange)(FaultyFiles& files, std::string& content);
        void (*mend)(FaultyFiles& files, std::string& content);
    } rows[] = {
        {"fails", [](FaultyFiles& files, std::string&) { files.Fail(FileCall::ReadRange); },
         [](FaultyFiles&, std::string&) {}},
        {"short", [](FaultyFiles& files, std::string&) { files.readLimit = 2; },
         [](FaultyFiles& files, std::string&) { files.readLimit = 3; }},
        {"file shrinks", [](FaultyFiles&, std::string& content) { content.resize(4); },
         [](FaultyFiles&, std::string& content) { content += "ef"; }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FaultyFiles files;
        const std::string path = files.Add("a", "abcdef");
        const TEVIO file(path, TEVIO::Read);
        char bytes[] = "???";
        row.arrange(files, files.Content(path));
        EXPECT_FALSE(file.read(bytes, 2, 3));
        row.mend(files, files.Content(path));
        EXPECT_TRUE(file.read(bytes, 2, 3));
        EXPECT_STREQ(bytes, "cde");
        EXPECT_EQ(files.Calls(FileCall::ReadRange), 2) << "one call of the layer each";
        EXPECT_EQ(files.Calls(FileCall::Read) + files.Calls(FileCall::Seek), 0);
    }
}

TEST(Write, AFullDiskTakesTheFirstBytesAndTellsHowMany) {
    const std::string text = "abcdef";
    for (std::size_t room = 0; room < text.size(); ++room) {
        SCOPED_TRACE(room);
        FaultyFiles files;
        const std::string path = files.Add("a", "old content");
        files.room = room;
        TEVIO file(path, TEVIO::Write);
        EXPECT_EQ(file.write(text.data(), text.size()), room);
        EXPECT_EQ(files.Content(path), text.substr(0, room));
        EXPECT_EQ(file.tell(), room);
        EXPECT_EQ(file.write("x", 1), 0U);
        files.room = text.size();
        EXPECT_EQ(file.write(text.data() + room, text.size() - room), text.size() - room);
        EXPECT_EQ(files.Content(path), text) << "written on once there is room";
    }
}

TEST(Write, FaultWritesNothing) {
    FaultyFiles files;
    const std::string path = files.Add("a", "");
    TEVIO file(path, TEVIO::Write);
    EXPECT_EQ(file.write("ab", 2), 2U);
    files.Fail(FileCall::Write);
    EXPECT_EQ(file.write("cd", 2), 0U);
    EXPECT_EQ(files.Content(path), "ab");
    EXPECT_EQ(file.tell(), 2U);
    EXPECT_TRUE(file.isOpen());
}

TEST(Seek, FaultIsFalseAndKeepsThePosition) {
    FaultyFiles files;
    TEVIO file(files.Add("a", "abcdef"), TEVIO::Read);
    files.Fail(FileCall::Seek, 1);
    EXPECT_TRUE(file.seek(3, SEEK_SET));
    EXPECT_FALSE(file.seek(1, SEEK_SET));
    EXPECT_EQ(file.tell(), 3U);
    EXPECT_TRUE(file.seek(1, SEEK_CUR));
    EXPECT_EQ(file.tell(), 4U);
}

TEST(Tell, FaultGivesTheAnswerOfTheLayerBelow) {
    FaultyFiles files;
    TEVIO file(files.Add("a", "abcdef"), TEVIO::Read);
    files.Fail(FileCall::Tell);
    EXPECT_EQ(file.tell(), kUnknown);
    EXPECT_EQ(file.tell(), 0U);
}

TEST(FileSize, OfTheOpenFileBelievesTheLayerBelow_Kept) {
    const struct {
        const char* name;
        FileCall call;
        int n;
        std::uint64_t size;
        std::uint64_t position;
    } rows[] = {
        {"nothing fails", FileCall::Close, 0, 6, 2},
        {"seek to the end: the position is taken", FileCall::Seek, 0, 2, 2},
        {"seek back: the position is the end", FileCall::Seek, 1, 6, 6},
        {"position: it is lost", FileCall::Tell, 0, 6, kUnknown},
        {"position of the end", FileCall::Tell, 1, kUnknown, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FaultyFiles files;
        TEVIO file(files.Add("a", "abcdef"), TEVIO::Read);
        ASSERT_TRUE(file.seek(2, SEEK_SET));
        files.Fail(row.call, row.n);
        EXPECT_EQ(file.fileSize(), row.size);
        EXPECT_EQ(file.tell(), row.position);
    }
}

TEST(FileSize, OfAPathIs0WhenItCannotBeExamined) {
    FaultyFiles files;
    const std::string path = files.Add("a", "abcdef");
    files.Fail(FileCall::Stat);
    EXPECT_EQ(TEVIO::fileSize(path.c_str()), 0U);
    EXPECT_EQ(TEVIO::fileSize(path.c_str()), 6U);
    files.toldSize = 5'000'000'000;
    EXPECT_EQ(TEVIO::fileSize(path.c_str()), 5'000'000'000U) << "what the layer below tells";
    EXPECT_EQ(files.Calls(FileCall::OpenToRead), 0);
}

TEST(Exists, WhatCannotBeExaminedIsNotThere) {
    FaultyFiles files;
    const std::string file = files.Add("a", "abcdef");
    const std::string folder = files.AddFolder("folder");
    ASSERT_TRUE(TEVIO::exists(file));
    ASSERT_TRUE(TEVIO::dirExists(folder));
    ASSERT_TRUE(TEVIO::dirExists(folder + "/"));
    ASSERT_TRUE(TEVUtilWindows::DirectoryExists(folder.c_str()));
    ASSERT_TRUE(TEVUtilWindows::FileExists(folder.c_str()));
    files.FailAll(FileCall::Stat);
    EXPECT_FALSE(TEVIO::exists(file));
    EXPECT_FALSE(TEVIO::exists(file.c_str()));
    EXPECT_FALSE(TEVIO::dirExists(folder));
    EXPECT_FALSE(TEVIO::dirExists(folder + "/"));
    EXPECT_FALSE(TEVIO::dirExists(folder.c_str()));
    EXPECT_FALSE(TEVUtilWindows::DirectoryExists(folder.c_str()));
    EXPECT_FALSE(TEVUtilWindows::FileExists(folder.c_str()));
}

TEST(Exists, AFolderWithASeparatorIsExaminedTwice) {
    FaultyFiles files;
    const std::string folder = files.AddFolder("folder");
    files.Fail(FileCall::Stat, 0);
    EXPECT_TRUE(TEVIO::dirExists(folder + "/"));
    EXPECT_EQ(files.Calls(FileCall::Stat), 2);
    files.Fail(FileCall::Stat, 1);
    EXPECT_FALSE(TEVIO::dirExists(folder + "/"));
    EXPECT_EQ(files.Calls(FileCall::Stat), 4);
}

TEST(ReadFile, WholeContentOrNullAndZero) {
    for (const auto& fault : tev::fault::kReadFaults) {
        SCOPED_TRACE(fault.name);
        FaultyFiles files;
        const std::string path = files.Add("a", tev::fault::kReadContent);
        fault.arrange(files, files.Content(path));
        char held[] = "held";
        char* data = held;
        std::uint64_t size = 99;
        EXPECT_EQ(TEVIO::readFile(path.c_str(), &data, size), fault.read.has_value());
        const tev::test::Text owned(data);
        EXPECT_EQ(owned.IsNull(), !fault.read);
        EXPECT_EQ(size, fault.read ? fault.read->size() : 0);
        if (fault.read && !owned.IsNull()) {
            EXPECT_EQ(std::string(owned.get(), size), *fault.read);
            EXPECT_EQ(owned.get()[size], '\0');
        }
        EXPECT_EQ(files.OpenHandles(), 0);
    }
}

}  // namespace
