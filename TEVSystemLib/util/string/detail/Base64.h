#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Base64 of RFC 4648: the standard alphabet, padded, without line breaks.
namespace TAMO::TEV::System::Util::detail {

std::string Base64Encode(std::string_view bytes);

// Lenient: the first character outside the alphabet ends the input; a last group of k characters
// gives k - 1 bytes.
std::string Base64Decode(std::string_view text);

}  // namespace TAMO::TEV::System::Util::detail
