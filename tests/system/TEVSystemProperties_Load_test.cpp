#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>

#include "fixtures/Modules.h"
#include "system/StoreFixture.h"

namespace {

using ::testing::IsEmpty;
using ::testing::Optional;
using tev::test::CurrentFolder;
using tev::test::Folder;
using tev::test::kSystemFile;
using tev::test::kUserFile;
using tev::test::OpenStore;
using tev::test::Store;
using tev::test::StoreFixture;
using tev::test::Table;
using tev::test::Variable;

constexpr char kSystemFolderKey[] = "tev.sys.config.dir";
constexpr char kUserFolderKey[] = "tev.user.config.dir";

// The system table when no system file exists.
Table BareSystemTable() { return {{kSystemFolderKey, ""}, {kSystemFile, kSystemFile}}; }

// The entries that loading adds for a file found in `folder`.
Table With(Table table, const char* folderKey, const std::string& folder, const char* file) {
    table[folderKey] = folder;
    table[file] = folder + file;
    return table;
}

std::string Slashed(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

// A folder whose Plinth.dll is loaded into this process.
struct PlinthFolder {
    std::string Text() const { return tev::test::FolderOf(tev::test::FileNameOf(module.get())); }

    Folder folder;
    tev::test::LoadedModule module{tev::test::CopyModule(folder, "Plinth")};
};

class SystemFolder : public StoreFixture {};
class UserFolder : public StoreFixture {};
class InitializeProperties : public StoreFixture {};

TEST_F(SystemFolder, IsTheVariableEndedWithASeparator) {
    const std::string& path = system_.Path();
    const struct {
        std::string variable, folder;
    } rows[] = {
        {path + "\\", path + "\\"},
        {path + "/", path + "/"},
        {"  " + path + "\\  ", path + "\\"},
        {Slashed(path) + "/", Slashed(path) + "/"},
    };
    system_.Write(kSystemFile, "a=1\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.variable);
        systemVariable_.Set(row.variable);
        Load(std::nullopt);
        EXPECT_EQ(OpenStore::System(),
                  With({{"a", "1"}}, kSystemFolderKey, row.folder, kSystemFile));
    }
}

TEST_F(SystemFolder, ForwardSlashIsAppendedToTheVariable_Kept) {
    Load("a=1\n");
    EXPECT_EQ(OpenStore::System(),
              With({{"a", "1"}}, kSystemFolderKey, system_.Path() + "/", kSystemFile));
}

TEST_F(SystemFolder, IsEmptyWithoutAnySystemFile) {
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::System(), BareSystemTable());
    systemVariable_.Set(std::nullopt);
    Load("a=1\n");
    EXPECT_EQ(OpenStore::System(), BareSystemTable());
    systemVariable_.Set(system_ / "missing");
    Load("a=1\n");
    EXPECT_EQ(OpenStore::System(), BareSystemTable());
    EXPECT_THAT(Get(kSystemFolderKey), Optional(std::string()));
    EXPECT_THAT(Get(kSystemFile), Optional(std::string("tev.system.properties")));
}

TEST_F(SystemFolder, BareFileNameIsTriedInTheCurrentFolder_Kept) {
    const Folder folder;
    const CurrentFolder current(folder);
    folder.Write(kSystemFile, "a=current\n");
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::System(), With({{"a", "current"}}, kSystemFolderKey, "", kSystemFile));
}

TEST_F(SystemFolder, VariableComesBeforeTheCurrentFolder) {
    const Folder folder;
    const CurrentFolder current(folder);
    folder.Write(kSystemFile, "a=current\n");
    Load("a=variable\n");
    EXPECT_THAT(Get("a"), Optional(std::string("variable")));
}

TEST_F(SystemFolder, LoadedPlinthModuleComesSecond) {
    const PlinthFolder plinth;
    plinth.folder.Write(kSystemFile, "a=plinth\n");
    const Table expected = With({{"a", "plinth"}}, kSystemFolderKey, plinth.Text(), kSystemFile);
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::System(), expected) << "the variable's folder has no file";
    systemVariable_.Set(std::nullopt);
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::System(), expected);
    EXPECT_EQ(plinth.Text().back(), '\\');
}

TEST_F(SystemFolder, VariableComesBeforeThePlinthModule) {
    const PlinthFolder plinth;
    plinth.folder.Write(kSystemFile, "a=plinth\n");
    Load("a=variable\n");
    EXPECT_THAT(Get("a"), Optional(std::string("variable")));
    EXPECT_THAT(Get(kSystemFolderKey), Optional(system_.Path() + "/"));
}

TEST_F(SystemFolder, PlinthModuleWithoutTheFileIsPassedOver) {
    const PlinthFolder plinth;
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::System(), BareSystemTable());
}

TEST_F(SystemFolder, PlinthModuleCountsOnlyWhileLoaded) {
    {
        const PlinthFolder plinth;
        plinth.folder.Write(kSystemFile, "a=plinth\n");
        Load(std::nullopt);
        EXPECT_THAT(Get("a"), Optional(std::string("plinth")));
    }
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::System(), BareSystemTable());
}

TEST_F(SystemFolder, SearchGoesOnAfterACandidateThatFails) {
    const PlinthFolder plinth;
    plinth.folder.Write(kSystemFile, "a=plinth\n");
    SetEnvironmentVariableW(L"TEV_SYS_CONFIG_DIR", L"C:\\\x4e2d");
    EXPECT_NO_THROW(Load(std::nullopt));
    EXPECT_THAT(Get("a"), Optional(std::string("plinth")));
}

TEST_F(UserFolder, IsTheVariableEndedWithASeparator) {
    const std::string& path = user_.Path();
    const struct {
        std::string variable, folder;
    } rows[] = {
        {path, path + "/"},
        {path + "\\", path + "\\"},
        {path + "/", path + "/"},
        {"  " + path + "  ", path + "/"},
        {Slashed(path), Slashed(path) + "/"},
    };
    user_.Write(kUserFile, "b=2\n");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.variable);
        userVariable_.Set(row.variable);
        Load(std::nullopt);
        EXPECT_EQ(OpenStore::User(), With({{"b", "2"}}, kUserFolderKey, row.folder, kUserFile));
    }
}

TEST_F(UserFolder, TamoFolderOfAppDataComesSecond) {
    appData_.MakeFolder("Tamo");
    appData_.Write("Tamo\\tev.user.properties", "b=appdata\n");
    const Table expected =
        With({{"b", "appdata"}}, kUserFolderKey, appData_.Path() + "\\Tamo\\", kUserFile);
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::User(), expected) << "the variable's folder has no file";
    userVariable_.Set(std::nullopt);
    Load(std::nullopt);
    EXPECT_EQ(OpenStore::User(), expected);
    SetEnvironmentVariableW(L"TEV_USER_CONFIG_DIR", L"C:\\\x4e2d");
    EXPECT_NO_THROW(Load(std::nullopt));
    EXPECT_EQ(OpenStore::User(), expected) << "a candidate that fails does not end the search";
}

TEST_F(UserFolder, AppDataIsTakenAsItStands) {
    appData_.MakeFolder("Tamo");
    appData_.Write("Tamo\\tev.user.properties", "b=appdata\n");
    for (const std::string& value : {Slashed(appData_.Path()), appData_.Path() + "\\"}) {
        SCOPED_TRACE(value);
        appDataVariable_.Set(value);
        Load(std::nullopt);
        EXPECT_THAT(Get(kUserFolderKey), Optional(value + "\\Tamo\\"));
        EXPECT_THAT(Get("b"), Optional(std::string("appdata")));
    }
}

TEST_F(UserFolder, VariableComesBeforeAppData) {
    appData_.MakeFolder("Tamo");
    appData_.Write("Tamo\\tev.user.properties", "b=appdata\n");
    Load(std::nullopt, "b=variable\n");
    EXPECT_THAT(Get("b"), Optional(std::string("variable")));
}

TEST_F(UserFolder, TableStaysEmptyWithoutAUserFile_Kept) {
    Load("a=1\n");
    EXPECT_THAT(OpenStore::User(), IsEmpty());
    EXPECT_EQ(Get(kUserFolderKey), std::nullopt);
    EXPECT_EQ(Get(kUserFile), std::nullopt);
    userVariable_.Set(std::nullopt);
    appDataVariable_.Set(std::nullopt);
    Load("a=1\n", "b=2\n");
    EXPECT_THAT(OpenStore::User(), IsEmpty());
    SetEnvironmentVariableW(L"APPDATA", L"C:\\\x4e2d");
    EXPECT_NO_THROW(Load(std::nullopt));
    EXPECT_THAT(OpenStore::User(), IsEmpty());
}

TEST_F(UserFolder, NothingElseIsSearched) {
    const Folder folder;
    const CurrentFolder current(folder);
    const PlinthFolder plinth;
    folder.Write(kUserFile, "b=current\n");
    plinth.folder.Write(kUserFile, "b=plinth\n");
    appData_.Write(kUserFile, "b=appdata itself\n");
    system_.Write(kUserFile, "b=system folder\n");
    Load("a=1\n");
    EXPECT_THAT(OpenStore::User(), IsEmpty());
}

TEST_F(InitializeProperties, BookkeepingWinsOverWhatTheFilesSay) {
    Load("tev.sys.config.dir=mine\ntev.system.properties=mine\ntev.user.config.dir=system's\n",
         "tev.user.config.dir=mine\ntev.user.properties=mine\ntev.sys.config.dir=user's\n");
    EXPECT_EQ(OpenStore::System(), With({{kUserFolderKey, "system's"}}, kSystemFolderKey,
                                        system_.Path() + "/", kSystemFile));
    EXPECT_EQ(OpenStore::User(),
              With({{kSystemFolderKey, "user's"}}, kUserFolderKey, user_.Path() + "/", kUserFile));
}

TEST_F(InitializeProperties, FilesAreKeyValueLines) {
    const char* const text =
        "# a = comment\r\n"
        "\r\n"
        "  a  =  1 # 2  \r\n"
        "dropped\n"
        "dropped=\n"
        "=dropped\n"
        "b c=old\n"
        "b c=new=er\n"
        "last=line";
    const Table expected{{"a", "1 # 2"}, {"b c", "new=er"}, {"last", "line"}};
    Load(text, text);
    EXPECT_EQ(OpenStore::System(),
              With(expected, kSystemFolderKey, system_.Path() + "/", kSystemFile));
    EXPECT_EQ(OpenStore::User(), With(expected, kUserFolderKey, user_.Path() + "/", kUserFile));
}

TEST_F(InitializeProperties, RebuildsBothTables) {
    Load("a=1\nold=1\n", "b=1\nold=1\n");
    Load("a=2\n", "b=2\n");
    EXPECT_EQ(OpenStore::System(),
              With({{"a", "2"}}, kSystemFolderKey, system_.Path() + "/", kSystemFile));
    EXPECT_EQ(OpenStore::User(), With({{"b", "2"}}, kUserFolderKey, user_.Path() + "/", kUserFile));
}

TEST_F(InitializeProperties, DiscardsWhatWasAddedSince) {
    const Variable variable("TEV_TEST_X", "environment");
    Load("a=1\n", "b=2\n");
    Get("TEV_TEST_X");
    Store::SetUserProperty("b", "unsaved");
    Store::SetUserProperty("c", "unsaved");
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(),
              With({{"a", "1"}}, kSystemFolderKey, system_.Path() + "/", kSystemFile));
    EXPECT_EQ(OpenStore::User(), With({{"b", "2"}}, kUserFolderKey, user_.Path() + "/", kUserFile));
}

TEST_F(InitializeProperties, VanishedFilesEmptyTheTables) {
    Load("a=1\n", "b=2\n");
    DeleteFileA((system_ / kSystemFile).c_str());
    DeleteFileA((user_ / kUserFile).c_str());
    Store::InitializeProperties();
    EXPECT_EQ(OpenStore::System(), BareSystemTable());
    EXPECT_THAT(OpenStore::User(), IsEmpty());
}

TEST_F(InitializeProperties, FoldersAreSearchedAnewEachTime) {
    const Folder other;
    other.Write(kSystemFile, "a=other\n");
    Load("a=first\n");
    systemVariable_.Set(other.Path());
    Store::InitializeProperties();
    EXPECT_THAT(Get("a"), Optional(std::string("other")));
    EXPECT_THAT(Get(kSystemFolderKey), Optional(other.Path() + "/"));
}

}  // namespace
