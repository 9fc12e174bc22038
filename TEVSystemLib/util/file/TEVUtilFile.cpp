#include <TEVSystemLib/util/file/TEVUtilFile.h>

#include <cstring>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

bool TEVUtilFile::GetFileExtension(const char* const path, const char*& extension,
                                   bool includeDot) {
    extension = nullptr;
    const char* dot = path == nullptr ? nullptr : std::strrchr(path, '.');
    if (dot == nullptr || dot == path) return false;
    extension = includeDot ? dot : dot + 1;
    return true;
}

bool TEVUtilFile::GetFileName(const char* const path, char** name) try {
    const std::string normalised = detail::NormalisedPath(detail::OrEmpty(path));
    if (normalised.empty() || name == nullptr)
        detail::ThrowInvalidArgument(
            "ERROR: Invalid input fully qualified file name and/or NULL output parameter.");
    *name = nullptr;
    if (normalised.back() == '\\')
        detail::ThrowInvalidArgument("ERROR: Invalid input fully qualified file name.");
    // KEEP: a bare file name is refused.
    const auto index = detail::FileNameIndex(normalised);
    return index && detail::HandOut(std::string_view(normalised).substr(*index), name);
} catch (...) {
    detail::RethrowTranslated();
}

int TEVUtilFile::GetFileNameIndex(const char* const path) try {
    // KEEP: an index into the normalised text, which may have lost leading blanks.
    const auto index = detail::FileNameIndex(detail::NormalisedPath(detail::OrEmpty(path)));
    return index ? static_cast<int>(*index) : -1;
} catch (...) {
    return -1;
}

}  // namespace TAMO::TEV::System::Util
