#include "fault/Allocator.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "fault/GuardedMemory.h"

namespace tev::fault {

namespace {

constexpr std::uint64_t kMark = 0x5157'1e51'4e61'e000;
constexpr std::uint64_t kReleased = 0xdead'dead'dead'dead;
constexpr unsigned char kFill = 0xCD;
constexpr std::ptrdiff_t kNever = std::numeric_limits<std::ptrdiff_t>::max();

// Stands in front of each block without guards; its size keeps the block aligned.
struct alignas(16) Header {
    std::uint64_t mark;
};

std::atomic<std::ptrdiff_t> live{0};
std::atomic<std::ptrdiff_t> attempts{0};
std::atomic<std::ptrdiff_t> wrong{0};
std::atomic<std::ptrdiff_t> refused{0};
std::atomic<std::ptrdiff_t> unguarded{0};
std::atomic<std::size_t> lastSize{0};
std::atomic<bool> isGuarding{false};
// The attempts that fail, by their number.
std::atomic<std::ptrdiff_t> firstToFail{kNever};
std::atomic<std::ptrdiff_t> lastToFail{kNever};

std::uint64_t MarkOf(Kind kind) { return kMark + static_cast<std::uint64_t>(kind); }

bool IsToFail(std::ptrdiff_t attempt) {
    if (attempt < firstToFail || attempt > lastToFail) return false;
    ++refused;
    return true;
}

void* AllocatePlain(std::size_t size, Kind kind) {
    const std::size_t total = size + sizeof(Header);
    auto* header = total < size ? nullptr : static_cast<Header*>(std::malloc(total));
    if (header == nullptr) return nullptr;
    header->mark = MarkOf(kind);
    return header + 1;
}

void* AllocateGuarded(std::size_t size, Kind kind) {
    void* block = TakeGuarded(size, kind);
    if (block != nullptr) return block;
    block = AllocatePlain(size, kind);
    if (block != nullptr) ++unguarded;
    return block;
}

void* Allocate(std::size_t size, Kind kind) {
    lastSize = size;
    if (IsToFail(attempts++)) throw std::bad_alloc();
    void* block = isGuarding ? AllocateGuarded(size, kind) : AllocatePlain(size, kind);
    if (block == nullptr) throw std::bad_alloc();
    std::memset(block, kFill, size);
    ++live;
    return block;
}

void ReleasePlain(void* block, Kind kind) {
    Header* header = static_cast<Header*>(block) - 1;
    if (header->mark != MarkOf(kind)) {
        ++wrong;
        return;
    }
    header->mark = kReleased;
    --live;
    std::free(header);
}

void Release(void* block, Kind kind) {
    if (block == nullptr) return;
    const Verdict verdict = ReleaseGuarded(block, kind);
    if (verdict == Verdict::NotGuarded) return ReleasePlain(block, kind);
    if (verdict != Verdict::Right) ++wrong;
    if (verdict == Verdict::Right || verdict == Verdict::WrittenInFront) --live;
}

}  // namespace

Counters Now() { return {live, attempts, wrong, refused, unguarded, lastSize}; }

void StartGuarding() { isGuarding = true; }

void FailAllocation(std::ptrdiff_t n, Mode mode) {
    firstToFail = attempts + n;
    lastToFail = mode == Mode::Once ? firstToFail.load() : kNever;
}

void StopFailing() { firstToFail = kNever; }

}  // namespace tev::fault

using tev::fault::Allocate;
using tev::fault::Kind;
using tev::fault::Release;

void* operator new(std::size_t size) { return Allocate(size, Kind::Single); }
void* operator new[](std::size_t size) { return Allocate(size, Kind::Array); }
void operator delete(void* block) noexcept { Release(block, Kind::Single); }
void operator delete(void* block, std::size_t) noexcept { Release(block, Kind::Single); }
void operator delete[](void* block) noexcept { Release(block, Kind::Array); }
void operator delete[](void* block, std::size_t) noexcept { Release(block, Kind::Array); }
