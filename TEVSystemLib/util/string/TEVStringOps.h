#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

namespace TAMO::TEV::System::Util {

// The two most common operations on library-owned C strings. Safe from any thread on distinct data.
struct TEVSYSTEMLIB_API TEVStringOps {
    // TEVUtilString::Copy with its result discarded: *copy, whose old content is lost, becomes
    // a new C string that the caller releases with Delete, or null when `source` is null or
    // empty or memory is exhausted. A null `copy` does nothing.
    static void Copy(const char* source, char** copy);

    // Releases a C string that the library handed out; null is accepted. The caller's variable is
    // not changed.
    static void Delete(char* text);
};

}  // namespace TAMO::TEV::System::Util
