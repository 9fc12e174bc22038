#pragma once

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"

// Wide text as narrow text in the process's C locale. Null or empty text gives null; all throw when
// memory is exhausted.
namespace TAMO::TEV::System::Util::detail {

// Throws std::runtime_error "Failed to convert data from wchar to char." for a character that the
// locale lacks.
OwnedText ToLocale(const wchar_t* wide);

// Null for such a text.
OwnedText ToLocaleIfPossible(const wchar_t* wide);

}  // namespace TAMO::TEV::System::Util::detail
