#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "fixtures/Modules.h"
#include "support/Folder.h"
#include "support/Owned.h"
#include "util/windows/UnusualFolders.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::CopyModule;
using tev::test::CopyTo;
using tev::test::FileNameOf;
using tev::test::Fixture;
using tev::test::Folder;
using tev::test::FolderOf;
using tev::test::kNameBeyondAnsi;
using tev::test::kUnusualNames;
using tev::test::LoadedModule;
using tev::test::LongFolder;
using tev::test::MakeAnsiFolder;
using tev::test::Text;
using tev::test::Wide;

constexpr const char* kMarkers[] = {"Plinth", "SensorSupportDataLib", "MeasureKitLib"};

// The folder found; "(null)" for none.
std::string Root() { return Text(TEVUtilWindows::GetCurrentProcessCorvidRootFolder()).str(); }

constexpr char kNone[] = "(null)";

std::string InCase(int (*change)(int), std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [=](unsigned char c) { return static_cast<char>(change(c)); });
    return text;
}

// A marker module in a folder of its own, loaded for the scope.
class Marker {
 public:
    explicit Marker(const std::string& name)
        : module_(std::make_unique<LoadedModule>(CopyModule(folder_, name))) {}

    std::string Path() const { return folder_.Path() + "\\"; }

 private:
    const Folder folder_;
    std::unique_ptr<LoadedModule> module_;
};

// A marker module in a folder that only the wide functions take, loaded for the scope.
class WideModule {
 public:
    WideModule(const std::wstring& folder, const std::string& name) {
        const std::wstring file = folder + Wide(name + ".dll");
        const std::wstring built = Wide(Fixture(name + "/" + name + ".dll"));
        if (CopyFileW(built.c_str(), file.c_str(), FALSE) != 0)
            module_ = LoadLibraryW(file.c_str());
        if (module_ == nullptr) throw std::runtime_error("cannot copy and load " + name);
    }
    ~WideModule() { FreeLibrary(module_); }
    WideModule(const WideModule&) = delete;
    WideModule& operator=(const WideModule&) = delete;

 private:
    HMODULE module_ = nullptr;
};

// The markers with these numbers, loaded in this order; the folder that must be found is that of
// the smallest number.
void ExpectFirstOf(const std::vector<std::size_t>& loaded) {
    std::vector<std::unique_ptr<Marker>> modules(std::size(kMarkers));
    std::string trace = "loaded:";
    for (const std::size_t i : loaded) {
        modules[i] = std::make_unique<Marker>(kMarkers[i]);
        trace += std::string(" ") + kMarkers[i];
    }
    SCOPED_TRACE(trace);
    const std::size_t first = *std::min_element(loaded.begin(), loaded.end());
    EXPECT_EQ(Root(), modules[first]->Path());
}

TEST(GetCurrentProcessCorvidRootFolder, NullWhenNoMarkerIsLoaded) {
    EXPECT_EQ(TEVUtilWindows::GetCurrentProcessCorvidRootFolder(), nullptr);
    const Marker other("tevplain");
    EXPECT_EQ(TEVUtilWindows::GetCurrentProcessCorvidRootFolder(), nullptr);
}

TEST(GetCurrentProcessCorvidRootFolder, FolderOfAMarkerInAnyLetterCase) {
    for (const std::string marker : kMarkers) {
        const std::string built = Fixture(marker + "/" + marker + ".dll");
        for (const std::string& name :
             {marker + ".dll", InCase(std::toupper, marker + ".dll"),
              InCase(std::tolower, marker + ".dll"), InCase(std::toupper, marker) + ".dll"}) {
            SCOPED_TRACE(name);
            const Folder folder;
            const std::string bin = folder.MakeFolder("Bin") + "\\";
            const LoadedModule module(CopyTo(bin + name, built));
            ASSERT_EQ(FileNameOf(module.get()), bin + name);
            EXPECT_EQ(Root(), bin) << "the folder that holds it, not that folder's parent";
        }
    }
}

TEST(GetCurrentProcessCorvidRootFolder, FirstMarkerWinsWhateverWasLoadedFirst) {
    for (const std::vector<std::size_t>& loaded : std::vector<std::vector<std::size_t>>{
             {0, 2}, {2, 0}, {0, 1}, {1, 0}, {1, 2}, {2, 1}, {0, 1, 2}, {2, 1, 0}, {1, 2, 0}})
        ExpectFirstOf(loaded);
}

TEST(GetCurrentProcessCorvidRootFolder, CountsOnlyWhatIsLoadedNow) {
    const Marker last("MeasureKitLib");
    {
        const Marker first("Plinth");
        EXPECT_EQ(Root(), first.Path());
    }
    EXPECT_EQ(Root(), last.Path());
    {
        const Marker middle("SensorSupportDataLib");
        EXPECT_EQ(Root(), middle.Path());
    }
    EXPECT_EQ(Root(), last.Path());
}

TEST(GetCurrentProcessCorvidRootFolder, MarkersInOneFolder) {
    const Folder folder;
    std::vector<std::unique_ptr<LoadedModule>> modules;
    for (const std::string marker : kMarkers)
        modules.push_back(std::make_unique<LoadedModule>(CopyModule(folder, marker)));
    EXPECT_EQ(Root(), folder.Path() + "\\");
}

TEST(GetCurrentProcessCorvidRootFolder, MarkerLoadedTwiceCountsAsListedLast) {
    const Marker one("Plinth");
    const Marker two("Plinth");
    std::string last;
    ASSERT_TRUE(TEVUtilWindows::RetrieveFullyQualifiedModulePath("\\Plinth.dll",
                                                                 GetCurrentProcessId(), last));
    EXPECT_TRUE(last == one.Path() || last == two.Path()) << last;
    EXPECT_EQ(Root(), last);
}

TEST(GetCurrentProcessCorvidRootFolder, FolderNamesWithBlanksAndAccents) {
    for (const std::string name : kUnusualNames) {
        for (const std::string marker : kMarkers) {
            SCOPED_TRACE(marker + " in " + name);
            const Folder folder;
            const std::string inner = MakeAnsiFolder(folder / name) + "\\";
            const LoadedModule module(
                CopyTo(inner + marker + ".dll", Fixture(marker + "/" + marker + ".dll")));
            EXPECT_EQ(Root(), inner);
        }
    }
}

TEST(GetCurrentProcessCorvidRootFolder, PathBeyond260Characters) {
    const LongFolder folder;
    const std::string inner = folder.Path() + "\\";
    for (const std::string marker : kMarkers) {
        SCOPED_TRACE(marker);
        const WideModule module(Wide(inner), marker);
        EXPECT_EQ(Root(), inner);
    }
}

// The folder's name has no form in the ANSI code page, so what is found is no existing folder.
TEST(GetCurrentProcessCorvidRootFolder, MarkerWhoseFolderIsNotThereIsPassedOver) {
    const Folder folder;
    const std::wstring inner = Wide(folder.Path()) + L"\\" + kNameBeyondAnsi + L"\\";
    ASSERT_NE(CreateDirectoryW(inner.c_str(), nullptr), 0);
    const WideModule module(inner, "Plinth");
    std::string found;
    EXPECT_TRUE(TEVUtilWindows::RetrieveFullyQualifiedModulePath("\\Plinth.dll",
                                                                 GetCurrentProcessId(), found));
    EXPECT_EQ(Root(), kNone);
    const Marker next("MeasureKitLib");
    EXPECT_EQ(Root(), next.Path());
}

TEST(GetCurrentProcessCorvidRootFolder, MarkerIsAWholeFileName) {
    for (const char* name : {"MyPlinth.dll", "Plinth.dlm", "Plinth2.dll", "Plinth_dll.dll"}) {
        SCOPED_TRACE(name);
        const Folder folder;
        const LoadedModule module(CopyTo(folder / name, Fixture("Plinth/Plinth.dll")));
        EXPECT_EQ(Root(), kNone);
    }
}

TEST(GetCurrentProcessCorvidRootFolder, MarkerMayStandAnywhereInThePath_Kept) {
    const Folder folder;
    folder.MakeFolder("Plinth.dll");
    folder.MakeFolder("MeasureKitLib.dll-1");
    for (const char* name :
         {"Plinth.dll\\tevplain.dll", "MeasureKitLib.dll-1\\tevplain.dll", "plinth.dllx.dll"}) {
        SCOPED_TRACE(name);
        const LoadedModule module(CopyTo(folder / name, Fixture("tevplain/tevplain.dll")));
        EXPECT_EQ(Root(), folder.Path() + "\\");
    }
}

TEST(GetCurrentProcessCorvidRootFolder, NewTextEachTime) {
    const Marker marker("Plinth");
    const Text one(TEVUtilWindows::GetCurrentProcessCorvidRootFolder());
    const Text two(TEVUtilWindows::GetCurrentProcessCorvidRootFolder());
    EXPECT_EQ(one.str(), two.str());
    EXPECT_NE(one.get(), two.get());
}

TEST(GetFullyQualifiedExePath, FolderOfTheProgramWithoutItsName_Kept) {
    const std::string program = FileNameOf(nullptr);
    Text folder;
    ASSERT_TRUE(TEVUtilWindows::GetFullyQualifiedExePath(folder.Out()));
    EXPECT_EQ(folder.str(), FolderOf(program));
    EXPECT_EQ(folder.str().back(), '\\');
    EXPECT_LT(folder.str().size(), program.size());
    EXPECT_TRUE(TEVUtilWindows::DirectoryExists(folder.get()));
}

TEST(GetFullyQualifiedExePath, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::GetFullyQualifiedExePath(nullptr));
}

TEST(GetFullyQualifiedExePath, OverwritesTheOutputWithANewBuffer) {
    char held[] = "held";
    char* folder = held;
    ASSERT_TRUE(TEVUtilWindows::GetFullyQualifiedExePath(&folder));
    EXPECT_NE(folder, held);
    EXPECT_STREQ(held, "held");
    TEVUtilMemory::DeallocateCharArray(&folder);
    EXPECT_EQ(folder, nullptr);
}

}  // namespace
