#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include "TEVSystemLib/system/detail/ModuleFault.h"

namespace TAMO::TEV::System::detail {

// The fault in words: fills `problem`, `culprit` and `cause` of an explanation whose other members
// are there.
void ConcludeLoad(const ModuleFault& fault, TEVSystemDiagnostics::LoadExplanation& explanation);

}  // namespace TAMO::TEV::System::detail
