#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

char* TEVUtilWindows::GetDirectory(char const* const path) try {
    const auto folder = detail::FolderOf(detail::OrEmpty(path));
    if (!folder) return nullptr;
    return detail::MakeText(*folder).release();
} catch (...) {
    return nullptr;
}

bool TEVUtilWindows::DirectoryExists(char const* const path) { return TEVIO::dirExists(path); }

// KEEP: the directory test, which hosts have come to rely on.
bool TEVUtilWindows::FileExists(char const* const path) { return TEVIO::dirExists(path); }

}  // namespace TAMO::TEV::System::Util
