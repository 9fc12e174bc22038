#include "fault/GuardedMemory.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace tev::fault {

namespace {

constexpr std::size_t kPage = 4096;
// Small blocks have a page each, and the unreadable one behind it.
constexpr std::size_t kStride = 2 * kPage;
constexpr std::size_t kSlots = 16384;
constexpr std::size_t kLargeBlocks = 1024;
constexpr std::size_t kCheckedInFront = 16;
constexpr unsigned char kFront = 0xFA;
constexpr unsigned char kReleased = 0xDD;
constexpr std::ptrdiff_t kClosedReleases = 20000;

struct Block {
    unsigned char* pages;  // null: not in use
    unsigned char* begin;
    std::size_t size;
    Kind kind;
    bool isOpen;  // the page is readable, in use or not
};

// Without constructors: the first blocks are asked for before any of this file would run.
SRWLOCK lock = SRWLOCK_INIT;
std::atomic<unsigned char*> arena{nullptr};
Block slots[kSlots];
Block largeBlocks[kLargeBlocks];
// The free slots in the order of their release.
std::uint32_t freeSlots[kSlots];
std::size_t firstFree = 0;
std::size_t freeCount = 0;
std::atomic<std::ptrdiff_t> releasesToClose{kClosedReleases};

class Locked {
 public:
    Locked() { AcquireSRWLockExclusive(&lock); }
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

bool SetOpen(Block& slot, bool isOpen) {
    DWORD before = 0;
    if (slot.isOpen == isOpen) return true;
    if (VirtualProtect(slot.pages, kPage, isOpen ? PAGE_READWRITE : PAGE_NOACCESS, &before) == 0)
        return false;
    slot.isOpen = isOpen;
    return true;
}

void PutBack(std::uint32_t slot) { freeSlots[(firstFree + freeCount++) % kSlots] = slot; }

// One page in front of the first slot.
bool OpenArena() {
    if (arena != nullptr) return true;
    auto* pages = static_cast<unsigned char*>(
        VirtualAlloc(nullptr, kPage + kSlots * kStride, MEM_RESERVE | MEM_COMMIT, PAGE_NOACCESS));
    if (pages == nullptr) return false;
    arena = pages + kPage;
    for (std::uint32_t slot = 0; slot < kSlots; ++slot) PutBack(slot);
    return true;
}

Block* TakeSlot() {
    const Locked locked;
    if (!OpenArena() || freeCount == 0) return nullptr;
    const std::uint32_t slot = freeSlots[firstFree];
    firstFree = (firstFree + 1) % kSlots;
    --freeCount;
    slots[slot].pages = arena + slot * kStride;
    return &slots[slot];
}

std::size_t RoomFor(std::size_t size) { return (size + kPage - 1) / kPage * kPage; }

unsigned char* MapLarge(std::size_t room) {
    void* pages = VirtualAlloc(nullptr, room + 2 * kPage, MEM_RESERVE, PAGE_NOACCESS);
    if (pages == nullptr) return nullptr;
    void* usable = static_cast<unsigned char*>(pages) + kPage;
    return static_cast<unsigned char*>(VirtualAlloc(usable, room, MEM_COMMIT, PAGE_READWRITE));
}

Block* TakeLarge(std::size_t room) {
    const Locked locked;
    Block* block = std::find_if(std::begin(largeBlocks), std::end(largeBlocks),
                                [](const Block& each) { return each.pages == nullptr; });
    if (block == std::end(largeBlocks)) return nullptr;
    block->pages = MapLarge(room);
    return block->pages == nullptr ? nullptr : block;
}

std::size_t CheckedInFront(const Block& block) {
    return std::min(kCheckedInFront, static_cast<std::size_t>(block.begin - block.pages));
}

void* Place(Block& block, std::size_t room, std::size_t size, Kind kind) {
    block.begin = block.pages + room - size;
    block.size = size;
    block.kind = kind;
    const std::size_t inFront = CheckedInFront(block);
    std::memset(block.begin - inFront, kFront, inFront);
    return block.begin;
}

bool IsFrontIntact(const Block& block) {
    return std::all_of(block.begin - CheckedInFront(block), block.begin,
                       [](unsigned char byte) { return byte == kFront; });
}

bool IsInArena(const void* address) {
    const auto* byte = static_cast<const unsigned char*>(address);
    return arena != nullptr && byte >= arena && byte < arena + kSlots * kStride;
}

// The block that has the address in or around its pages; null when there is none.
Block* Find(const void* address) {
    const auto* byte = static_cast<const unsigned char*>(address);
    if (IsInArena(address)) return &slots[static_cast<std::size_t>(byte - arena) / kStride];
    const Locked locked;
    Block* found =
        std::find_if(std::begin(largeBlocks), std::end(largeBlocks), [byte](const Block& each) {
            return each.pages != nullptr && byte >= each.pages - kPage &&
                   byte < each.begin + each.size + kPage;
        });
    return found == std::end(largeBlocks) ? nullptr : found;
}

void FreeLarge(Block& block) {
    const Locked locked;
    VirtualFree(block.pages - kPage, 0, MEM_RELEASE);
    block.pages = nullptr;
}

void FreeSlot(Block& slot) {
    if (--releasesToClose >= 0)
        SetOpen(slot, false);
    else
        std::memset(slot.begin, kReleased, slot.size);
    const Locked locked;
    slot.pages = nullptr;
    PutBack(static_cast<std::uint32_t>(&slot - slots));
}

}  // namespace

void* TakeGuarded(std::size_t size, Kind kind) {
    const std::size_t room = size <= kPage ? kPage : RoomFor(size);
    if (room < size) return nullptr;
    Block* block = room == kPage ? TakeSlot() : TakeLarge(room);
    if (block == nullptr) return nullptr;
    if (room == kPage && !SetOpen(*block, true)) return nullptr;
    return Place(*block, room, size, kind);
}

Verdict ReleaseGuarded(void* address, Kind kind) {
    Block* block = Find(address);
    if (block == nullptr) return Verdict::NotGuarded;
    if (block->pages == nullptr || block->begin != address) return Verdict::ReleasedBefore;
    if (block->kind != kind) return Verdict::OtherKind;
    const bool isIntact = IsFrontIntact(*block);
    IsInArena(block->pages) ? FreeSlot(*block) : FreeLarge(*block);
    return isIntact ? Verdict::Right : Verdict::WrittenInFront;
}

void CloseReleasesAgain() { releasesToClose = kClosedReleases; }

std::string WhereIs(const void* address) {
    const Block* block = Find(address);
    if (block == nullptr) return "at no guarded block";
    const auto* byte = static_cast<const unsigned char*>(address);
    const std::string size = " a block of " + std::to_string(block->size) + " bytes";
    if (block->pages == nullptr) return "in or around what was released," + size;
    if (byte < block->begin) return std::to_string(block->begin - byte) + " in front of" + size;
    return "at offset " + std::to_string(byte - block->begin) + " of" + size;
}

}  // namespace tev::fault
