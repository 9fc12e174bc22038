#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gtest/gtest.h>

#include <string>

#include "fault/AllocationFaults.h"
#include "fixtures/Modules.h"
#include "support/Folder.h"
#include "support/PeFile.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::fault::AllocatingFunctions;
using tev::fault::Attempt;

using Explanation = TEVSystemDiagnostics::LoadExplanation;

constexpr const char* kExplains =
    "TEVSystemDiagnostics::ExplainLoadFailure(char const*, char const**, unsigned long long, "
    "TEVSystemDiagnostics::LoadExplanation&)";

void ExplainsAFailure(Attempt& attempt, const tev::test::Folder& folder, const std::string& module,
                      const std::string& culprit) {
    const char* directories[] = {folder.Path().c_str()};
    Explanation explanation;
    explanation.cause = "before";
    const bool explained = attempt.Call([&] {
        return TEVSystemDiagnostics::ExplainLoadFailure(module.c_str(), directories, 1,
                                                        explanation);
    });
    const bool succeeded = attempt.Succeeded(explained);
    EXPECT_EQ(explanation.culprit, succeeded ? culprit : "");
    EXPECT_EQ(explanation.cause.empty(), !succeeded);
}

void ExplainsAMissingModule(Attempt& attempt) {
    const tev::test::Folder folder;
    ExplainsAFailure(attempt, folder, tev::test::CopyModule(folder, "tevneedy"), "tevneeded.dll");
}

void ExplainsAMissingFunction(Attempt& attempt) {
    const tev::test::Folder folder;
    tev::test::CopyTo(folder / "tevneeded.dll", tev::test::Fixture("tevneeded\\tevneeded.dll"));
    ExplainsAFailure(attempt, folder, tev::test::CopyModule(folder, "tevgreedy"), "tevneeded.dll");
}

void ExplainsARefusedStart(Attempt& attempt) {
    const tev::test::Folder folder;
    tev::test::CopyModule(folder, "tevrefusingmore");
    ExplainsAFailure(attempt, folder, tev::test::CopyModule(folder, "tevrefused"),
                     "tevrefusingmore.dll");
}

void ExplainsWhatIsNoModule(Attempt& attempt) {
    const tev::test::Folder folder;
    folder.Write("tevtext.dll", "text");
    const std::string needy =
        folder.Write("tevneedy.dll", tev::test::PeFile({{{"tevtext.dll", {}}}, {}}));
    ExplainsAFailure(attempt, folder, needy, "tevtext.dll");
}

const AllocatingFunctions functions{
    {kExplains, "missing module", ExplainsAMissingModule},
    {kExplains, "missing function", ExplainsAMissingFunction},
    {kExplains, "refused start", ExplainsARefusedStart},
    {kExplains, "no module", ExplainsWhatIsNoModule},
};

}  // namespace
