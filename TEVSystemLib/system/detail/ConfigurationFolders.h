#pragma once

#include <string>

namespace TAMO::TEV::System::detail {

// The folder that holds the system or user properties file, ending with a separator; empty when no
// candidate holds it. A candidate that cannot be examined is passed over, also when memory is
// exhausted.
std::string FindSystemFolder();
std::string FindUserFolder();

}  // namespace TAMO::TEV::System::detail
