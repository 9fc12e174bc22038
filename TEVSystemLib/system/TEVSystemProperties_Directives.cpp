#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "TEVSystemLib/system/detail/DirectivePlan.h"
#include "TEVSystemLib/system/detail/PropertyTables.h"

namespace TAMO::TEV::System::detail {

namespace {

using Util::TEVUtilWindows;

enum ListOperation : int { Add = 0, Remove = 1 };

// Refusals are not errors: the next directive is executed all the same.
void Execute(const Directive& directive) {
    const char* variable = directive.variable.c_str();
    const char* value = directive.value.c_str();
    const auto exists = [variable] { return TEVUtilWindows::EnvironmentVariableExists(variable); };
    switch (directive.kind) {
        case DirectiveKind::Add:
            TEVUtilWindows::ModifySessionEnvironmentVariable(variable, value, false, Add);
            break;
        case DirectiveKind::AddPath:
            TEVUtilWindows::ModifySessionEnvironmentVariable(variable, value, true, Add);
            break;
        case DirectiveKind::Delete:
            if (exists()) TEVUtilWindows::SetSessionEnvironmentVariable(variable, nullptr);
            break;
        case DirectiveKind::New:
        case DirectiveKind::NewPath:
            TEVUtilWindows::SetSessionEnvironmentVariable(variable, value);
            break;
        case DirectiveKind::Replace:
        case DirectiveKind::ReplacePath:
            if (exists()) TEVUtilWindows::SetSessionEnvironmentVariable(variable, value);
            break;
        case DirectiveKind::RemoveElement:
            if (exists())
                TEVUtilWindows::ModifySessionEnvironmentVariable(variable, value, false, Remove);
            break;
    }
}

}  // namespace

void ExecuteDirectives(const Properties& system) {
    const auto folderExists = [](const std::string& folder) {
        return TEVUtilWindows::DirectoryExists(folder.c_str());
    };
    for (const Directive& directive : PlanDirectives(system, folderExists)) Execute(directive);
}

}  // namespace TAMO::TEV::System::detail
