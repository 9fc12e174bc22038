#include "TEVSystemLib/util/string/detail/LocaleText.h"

#include <cstdlib>
#include <string_view>

#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/Utf8.h"

namespace TAMO::TEV::System::Util::detail {

OwnedText ToLocaleIfPossible(const wchar_t* wide) {
    constexpr std::size_t kMaxBytesPerCharacter = 4;
    constexpr auto kConversionError = static_cast<std::size_t>(-1);
    if (wide == nullptr || *wide == L'\0') return nullptr;
    const std::wstring_view text = wide;
    const std::size_t size = kMaxBytesPerCharacter * text.size();
    OwnedText converted = MakeText(size);
    // ASCII is the same in every locale.
    if (NarrowAscii(text, converted.get()) == text.size()) return converted;
    if (std::wcstombs(converted.get(), wide, size) == kConversionError) return nullptr;
    return converted;
}

OwnedText ToLocale(const wchar_t* wide) {
    OwnedText converted = ToLocaleIfPossible(wide);
    if (!converted && wide != nullptr && *wide != L'\0')
        ThrowRuntimeError("Failed to convert data from wchar to char.");
    return converted;
}

}  // namespace TAMO::TEV::System::Util::detail
