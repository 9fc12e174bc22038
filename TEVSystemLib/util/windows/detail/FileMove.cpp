#include "TEVSystemLib/util/windows/detail/FileMove.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <windows.h>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

OwnedWideText FromUtf8(const std::string& path) {
    wchar_t* wide = nullptr;
    TEVUtilString::ConvertFromMultiByteCharToWChar(path.c_str(), path.size(), &wide, nullptr);
    return OwnedWideText(wide);
}

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
    const OwnedWideText source = FromUtf8(from);
    const OwnedWideText target = FromUtf8(to);
    return source && target && ReachesDisk(source.get()) &&
           MoveFileExW(source.get(), target.get(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace TAMO::TEV::System::Util::detail
