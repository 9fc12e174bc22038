#include "TEVSystemLib/system/detail/ModuleFault.h"

namespace TAMO::TEV::System::detail {

namespace {

using Module = TEVSystemDiagnostics::Module;
using State = TEVSystemDiagnostics::ModuleState;
using Problem = TEVSystemDiagnostics::LoadProblem;

Problem ProblemOf(State state) {
    switch (state) {
        case State::Missing:
            return Problem::ModuleMissing;
        case State::Unreadable:
        case State::NotAModule:
            return Problem::NotAModule;
        case State::OtherMachine:
            return Problem::OtherMachine;
        default:
            return Problem::None;
    }
}

// A module is loaded with all that it needs before its functions are asked for.
ModuleFault FaultOf(const Module& module, const Module* parent) {
    if (module.isDelayed) return {};
    if (const Problem problem = ProblemOf(module.state); problem != Problem::None)
        return {problem, &module, parent};
    for (const Module& import : module.imports)
        if (const ModuleFault fault = FaultOf(import, &module); fault.culprit != nullptr)
            return fault;
    if (!module.missingFunctions.empty()) return {Problem::FunctionMissing, &module, parent};
    return {};
}

void AddStarts(const Module& module, std::vector<const Module*>& starts) {
    if (module.isDelayed || module.state != State::Found) return;
    for (const Module& import : module.imports) AddStarts(import, starts);
    starts.push_back(&module);
}

}  // namespace

ModuleFault FirstFault(const Module& root) { return FaultOf(root, nullptr); }

std::vector<const Module*> StartOrder(const Module& root) {
    std::vector<const Module*> starts;
    AddStarts(root, starts);
    return starts;
}

}  // namespace TAMO::TEV::System::detail
