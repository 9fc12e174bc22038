#pragma once

#include <cstdint>
#include <optional>

#include "TEVSystemLib/util/windows/detail/ComOwners.h"

namespace TAMO::TEV::System::Util::detail {

// Do so many elements fit? Some systems compute an array's bytes in 32 bits and make a short one.
bool FitsArray(VARTYPE elementType, std::uint64_t count);

// A new array of one dimension with lower bound 0; invalid when `count` is 0 or too large, or the
// system refuses it.
OwnedSafeArray MakeArray(VARTYPE elementType, std::uint64_t count);

// The array that a variant of exactly this type holds, when its first stored bound begins at 0 and
// has elements; null otherwise. The variant keeps it.
SAFEARRAY* ArrayIn(const VARIANT* variant, VARTYPE elementType);

// The element count of the first stored bound.
std::uint64_t FirstCount(const SAFEARRAY* array);

// Puts the array into the variant, which owns it from now on.
void Commit(OwnedSafeArray& array, VARTYPE elementType, VARIANT* out);

}  // namespace TAMO::TEV::System::Util::detail
