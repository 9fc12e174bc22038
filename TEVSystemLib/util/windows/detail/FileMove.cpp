#include "TEVSystemLib/util/windows/detail/FileMove.h"

#include <windows.h>

#include "TEVSystemLib/util/file/detail/FileContent.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

struct FileTraits {
    using Type = HANDLE;
    static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(HANDLE file) { CloseHandle(file); }
};

// The move may reach the disk before the content: after a power cut the name would hold nothing.
bool ReachesDisk(const wchar_t* path) {
    const Handle<FileTraits> file(CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file && FlushFileBuffers(file.get()) != 0;
}

}  // namespace

// Not by ReplaceFileW, which would keep rights and attributes: when that fails half way, the name
// may be left without a file.
bool MoveOverOnDisk(const std::string& from, const std::string& to) {
    const std::wstring source = WidePath(from);
    const std::wstring target = WidePath(to);
    return ReachesDisk(source.c_str()) &&
           MoveFileExW(source.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace TAMO::TEV::System::Util::detail
