#include "TEVSystemLib/util/string/detail/HandOut.h"

#include "TEVSystemLib/util/string/detail/Errors.h"

namespace TAMO::TEV::System::Util::detail {

OwnedText MakeText(std::size_t length) {
    char* text = nullptr;
    if (TEVUtilMemory::AllocateCharArray(length + 1, &text) == 0) ThrowInternalError();
    return OwnedText(text);
}

OwnedWideText MakeWideText(std::size_t length) {
    wchar_t* text = nullptr;
    if (TEVUtilMemory::AllocateWCharTArray(length + 1, &text) == 0) ThrowInternalError();
    return OwnedWideText(text);
}

OwnedText MakeText(std::string_view text) {
    OwnedText copy = MakeText(text.size());
    text.copy(copy.get(), text.size());
    return copy;
}

bool HandOut(std::string_view text, char** out) {
    *out = MakeText(text).release();
    return true;
}

bool HandOutUnlessEmpty(std::string_view text, char** out) {
    return !text.empty() && HandOut(text, out);
}

}  // namespace TAMO::TEV::System::Util::detail
