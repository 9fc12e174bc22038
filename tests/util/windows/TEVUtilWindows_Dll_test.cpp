#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "fixtures/HostProgram.h"
#include "fixtures/Modules.h"
#include "support/Environment.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::CopyModule;
using tev::test::FileNameOf;
using tev::test::Fixture;
using tev::test::Folder;
using tev::test::FolderOf;
using tev::test::HostProgram;
using tev::test::SystemVariable;
using tev::test::Text;
using tev::test::Variable;

constexpr char kLibrary[] = "TEVSystemLib.dll";

TEST(OwnModule, IsFoundByItsName) {
    const std::string expected = FileNameOf(GetModuleHandleA(kLibrary));
    ASSERT_NE(expected, "");
    EXPECT_EQ(Text(TEVUtilWindows::GetModuleFullyQualifiedName(kLibrary)).str(), expected);
    EXPECT_EQ(Text(TEVUtilWindows::GetModuleFullyQualifiedPath(kLibrary)).str(),
              FolderOf(expected));
}

TEST(OwnModule, IsFoundAmongTheModulesOfTheProcess) {
    std::string folder;
    EXPECT_TRUE(TEVUtilWindows::RetrieveFullyQualifiedModulePath("\\tevsystemlib.DLL",
                                                                 GetCurrentProcessId(), folder));
    EXPECT_EQ(folder, FolderOf(FileNameOf(GetModuleHandleA(kLibrary))));
}

TEST(OtherProcess, ModulesAreFoundByItsId) {
    const Folder folder;
    const std::string plinth = CopyModule(folder, "Plinth");
    const Variable path("PATH",
                        FolderOf(FileNameOf(nullptr)) + ";" + SystemVariable("PATH").value_or(""));
    HostProgram host(Fixture("tevhost/tevhost.exe"), {"load:" + plinth, "hold"});
    ASSERT_EQ(host.ReadLine(), "loaded");
    ASSERT_EQ(host.ReadLine(), "ready");
    std::string found;
    EXPECT_TRUE(TEVUtilWindows::RetrieveFullyQualifiedModulePath("\\Plinth.dll", host.Id(), found));
    EXPECT_EQ(found, folder.Path() + "\\");
    EXPECT_FALSE(TEVUtilWindows::RetrieveFullyQualifiedModulePath("\\Plinth.dll",
                                                                  GetCurrentProcessId(), found));
    EXPECT_EQ(found, "") << "this process has not loaded it";
    EXPECT_EQ(host.End(), 0U);
}

TEST(OtherProcess, SeesWhatWasSetForTheSession) {
    const Variable path("PATH",
                        FolderOf(FileNameOf(nullptr)) + ";" + SystemVariable("PATH").value_or(""));
    const Variable variable("TEV_TEST_VARIABLE");
    for (const char* value : {"value", static_cast<const char*>(nullptr)}) {
        ASSERT_TRUE(TEVUtilWindows::SetSessionEnvironmentVariable("TEV_TEST_VARIABLE", value));
        HostProgram host(Fixture("tevhost/tevhost.exe"), {"env:TEV_TEST_VARIABLE"});
        EXPECT_EQ(host.ReadLine(), value == nullptr ? "absent" : value);
        EXPECT_EQ(host.End(), 0U);
    }
}

}  // namespace
