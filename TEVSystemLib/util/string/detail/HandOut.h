#pragma once

#include <cstddef>
#include <string_view>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"

// From values to what the exported functions hand out. All throw when memory is exhausted.
namespace TAMO::TEV::System::Util::detail {

// Zeroed buffers of `length` characters and a terminator.
OwnedText MakeText(std::size_t length);
OwnedWideText MakeWideText(std::size_t length);
// The same without the zeros in front of the terminator: for whoever fills it all.
OwnedText MakeUnfilledText(std::size_t length);
OwnedWideText MakeUnfilledWideText(std::size_t length);

OwnedText MakeText(std::string_view text);

// Stores a new C string in *out, which must not be null, and gives true.
bool HandOut(std::string_view text, char** out);
// The same for a text with content; an empty one leaves *out as it is and gives false.
bool HandOutUnlessEmpty(std::string_view text, char** out);

}  // namespace TAMO::TEV::System::Util::detail
