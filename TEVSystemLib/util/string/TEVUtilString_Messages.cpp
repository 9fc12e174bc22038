#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <memory>
#include <utility>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

namespace {

using Messages = std::vector<char*>;
using MessageMap = std::map<TEVSysCnst::MsgLevel, Messages*>;

struct DeleteMessages {
    void operator()(Messages* messages) const { TEVUtilString::DeleteMsgsVector(&messages); }
};
using OwnedMessages = std::unique_ptr<Messages, DeleteMessages>;

bool IsLevel(TEVSysCnst::MsgLevel level) {
    return level >= TEVSysCnst::Debug && level <= TEVSysCnst::Error;
}

void Append(Messages& messages, detail::OwnedText text) {
    messages.push_back(text.get());
    static_cast<void>(text.release());
}

}  // namespace

void TEVUtilString::GetMsgsVector(std::vector<char*>** vector) try {
    if (vector != nullptr) *vector = new Messages;
} catch (...) {
    return;
}

void TEVUtilString::GetMsgsMap(MessageMap** map) try {
    if (map != nullptr) *map = new MessageMap;
} catch (...) {
    return;
}

bool TEVUtilString::AddMessage(const char* const message, TEVSysCnst::MsgLevel level,
                               MessageMap& messages) try {
    if (detail::IsNullOrEmpty(message) || !IsLevel(level)) return false;
    detail::OwnedText copy = detail::MakeText(std::string_view(message));
    const auto found = messages.find(level);
    if (found != messages.end() && found->second != nullptr) {
        Append(*found->second, std::move(copy));
        return true;
    }
    // Filled before it is filed, so that a failure leaves the map as it was.
    OwnedMessages created(new Messages);
    Append(*created, std::move(copy));
    messages[level] = created.get();
    static_cast<void>(created.release());
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::DeleteMsgsVector(std::vector<char*>** vector) {
    if (vector == nullptr || *vector == nullptr) return true;
    for (char*& message : **vector) DeleteCString(&message);
    delete std::exchange(*vector, nullptr);
    return true;
}

bool TEVUtilString::DeleteMsgsMap(MessageMap** map) {
    if (map == nullptr || *map == nullptr) return true;
    for (auto& [level, messages] : **map) DeleteMsgsVector(&messages);
    delete std::exchange(*map, nullptr);
    return true;
}

}  // namespace TAMO::TEV::System::Util
