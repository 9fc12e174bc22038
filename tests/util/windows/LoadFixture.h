#pragma once

#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "fixtures/Modules.h"
#include "support/Folder.h"

namespace tev::test {

using Directories = std::vector<const char*>;

constexpr int kModuleNotFound = 126;
constexpr int kBadExecutableFormat = 193;
constexpr int kInitialisationFailed = 1114;
constexpr int kUntouched = -77;

// What a load gives; the module is released at the end of the scope.
struct Load {
    // Loads in the text form.
    explicit Load(const char* name, Directories directories = {}) {
        error = "before";
        isLoaded = TAMO::TEV::System::Util::TEVUtilWindows::LoadModule(
            name, module, error, directories.data(), directories.size());
    }
    // Loads in the code form; without a code it passes a null.
    Load(const char* name, std::optional<int> initialCode, Directories directories = {})
        : code(initialCode.value_or(0)) {
        isLoaded = TAMO::TEV::System::Util::TEVUtilWindows::LoadModule(
            name, module, directories.data(), directories.size(), initialCode ? &code : nullptr);
    }
    ~Load() {
        if (module != nullptr && module != GetModuleHandleA(nullptr)) FreeLibrary(module);
    }
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

    // Before the call: a handle that the call must not leave behind.
    HINSTANCE__* module = GetModuleHandleA(nullptr);
    std::string error;
    int code = 0;
    bool isLoaded = false;
};

// A load without code, whose result says nothing more.
constexpr std::optional<int> kNoCode = std::nullopt;

inline std::string Slashed(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

// A folder with a copy of tevplain.dll.
class Loading : public ::testing::Test {
 protected:
    // True when the system's search without PATH finds the module.
    static bool IsInSearchPath(const wchar_t* name) {
        const HMODULE module = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
        if (module != nullptr) FreeLibrary(module);
        return module != nullptr;
    }

    const Folder folder_;
    const std::string plain_ = CopyModule(folder_, "tevplain");
};

// A module, and the one that it imports from in another folder.
class LoadingNeedy : public Loading {
 protected:
    LoadingNeedy() { CopyModule(needed_, "tevneeded"); }

    const Folder needed_;
    const std::string needy_ = CopyModule(folder_, "tevneedy");
};

}  // namespace tev::test
