#pragma once

#include <optional>
#include <string>

// Whole files over GDAL's virtual file layer. Paths are UTF-8; bytes that are none count as
// Latin-1, as variables have them. All throw when memory is exhausted.
namespace TAMO::TEV::System::Util::detail {

// The bytes of a file, of an empty one too; nothing when it cannot be read.
std::optional<std::string> ReadContent(const std::string& path);

// Writes a new content beside an existing file, reads it back and puts it in the file's place at
// once. False with the file as it was, and nothing left beside it, when any of this fails.
bool ReplaceContent(const std::string& path, const std::string& content);

// A path of a disk as the layer gives it to the system; empty when the layer cannot convert it.
std::wstring WidePath(const std::string& path);

bool RemoveFile(const std::string& path);
// Moves a file to a name where another may stand, within GDAL's virtual file systems: there it
// replaces the other, on a disk it may not.
bool MoveOverVirtual(const std::string& from, const std::string& to);

}  // namespace TAMO::TEV::System::Util::detail
