#pragma once

#include <optional>
#include <string>

namespace tev::test {

// The variable's value as the system holds it; nothing when it is not set. Reads past the library.
std::optional<std::string> SystemVariable(const std::string& name);

// Sets a variable, or removes it when there is no value, in the system's environment and the C
// runtime's; puts the old state back at the end of the scope.
class Variable {
 public:
    explicit Variable(std::string name, const std::optional<std::string>& value = std::nullopt);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    void Set(const std::optional<std::string>& value) const;

 private:
    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace tev::test
