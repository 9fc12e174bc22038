#include "fault/Allocator.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace tev::fault {

namespace {

enum class Kind : std::uint64_t { Single = 0x5157'1e51'4e61'e001, Array = 0xa55a'a55a'a55a'a002 };
constexpr std::uint64_t kReleased = 0xdead'dead'dead'dead;
constexpr unsigned char kFill = 0xCD;
constexpr unsigned char kGuard[] = {0xFA, 0xCE, 0xFE, 0xED, 0xFA, 0xCE, 0xFE, 0xED};

// Stands in front of each block; its size keeps the block aligned.
struct alignas(16) Header {
    std::uint64_t mark;
    std::uint64_t size;
};

std::atomic<std::ptrdiff_t> live{0};
std::atomic<std::ptrdiff_t> attempts{0};
std::atomic<std::ptrdiff_t> wrong{0};
std::atomic<std::size_t> lastSize{0};

unsigned char* BlockOf(Header* header) { return reinterpret_cast<unsigned char*>(header + 1); }

void* Allocate(std::size_t size, Kind kind) {
    ++attempts;
    lastSize = size;
    const std::size_t total = size + sizeof(Header) + sizeof(kGuard);
    auto* header = total < size ? nullptr : static_cast<Header*>(std::malloc(total));
    if (header == nullptr) throw std::bad_alloc();
    header->mark = static_cast<std::uint64_t>(kind);
    header->size = size;
    std::memset(BlockOf(header), kFill, size);
    std::memcpy(BlockOf(header) + size, kGuard, sizeof(kGuard));
    ++live;
    return BlockOf(header);
}

void Release(void* block, Kind kind) {
    if (block == nullptr) return;
    Header* header = static_cast<Header*>(block) - 1;
    if (header->mark != static_cast<std::uint64_t>(kind)) {
        ++wrong;
        return;
    }
    if (std::memcmp(BlockOf(header) + header->size, kGuard, sizeof(kGuard)) != 0) ++wrong;
    header->mark = kReleased;
    --live;
    std::free(header);
}

}  // namespace

Counters Now() { return {live, attempts, wrong, lastSize}; }

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
