#pragma once

#include <optional>
#include <string>
#include <string_view>

// Windows paths as text; nothing here looks at a disk.
namespace TAMO::TEV::System::Util::detail {

constexpr bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// "/" turned into "\".
std::string WithBackslashes(std::string_view path);

// The rule for paths as they come in: trimmed if a plain space stands at an end, then backslashes.
std::string NormalisedPath(std::string_view path);

// Ending with `separator`, which is appended unless a separator stands there.
std::string WithEndingSeparator(std::string path, char separator = '\\');

// Without the separators at its end, but for the one of a root such as "C:\" or "\".
std::string_view WithoutEndingSeparators(std::string_view path);

// Up to and including the last separator, in backslashes; "." without one; nothing for an empty
// path.
std::optional<std::string> FolderOf(std::string_view path);

// Where the file name begins in a normalised path: behind the last "\", unless that is missing, at
// the start or at the end.
std::optional<std::size_t> FileNameIndex(std::string_view normalisedPath);

}  // namespace TAMO::TEV::System::Util::detail
