#include "TEVSystemLib/util/string/detail/LocaleText.h"

#include <cstdlib>
#include <string_view>

#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/Utf8.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

// Null for an empty text and for a character that the locale lacks.
OwnedText WithRoom(std::wstring_view wide) {
    constexpr std::size_t kMaxBytesPerCharacter = 4;
    constexpr auto kConversionError = static_cast<std::size_t>(-1);
    if (wide.empty()) return nullptr;
    const std::size_t size = kMaxBytesPerCharacter * wide.size();
    OwnedText converted = MakeText(size);
    // ASCII is the same in every locale.
    if (NarrowAscii(wide, converted.get()) == wide.size()) return converted;
    if (std::wcstombs(converted.get(), wide.data(), size) == kConversionError) return nullptr;
    return converted;
}

OwnedText OrThrow(OwnedText converted, std::wstring_view wide) {
    if (!converted && !wide.empty())
        ThrowRuntimeError("Failed to convert data from wchar to char.");
    return converted;
}

}  // namespace

OwnedText ToLocaleIfPossible(std::wstring_view wide) {
    if (wide.empty()) return nullptr;
    OwnedText converted = MakeUnfilledText(wide.size());
    if (NarrowAscii(wide, converted.get()) == wide.size()) return converted;
    return WithRoom(wide);
}

OwnedText ToLocale(std::wstring_view wide) { return OrThrow(ToLocaleIfPossible(wide), wide); }

OwnedText ToLocaleWithRoom(std::wstring_view wide) { return OrThrow(WithRoom(wide), wide); }

}  // namespace TAMO::TEV::System::Util::detail
