#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <limits>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/string/detail/Utf8.h"

namespace TAMO::TEV::System::Util {

namespace {

constexpr std::size_t kMaxCount = 0x7fffffff;

template <typename Char>
void Reset(Char** text, std::size_t* length) {
    if (text != nullptr) *text = nullptr;
    if (length != nullptr) *length = 0;
}

template <typename Owned, typename Char>
bool Commit(Owned& made, std::size_t size, Char** text, std::size_t* length) {
    *text = made.release();
    if (length != nullptr) *length = size;
    return true;
}

// From this size on it pays to try whether all is ASCII, before the size is computed.
constexpr std::size_t kLongText = 256;

// Text that is valid from end to end has one conversion only; what the system makes of any other
// is its own affair.
bool WidenLongAscii(std::string_view text, wchar_t** wide, std::size_t* wideLength) {
    if (text.size() < kLongText) return false;
    detail::OwnedWideText converted = detail::MakeUnfilledWideText(text.size());
    if (detail::WidenAscii(text, converted.get()) != text.size()) return false;
    return Commit(converted, text.size(), wide, wideLength);
}

bool WidenValid(std::string_view text, wchar_t** wide, std::size_t* wideLength) {
    if (WidenLongAscii(text, wide, wideLength)) return true;
    const std::size_t size = detail::Utf16Size(text);
    detail::OwnedWideText converted = detail::MakeUnfilledWideText(size);
    return detail::WidenUtf8(text, converted.get()) && Commit(converted, size, wide, wideLength);
}

bool NarrowLongAscii(std::wstring_view wide, char** text, std::size_t* textLength) {
    if (wide.size() < kLongText) return false;
    detail::OwnedText converted = detail::MakeUnfilledText(wide.size());
    if (detail::NarrowAscii(wide, converted.get()) != wide.size()) return false;
    return Commit(converted, wide.size(), text, textLength);
}

bool NarrowValid(std::wstring_view wide, char** text, std::size_t* textLength) {
    if (NarrowLongAscii(wide, text, textLength)) return true;
    const std::size_t size = detail::Utf8Size(wide);
    if (size >= kMaxCount) return false;
    detail::OwnedText converted = detail::MakeUnfilledText(size);
    return detail::NarrowUtf16(wide, converted.get()) && Commit(converted, size, text, textLength);
}

}  // namespace

bool TEVUtilString::ConvertFromCharToWChar(const char* const text, wchar_t** wide) try {
    if (wide == nullptr) return false;
    *wide = nullptr;
    const std::string_view narrow = detail::OrEmpty(text);
    const std::size_t length = narrow.size();
    if (length == 0 || length + 2 >= kMaxCount) return false;
    // KEEP: room for one character more than the terminator needs.
    detail::OwnedWideText converted = detail::MakeWideText(length + 1);
    // ASCII is the same in every locale.
    const bool isAscii = detail::WidenAscii(narrow, converted.get()) == length;
    if (!isAscii && std::mbstowcs(converted.get(), text, length) != length) return false;
    *wide = converted.release();
    return true;
} catch (...) {
    return false;
}

void TEVUtilString::ConvertFromWCharToChar(const wchar_t* wide, char** text) try {
    if (text == nullptr) return;
    *text = nullptr;
    *text = detail::ToLocaleWithRoom(detail::OrEmpty(wide)).release();
} catch (...) {
    detail::RethrowTranslated();
}

bool TEVUtilString::ConvertFromMultiByteCharToWChar(const char* const text, std::size_t textLength,
                                                    wchar_t** wide, std::size_t* wideLength) try {
    Reset(wide, wideLength);
    // KEEP: the system takes the count as 32 bits; one that reads as negative there makes it
    // convert up to the terminator.
    const auto count = static_cast<int>(static_cast<std::uint32_t>(textLength));
    if (text == nullptr || textLength == 0 || wide == nullptr ||
        count == std::numeric_limits<int>::max())
        return false;
    if (count > 0 && WidenValid({text, static_cast<std::size_t>(count)}, wide, wideLength))
        return true;
    const int size = MultiByteToWideChar(CP_UTF8, 0, text, count, nullptr, 0);
    if (size <= 0) return false;
    detail::OwnedWideText converted = detail::MakeWideText(static_cast<std::size_t>(size));
    return MultiByteToWideChar(CP_UTF8, 0, text, count, converted.get(), size) == size &&
           Commit(converted, static_cast<std::size_t>(size), wide, wideLength);
} catch (...) {
    return false;
}

// KEEP: the output comes first in this one.
bool TEVUtilString::ConvertFromWCharToMultiByteChar(char** text, const wchar_t* wide,
                                                    std::size_t wideLength,
                                                    std::size_t* textLength) try {
    Reset(text, textLength);
    if (wide == nullptr || wideLength == 0 || wideLength >= kMaxCount || text == nullptr)
        return false;
    const auto count = static_cast<int>(wideLength);
    if (NarrowValid({wide, wideLength}, text, textLength)) return true;
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, count, nullptr, 0, nullptr, nullptr);
    if (size < count) return false;
    detail::OwnedText converted = detail::MakeText(static_cast<std::size_t>(size));
    return WideCharToMultiByte(CP_UTF8, 0, wide, count, converted.get(), size, nullptr, nullptr) ==
               size &&
           Commit(converted, static_cast<std::size_t>(size), text, textLength);
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
