#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>

#include <vector>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"

namespace TAMO::TEV::System::Util {

namespace {

struct SearchTraits {
    using Type = HANDLE;
    static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(HANDLE search) { FindClose(search); }
};

std::wstring FromUtf8(const std::string& text) {
    wchar_t* wide = nullptr;
    std::size_t length = 0;
    if (!TEVUtilString::ConvertFromMultiByteCharToWChar(text.c_str(), text.size(), &wide, &length))
        detail::ThrowInternalError();
    const detail::OwnedWideText owned(wide);
    return {wide, length};
}

// Full paths, in the system's order.
std::vector<std::wstring> List(const std::string& folder, const std::string& extension) {
    const std::wstring pattern = FromUtf8(folder + "*" + extension);
    const std::wstring wideFolder = FromUtf8(folder);
    std::vector<std::wstring> paths;
    WIN32_FIND_DATAW entry;
    const detail::Handle<SearchTraits> search(FindFirstFileW(pattern.c_str(), &entry));
    // KEEP: an error in the middle ends the list as its end does; what was found until then counts.
    for (bool found{search}; found; found = FindNextFileW(search.get(), &entry) == TRUE) {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            paths.push_back(wideFolder + entry.cFileName);
    }
    return paths;
}

}  // namespace

void TEVUtilFile::GetFilesInDirWithGivenExt(char**& files, const char* const directory,
                                            const char* const extension, std::size_t& count) {
    constexpr std::size_t kMinimumExtensionLength = 2;
    const std::string_view ending = detail::TrimIfSpaced(detail::OrEmpty(extension));
    // KEEP: measured before a dot is put in front, so that an extension of one letter is refused.
    if (ending.size() < kMinimumExtensionLength || ending.back() == '.') return;
    try {
        const std::string folder(detail::TrimIfSpaced(detail::OrEmpty(directory)));
        if (!TEVUtilWindows::DirectoryExists(folder.c_str())) return;
        files = nullptr;
        count = 0;
        const auto paths =
            List(detail::WithEndingSeparator(detail::WithBackslashes(folder)),
                 ending.front() == '.' ? std::string(ending) : "." + std::string(ending));
        if (paths.empty()) return;
        detail::OwnedTexts array(paths.size());
        for (std::size_t i = 0; i < paths.size(); ++i) array.Set(i, detail::ToLocale(paths[i]));
        files = array.release();
        count = paths.size();
    } catch (...) {
        files = nullptr;
        count = 0;
    }
}

}  // namespace TAMO::TEV::System::Util
