#include "TEVSystemLib/system/detail/LoadCause.h"

#include "TEVSystemLib/system/detail/LoaderFolders.h"
#include "TEVSystemLib/util/file/detail/PathText.h"

namespace TAMO::TEV::System::detail {

namespace {

using Module = TEVSystemDiagnostics::Module;
using Explanation = TEVSystemDiagnostics::LoadExplanation;
using Problem = TEVSystemDiagnostics::LoadProblem;
using State = TEVSystemDiagnostics::ModuleState;

constexpr unsigned long kStartRefused = 1114;

std::string NameAndFile(const Module& module) {
    const std::string name = FileNameOf(module.name);
    return module.file.empty() ? name : name + " (" + module.file + ')';
}

// The culprit as the subject of a sentence about the root.
std::string Subject(const ModuleFault& fault) {
    if (fault.parent == nullptr) return "it";
    return NameAndFile(*fault.culprit) + ", which " + FileNameOf(fault.parent->name) + " needs,";
}

std::string Missing(const ModuleFault& fault, const Explanation& explanation) {
    if (IsFixedPath(fault.culprit->name)) return "there is no file " + fault.culprit->name;
    std::string what = Subject(fault) + " is in none of the folders searched";
    if (!explanation.onPath.empty())
        return what + "; it lies in " + *Util::detail::FolderOf(explanation.onPath) +
               ", a folder of PATH, but with search directories PATH is not consulted";
    if (!explanation.beside.empty())
        return what + "; it lies beside " + FileNameOf(fault.parent->name) + " in " +
               *Util::detail::FolderOf(explanation.beside) +
               ", but the folder of a module is not searched for what it needs";
    return what;
}

std::string FunctionMissing(const ModuleFault& fault) {
    const auto& functions = fault.culprit->missingFunctions;
    const auto& first = functions.front();
    std::string text = FileNameOf(fault.parent->name) + " asks " + NameAndFile(*fault.culprit) +
                       " for the function " + first.name;
    text += first.forwarder.empty()
                ? ", which it does not export"
                : ", which it forwards to " + first.forwarder + ", where there is none";
    const std::size_t others = functions.size() - 1;
    if (others > 0) text += ", and for " + std::to_string(others) + " more";
    return text;
}

std::string SystemAnswer(const Explanation& explanation) {
    std::string answer = "the system gives the code " + std::to_string(explanation.code);
    if (!explanation.message.empty()) answer += ", " + explanation.message;
    return answer;
}

std::string StartRefused(const ModuleFault& fault, const Explanation& explanation) {
    const std::string whose = fault.parent == nullptr
                                  ? "its start routine (DllMain)"
                                  : "the start routine (DllMain) of " + NameAndFile(*fault.culprit);
    if (explanation.code == kStartRefused) return whose + " refuses this process";
    return whose + " does not come to its end; " + SystemAnswer(explanation);
}

std::string Unexplained(const ModuleFault& fault, const Explanation& explanation) {
    std::string text = "nothing wrong is seen in the files; ";
    if (fault.parent != nullptr)
        text += NameAndFile(*fault.culprit) + " does not load by itself either; ";
    return text + SystemAnswer(explanation);
}

std::string Reason(const ModuleFault& fault, const Explanation& explanation) {
    switch (fault.problem) {
        case Problem::ModuleMissing:
            return Missing(fault, explanation);
        case Problem::FunctionMissing:
            return FunctionMissing(fault);
        case Problem::NotAModule:
            return fault.culprit->state == State::Unreadable
                       ? Subject(fault) + " cannot be read"
                       : Subject(fault) + " is not a module: " + fault.culprit->flaw;
        case Problem::OtherMachine:
            return Subject(fault) + " is built for " + fault.culprit->flaw +
                   ", and this process for 64-bit x64";
        case Problem::StartRefused:
            return StartRefused(fault, explanation);
        default:
            return Unexplained(fault, explanation);
    }
}

std::string WithFullStop(std::string text) { return text.back() == '.' ? text : text + '.'; }

}  // namespace

bool IsFailedStart(unsigned long code) {
    constexpr unsigned long kAccessViolation = 998;
    constexpr unsigned long kStackOverflow = 1001;
    // The code of an exception that is no error of the system's comes as it is.
    constexpr unsigned long kEndOfSystemErrors = 0x10000;
    return code == kStartRefused || code == kAccessViolation || code == kStackOverflow ||
           code >= kEndOfSystemErrors;
}

void ConcludeLoad(const ModuleFault& fault, Explanation& explanation) {
    const std::string last = FileNameOf(explanation.name);
    const std::string& name = last.empty() ? explanation.name : last;
    explanation.problem = fault.problem;
    if (fault.problem == Problem::EmptyName) {
        explanation.cause = "Nothing loads: the name is empty.";
    } else if (fault.culprit == nullptr) {
        explanation.cause = name + " loads.";
    } else {
        explanation.culprit = fault.culprit->name;
        explanation.cause =
            WithFullStop(name +
                         (explanation.isLoaded ? " loads here, but not where the loader is strict: "
                                               : " does not load: ") +
                         Reason(fault, explanation));
    }
}

}  // namespace TAMO::TEV::System::detail
