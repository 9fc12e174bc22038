#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

#include "support/Folder.h"

namespace tev::test {

// Folder names beyond letters, in the ANSI code page.
constexpr const char* kUnusualNames[] = {"two words", "d\xE9p\xF4t", "\xC9t\xE9 2"};

// A folder name that the ANSI code page cannot write.
constexpr wchar_t kNameBeyondAnsi[] = L"\x4E2D\x6587";

// Makes a folder whose path the ANSI functions take as it stands, and gives that path.
inline std::string MakeAnsiFolder(const std::string& path) {
    if (CreateDirectoryA(path.c_str(), nullptr) == 0)
        throw std::runtime_error("cannot make the folder " + path);
    return path;
}

// An ASCII text for the wide functions.
inline std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

// Folders in one another, until the path is longer than 260 characters. Only the wide functions
// take such paths: Wine's as they are, those of Windows where long paths are switched on.
class LongFolder {
 public:
    LongFolder() {
        while (path_.size() <= MAX_PATH) path_ = MakeFolder(std::string(60, 'x'));
    }
    ~LongFolder() { RemoveContent(Wide(folder_.Path())); }
    LongFolder(const LongFolder&) = delete;
    LongFolder& operator=(const LongFolder&) = delete;

    // Without a separator at its end.
    const std::string& Path() const { return path_; }

    // Makes a folder in it and gives its path.
    std::string MakeFolder(const std::string& name) const {
        const std::string path = path_ + "\\" + name;
        if (CreateDirectoryW(Wide(path).c_str(), nullptr) == 0)
            throw std::runtime_error("cannot make the folder " + path);
        return path;
    }

 private:
    // The standard library does not remove folders of such a length.
    static void RemoveContent(const std::wstring& folder) {
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
        if (search == INVALID_HANDLE_VALUE) return;
        do {
            const std::wstring name = entry.cFileName;
            if (name == L"." || name == L"..") continue;
            const std::wstring path = folder + L"\\" + name;
            if (DeleteFileW(path.c_str()) != 0) continue;
            RemoveContent(path);
            RemoveDirectoryW(path.c_str());
        } while (FindNextFileW(search, &entry) != 0);
        FindClose(search);
    }

    const Folder folder_;
    std::string path_ = folder_.Path();
};

}  // namespace tev::test
