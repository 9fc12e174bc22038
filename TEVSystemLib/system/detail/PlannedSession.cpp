#include "TEVSystemLib/system/detail/PlannedSession.h"

#include <utility>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/windows/detail/VariableEdit.h"

namespace TAMO::TEV::System::detail {

using Util::detail::OrEmpty;
using Util::detail::TrimIfSpaced;

namespace {

// The system does not tell the cases of letters apart; in the C locale bytes are Latin-1.
std::string Folded(std::string_view name) {
    std::string folded = Util::detail::ToUpper(name);
    for (char& c : folded) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7) c = static_cast<char>(byte - 0x20);
    }
    return folded;
}

}  // namespace

PlannedSession::PlannedSession(VariableReader readVariable, ReadBack readBack)
    : readVariable_(std::move(readVariable)), readBack_(std::move(readBack)) {}

std::optional<std::string> PlannedSession::Read(const std::string& name) const {
    const auto changed = changed_.find(Folded(TrimIfSpaced(name)));
    return changed == changed_.end() ? readVariable_(name) : changed->second;
}

bool PlannedSession::Exists(const std::string& name) { return Read(name).has_value(); }

bool PlannedSession::Set(const std::string& name, const char* value) {
    const auto edit = Util::detail::EditToSet(name, OrEmpty(value));
    // The system itself refuses "=" in a name, but for the per-drive folders.
    if (!edit || edit->name.find('=', 1) != std::string::npos) return false;
    // What is set under a name that does not read back, nobody can read.
    if (const auto variable = readBack_(edit->name))
        changed_[Folded(*variable)] = edit->text.empty() ? std::nullopt : readBack_(edit->text);
    return true;
}

bool PlannedSession::Modify(const std::string& name, const std::string& element, bool prepend,
                            int operation) {
    const auto list = Read(name);
    const auto change = Util::detail::ListChangeOf(prepend, operation);
    if (!list || !change) return false;
    const auto changed = Util::detail::ChangedList(*list, element, *change);
    return !changed || Set(name, changed->c_str());
}

}  // namespace TAMO::TEV::System::detail
