#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>

namespace TAMO::TEV::System::Util {

// Builds the identifier texts of framework objects. Safe from any thread.
class TEVSYSTEMLIB_API TEVSysUtil {
 public:
    // "className:count:name" as a new C string, with both texts trimmed if a plain space stands
    // at an end and the count as TEVUtilString::ToString writes it; a copy of the trimmed class
    // name goes to `classNameCopy` when that is not null. The caller releases both with
    // TEVUtilString::DeleteCString. Null, with a null copy, when a text is null or empty after
    // trimming or memory is exhausted.
    static char* GetTEVSystemObjectID(const char* const name, const char* const className,
                                      std::size_t count, char** classNameCopy);

 private:
    TEVSysUtil() = default;
    ~TEVSysUtil() = default;
};

}  // namespace TAMO::TEV::System::Util
