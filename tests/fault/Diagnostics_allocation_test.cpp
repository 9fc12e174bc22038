#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gtest/gtest.h>

#include <string>

#include "TEVSystemLib/system/detail/LoadCause.h"
#include "fault/AllocationFaults.h"
#include "fault/TextRows.h"
#include "fixtures/Modules.h"
#include "support/Folder.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::fault::AllocatingFunctions;
using tev::fault::Attempt;
using tev::fault::Prepare;

using Explanation = TEVSystemDiagnostics::LoadExplanation;
using Module = TEVSystemDiagnostics::Module;
using Problem = TEVSystemDiagnostics::LoadProblem;

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

// The text in front of the closing parenthesis fills what it has room for, so that this allocates.
template <Problem kProblem>
void TellsTheCause(Attempt& attempt) {
    Module root;
    root.name = root.file = "C:\\root.dll";
    Module culprit;
    culprit.name = "lib.dll";
    culprit.file = "C:\\some folder\\my.dll";
    ASSERT_EQ((culprit.name + " (" + culprit.file).size(), 30U);
    culprit.flaw = "a flaw that is longer than what a string keeps in itself";
    Explanation explanation;
    explanation.name = root.name;
    explanation.code = 1114;
    attempt.Call([&] {
        TAMO::TEV::System::detail::ConcludeLoad({kProblem, &culprit, &root}, explanation);
    });
    const std::string named = "lib.dll (" + culprit.file + ")";
    if (!attempt.Succeeded(explanation.cause.find(named) != std::string::npos))
        tev::fault::ByBadAlloc(attempt);
}

constexpr const char* kFunction =
    "TEVSystemDiagnostics::ExplainLoadFailure(char const*, char const**, unsigned long long, "
    "TEVSystemDiagnostics::LoadExplanation&)";

const AllocatingFunctions functions{
    {kFunction, "", ExplainsAFailure, Prepare<NeedyModule>},
    {kFunction, "start refused", TellsTheCause<Problem::StartRefused>},
    {kFunction, "not a module", TellsTheCause<Problem::NotAModule>},
};

}  // namespace
