#include "TEVSystemLib/util/windows/detail/VariableEdit.h"

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"

namespace TAMO::TEV::System::Util::detail {

std::optional<VariableEdit> EditToSet(std::string_view name, std::string_view value) {
    constexpr std::size_t kMaxValueLength = 32766;
    VariableEdit edit;
    edit.name = TrimIfSpaced(name);
    edit.text = TrimIfSpaced(value);
    if (edit.name.empty() || edit.text.size() > kMaxValueLength) return std::nullopt;
    return edit;
}

std::optional<ListChange> ListChangeOf(bool prepend, int operation) {
    constexpr int kAdd = 0;
    constexpr int kRemove = 1;
    if (operation == kAdd) return prepend ? ListChange::Prepend : ListChange::Append;
    if (operation == kRemove) return ListChange::Remove;
    return std::nullopt;
}

std::optional<std::string> ChangedList(std::string_view list, std::string_view element,
                                       ListChange change) {
    if (change == ListChange::Remove) return RemoveFromList(list, element);
    return AddToList(list, element,
                     change == ListChange::Prepend ? ListPlace::Front : ListPlace::Back);
}

}  // namespace TAMO::TEV::System::Util::detail
