#pragma once

#include <string>
#include <string_view>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"
#include "TEVSystemLib/util/windows/detail/ComOwners.h"

// Between C strings in the ANSI code page and BSTRs. All throw when memory is exhausted.
namespace TAMO::TEV::System::Util::detail {

OwnedBstr ToBstr(std::string_view ansi);

// The text up to its first NUL character; empty for null.
std::string FromBstr(BSTR text);

// A copy of an element of an array: null for a null or empty one. False for one that has characters
// but no text, because it begins with a NUL.
bool TakeText(BSTR element, OwnedText& copy);

}  // namespace TAMO::TEV::System::Util::detail
