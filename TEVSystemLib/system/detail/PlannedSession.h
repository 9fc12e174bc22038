#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "TEVSystemLib/system/detail/DirectivePlan.h"
#include "TEVSystemLib/system/detail/PropertyTables.h"

namespace TAMO::TEV::System::detail {

// How a value or a name reads once it is set; nothing for one that cannot be read.
using ReadBack = std::function<std::optional<std::string>(const std::string& text)>;

// An environment that takes changes and keeps them to itself.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, never deleted by its base.
class PlannedSession final : public VariableSession {
 public:
    PlannedSession(VariableReader readVariable, ReadBack readBack);

    std::optional<std::string> Read(const std::string& name) const;
    bool Exists(const std::string& name) override;
    bool Set(const std::string& name, const char* value) override;
    bool Modify(const std::string& name, const std::string& element, bool prepend,
                int operation) override;

 private:
    VariableReader readVariable_;
    ReadBack readBack_;
    std::map<std::string, std::optional<std::string>> changed_;
};

}  // namespace TAMO::TEV::System::detail
