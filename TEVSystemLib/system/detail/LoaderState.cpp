#include "TEVSystemLib/system/detail/LoaderState.h"

#include <TEVSystemLib/util/file/TEVIO.h>
#include <windows.h>

#include <cwchar>
#include <new>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"
#include "TEVSystemLib/util/windows/detail/ModuleLoading.h"

namespace TAMO::TEV::System::detail {

namespace {

using Util::TEVIO;
using Util::detail::FromUtf8;
using Util::detail::ToUtf8;

struct ModuleTraits {
    using Type = HMODULE;
    static HMODULE Invalid() { return nullptr; }
    static void Close(HMODULE module) { FreeLibrary(module); }
};
using OwnedModule = Util::detail::Handle<ModuleTraits>;

// What a call writes into a buffer, whose length it gives; empty when it fails.
template <typename Call>
std::string Written(Call call) {
    // More than the size of a path, and no more than the system counts in 16 bits.
    constexpr DWORD kBufferChars = 32767;
    std::wstring buffer(kBufferChars, L'\0');
    const DWORD length = call(buffer.data(), kBufferChars);
    return length < kBufferChars ? ToUtf8({buffer.data(), length}) : std::string();
}

std::string FileOf(HMODULE module) {
    return Written(
        [module](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(module, buffer, size); });
}

std::string FullPath(const std::string& path) {
    const std::wstring wide = FromUtf8(path);
    return Written([&wide](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(wide.c_str(), size, buffer, nullptr);
    });
}

bool Exists(const std::string& file) { return TEVIO::exists(file); }

std::optional<std::string> FindFixed(const std::string& name) {
    std::string path = FullPath(name);
    if (!Exists(path)) return std::nullopt;
    return path;
}

std::optional<std::string> FindLoaded(const std::string& name) {
    const HMODULE module = GetModuleHandleW(FromUtf8(name).c_str());
    if (module == nullptr) return std::nullopt;
    std::string file = FileOf(module);
    // One without a name is looked for as if it were not loaded.
    if (file.empty()) return std::nullopt;
    return file;
}

bool IsProvided(const std::string& contract) {
    return static_cast<bool>(OwnedModule(
        LoadLibraryExW(FromUtf8(contract).c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)));
}

}  // namespace

LoaderFacts LoaderFactsOfThisProcess() {
    LoaderFacts facts;
    facts.program = Util::detail::FolderOf(FileOf(nullptr)).value_or("");
    facts.system = Written(GetSystemDirectoryW);
    facts.windows = Written(GetWindowsDirectoryW);
    facts.current =
        Written([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); });
    facts.dllDirectory =
        Written([](wchar_t* buffer, DWORD size) { return GetDllDirectoryW(size, buffer); });
    facts.path = Written(
        [](wchar_t* buffer, DWORD size) { return GetEnvironmentVariableW(L"PATH", buffer, size); });
    return facts;
}

std::optional<ModulePlace> FindModule(const std::string& name, const SearchedFolders& folders,
                                      const LoaderFacts& facts) {
    if (name.empty()) return std::nullopt;
    const std::string file = WithModuleEnding(name);
    if (IsContract(file) && IsProvided(file)) return ModulePlace{{}, true};
    auto found = IsFixedPath(file) ? FindFixed(file) : FindLoaded(file);
    if (!found && !IsFixedPath(file)) found = FindInFolders(folders, file, Exists);
    if (!found) return std::nullopt;
    const bool isOfTheSystem = IsBelow(facts.windows, *found);
    return ModulePlace{*std::move(found), isOfTheSystem};
}

std::optional<std::string> ReadModuleFile(const std::string& file) {
    constexpr std::uint64_t kMaxSize = std::uint64_t{1} << 30;
    TEVIO io(file, TEVIO::Read);
    // It keeps the path that it could not open, but when memory for it is exhausted.
    if (io.getFilePath() != file) throw std::bad_alloc();
    if (!io || io.fileSize() > kMaxSize) return std::nullopt;
    std::string content(io.fileSize(), '\0');
    if (io.read(content.data(), content.size()) != content.size()) return std::nullopt;
    return content;
}

std::string SystemText(unsigned long code) {
    const Util::detail::LocalText message = Util::detail::SystemMessage(code);
    if (!message) return {};
    return std::string(
        Util::detail::Trim(ToUtf8({message.get(), std::wcslen(message.get())}), false, true));
}

}  // namespace TAMO::TEV::System::detail
