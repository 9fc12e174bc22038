#pragma once

#include <windows.h>

#include <cstdlib>
#include <string>

#include "Files.h"

// Variables of this process, in the system and in the C runtime's copy.
namespace tev::bench {

// An empty value removes the variable.
inline void SetVariable(const std::string& name, const std::string& value) {
    SetEnvironmentVariableA(name.c_str(), value.empty() ? nullptr : value.c_str());
    _putenv_s(name.c_str(), value.c_str());
}

// Those of the C runtime whose names begin so.
inline Pairs VariablesNamed(const std::string& prefix) {
    Pairs all;
    for (char** entry = _environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::size_t split = text.find('=', 1);
        if (text.compare(0, prefix.size(), prefix) == 0)
            all.emplace(text.substr(0, split), text.substr(split + 1));
    }
    return all;
}

}  // namespace tev::bench
