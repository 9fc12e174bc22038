#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <vector>

// What a tree of modules says about their load.
namespace TAMO::TEV::System::detail {

// What stops the load of a tree first, with the modules that lead there.
struct ModuleFault {
    TEVSystemDiagnostics::LoadProblem problem = TEVSystemDiagnostics::LoadProblem::None;
    const TEVSystemDiagnostics::Module* culprit = nullptr;
    // The module that asks for the culprit; null for the root.
    const TEVSystemDiagnostics::Module* parent = nullptr;
};

ModuleFault FirstFault(const TEVSystemDiagnostics::Module& root);

// The modules found that are not the system's, each behind those that it needs: in the order in
// which their start routines run.
std::vector<const TEVSystemDiagnostics::Module*> StartOrder(
    const TEVSystemDiagnostics::Module& root);

}  // namespace TAMO::TEV::System::detail
