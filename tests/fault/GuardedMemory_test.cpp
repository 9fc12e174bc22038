// The guards themselves: what they are for is done, and noticed.
#include "fault/GuardedMemory.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <string>

#include "fault/Allocator.h"

namespace {

using tev::fault::Kind;
using tev::fault::Now;
using tev::fault::ReleaseGuarded;
using tev::fault::TakeGuarded;
using tev::fault::Verdict;
using tev::fault::WhereIs;

constexpr std::size_t kSizes[] = {0, 1, 7, 16, 100, 4095, 4096, 4097, 10000, 1 << 20};

// While it lives, the page of a trap is opened, so that what trapped goes on, and the trap is kept.
class Trap {
 public:
    Trap() : handler_(AddVectoredExceptionHandler(1, Open)) { address_ = nullptr; }
    ~Trap() { RemoveVectoredExceptionHandler(handler_); }
    Trap(const Trap&) = delete;
    Trap& operator=(const Trap&) = delete;

    // The address of the access that trapped last and null again; closes its page.
    const void* Take() {
        if (address_ == nullptr) return nullptr;
        DWORD before = 0;
        VirtualProtect(address_, 1, PAGE_NOACCESS, &before);
        const void* trapped = address_;
        address_ = nullptr;
        return trapped;
    }

 private:
    static LONG CALLBACK Open(EXCEPTION_POINTERS* trap) {
        const EXCEPTION_RECORD& record = *trap->ExceptionRecord;
        if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
        address_ = reinterpret_cast<void*>(record.ExceptionInformation[1]);
        // The outer pages of a large block are not even there.
        return VirtualAlloc(address_, 1, MEM_COMMIT, PAGE_READWRITE) != nullptr
                   ? EXCEPTION_CONTINUE_EXECUTION
                   : EXCEPTION_CONTINUE_SEARCH;
    }

    // Changed behind the back of the compiler.
    static inline void* volatile address_ = nullptr;
    void* handler_;
};

unsigned char* Take(std::size_t size, Kind kind = Kind::Array) {
    return static_cast<unsigned char*>(TakeGuarded(size, kind));
}

// Through a pointer that the compiler cannot follow: it would know better than to read there.
void Read(const void* address) {
    const volatile char* volatile hidden = static_cast<const char*>(address);
    static_cast<void>(*hidden);
}

TEST(GuardedMemory, ReadingOneBehindTheEndTraps) {
    for (const std::size_t size : kSizes) {
        Trap trap;
        unsigned char* block = Take(size);
        if (size > 0) Read(block + size - 1);
        EXPECT_EQ(trap.Take(), nullptr) << size;
        Read(block + size);
        EXPECT_EQ(trap.Take(), block + size) << size;
        EXPECT_EQ(ReleaseGuarded(block, Kind::Array), Verdict::Right) << size;
    }
}

TEST(GuardedMemory, WritingOneBehindTheEndTraps) {
    Trap trap;
    unsigned char* block = Take(7);
    *static_cast<volatile unsigned char*>(block + 7) = 1;
    EXPECT_EQ(trap.Take(), block + 7);
    EXPECT_EQ(ReleaseGuarded(block, Kind::Array), Verdict::Right);
}

TEST(GuardedMemory, WritingInFrontIsFoundOnRelease) {
    unsigned char* block = Take(7);
    block[-1] = 1;
    EXPECT_EQ(ReleaseGuarded(block, Kind::Array), Verdict::WrittenInFront);
    block = Take(10000);
    block[-16] = 1;
    EXPECT_EQ(ReleaseGuarded(block, Kind::Array), Verdict::WrittenInFront);
}

TEST(GuardedMemory, InFrontOfWholePagesIsAnUnreadableOne) {
    for (const std::size_t size : {4096U, 8192U}) {
        Trap trap;
        unsigned char* block = Take(size);
        Read(block - 1);
        EXPECT_EQ(trap.Take(), block - 1) << size;
        ReleaseGuarded(block, Kind::Array);
    }
}

TEST(GuardedMemory, WhatWasReleasedIsUnreadableForLong) {
    unsigned char* block = Take(7);
    ReleaseGuarded(block, Kind::Array);
    for (int i = 0; i < 1000; ++i) ReleaseGuarded(Take(7), Kind::Array);
    Trap trap;
    Read(block);
    EXPECT_EQ(trap.Take(), block);
}

TEST(GuardedMemory, ManyReleasesAreFilledAndStillGuarded) {
    for (int i = 0; i < 40000; ++i) ReleaseGuarded(Take(7), Kind::Array);
    unsigned char* block = Take(7);
    ReleaseGuarded(block, Kind::Array);
    Trap trap;
    EXPECT_EQ(std::string(block, block + 7), std::string(7, '\xDD'));
    EXPECT_EQ(trap.Take(), nullptr);
    Read(block + 7);
    EXPECT_EQ(trap.Take(), block + 7);
}

TEST(GuardedMemory, AReleaseKnowsItsBlock) {
    unsigned char* block = Take(7);
    EXPECT_EQ(ReleaseGuarded(block + 1, Kind::Array), Verdict::ReleasedBefore);
    EXPECT_EQ(ReleaseGuarded(block, Kind::Single), Verdict::OtherKind);
    EXPECT_EQ(ReleaseGuarded(block, Kind::Array), Verdict::Right);
    EXPECT_EQ(ReleaseGuarded(block, Kind::Array), Verdict::ReleasedBefore);
    int foreign = 0;
    EXPECT_EQ(ReleaseGuarded(&foreign, Kind::Single), Verdict::NotGuarded);
}

TEST(GuardedMemory, AnAddressIsExplained) {
    unsigned char* block = Take(7);
    EXPECT_EQ(WhereIs(block + 7), "at offset 7 of a block of 7 bytes");
    EXPECT_EQ(WhereIs(block - 2), "2 in front of a block of 7 bytes");
    ReleaseGuarded(block, Kind::Array);
    EXPECT_EQ(WhereIs(block), "in or around what was released, a block of 7 bytes");
}

TEST(Allocator, ItsBlocksAreGuarded) {
    Trap trap;
    const auto array = std::make_unique<char[]>(7);
    Read(array.get() + 7);
    EXPECT_EQ(trap.Take(), array.get() + 7);
    const std::string text(100, 'x');
    Read(text.data() + text.capacity() + 1);
    EXPECT_EQ(trap.Take(), text.data() + text.capacity() + 1);
}

}  // namespace
