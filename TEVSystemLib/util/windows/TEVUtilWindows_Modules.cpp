#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>
// psapi.h needs windows.h before it.
#include <psapi.h>

#include <array>
#include <optional>
#include <vector>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"
#include "TEVSystemLib/util/windows/detail/ProcessModules.h"

namespace TAMO::TEV::System::Util {

namespace {

struct ProcessTraits {
    using Type = HANDLE;
    static HANDLE Invalid() { return nullptr; }
    static void Close(HANDLE process) { CloseHandle(process); }
};
using Process = detail::Handle<ProcessTraits>;

Process Open(DWORD processId) {
    return Process(
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, processId));
}

// The modules of a process in the system's order; empty when they cannot be listed.
std::vector<HMODULE> ModulesOf(const Process& process) {
    constexpr DWORD kModulesPerAttempt = 6144;
    constexpr DWORD kMaxAttempts = 10;
    for (DWORD attempt = 1; attempt <= kMaxAttempts; ++attempt) {
        // KEEP: the entry count is also the size in bytes that the system is told, which leaves
        // room for an eighth of the entries; ten attempts make up for it.
        const DWORD size = kModulesPerAttempt * attempt;
        std::vector<HMODULE> modules(size);
        DWORD needed = 0;
        const BOOL isListed =
            K32EnumProcessModulesEx(process.get(), modules.data(), size, &needed, LIST_MODULES_ALL);
        if (isListed == TRUE && needed <= size) {
            modules.resize(needed / sizeof(HMODULE));
            return modules;
        }
    }
    return {};
}

std::optional<std::string> FileNameOf(const Process& process, HMODULE module) {
    std::array<wchar_t, 4097> path;
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length = K32GetModuleFileNameExW(process.get(), module, path.data(), size);
    if (length == 0 || length >= size) return std::nullopt;
    return detail::ToAnsi({path.data(), length});
}

char* HandOut(const std::optional<std::string>& text) {
    if (!text) return nullptr;
    return detail::MakeText(*text).release();
}

}  // namespace

char* TEVUtilWindows::GetModuleFullyQualifiedName(char const* const name) try {
    return HandOut(detail::ModuleFileName(detail::OrEmpty(name)));
} catch (...) {
    return nullptr;
}

char* TEVUtilWindows::GetModuleFullyQualifiedPath(char const* const name) try {
    return HandOut(detail::ModuleFolder(detail::OrEmpty(name)));
} catch (...) {
    return nullptr;
}

bool TEVUtilWindows::RetrieveFullyQualifiedModulePath(char const* const text,
                                                      unsigned long processId,
                                                      std::string& folder) try {
    folder.clear();
    const std::string wanted = detail::ToUpper(detail::TrimIfSpaced(detail::OrEmpty(text)));
    if (wanted.empty()) return false;
    const Process process = Open(processId);
    if (!process) return false;
    const auto modules = ModulesOf(process);
    // KEEP: from the end, so that the module listed last wins.
    for (auto module = modules.rbegin(); module != modules.rend(); ++module) {
        const auto path = FileNameOf(process, *module);
        if (!path) continue;
        const std::size_t found = detail::ToUpper(*path).find(wanted);
        // KEEP: a match at the very start of the path is none; it leaves no folder.
        if (found == std::string::npos || found == 0) continue;
        folder = detail::WithEndingSeparator(detail::WithBackslashes(path->substr(0, found)));
        return true;
    }
    return false;
} catch (...) {
    folder.clear();
    return false;
}

bool TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(char**& modules,
                                                              std::uint64_t& count) try {
    modules = nullptr;
    count = 0;
    const Process process = Open(GetCurrentProcessId());
    if (!process) return false;
    std::vector<std::string> names;
    for (const HMODULE module : ModulesOf(process)) {
        auto name = FileNameOf(process, module);
        // KEEP: the list ends at the first name that cannot be read.
        if (!name) break;
        names.push_back(*std::move(name));
    }
    if (names.empty()) return false;
    detail::OwnedTexts texts(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) texts.Set(i, detail::MakeText(names[i]));
    modules = texts.release();
    count = names.size();
    return true;
} catch (...) {
    return false;
}

void* TEVUtilWindows::RetrieveCurrentProcess() { return GetCurrentProcess(); }

unsigned long TEVUtilWindows::RetrieveCurrentProcessID() { return GetCurrentProcessId(); }

}  // namespace TAMO::TEV::System::Util
