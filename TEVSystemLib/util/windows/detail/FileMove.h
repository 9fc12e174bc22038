#pragma once

#include <string>

namespace TAMO::TEV::System::Util::detail {

// Moves a file of a disk to a name where another may stand, which it replaces at once, after its
// content has reached the disk; both in the same folder. Paths are as GDAL's layer takes them.
// False with both as they were when the system refuses.
bool MoveOverOnDisk(const std::string& from, const std::string& to);

}  // namespace TAMO::TEV::System::Util::detail
