#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

namespace TAMO::TEV::System::Util {

void TEVStringOps::Copy(const char* source, char** copy) {
    TEVUtilString::Copy(source, copy, nullptr);
}

// KEEP: by value, for callers that hold the text in a constant; their variable is not nulled.
void TEVStringOps::Delete(char* text) { TEVUtilMemory::DeallocateCharArray(&text); }

}  // namespace TAMO::TEV::System::Util
