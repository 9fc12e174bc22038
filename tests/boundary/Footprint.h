#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace tev::test {

// What the process holds of the system.
struct Footprint {
    std::int64_t heapBytes;
    std::int64_t heapBlocks;
    std::int64_t handles;
};

inline void AddHeap(HANDLE heap, Footprint& sum) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != 0) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
        sum.heapBytes += entry.cbData;
        ++sum.heapBlocks;
    }
    HeapUnlock(heap);
}

struct HandleEntry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct HandleList {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

// Counted in the system's list: GetProcessHandleCount answers 0 under Wine 8.
inline std::int64_t OpenHandles() {
    constexpr int kExtendedHandleInformation = 64;
    const auto query =
        reinterpret_cast<LONG(WINAPI*)(int, void*, ULONG, ULONG*)>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<unsigned char> buffer(16U << 20U);
    ULONG length = 0;
    if (query(kExtendedHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()),
              &length) != 0)
        throw std::runtime_error("the system does not list its handles");
    const auto* list = reinterpret_cast<const HandleList*>(buffer.data());
    return std::count_if(list->entries, list->entries + list->count, [](const HandleEntry& entry) {
        return entry.process == GetCurrentProcessId();
    });
}

// Walks all heaps: the blocks in use, and the open handles.
inline Footprint Now() {
    Footprint sum{0, 0, OpenHandles()};
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    for (const HANDLE heap : heaps) AddHeap(heap, sum);
    return sum;
}

}  // namespace tev::test
