#pragma once

#include <ostream>

namespace tevsys {

// Where this program, the framework, its measurement toolkit and the user's documents lie: lines of
// name<TAB>folder<TAB>how, "-" for a folder that was not found. Takes CSM_PLUGIN_DIR out of this
// process's environment.
void ShowWhere(std::ostream& out);

}  // namespace tevsys
