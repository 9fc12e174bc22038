#pragma once

// For hosts and modules: owners of what the library hands out, and calls with named arguments. All
// of it is inline and in a namespace of its own, TAMO::TEV::System::Host: its short names (Out,
// Text, Replace, ...) do not mix with those of code that uses the whole of TAMO::TEV::System, and
// Out is found without its namespace because its argument is an owner. Nothing of it is exported;
// it works through the library's exported functions and gives their results.

#include <TEVSystemLib/owned/Owners.h>
#include <TEVSystemLib/owned/TextCalls.h>
#include <TEVSystemLib/owned/VariantCalls.h>
