#include "TEVSystemLib/util/windows/detail/FileMove.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <windows.h>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

OwnedWideText FromUtf8(const std::string& path) {
    wchar_t* wide = nullptr;
    TEVUtilString::ConvertFromMultiByteCharToWChar(path.c_str(), path.size(), &wide, nullptr);
    return OwnedWideText(wide);
}

}  // namespace

bool MoveOverOnDisk(const std::string& from, const std::string& to) {
    const OwnedWideText source = FromUtf8(from);
    const OwnedWideText target = FromUtf8(to);
    return source && target &&
           MoveFileExW(source.get(), target.get(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace TAMO::TEV::System::Util::detail
