#pragma once

#include <string_view>

namespace TAMO::TEV::System::detail {

// Whether the framework knows a key, as it is spelt.
bool IsKnownKey(std::string_view key);

// The known key that is most like another text, ignoring case; null when none is like it.
const char* NearestKnownKey(std::string_view key);

}  // namespace TAMO::TEV::System::detail
