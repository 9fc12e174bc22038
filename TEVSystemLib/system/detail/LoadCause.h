#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include "TEVSystemLib/system/detail/ModuleFault.h"

namespace TAMO::TEV::System::detail {

// Whether the system gives such a code when a start routine (DllMain) gave FALSE or raised an
// exception.
bool IsFailedStart(unsigned long code);

// The fault in words: fills `problem`, `culprit` and `cause` of an explanation whose other members
// are there.
void ConcludeLoad(const ModuleFault& fault, TEVSystemDiagnostics::LoadExplanation& explanation);

}  // namespace TAMO::TEV::System::detail
