#pragma once

#include <optional>
#include <string>
#include <string_view>

// What the functions for environment variables ask the system to do; nothing here asks it.
namespace TAMO::TEV::System::Util::detail {

struct VariableEdit {
    std::string name;
    std::string text;  // empty: the variable is deleted
};

// Setting a variable; nothing when it is refused: without a name, or too long a value. Both are
// trimmed if a plain space stands at an end.
std::optional<VariableEdit> EditToSet(std::string_view name, std::string_view value);

enum class ListChange { Append, Prepend, Remove };
// The change that the two arguments of the exported function stand for; nothing for an unknown one.
std::optional<ListChange> ListChangeOf(bool prepend, int operation);

// Changing the list of a variable that is set: its new text, or nothing when it stays.
std::optional<std::string> ChangedList(std::string_view list, std::string_view element,
                                       ListChange change);

}  // namespace TAMO::TEV::System::Util::detail
