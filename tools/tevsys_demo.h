#pragma once

#include <ostream>

namespace tevsys {

// What a host sees: folders and files, properties, the environment before and after the directives,
// switches. To be called before anything else has asked the store.
void ShowHostView(std::ostream& out);

}  // namespace tevsys
