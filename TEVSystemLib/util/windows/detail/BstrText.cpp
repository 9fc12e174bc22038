#include "TEVSystemLib/util/windows/detail/BstrText.h"

#include <new>

#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"

namespace TAMO::TEV::System::Util::detail {

OwnedBstr ToBstr(std::string_view ansi) {
    OwnedBstr text(SysAllocString(FromAnsi(ansi).c_str()));
    if (!text) throw std::bad_alloc();
    return text;
}

std::string FromBstr(BSTR text) {
    const std::string narrow = ToAnsi({text, SysStringLen(text)});
    return narrow.substr(0, narrow.find('\0'));
}

bool TakeText(BSTR element, OwnedText& copy) {
    if (SysStringLen(element) == 0) return true;
    const std::string text = FromBstr(element);
    if (text.empty()) return false;
    copy = MakeText(text);
    return true;
}

}  // namespace TAMO::TEV::System::Util::detail
