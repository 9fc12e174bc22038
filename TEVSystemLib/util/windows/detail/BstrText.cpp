#include "TEVSystemLib/util/windows/detail/BstrText.h"

#include <new>

#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/Utf8.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

OwnedBstr OrBadAlloc(BSTR made) {
    if (made == nullptr) throw std::bad_alloc();
    return OwnedBstr(made);
}

std::wstring_view UpToNul(BSTR text) {
    const std::wstring_view all(text, SysStringLen(text));
    return all.substr(0, all.find(L'\0'));
}

}  // namespace

// ASCII is the same in every code page, and needs nobody to convert it.
OwnedBstr ToBstr(std::string_view ansi) {
    ansi = ansi.substr(0, ansi.find('\0'));
    const std::size_t size = ansi.size();
    OwnedBstr text = OrBadAlloc(SysAllocStringLen(nullptr, static_cast<UINT>(size)));
    if (WidenAscii(ansi, text.get()) == size) return text;
    return OrBadAlloc(SysAllocString(FromAnsi(ansi).c_str()));
}

std::string FromBstr(BSTR text) {
    const std::wstring_view wide = UpToNul(text);
    std::string narrow(wide.size(), '\0');
    if (NarrowAscii(wide, narrow.data()) == wide.size()) return narrow;
    return ToAnsi(wide);
}

bool TakeText(BSTR element, OwnedText& copy) {
    if (SysStringLen(element) == 0) return true;
    const std::wstring_view wide = UpToNul(element);
    if (wide.empty()) return false;
    copy = MakeUnfilledText(wide.size());
    if (NarrowAscii(wide, copy.get()) != wide.size()) copy = MakeText(ToAnsi(wide));
    return true;
}

}  // namespace TAMO::TEV::System::Util::detail
