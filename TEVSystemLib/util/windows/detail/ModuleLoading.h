#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "TEVSystemLib/util/windows/detail/Handle.h"

struct HINSTANCE__;  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): Windows

// Loads of modules by the system. Names and folders are in the ANSI code page.
namespace TAMO::TEV::System::Util::detail {

struct LoadOutcome {
    HINSTANCE__* module;
    unsigned long error;
};

struct LocalMemoryTraits {
    using Type = wchar_t*;
    static wchar_t* Invalid() { return nullptr; }
    static void Close(wchar_t* memory);
};
using LocalText = Handle<LocalMemoryTraits>;

// The folders of the array that exist, trimmed if a plain space stands at an end.
std::vector<std::string> ExistingFolders(char const** dirs, std::uint64_t count);

// Without folders in the system's ordinary order, else with them and without PATH.
LoadOutcome LoadBySystem(const std::string& name, const std::vector<std::string>& folders);
LoadOutcome LoadInOrdinaryOrder(const std::string& name);

// Those of the folders that the system takes as search directories, in the order of adding.
std::vector<std::string> AcceptedFolders(const std::vector<std::string>& folders);

// Null when the system has no message.
LocalText SystemMessage(unsigned long error);

}  // namespace TAMO::TEV::System::Util::detail
