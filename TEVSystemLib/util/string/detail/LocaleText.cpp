#include "TEVSystemLib/util/string/detail/LocaleText.h"

#include <cstdlib>
#include <cwchar>

#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util::detail {

OwnedText ToLocaleIfPossible(const wchar_t* wide) {
    constexpr std::size_t kMaxBytesPerCharacter = 4;
    constexpr auto kConversionError = static_cast<std::size_t>(-1);
    if (wide == nullptr || *wide == L'\0') return nullptr;
    const std::size_t size = kMaxBytesPerCharacter * std::wcslen(wide);
    OwnedText converted = MakeText(size);
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
