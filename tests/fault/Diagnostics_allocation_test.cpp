#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gtest/gtest.h>

#include <string>

#include "fault/AllocationFaults.h"
#include "fixtures/Modules.h"
#include "support/Folder.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::fault::AllocatingFunctions;
using tev::fault::Attempt;

using Explanation = TEVSystemDiagnostics::LoadExplanation;

void ExplainsAFailure(Attempt& attempt) {
    const tev::test::Folder folder;
    const std::string needy = tev::test::CopyModule(folder, "tevneedy");
    const char* directories[] = {folder.Path().c_str()};
    Explanation explanation;
    explanation.cause = "before";
    const bool explained = attempt.Call([&] {
        return TEVSystemDiagnostics::ExplainLoadFailure(needy.c_str(), directories, 1, explanation);
    });
    const bool succeeded = attempt.Succeeded(explained);
    EXPECT_EQ(explanation.culprit, succeeded ? "tevneeded.dll" : "");
    EXPECT_EQ(explanation.cause.empty(), !succeeded);
}

const AllocatingFunctions functions{
    {"TEVSystemDiagnostics::ExplainLoadFailure(char const*, char const**, unsigned long long, "
     "TEVSystemDiagnostics::LoadExplanation&)",
     "", ExplainsAFailure},
};

}  // namespace
