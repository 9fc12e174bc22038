#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "TEVSystemLib/system/detail/DirectivePlan.h"
#include "TEVSystemLib/system/detail/StoreTables.h"

namespace TAMO::TEV::System::detail {

namespace {

using Util::TEVUtilWindows;

// The environment of this process.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, never deleted by its base.
class ThisSession final : public VariableSession {
 public:
    bool Exists(const std::string& name) override {
        return TEVUtilWindows::EnvironmentVariableExists(name.c_str());
    }
    bool Set(const std::string& name, const char* value) override {
        return TEVUtilWindows::SetSessionEnvironmentVariable(name.c_str(), value);
    }
    bool Modify(const std::string& name, const std::string& element, bool prepend,
                int operation) override {
        return TEVUtilWindows::ModifySessionEnvironmentVariable(name.c_str(), element.c_str(),
                                                                prepend, operation);
    }
};

}  // namespace

void ExecuteDirectives(const Properties& system) {
    const auto folderExists = [](const std::string& folder) {
        return TEVUtilWindows::DirectoryExists(folder.c_str());
    };
    ThisSession session;
    // Refusals are not errors: the next directive is executed all the same.
    for (const Directive& directive : PlanDirectives(system, folderExists))
        Execute(directive, session);
}

}  // namespace TAMO::TEV::System::detail
