#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <windows.h>

#include <algorithm>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/string/detail/OrNothing.h"
#include "TEVSystemLib/util/string/detail/Utf8.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

// One system call for nearly every value, and no memory to be had for it.
constexpr DWORD kBriefValueChars = 2048;
constexpr std::size_t kEnvironmentBufferChars = 32802;
// The system's limit of a value with its terminator; Wine 8 misreads a larger buffer size.
constexpr std::size_t kMaxEnvironmentSize = 32767;
constexpr int kMaxAttempts = 10;

// A name as the system takes it, on the stack when it is brief; null when it is empty or does not
// convert.
class WideName {
 public:
    explicit WideName(std::string_view name) {
        if (name.size() < kBriefNameChars && WidenAscii(name, brief_) == name.size()) {
            text_ = brief_;
        } else {
            wchar_t* wide = nullptr;
            TEVUtilString::ConvertFromCharToWChar(std::string(name).c_str(), &wide);
            owned_.reset(wide);
            text_ = wide;
        }
    }
    WideName(const WideName&) = delete;
    WideName& operator=(const WideName&) = delete;

    const wchar_t* get() const { return IsNullOrEmpty(text_) ? nullptr : text_; }

 private:
    static constexpr std::size_t kBriefNameChars = 64;
    static bool IsNullOrEmpty(const wchar_t* text) { return text == nullptr || *text == L'\0'; }

    wchar_t brief_[kBriefNameChars] = {};
    OwnedWideText owned_;
    const wchar_t* text_ = nullptr;
};

// For values that are longer than most; null when the variable is not set. The first attempt fits
// every value that the system keeps; the others are for a value that grows meanwhile.
OwnedText ReadLong(const wchar_t* name) {
    std::size_t bufferChars = kEnvironmentBufferChars;
    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
        const OwnedWideText value = MakeUnfilledWideText(bufferChars - 1);
        const auto size = static_cast<DWORD>(std::min(bufferChars, kMaxEnvironmentSize));
        const DWORD length = GetEnvironmentVariableW(name, value.get(), size);
        if (length == 0) return nullptr;
        if (length < size) {
            value[length] = L'\0';
            return ToLocale({value.get(), length});
        }
        bufferChars = std::size_t{length} + 2;
    }
    return nullptr;
}

}  // namespace

OwnedText ReadVariableText(std::string_view name) {
    const WideName wideName(TrimIfSpaced(name));
    if (wideName.get() == nullptr) return nullptr;
    wchar_t brief[kBriefValueChars];
    const DWORD length = GetEnvironmentVariableW(wideName.get(), brief, kBriefValueChars);
    // KEEP: an empty value is not told from a variable that is not set; lists treat both alike.
    if (length == 0) return nullptr;
    return length < kBriefValueChars ? ToLocale({brief, length}) : ReadLong(wideName.get());
}

std::optional<std::string> ReadVariable(std::string_view name) {
    const OwnedText text = ReadVariableText(name);
    if (!text) return std::nullopt;
    return std::string(ViewOf(text.get()));
}

std::optional<std::string> ReadPathVariable(std::string_view name) {
    const auto value = ReadVariable(name);
    if (!value) return std::nullopt;
    // KEEP: a forward slash, although folders elsewhere end with a backslash; Windows takes both.
    return WithEndingSeparator(std::string(TrimIfSpaced(*value)), '/');
}

std::optional<std::string> TryReadVariable(std::string_view name) noexcept {
    return OrNothing([name] { return ReadVariable(name); });
}

}  // namespace TAMO::TEV::System::Util::detail
