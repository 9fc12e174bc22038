#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <vector>

#include "TEVSystemLib/system/detail/ConfigurationModel.h"

namespace TAMO::TEV::System::detail {

// What is odd in one of the two files of a model, in the order of its lines.
std::vector<TEVSystemDiagnostics::Finding> Lint(const ConfigurationModel& model,
                                                TEVSystemDiagnostics::Table table);

}  // namespace TAMO::TEV::System::detail
