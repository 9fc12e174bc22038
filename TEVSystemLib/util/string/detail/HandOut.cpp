#include "TEVSystemLib/util/string/detail/HandOut.h"

#include <limits>

#include "TEVSystemLib/util/string/detail/Errors.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

// Released as the arrays of TEVUtilMemory are, which are filled with zeros.
template <typename Owned, typename Char>
Owned MakeUnfilled(std::size_t length) {
    if (length == std::numeric_limits<std::size_t>::max()) ThrowInternalError();
    Owned text(new Char[length + 1]);
    text[length] = Char{};
    return text;
}

}  // namespace

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

OwnedText MakeUnfilledText(std::size_t length) { return MakeUnfilled<OwnedText, char>(length); }

OwnedWideText MakeUnfilledWideText(std::size_t length) {
    return MakeUnfilled<OwnedWideText, wchar_t>(length);
}

OwnedText MakeText(std::string_view text) {
    OwnedText copy = MakeUnfilledText(text.size());
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
