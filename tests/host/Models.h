#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "TEVSystemLib/system/detail/ConfigurationModel.h"

namespace tev::test {

// Models of configurations in which the folder C:\kit is the only one, of files in the folders S/
// and U/.
class Models {
 public:
    using Model = TAMO::TEV::System::detail::ConfigurationModel;
    using Variables = std::map<std::string, std::string>;

    explicit Models(Variables variables = {}) : variables_(std::move(variables)) {}

    Model Make(const std::string& system, const std::optional<std::string>& user = {}) const {
        using namespace TAMO::TEV::System::detail;
        const auto read = [variables = variables_](const std::string& name) {
            const auto found = variables.find(name);
            return found == variables.end() ? std::nullopt : std::optional(found->second);
        };
        const auto folderExists = [](const std::string& folder) { return folder == "C:\\kit"; };
        const auto readBack = [](const std::string& value) {
            return value == "unreadable" ? std::nullopt : std::optional(value);
        };
        return Model(ScanFile(SystemFileIn("S/"), system),
                     ScanFile(UserFileIn(user ? "U/" : ""), user.value_or("")),
                     {read, folderExists, readBack});
    }

 private:
    Variables variables_;
};

}  // namespace tev::test
