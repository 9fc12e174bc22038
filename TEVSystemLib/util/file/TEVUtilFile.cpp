#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <cstring>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"

namespace TAMO::TEV::System::Util {

bool TEVUtilFile::GetFileExtension(const char* const path, const char*& extension,
                                   bool includeDot) {
    extension = nullptr;
    // KEEP: a dot in a folder's name counts too; the text is searched as a whole, not as a path.
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
    // KEEP: a bare file name is refused, because callers take the folder part of what passes for
    // granted.
    const auto index = detail::FileNameIndex(normalised);
    return index &&
           TEVUtilString::SubString(normalised.c_str(), *index, normalised.size() - *index, name);
} catch (...) {
    detail::RethrowTranslated();
}

int TEVUtilFile::GetFileNameIndex(const char* const path) try {
    // KEEP: an index into the normalised text, which may have lost leading blanks; callers that use
    // it have normalised theirs.
    const auto index = detail::FileNameIndex(detail::NormalisedPath(detail::OrEmpty(path)));
    return index ? static_cast<int>(*index) : -1;
} catch (...) {
    return -1;
}

}  // namespace TAMO::TEV::System::Util
