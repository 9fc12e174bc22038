// The explanation of a load when the system refuses what the files allow, or memory is exhausted.
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <string>

#include "TEVSystemLib/system/detail/LoadCause.h"
#include "TEVSystemLib/system/detail/LoaderState.h"
#include "fault/AllocationFaults.h"
#include "fault/FaultyFiles.h"
#include "fault/SystemCalls.h"
#include "fixtures/Modules.h"
#include "support/Folder.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::detail::ConcludeLoad;
using TAMO::TEV::System::detail::ModuleFault;
using TAMO::TEV::System::detail::ReadModuleFile;
using tev::fault::Attempt;
using tev::fault::Fail;
using tev::fault::FailNth;
using tev::fault::Fault;
using tev::fault::FaultyFiles;
using tev::fault::FileCall;
using tev::fault::Mode;

namespace calls = tev::fault::calls;

using Explanation = TEVSystemDiagnostics::LoadExplanation;
using Module = TEVSystemDiagnostics::Module;
using Problem = TEVSystemDiagnostics::LoadProblem;

constexpr DWORD kStartRefused = 1114;
constexpr DWORD kUnknownCode = 15998;

class LoadExplanationFaults : public ::testing::Test {
 protected:
    Explanation Explain() const {
        Explanation explanation;
        EXPECT_TRUE(
            TEVSystemDiagnostics::ExplainLoadFailure(plain_.c_str(), nullptr, 0, explanation));
        return explanation;
    }

    const tev::test::Folder folder_;
    const std::string plain_ = tev::test::CopyModule(folder_, "tevplain");
};

TEST_F(LoadExplanationFaults, RefusalWithoutAFaultInTheFilesIsUnexplained) {
    const auto refuses = Fail(calls::LoadLibraryA, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const Explanation explanation = Explain();
    EXPECT_FALSE(explanation.isLoaded);
    EXPECT_EQ(explanation.problem, Problem::Unexplained);
    EXPECT_EQ(explanation.culprit, plain_);
    EXPECT_NE(explanation.cause.find("the system gives the code 8, " + explanation.message),
              std::string::npos)
        << explanation.cause;
}

TEST_F(LoadExplanationFaults, StartThatIsRefusedOnceIsLaidToTheModuleItself) {
    const auto refusesOnce = FailNth(0, calls::LoadLibraryA, nullptr, kStartRefused);
    const Explanation explanation = Explain();
    EXPECT_EQ(explanation.code, kStartRefused);
    EXPECT_EQ(explanation.problem, Problem::StartRefused);
    EXPECT_EQ(explanation.culprit, plain_);
}

TEST_F(LoadExplanationFaults, StartThatIsRefusedIsNotLaidToWhatLoads) {
    tev::test::CopyModule(folder_, "tevinner");
    tev::test::CopyModule(folder_, "tevmiddle");
    const char* folders[] = {folder_.Path().c_str()};
    const auto refusesOnce = FailNth(0, calls::LoadLibraryExW, nullptr, kStartRefused);
    Explanation explanation;
    EXPECT_TRUE(TEVSystemDiagnostics::ExplainLoadFailure("tevmiddle.dll", folders, 1, explanation));
    EXPECT_EQ(explanation.problem, Problem::StartRefused);
    EXPECT_EQ(explanation.culprit, "tevmiddle.dll");
}

// With nothing written, and with more than the room: the answer is poorer, but it comes.
template <typename Call, typename Result>
void ExpectAnAnswer(Call& call, const char* name, std::initializer_list<Result> failures,
                    const std::string& module) {
    for (const Result& failure : failures) {
        const auto fails = Fail(call, failure, ERROR_INVALID_PARAMETER);
        Explanation explanation;
        EXPECT_TRUE(
            TEVSystemDiagnostics::ExplainLoadFailure(module.c_str(), nullptr, 0, explanation))
            << name;
        EXPECT_NE(explanation.cause, "") << name;
    }
}

TEST_F(LoadExplanationFaults, RefusedQuestionsAboutTheProcessLeaveAnAnswer) {
    const std::initializer_list<DWORD> sizes = {0, 32767};
    const std::initializer_list<UINT> lengths = {0, 32767};
    ExpectAnAnswer(calls::GetCurrentDirectoryW, "current folder", sizes, plain_);
    ExpectAnAnswer(calls::GetDllDirectoryW, "DLL directory", sizes, plain_);
    ExpectAnAnswer(calls::GetModuleFileNameW, "file of a module", sizes, plain_);
    ExpectAnAnswer(calls::GetFullPathNameW, "full path", sizes, plain_);
    ExpectAnAnswer(calls::GetSystemDirectoryW, "system folder", lengths, plain_);
    ExpectAnAnswer(calls::GetWindowsDirectoryW, "Windows folder", lengths, plain_);
    ExpectAnAnswer(calls::GetModuleHandleW, "loaded module", {HMODULE{nullptr}}, plain_);
}

TEST_F(LoadExplanationFaults, LoadedModuleWithoutANameIsLookedForInTheFolders) {
    const auto fails = Fail(calls::GetModuleFileNameW, 0U, ERROR_NOT_ENOUGH_MEMORY);
    Explanation explanation;
    EXPECT_TRUE(TEVSystemDiagnostics::ExplainLoadFailure("kernel32.dll", nullptr, 0, explanation));
    EXPECT_EQ(TAMO::TEV::System::Util::TEVUtilString::ToLower(explanation.module.file),
              "c:\\windows\\system32\\kernel32.dll");
}

TEST_F(LoadExplanationFaults, CodeWithoutAMessageIsNamedAlone) {
    const auto noMessage = Fail(calls::FormatMessageW, 0U, ERROR_MR_MID_NOT_FOUND);
    const auto refuses = Fail(calls::LoadLibraryA, nullptr, kUnknownCode);
    const Explanation explanation = Explain();
    EXPECT_EQ(explanation.code, kUnknownCode);
    EXPECT_EQ(explanation.message, "");
    EXPECT_EQ(explanation.problem, Problem::Unexplained);
}

TEST_F(LoadExplanationFaults, PathThatIsTooLongForTheSystemHasNoFolders) {
    const auto hasPath = [this] {
        for (const auto& folder : Explain().folders)
            if (folder.kind == TEVSystemDiagnostics::FolderKind::Path) return true;
        return false;
    };
    EXPECT_TRUE(hasPath());
    const auto tooLong = Fail(calls::GetEnvironmentVariableW, 32767U);
    EXPECT_FALSE(hasPath());
}

TEST_F(LoadExplanationFaults, ExhaustedMemoryAtTheStartIsAFailure) {
    constexpr std::ptrdiff_t kStart = 16;
    const char* folders[] = {folder_.Path().c_str()};
    for (const char* name : {"tevshort", "a-name-that-is-longer-than-a-short-one"}) {
        for (std::ptrdiff_t i = 0; i < 2 * kStart; ++i) {
            const Fault fault{i / 2, i % 2 == 0 ? Mode::Once : Mode::FromThenOn};
            Explanation explanation;
            Attempt attempt(fault);
            const bool explained = attempt.Call([&] {
                return TEVSystemDiagnostics::ExplainLoadFailure(name, folders, 1, explanation);
            });
            EXPECT_FALSE(attempt.Succeeded(explained)) << fault.n;
            EXPECT_EQ(explanation.cause, "");
        }
    }
}

Module Named(const char* name, const char* file, const char* flaw = "") {
    Module module;
    module.name = name;
    module.file = file;
    module.flaw = flaw;
    return module;
}

Module Lacking(const char* function, const char* forwarder) {
    Module module = Named("a-module-that-is-needed.dll", "C:\\a-module-that-is-needed.dll");
    module.missingFunctions.push_back({function, forwarder});
    return module;
}

// Whether the fault was met; then it was thrown.
bool IsThrown(const ModuleFault& found, const std::string& name, const Fault& fault) {
    Explanation explanation;
    explanation.name = name;
    bool isConcluded = false;
    Attempt attempt(fault);
    attempt.Call([&] {
        ConcludeLoad(found, explanation);
        isConcluded = true;
    });
    EXPECT_EQ(attempt.Succeeded(isConcluded), !attempt.Threw<std::bad_alloc>());
    return attempt.IsFaulted();
}

TEST(ConcludeLoad, ExhaustedMemoryAtAnyStepIsThrown) {
    constexpr const char* kName = "a-module-that-is-needed.dll";
    const Module root = Named("C:\\the-module-that-loads.dll", "C:\\the-module-that-loads.dll");
    const Module sound = Named(kName, "C:\\a-module-that-is-needed.dll");
    const Module flawed = Named(kName, "C:\\a-module-that-is-needed.dll", "it is empty, so to say");
    const Module missing = Named(kName, "");
    const Module withoutFunction = Lacking("AFunctionWithALongName", "");
    const Module withoutForwarded = Lacking("AFunctionWithALongName", "another.FunctionOfTheSame");
    Module unreadable = sound;
    unreadable.state = TEVSystemDiagnostics::ModuleState::Unreadable;
    const ModuleFault faults[] = {
        {Problem::ModuleMissing, &missing, &root},
        {Problem::FunctionMissing, &withoutFunction, &root},
        {Problem::FunctionMissing, &withoutForwarded, &root},
        {Problem::NotAModule, &flawed, &root},
        {Problem::NotAModule, &unreadable, &root},
        {Problem::NotAModule, &root, nullptr},
        {Problem::OtherMachine, &flawed, &root},
        {Problem::StartRefused, &sound, &root},
        {Problem::StartRefused, &root, nullptr},
        {Problem::Unexplained, &root, nullptr},
    };
    for (const ModuleFault& fault : faults)
        for (const Mode mode : {Mode::Once, Mode::FromThenOn})
            for (std::ptrdiff_t n = 0; IsThrown(fault, root.name, {n, mode}); ++n) continue;
}

TEST(ReadModuleFile, GivesTheWholeFileOrNothing) {
    FaultyFiles files;
    const std::string path = files.Add("a.dll", "content");
    EXPECT_EQ(ReadModuleFile(path), "content");
    files.readLimit = 3;
    EXPECT_EQ(ReadModuleFile(path), std::nullopt) << "the file became shorter";
    files.readLimit = FaultyFiles::kTrueSize;
    files.toldSize = (std::uint64_t{1} << 30) + 1;
    EXPECT_EQ(ReadModuleFile(path), std::nullopt) << "no module is so large";
    files.toldSize = FaultyFiles::kTrueSize;
    files.Fail(FileCall::OpenToRead);
    EXPECT_EQ(ReadModuleFile(path), std::nullopt);
    EXPECT_EQ(ReadModuleFile(path), "content") << "the next attempt";
}

}  // namespace
