#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "support/Environment.h"
#include "support/Folder.h"
#include "support/Owned.h"
#include "util/windows/LoadFixture.h"
#include "util/windows/UnusualFolders.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Folder;
using tev::test::kNameBeyondAnsi;
using tev::test::kUnusualNames;
using tev::test::LongFolder;
using tev::test::MakeAnsiFolder;
using tev::test::Slashed;
using tev::test::SystemVariable;
using tev::test::Text;
using tev::test::Variable;

// The folder found; "(null)" for none.
std::string Toolkit() { return Text(TEVUtilWindows::GetCurrentProcessKPTRootFolder()).str(); }

constexpr char kNone[] = "(null)";

// Makes `root` a toolkit, whose library folder holds a folder with the marker file's name. Gives
// the library folder.
std::string MakeToolkit(const std::string& root, const std::string& marker = "CSMAPI.dll") {
    const std::string library = MakeAnsiFolder(root + "lib") + "\\";
    MakeAnsiFolder(library + marker);
    return library;
}

// Neither variable is set, and a folder is there for toolkits.
class GetCurrentProcessKPTRootFolder : public ::testing::Test {
 protected:
    // Makes a toolkit in a folder of that name and gives its root, ending with a backslash.
    std::string MakeKit(const std::string& name) const {
        const std::string root = MakeAnsiFolder(folder_ / name) + "\\";
        MakeToolkit(root);
        return root;
    }

    const Folder folder_;
    const Variable data_{"KPT_DATA_DIR"};
    const Variable plugins_{"CSM_PLUGIN_DIR"};
};

TEST_F(GetCurrentProcessKPTRootFolder, NullWhenNeitherVariableIsSet) {
    MakeKit("Kit");
    EXPECT_EQ(TEVUtilWindows::GetCurrentProcessKPTRootFolder(), nullptr);
}

TEST_F(GetCurrentProcessKPTRootFolder, LibraryFolderBesideTheFolderOfAVariable) {
    const std::string kit = MakeKit("Kit");
    const struct {
        const char* data;
        const char* plugins;
    } rows[] = {
        {"data\\", "plugins\\"}, {"data", "plugins"}, {"data/", "plugins/"},
        {"Data", "Plugins"},     {"DATA", "PLUGINS"}, {"dAtA\\", "pLuGiNs\\"},
        {"DATA/", "PLUGINS/"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.data);
        for (const std::string& root : {kit, Slashed(kit)}) {
            data_.Set(root + row.data);
            EXPECT_EQ(Toolkit(), kit + "lib\\");
            data_.Set({});
            plugins_.Set(root + row.plugins);
            EXPECT_EQ(Toolkit(), kit + "lib\\");
            plugins_.Set({});
        }
    }
}

TEST_F(GetCurrentProcessKPTRootFolder, KeepsTheLetterCaseOfTheVariable) {
    std::string kit = MakeKit("Kit");
    std::transform(kit.begin(), kit.end(), kit.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    data_.Set(kit + "DATA");
    EXPECT_EQ(Toolkit(), kit + "lib\\");
}

TEST_F(GetCurrentProcessKPTRootFolder, FolderOfTheVariableNeedNotExist) {
    const std::string kit = MakeKit("Kit");
    ASSERT_FALSE(std::filesystem::exists(kit + "data"));
    data_.Set(kit + "data");
    EXPECT_EQ(Toolkit(), kit + "lib\\");
}

TEST_F(GetCurrentProcessKPTRootFolder, WrongTailIsSkipped) {
    const std::string kit = MakeKit("Kit");
    const struct {
        const char* data;
        const char* plugins;
    } rows[] = {
        {"bin", "bin"},
        {"plugins", "data"},
        {"data2", "plugins2"},
        {"dat", "plugin"},
        {"data\\\\", "plugins\\\\"},
        {"data//", "plugins//"},
        {"data.", "plugins."},
        {"data ", "plugins "},
        {"data\\lib", "plugins\\lib"},
        {"", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.data);
        data_.Set(kit + row.data);
        plugins_.Set(kit + row.plugins);
        EXPECT_EQ(Toolkit(), kNone);
    }
}

TEST_F(GetCurrentProcessKPTRootFolder, FirstVariableWins) {
    const std::string one = MakeKit("One");
    const std::string two = MakeKit("Two");
    data_.Set(one + "data");
    plugins_.Set(two + "plugins");
    EXPECT_EQ(Toolkit(), one + "lib\\");
    data_.Set(two + "data");
    plugins_.Set(one + "plugins");
    EXPECT_EQ(Toolkit(), two + "lib\\");
}

TEST_F(GetCurrentProcessKPTRootFolder, SecondVariableWhenTheFirstLeadsNowhere) {
    const std::string kit = MakeKit("Kit");
    folder_.MakeFolder("empty");
    folder_.MakeFolder("no marker");
    folder_.MakeFolder("no marker\\lib");
    plugins_.Set(kit + "plugins");
    for (const std::string& value :
         {folder_ / "missing\\data", folder_ / "empty\\data", folder_ / "no marker\\data",
          kit + "bin", kit + "plugins", std::string("data"), std::string("/"), std::string("x"),
          std::string(32'000, 'x') + "\\data"}) {
        SCOPED_TRACE(value.substr(0, 200));
        data_.Set(value);
        EXPECT_EQ(Toolkit(), kit + "lib\\");
    }
}

TEST_F(GetCurrentProcessKPTRootFolder, VariableThatCannotBeReadIsPassedOver_Kept) {
    const std::string kit = MakeKit("Kit");
    ASSERT_NE(SetEnvironmentVariableW(
                  L"KPT_DATA_DIR", (std::wstring(L"C:\\") + kNameBeyondAnsi + L"\\data").c_str()),
              0);
    EXPECT_EQ(Toolkit(), kNone);
    plugins_.Set(kit + "plugins");
    EXPECT_EQ(Toolkit(), kit + "lib\\");
}

TEST_F(GetCurrentProcessKPTRootFolder, VariablesAreReadInTheCLocale) {
    ASSERT_NE(SetEnvironmentVariableW(L"KPT_DATA_DIR", L"C:\\kit \u20ac\\data"), 0);
    const std::string kit = MakeKit("Kit");
    plugins_.Set(kit + "plugins");
    EXPECT_EQ(Toolkit(), kit + "lib\\") << "the euro sign is in the code page, not in the locale";
}

TEST_F(GetCurrentProcessKPTRootFolder, MarkerMustBeAFolder_Kept) {
    folder_.MakeFolder("Kit");
    folder_.MakeFolder("Kit\\lib");
    const std::string marker = folder_.Write("Kit\\lib\\CSMAPI.dll", "a library");
    data_.Set(folder_ / "Kit\\data");
    plugins_.Set(folder_ / "Kit\\plugins");
    EXPECT_EQ(Toolkit(), kNone);

    const std::string other = MakeKit("Other");
    plugins_.Set(other + "plugins");
    EXPECT_EQ(Toolkit(), other + "lib\\") << "the first variable's file moves the search on";

    ASSERT_TRUE(std::filesystem::remove(marker));
    EXPECT_EQ(Toolkit(), other + "lib\\");
    MakeAnsiFolder(marker);
    EXPECT_EQ(Toolkit(), folder_ / "Kit\\lib\\") << "a folder of the file's name is accepted";
}

TEST_F(GetCurrentProcessKPTRootFolder, MarkerInAnyLetterCase) {
    const std::string root = folder_.MakeFolder("Kit") + "\\";
    const std::string library = MakeToolkit(root, "csmapi.DLL");
    data_.Set(root + "data");
    EXPECT_EQ(Toolkit(), library);
}

TEST_F(GetCurrentProcessKPTRootFolder, OtherMarkersDoNotCount) {
    const std::string root = folder_.MakeFolder("Kit") + "\\";
    MakeToolkit(root, "CSMAPI");
    data_.Set(root + "data");
    plugins_.Set(root + "plugins");
    EXPECT_EQ(Toolkit(), kNone);
}

TEST_F(GetCurrentProcessKPTRootFolder, TailNeedNotBeAWholeName_Kept) {
    const std::string library = MakeToolkit(folder_ / "my");
    data_.Set(folder_ / "mydata");
    EXPECT_EQ(Toolkit(), library);
    EXPECT_EQ(library, folder_ / "mylib\\");
    data_.Set({});
    plugins_.Set(folder_ / "myplugins\\");
    EXPECT_EQ(Toolkit(), library);
}

TEST_F(GetCurrentProcessKPTRootFolder, BareTailMeansTheCurrentFolder) {
    MakeKit("Kit");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_ / "Kit");
    data_.Set("Data");
    EXPECT_EQ(Toolkit(), "lib\\");
    std::filesystem::current_path(before);
    EXPECT_EQ(Toolkit(), kNone);
}

TEST_F(GetCurrentProcessKPTRootFolder, FolderNamesWithBlanksAndAccents) {
    for (const std::string name : kUnusualNames) {
        SCOPED_TRACE(name);
        const std::string kit = MakeKit(name);
        data_.Set(kit + "data");
        plugins_.Set({});
        EXPECT_EQ(Toolkit(), kit + "lib\\");
        data_.Set({});
        plugins_.Set(Slashed(kit) + "plugins");
        EXPECT_EQ(Toolkit(), kit + "lib\\");
    }
}

TEST_F(GetCurrentProcessKPTRootFolder, PathBeyond260Characters) {
    const LongFolder kit;
    kit.MakeFolder("lib");
    kit.MakeFolder("lib\\CSMAPI.dll");
    data_.Set(kit.Path() + "\\data");
    EXPECT_EQ(Toolkit(), kit.Path() + "\\lib\\");
}

TEST_F(GetCurrentProcessKPTRootFolder, NewTextEachTime) {
    data_.Set(MakeKit("Kit") + "data");
    const Text one(TEVUtilWindows::GetCurrentProcessKPTRootFolder());
    const Text two(TEVUtilWindows::GetCurrentProcessKPTRootFolder());
    EXPECT_EQ(one.str(), two.str());
    EXPECT_NE(one.get(), two.get());
}

TEST_F(GetCurrentProcessKPTRootFolder, LeavesTheVariablesAlone) {
    const std::string value = Slashed(MakeKit("Kit")) + "data";
    data_.Set(value);
    Toolkit();
    EXPECT_EQ(SystemVariable("KPT_DATA_DIR"), value);
    EXPECT_EQ(SystemVariable("CSM_PLUGIN_DIR"), std::nullopt);
}

}  // namespace
