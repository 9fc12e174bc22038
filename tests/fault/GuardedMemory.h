#pragma once

#include <cstddef>
#include <string>

// Memory whose every block ends, to the byte, at an unreadable page: what reads or writes behind it
// traps at once. Bytes in front of a block are checked on release, or are an unreadable page too. A
// released block is the last to be handed out again. It becomes unreadable; but closing pages costs
// more than all else, and so only the first 20,000 small blocks of a test are closed, the later
// ones filled with junk. At most 16,384 small blocks are guarded at a time: the host's kernel
// limits the changes of access in a process.
namespace tev::fault {

// What a block was made by, so that it is released by the fellow.
enum class Kind { Single = 1, Array };

// Null when there is no room. Its alignment is the largest power of two that
// divides the size: no object or array of that size needs more.
void* TakeGuarded(std::size_t size, Kind kind);

enum class Verdict { NotGuarded, Right, WrittenInFront, OtherKind, ReleasedBefore };

// A block of the other kind is not released.
Verdict ReleaseGuarded(void* block, Kind kind);

// At the begin of a test.
void CloseReleasesAgain();

// Says of an address where it stands: "at offset 7 of a block of 7 bytes".
std::string WhereIs(const void* address);

}  // namespace tev::fault
