#include "fault/Allocator.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace tev::fault {

namespace {

enum class Kind : std::uint64_t { Single = 0x5157'1e51'4e61'e001, Array = 0xa55a'a55a'a55a'a002 };
constexpr std::uint64_t kReleased = 0xdead'dead'dead'dead;

// Stands in front of each block; its size keeps the block aligned.
struct alignas(16) Header {
    std::uint64_t mark;
    std::uint64_t unused;
};

std::atomic<std::ptrdiff_t> live{0};
std::atomic<std::ptrdiff_t> wrong{0};

void* Allocate(std::size_t size, Kind kind) {
    const std::size_t total = size + sizeof(Header);
    auto* header = total < size ? nullptr : static_cast<Header*>(std::malloc(total));
    if (header == nullptr) throw std::bad_alloc();
    header->mark = static_cast<std::uint64_t>(kind);
    ++live;
    return header + 1;
}

void Release(void* block, Kind kind) {
    if (block == nullptr) return;
    Header* header = static_cast<Header*>(block) - 1;
    if (header->mark != static_cast<std::uint64_t>(kind)) {
        ++wrong;
        return;
    }
    header->mark = kReleased;
    --live;
    std::free(header);
}

}  // namespace

std::ptrdiff_t LiveAllocations() { return live; }

std::ptrdiff_t WrongReleases() { return wrong; }

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
