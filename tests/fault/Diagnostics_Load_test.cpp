// The explanation of a load when the system refuses what the files allow.
#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "TEVSystemLib/system/detail/LoaderState.h"
#include "fault/FaultyFiles.h"
#include "fault/SystemCalls.h"
#include "fixtures/Modules.h"
#include "support/Folder.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using TAMO::TEV::System::detail::ReadModuleFile;
using tev::fault::Fail;
using tev::fault::FailNth;
using tev::fault::FaultyFiles;
using tev::fault::FileCall;
using tev::fault::Replace;

namespace calls = tev::fault::calls;

using Explanation = TEVSystemDiagnostics::LoadExplanation;
using Problem = TEVSystemDiagnostics::LoadProblem;

constexpr DWORD kStartRefused = 1114;

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

TEST_F(LoadExplanationFaults, StartThatIsRefusedOnceOnlyIsUnexplained) {
    const auto refusesOnce = FailNth(0, calls::LoadLibraryA, nullptr, kStartRefused);
    const Explanation explanation = Explain();
    EXPECT_EQ(explanation.code, kStartRefused);
    EXPECT_EQ(explanation.problem, Problem::Unexplained);
    EXPECT_EQ(explanation.culprit, plain_);
}

TEST_F(LoadExplanationFaults, CodeWithoutAMessageIsNamedAlone) {
    const auto noMessage = Fail(calls::FormatMessageW, 0U, ERROR_MR_MID_NOT_FOUND);
    const auto refuses = Fail(calls::LoadLibraryA, nullptr, 0x20000001);
    const Explanation explanation = Explain();
    EXPECT_EQ(explanation.code, 0x20000001U);
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
