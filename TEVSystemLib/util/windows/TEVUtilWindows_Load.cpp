#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>

#include <map>
#include <utility>
#include <vector>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"

namespace TAMO::TEV::System::Util {

namespace {

struct SearchDirectoryTraits {
    using Type = DLL_DIRECTORY_COOKIE;
    static DLL_DIRECTORY_COOKIE Invalid() { return nullptr; }
    static void Close(DLL_DIRECTORY_COOKIE cookie) { RemoveDllDirectory(cookie); }
};
// By folder text. A folder that the system refused has a null cookie, which is never given back.
using SearchDirectories = std::map<std::string, detail::Handle<SearchDirectoryTraits>>;

struct LocalMemoryTraits {
    using Type = wchar_t*;
    static wchar_t* Invalid() { return nullptr; }
    static void Close(wchar_t* memory) { LocalFree(memory); }
};

struct LoadOutcome {
    HMODULE module;
    DWORD error;
};

LoadOutcome LoadInOrdinaryOrder(const std::string& name) {
    const HMODULE module = LoadLibraryA(name.c_str());
    const DWORD error = GetLastError();
    return {module, error};
}

std::vector<std::string> ExistingFolders(char const** dirs, std::uint64_t count) {
    std::vector<std::string> folders;
    for (std::uint64_t i = 0; dirs != nullptr && i < count; ++i) {
        std::string folder(detail::TrimIfSpaced(detail::OrEmpty(dirs[i])));
        if (TEVIO::dirExists(folder)) folders.push_back(std::move(folder));
    }
    return folders;
}

LoadOutcome LoadWithFolders(const std::string& name, const std::vector<std::string>& folders) {
    const std::wstring wideName = detail::FromAnsi(name);
    SearchDirectories added;
    for (const std::string& folder : folders) {
        const std::wstring wide = detail::FromAnsi(folder);
        if (added.count(folder) != 0) continue;
        detail::Handle<SearchDirectoryTraits> cookie(AddDllDirectory(wide.c_str()));
        added.emplace(folder, std::move(cookie));
    }
    const HMODULE module =
        LoadLibraryExW(wideName.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    const DWORD error = GetLastError();
    return {module, error};
}

// Null when the system has no message, or the C locale lacks a character of it.
detail::OwnedText SystemMessage(DWORD error) {
    wchar_t* message = nullptr;
    FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
        reinterpret_cast<wchar_t*>(&message), 0, nullptr);
    const detail::Handle<LocalMemoryTraits> owned(message);
    return detail::ToLocaleIfPossible(message);
}

std::string Explain(DWORD error) {
    if (error == ERROR_SUCCESS) return {};
    const std::string text = "Error code returned from the Windows system = " +
                             TEVUtilString::ToString(static_cast<long>(error));
    const detail::OwnedText message = SystemMessage(error);
    return message ? text + ".\nWindows System error message: " + message.get() : text + ".";
}

}  // namespace

bool TEVUtilWindows::LoadModule(char const* const name, HINSTANCE__*& module, std::string& error,
                                char const** dirs, std::uint64_t count) try {
    error.clear();
    module = nullptr;
    const std::string path = detail::NormalisedPath(detail::OrEmpty(name));
    if (path.empty()) return false;
    const auto folders = ExistingFolders(dirs, count);
    const LoadOutcome outcome =
        folders.empty() ? LoadInOrdinaryOrder(path) : LoadWithFolders(path, folders);
    module = outcome.module;
    if (module == nullptr) error = Explain(outcome.error);
    return module != nullptr;
} catch (...) {
    return false;
}

bool TEVUtilWindows::LoadModule(char const* const name, HINSTANCE__*& module, char const** dirs,
                                std::uint64_t count, int* code) try {
    if (code != nullptr) *code = -1;
    module = nullptr;
    const std::string path = detail::NormalisedPath(detail::OrEmpty(name));
    if (path.empty()) return false;
    const auto folders = ExistingFolders(dirs, count);
    if (folders.empty()) {
        const LoadOutcome outcome = LoadInOrdinaryOrder(path);
        module = outcome.module;
        // KEEP: the last error also after a success; hosts look at the result first.
        if (code != nullptr) *code = static_cast<int>(outcome.error);
        return module != nullptr;
    }
    module = LoadWithFolders(path, folders).module;
    if (code == nullptr) return module != nullptr;
    *code = 0;
    if (module == nullptr) {
        // KEEP: only a caller that asks for the code gets the second attempt.
        const LoadOutcome outcome = LoadInOrdinaryOrder(path);
        module = outcome.module;
        *code = static_cast<int>(outcome.error);
    }
    return module != nullptr;
} catch (...) {
    return false;
}

void TEVUtilWindows::FreeModuleHandle(HINSTANCE__*& module) {
    if (module != nullptr) FreeLibrary(module);
    module = nullptr;
}

}  // namespace TAMO::TEV::System::Util
