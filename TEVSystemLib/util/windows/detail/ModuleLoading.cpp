#include "TEVSystemLib/util/windows/detail/ModuleLoading.h"

#include <TEVSystemLib/util/file/TEVIO.h>
#include <windows.h>

#include <map>
#include <utility>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

struct SearchDirectoryTraits {
    using Type = DLL_DIRECTORY_COOKIE;
    static DLL_DIRECTORY_COOKIE Invalid() { return nullptr; }
    static void Close(DLL_DIRECTORY_COOKIE cookie) { RemoveDllDirectory(cookie); }
};
// By folder text. A folder that the system refused has a null cookie, which is never given back.
using SearchDirectories = std::map<std::string, Handle<SearchDirectoryTraits>>;

SearchDirectories Add(const std::vector<std::string>& folders) {
    SearchDirectories added;
    for (const std::string& folder : folders) {
        const std::wstring wide = FromAnsi(folder);
        if (added.count(folder) != 0) continue;
        Handle<SearchDirectoryTraits> cookie(AddDllDirectory(wide.c_str()));
        added.emplace(folder, std::move(cookie));
    }
    return added;
}

LoadOutcome LoadWithFolders(const std::string& name, const std::vector<std::string>& folders) {
    const std::wstring wideName = FromAnsi(name);
    const SearchDirectories added = Add(folders);
    const HMODULE module =
        LoadLibraryExW(wideName.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    const DWORD error = GetLastError();
    return {module, error};
}

}  // namespace

void LocalMemoryTraits::Close(wchar_t* memory) { LocalFree(memory); }

std::vector<std::string> ExistingFolders(char const** dirs, std::uint64_t count) {
    std::vector<std::string> folders;
    for (std::uint64_t i = 0; dirs != nullptr && i < count; ++i) {
        std::string folder(TrimIfSpaced(OrEmpty(dirs[i])));
        if (TEVIO::dirExists(folder)) folders.push_back(std::move(folder));
    }
    return folders;
}

LoadOutcome LoadInOrdinaryOrder(const std::string& name) {
    const HMODULE module = LoadLibraryA(name.c_str());
    const DWORD error = GetLastError();
    return {module, error};
}

LoadOutcome LoadBySystem(const std::string& name, const std::vector<std::string>& folders) {
    return folders.empty() ? LoadInOrdinaryOrder(name) : LoadWithFolders(name, folders);
}

std::vector<std::string> AcceptedFolders(const std::vector<std::string>& folders) {
    const SearchDirectories added = Add(folders);
    std::vector<std::string> accepted;
    for (const std::string& folder : folders)
        if (added.at(folder)) accepted.push_back(folder);
    return accepted;
}

LocalText SystemMessage(unsigned long error) {
    wchar_t* message = nullptr;
    FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
        reinterpret_cast<wchar_t*>(&message), 0, nullptr);
    return LocalText(message);
}

}  // namespace TAMO::TEV::System::Util::detail
