#pragma once

#include <optional>
#include <string>
#include <string_view>

// Environment variables as text; nothing here looks at the environment.
namespace TAMO::TEV::System::Util::detail {

enum class ListPlace { Front, Back };

// Edits of a ";"-separated list: the text to store. Every element is trimmed if a plain space
// stands at one of its ends, and falls away when nothing is left. Elements compare ignoring case.
// Nothing to store when the element is there already.
std::optional<std::string> AddToList(std::string_view list, std::string_view element,
                                     ListPlace place);
// Takes out the first element that equals `element`.
std::string RemoveFromList(std::string_view list, std::string_view element);

struct EnvironmentEntry {
    std::string_view name;
    std::string_view value;
};

// Splits an entry of the process's environment block. Nothing for one without a name or a value; of
// the per-drive folders only drive C's is known, named "=C:".
std::optional<EnvironmentEntry> SplitEnvironmentEntry(std::string_view entry);

}  // namespace TAMO::TEV::System::Util::detail
