#pragma once

#include <string_view>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"

// Wide text, with a terminator behind it, as narrow text in the process's C locale. Empty text
// gives null; all throw when memory is exhausted.
namespace TAMO::TEV::System::Util::detail {

// Throws std::runtime_error "Failed to convert data from wchar to char." for a character that the
// locale lacks.
OwnedText ToLocale(std::wstring_view wide);

// The same in a buffer with four bytes for each character, zeros behind the text.
OwnedText ToLocaleWithRoom(std::wstring_view wide);

// Null for such a text.
OwnedText ToLocaleIfPossible(std::wstring_view wide);

// A null pointer counts as the empty text.
inline std::wstring_view OrEmpty(const wchar_t* wide) {
    return wide == nullptr ? std::wstring_view() : wide;
}

}  // namespace TAMO::TEV::System::Util::detail
