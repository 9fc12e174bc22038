#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "TEVSystemLib/system/detail/LoadCause.h"
#include "TEVSystemLib/system/detail/LoaderFolders.h"
#include "TEVSystemLib/system/detail/LoaderState.h"
#include "TEVSystemLib/system/detail/ModuleFault.h"
#include "TEVSystemLib/system/detail/ModuleTree.h"
#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/ModuleLoading.h"

namespace TAMO::TEV::System {

namespace {

using Util::TEVUtilWindows;
using Util::detail::FromAnsi;
using Util::detail::FromUtf8;
using Util::detail::LoadOutcome;
using Util::detail::ToAnsi;
using Util::detail::ToUtf8;

using LoadExplanation = TEVSystemDiagnostics::LoadExplanation;
using Problem = TEVSystemDiagnostics::LoadProblem;

// A question to the loader, in the code page in which it is put.
struct Question {
    std::string name;
    // The search directories that exist.
    std::vector<std::string> directories;
};

std::string Utf8(const std::string& ansi) { return ToUtf8(FromAnsi(ansi)); }

std::vector<std::string> Utf8(const std::vector<std::string>& ansi) {
    std::vector<std::string> texts;
    texts.reserve(ansi.size());
    for (const std::string& text : ansi) texts.push_back(Utf8(text));
    return texts;
}

struct Answer {
    bool isLoaded;
    unsigned long code;
};

// Loads and releases.
Answer Load(const std::string& name, const Question& question) {
    LoadOutcome outcome = Util::detail::LoadBySystem(name, question.directories);
    const bool isLoaded = outcome.module != nullptr;
    TEVUtilWindows::FreeModuleHandle(outcome.module);
    return {isLoaded, isLoaded ? 0 : outcome.error};
}

std::vector<std::string> Ignored(char const** dirs, std::uint64_t count,
                                 const std::vector<std::string>& accepted) {
    std::vector<std::string> ignored;
    for (std::uint64_t i = 0; dirs != nullptr && i < count; ++i) {
        const std::string folder(Util::detail::TrimIfSpaced(Util::detail::OrEmpty(dirs[i])));
        bool isAccepted = folder.empty();
        for (const std::string& one : accepted) isAccepted = isAccepted || one == folder;
        if (!isAccepted) ignored.push_back(Utf8(folder));
    }
    return ignored;
}

void DescribeSearch(const Question& question, const detail::LoaderFacts& facts,
                    LoadExplanation& explanation) {
    // As the load does: with a directory that exists, even one that the system refuses.
    explanation.isPathConsulted = question.directories.empty();
    explanation.folders =
        explanation.isPathConsulted
            ? detail::OrdinaryFolders(facts)
            : detail::FoldersWithDirectories(
                  facts, Utf8(Util::detail::AcceptedFolders(question.directories)));
}

// Where else a missing module lies.
void FindElsewhere(const detail::ModuleFault& fault, const detail::LoaderFacts& facts,
                   LoadExplanation& explanation) {
    if (fault.problem != Problem::ModuleMissing) return;
    const auto file = [&](const detail::SearchedFolders& folders) {
        const auto place = detail::FindModule(fault.culprit->name, folders, facts);
        return place ? place->file : std::string();
    };
    if (!explanation.isPathConsulted) explanation.onPath = file(detail::PathFolders(facts));
    if (fault.parent != nullptr) explanation.beside = file(detail::FolderBeside(*fault.parent));
}

// Which of the modules does not start: asked one by one, those that are needed first.
detail::ModuleFault FailedStart(const LoadExplanation& explanation, const Question& question) {
    const TEVSystemDiagnostics::Module& root = explanation.module;
    const bool isStart = detail::IsFailedStart(explanation.code);
    const Problem problem = isStart ? Problem::StartRefused : Problem::Unexplained;
    for (const auto* module : detail::StartOrder(root)) {
        if (module == &root) continue;
        const std::string file = ToAnsi(FromUtf8(module->file));
        if (Load(file, question).code == explanation.code) return {problem, module, &root};
    }
    return {problem, &root, nullptr};
}

detail::ModuleFault FaultOfTheLoad(const LoadExplanation& explanation, const Question& question) {
    const auto fault = detail::FirstFault(explanation.module);
    if (fault.problem != Problem::None || explanation.isLoaded) return fault;
    return FailedStart(explanation, question);
}

void Explain(const Question& question, LoadExplanation& explanation) {
    const detail::LoaderFacts facts = detail::LoaderFactsOfThisProcess();
    DescribeSearch(question, facts, explanation);
    const auto find = [&](const std::string& name) {
        return detail::FindModule(name, explanation.folders, facts);
    };
    explanation.module = detail::MakeModuleTree(explanation.name, {find, detail::ReadModuleFile});
    const Answer answer = Load(question.name, question);
    explanation.isLoaded = answer.isLoaded;
    explanation.code = answer.code;
    if (!explanation.isLoaded) explanation.message = detail::SystemText(explanation.code);
    const auto fault = FaultOfTheLoad(explanation, question);
    FindElsewhere(fault, facts, explanation);
    detail::ConcludeLoad(fault, explanation);
}

}  // namespace

bool TEVSystemDiagnostics::ExplainLoadFailure(char const* name, char const** dirs,
                                              std::uint64_t count,
                                              LoadExplanation& explanation) try {
    explanation = {};
    LoadExplanation result;
    const Question question{Util::detail::NormalisedPath(Util::detail::OrEmpty(name)),
                            Util::detail::ExistingFolders(dirs, count)};
    result.name = Utf8(question.name);
    result.ignoredDirectories =
        Ignored(dirs, count, Util::detail::AcceptedFolders(question.directories));
    if (question.name.empty())
        detail::ConcludeLoad({Problem::EmptyName, nullptr, nullptr}, result);
    else
        Explain(question, result);
    explanation = std::move(result);
    return true;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System
