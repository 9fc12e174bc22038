#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <windows.h>

#include <algorithm>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

// One system call for nearly every value, and no memory to be had for it.
constexpr DWORD kBriefValueChars = 2048;
constexpr std::size_t kEnvironmentBufferChars = 32802;
// The system's limit of a value with its terminator; Wine 8 misreads a larger buffer size.
constexpr std::size_t kMaxEnvironmentSize = 32767;
constexpr int kMaxAttempts = 10;

OwnedWideText ToWide(std::string_view name) {
    wchar_t* wide = nullptr;
    TEVUtilString::ConvertFromCharToWChar(std::string(name).c_str(), &wide);
    return OwnedWideText(wide);
}

// For values that are longer than most; null when the variable is not set. The first attempt fits
// every value that the system keeps; the others are for a value that grows meanwhile.
OwnedWideText ReadLong(const wchar_t* name) {
    std::size_t bufferChars = kEnvironmentBufferChars;
    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
        OwnedWideText value = MakeWideText(bufferChars - 1);
        const auto size = static_cast<DWORD>(std::min(bufferChars, kMaxEnvironmentSize));
        const DWORD length = GetEnvironmentVariableW(name, value.get(), size);
        if (length == 0) return nullptr;
        if (length < size) {
            value[length] = L'\0';
            return value;
        }
        bufferChars = std::size_t{length} + 2;
    }
    return nullptr;
}

}  // namespace

std::optional<std::string> ReadVariable(std::string_view name) {
    const OwnedWideText wideName = ToWide(TrimIfSpaced(name));
    if (!wideName) return std::nullopt;
    wchar_t brief[kBriefValueChars];
    const DWORD length = GetEnvironmentVariableW(wideName.get(), brief, kBriefValueChars);
    // KEEP: an empty value is not told from a variable that is not set; lists treat both alike.
    if (length == 0) return std::nullopt;
    if (length < kBriefValueChars) return ToLocale(brief).get();
    const OwnedWideText value = ReadLong(wideName.get());
    if (!value) return std::nullopt;
    return ToLocale(value.get()).get();
}

std::optional<std::string> ReadPathVariable(std::string_view name) {
    const auto value = ReadVariable(name);
    if (!value) return std::nullopt;
    // KEEP: a forward slash, although folders elsewhere end with a backslash; Windows takes both.
    return WithEndingSeparator(std::string(TrimIfSpaced(*value)), '/');
}

std::optional<std::string> TryReadVariable(std::string_view name) noexcept try {
    return ReadVariable(name);
} catch (...) {
    return std::nullopt;
}

}  // namespace TAMO::TEV::System::Util::detail
