// Key=value files and listings when the layer below fails.
#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "fault/FaultyFiles.h"
#include "fault/ReadFaults.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using tev::fault::FaultyFiles;
using tev::fault::FileCall;

TEST(GetKeyValuePairsFromFile, FaultLeavesTheMapUnchanged) {
    const std::map<std::string, std::string> before{{"a", "held"}, {"z", "26"}};
    for (const auto& fault : tev::fault::kReadFaults) {
        SCOPED_TRACE(fault.name);
        FaultyFiles files;
        const std::string path = files.Add("pairs", tev::fault::kReadContent);
        fault.arrange(files, files.Content(path));
        auto pairs = before;
        EXPECT_EQ(TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, false),
                  fault.read.has_value());
        auto expected = fault.pairs;
        expected.insert(before.begin(), before.end());
        EXPECT_EQ(pairs, expected);
        EXPECT_EQ(files.OpenHandles(), 0);
    }
}

TEST(GetKeyValuePairsFromFile, TheNextAttemptReads) {
    FaultyFiles files;
    const std::string path = files.Add("pairs", "a b=1\n");
    std::map<std::string, std::string> pairs;
    for (const auto call : {FileCall::OpenToRead, FileCall::Seek, FileCall::ReadRange}) {
        files.Fail(call);
        EXPECT_FALSE(TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, true));
        EXPECT_TRUE(pairs.empty());
    }
    EXPECT_TRUE(TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, true));
    EXPECT_EQ(pairs, (std::map<std::string, std::string>{{"a", "b=1"}}));
}

// A folder of the layer below that Windows does not know.
TEST(GetFilesInDirWithGivenExt, OutputsAreUntouchedWhenTheFolderCannotBeExamined) {
    FaultyFiles files;
    const std::string folder = files.AddFolder("folder");
    char* held[] = {nullptr};
    char** list = held;
    std::size_t count = 99;
    files.FailAll(FileCall::Stat);
    TEVUtilFile::GetFilesInDirWithGivenExt(list, folder.c_str(), "txt", count);
    EXPECT_EQ(list, held);
    EXPECT_EQ(count, 99U);
    files.FailNone(FileCall::Stat);
    TEVUtilFile::GetFilesInDirWithGivenExt(list, folder.c_str(), "txt", count);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(count, 0U);
}

}  // namespace
