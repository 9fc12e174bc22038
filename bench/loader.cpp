// loader.exe DLL FUNCTION: loads the DLL and calls its function once: "GetProperty" of the store,
// by its decorated name, or any other that takes nothing. Prints the nanoseconds that both took and
// the bytes of memory that they added.
#include <windows.h>
// psapi.h needs windows.h before it.
#include <psapi.h>

#include <chrono>
#include <cstdio>
#include <cstring>

namespace {

std::size_t Memory() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

bool Call(HMODULE module, const char* function) {
    auto* const address = reinterpret_cast<void*>(GetProcAddress(module, function));
    if (address == nullptr) return false;
    if (std::strstr(function, "GetProperty") == nullptr)
        return reinterpret_cast<int (*)()>(address)() == 1;
    const char* value = nullptr;
    return reinterpret_cast<bool (*)(const char*, const char*&)>(address)("SystemRoot", value) &&
           value != nullptr;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 1;
    const std::size_t before = Memory();
    const auto start = std::chrono::steady_clock::now();
    const HMODULE module = LoadLibraryA(arguments[1]);
    if (module == nullptr || !Call(module, arguments[2])) return 1;
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    std::printf("%.0f %zu\n", taken.count(), Memory() - before);
    return 0;
}
