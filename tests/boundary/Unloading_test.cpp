#include <TEVSystemLib/system/TEVSystemProperties.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boundary/Footprint.h"
#include "fixtures/HostProgram.h"
#include "fixtures/SecondLibrary.h"
#include "support/Environment.h"
#include "support/Folder.h"

namespace {

using TAMO::TEV::System::TEVSystemProperties;
using TAMO::TEV::System::Util::TEVUtilString;
using ::testing::ElementsAre;
using tev::test::CopyTo;
using tev::test::FileNameOf;
using tev::test::Fixture;
using tev::test::Folder;
using tev::test::FolderOf;
using tev::test::Footprint;
using tev::test::HostProgram;
using tev::test::LibraryFile;
using tev::test::LoadedLibrary;
using tev::test::SystemVariable;
using tev::test::Variable;

constexpr int kLoads = 1000;
constexpr int kWarmUpLoads = 50;
// What the system itself may keep for good; measured under Wine 8 is 0.
constexpr std::int64_t kToleranceBlocks = 16;
constexpr std::int64_t kToleranceBytes = 4096;

void UseTheStore(const LoadedLibrary& library) {
    library.Of (&TEVSystemProperties::InitializeProperties)();
    const char* value = nullptr;
    EXPECT_TRUE(library.Of(&TEVSystemProperties::GetProperty)("a", value));
    EXPECT_STREQ(value, "1");
    EXPECT_TRUE(library.Of(&TEVSystemProperties::SetUserProperty)("b", "2"));
}

// A copy of the library and a properties file for its store. The test program itself keeps the
// first library, and with it GDAL and the C++ runtime: what is counted is the library's own.
class Unloading : public ::testing::Test {
 protected:
    template <typename Use>
    Footprint Growth(int loads, Use use) const {
        for (int i = 0; i < kWarmUpLoads; ++i) use(LoadedLibrary(file_));
        const Footprint before = tev::test::Now();
        for (int i = 0; i < loads; ++i) use(LoadedLibrary(file_));
        const Footprint after = tev::test::Now();
        return {after.heapBytes - before.heapBytes, after.heapBlocks - before.heapBlocks,
                after.handles - before.handles};
    }

    const Folder folder_;
    const std::string properties_ = folder_.Write("tev.system.properties", "a=1\n");
    const Variable systemVariable_{"TEV_SYS_CONFIG_DIR", folder_.Path()};
    const Variable userVariable_{"TEV_USER_CONFIG_DIR"};
    const std::string file_ = CopyTo(folder_ / "Second.dll", LibraryFile());
};

void ExpectNone(const Footprint& growth) {
    EXPECT_LE(growth.heapBlocks, kToleranceBlocks);
    EXPECT_LE(growth.heapBytes, kToleranceBytes);
    EXPECT_LE(growth.handles, 0);
}

TEST_F(Unloading, LeavesNothingBehind) {
    ExpectNone(Growth(kLoads, [](const LoadedLibrary&) {}));
}

TEST_F(Unloading, LeavesNothingBehindOfTheStore) { ExpectNone(Growth(kLoads, UseTheStore)); }

// The measure itself: it sees what stays behind.
TEST_F(Unloading, IsMeasuredToTheBlockAndTheHandle) {
    constexpr int kFew = 3 * kToleranceBlocks;
    std::vector<void*> blocks;
    std::vector<HANDLE> handles;
    blocks.reserve(kFew + kWarmUpLoads);
    handles.reserve(kFew + kWarmUpLoads);
    const Footprint growth = Growth(kFew, [&](const LoadedLibrary&) {
        blocks.push_back(::operator new(8));
        handles.push_back(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    });
    for (void* block : blocks) ::operator delete(block);
    for (const HANDLE handle : handles) CloseHandle(handle);
    EXPECT_GT(growth.heapBlocks, kToleranceBlocks);
    EXPECT_EQ(growth.handles, kFew);
}

// A program that is linked with nothing of the library: GDAL and the C++ runtime go with it.
TEST_F(Unloading, IsCleanInAProgramWithoutTheRuntime) {
    const Variable path("PATH",
                        FolderOf(FileNameOf(nullptr)) + ";" + SystemVariable("PATH").value_or(""));
    HostProgram guest(Fixture("tevguest/tevguest.exe"), {LibraryFile(), "3"});
    std::vector<std::string> lines;
    for (std::string line = guest.ReadLine(); !line.empty(); line = guest.ReadLine())
        lines.push_back(line);
    EXPECT_THAT(lines, ElementsAre("a=1, unloaded", "a=1, unloaded", "a=1, unloaded", "end"));
    EXPECT_EQ(guest.End(), 0U);
}

}  // namespace
