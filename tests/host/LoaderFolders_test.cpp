#include "TEVSystemLib/system/detail/LoaderFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace TAMO::TEV::System::detail;
using Kind = TAMO::TEV::System::TEVSystemDiagnostics::FolderKind;

LoaderFacts Facts() {
    LoaderFacts facts;
    facts.program = "C:\\App\\";
    facts.system = "C:\\Windows\\system32";
    facts.windows = "C:\\Windows";
    facts.current = "D:\\";
    facts.path = "C:\\One\\;;C:/Two;relative";
    return facts;
}

std::vector<std::string> Shown(const SearchedFolders& folders) {
    std::vector<std::string> texts;
    for (const auto& folder : folders)
        texts.push_back(std::to_string(static_cast<int>(folder.kind)) + ' ' + folder.folder);
    return texts;
}

TEST(OrdinaryFolders, EndWithThoseOfPath) {
    EXPECT_THAT(
        Shown(OrdinaryFolders(Facts())),
        testing::ElementsAre("1 C:\\App", "3 C:\\Windows\\system32", "4 C:\\Windows\\system",
                             "5 C:\\Windows", "6 D:\\", "7 C:\\One", "7 C:\\Two", "7 relative"));
}

TEST(OrdinaryFolders, DllDirectoryReplacesTheCurrentFolder) {
    LoaderFacts facts = Facts();
    facts.dllDirectory = "E:\\Own";
    facts.path.clear();
    EXPECT_THAT(Shown(OrdinaryFolders(facts)),
                testing::ElementsAre("1 C:\\App", "2 E:\\Own", "3 C:\\Windows\\system32",
                                     "4 C:\\Windows\\system", "5 C:\\Windows"));
}

TEST(FoldersWithDirectories, NeitherCurrentFolderNorPath) {
    LoaderFacts facts = Facts();
    EXPECT_THAT(Shown(FoldersWithDirectories(facts, {"E:\\first\\", "E:/second"})),
                testing::ElementsAre("1 C:\\App", "0 E:\\second", "0 E:\\first",
                                     "3 C:\\Windows\\system32"));
    facts.dllDirectory = "E:\\Own";
    EXPECT_THAT(Shown(FoldersWithDirectories(facts, {})),
                testing::ElementsAre("1 C:\\App", "2 E:\\Own", "3 C:\\Windows\\system32"));
}

TEST(PathFolders, AreThoseOfPathAlone) {
    EXPECT_THAT(Shown(PathFolders(Facts())).size(), 3U);
    EXPECT_EQ(Shown(PathFolders(Facts())).front(),
              std::to_string(static_cast<int>(Kind::Path)) + " C:\\One");
}

TEST(FolderBeside, IsThatOfTheModule) {
    TAMO::TEV::System::TEVSystemDiagnostics::Module module;
    EXPECT_TRUE(FolderBeside(module).empty());
    module.file = "C:\\Kit\\a.dll";
    ASSERT_EQ(FolderBeside(module).size(), 1U);
    EXPECT_EQ(FolderBeside(module)[0].folder, "C:\\Kit");
}

TEST(IsFixedPath, NeedsNoSearch) {
    for (const char* name :
         {"C:\\a.dll", "c:a.dll", "c:", "\\a.dll", "/a.dll", "\\\\host\\a", ".\\a.dll"})
        EXPECT_TRUE(IsFixedPath(name)) << name;
    for (const char* name : {"", "a", "a.dll", "sub\\a.dll"})
        EXPECT_FALSE(IsFixedPath(name)) << name;
}

TEST(IsContract, ByItsBeginning) {
    for (const char* name : {"api-ms-win-core-file-l1-1-0.dll", "API-MS-x", "ext-ms-win-y"})
        EXPECT_TRUE(IsContract(name)) << name;
    for (const char* name : {"", "api", "apix.dll", "kernel32.dll"})
        EXPECT_FALSE(IsContract(name)) << name;
}

TEST(FileNameOf, BehindTheLastSeparator) {
    EXPECT_EQ(FileNameOf("C:\\a/b.dll"), "b.dll");
    EXPECT_EQ(FileNameOf("C:/a\\b.dll"), "b.dll");
    EXPECT_EQ(FileNameOf("b.dll"), "b.dll");
    EXPECT_EQ(FileNameOf("a\\"), "");
}

TEST(IsBelow, WholeNamesOnly) {
    EXPECT_TRUE(IsBelow("C:\\Windows", "c:\\WINDOWS\\system32\\a.dll"));
    EXPECT_FALSE(IsBelow("C:\\Windows", "C:\\Windows2\\a.dll"));
    EXPECT_FALSE(IsBelow("C:\\Windows", "C:\\Windows"));
    EXPECT_FALSE(IsBelow("C:\\Windows", "D:\\Windows\\a.dll"));
    EXPECT_FALSE(IsBelow("", "\\a.dll"));
}

TEST(FindInFolders, FirstOneThatHasIt) {
    const auto folders = OrdinaryFolders(Facts());
    const auto has = [](const std::string& path) { return path[0] == 'D' || path[3] == 'T'; };
    EXPECT_EQ(FindInFolders(folders, "a.dll", has), "D:\\a.dll");
    const auto none = [](const std::string&) { return false; };
    EXPECT_EQ(FindInFolders(folders, "a.dll", none), std::nullopt);
}

}  // namespace
