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
using tev::fault::Prepare;

using Explanation = TEVSystemDiagnostics::LoadExplanation;

struct NeedyModule {
    const tev::test::Folder folder;
    const std::string path = tev::test::CopyModule(folder, "tevneedy");
};

void ExplainsAFailure(Attempt& attempt) {
    const NeedyModule& needy = attempt.Ready<NeedyModule>();
    const char* directories[] = {needy.folder.Path().c_str()};
    Explanation explanation;
    explanation.cause = "before";
    const bool explained = attempt.Call([&] {
        return TEVSystemDiagnostics::ExplainLoadFailure(needy.path.c_str(), directories, 1,
                                                        explanation);
    });
    const bool succeeded = attempt.Succeeded(explained);
    EXPECT_EQ(explanation.culprit, succeeded ? "tevneeded.dll" : "");
    EXPECT_EQ(explanation.cause.empty(), !succeeded);
}

const AllocatingFunctions functions{
    {"TEVSystemDiagnostics::ExplainLoadFailure(char const*, char const**, unsigned long long, "
     "TEVSystemDiagnostics::LoadExplanation&)",
     "", ExplainsAFailure, Prepare<NeedyModule>},
};

}  // namespace
