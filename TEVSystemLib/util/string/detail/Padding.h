#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace TAMO::TEV::System::Util::detail {

enum class Fill { BlanksRight, BlanksLeft, ZerosBehindSign };

// A number's text filled to `width` characters, as a stream with that width and adjustment fills
// it; a wider text is left as it is. Streams pad on the stack, which a large width would overrun.
std::string Pad(std::string_view number, std::uint64_t width, Fill fill);

}  // namespace TAMO::TEV::System::Util::detail
