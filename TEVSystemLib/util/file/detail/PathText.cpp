#include "TEVSystemLib/util/file/detail/PathText.h"

#include <algorithm>

#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::Util::detail {

std::string WithBackslashes(std::string_view path) {
    std::string turned(path);
    std::replace(turned.begin(), turned.end(), '/', '\\');
    return turned;
}

std::string NormalisedPath(std::string_view path) { return WithBackslashes(TrimIfSpaced(path)); }

std::string WithEndingSeparator(std::string path, char separator) {
    if (path.empty() || !IsSeparator(path.back())) path += separator;
    return path;
}

std::string_view WithoutEndingSeparators(std::string_view path) {
    std::size_t length = path.size();
    while (length > 1 && IsSeparator(path[length - 1]) && path[length - 2] != ':') --length;
    return path.substr(0, length);
}

std::optional<std::string> FolderOf(std::string_view path) {
    const std::string normalised = NormalisedPath(path);
    if (normalised.empty()) return std::nullopt;
    const std::size_t last = normalised.rfind('\\');
    if (last == std::string::npos) return ".";
    return normalised.substr(0, last + 1);
}

std::optional<std::size_t> FileNameIndex(std::string_view normalisedPath) {
    const std::size_t last = normalisedPath.rfind('\\');
    if (last == std::string_view::npos || last == 0 || last + 1 == normalisedPath.size())
        return std::nullopt;
    return last + 1;
}

}  // namespace TAMO::TEV::System::Util::detail
