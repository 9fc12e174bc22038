#include "support/Environment.h"

#include <windows.h>

#include <cstdlib>

namespace tev::test {

std::optional<std::string> SystemVariable(const std::string& name) {
    std::string value(32767, '\0');
    SetLastError(ERROR_SUCCESS);
    const DWORD length = GetEnvironmentVariableA(name.c_str(), value.data(), 32767);
    if (length == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
    value.resize(length);
    return value;
}

Variable::Variable(std::string name, const std::optional<std::string>& value)
    : name_(std::move(name)), before_(SystemVariable(name_)) {
    Set(value);
}

Variable::~Variable() { Set(before_); }

void Variable::Set(const std::optional<std::string>& value) const {
    _putenv_s(name_.c_str(), value ? value->c_str() : "");
    SetEnvironmentVariableA(name_.c_str(), value ? value->c_str() : nullptr);
}

}  // namespace tev::test
