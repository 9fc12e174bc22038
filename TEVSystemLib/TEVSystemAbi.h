#pragma once

// Strings, maps and exceptions cross the border of the DLL. A program that lays them out otherwise,
// or takes their memory from another heap, would corrupt memory without a word: it is refused here.
// TEVSystemBuild.h stands in an installed tree only and tells what its DLL was built with.
#if defined(_MSVC_LANG) ? _MSVC_LANG < 201703L : __cplusplus < 201703L
#error "TEVSystemLib: these headers need C++17 or newer; compile with -std=c++17 or /std:c++17."
#endif

#if defined(_WIN32)
#if !defined(_WIN64)
#error "TEVSystemLib: the DLL is a 64-bit one, this program is compiled for 32 bits."
#endif

#if __has_include(<TEVSystemLib/TEVSystemBuild.h>)
#include <TEVSystemLib/TEVSystemBuild.h>
#if TEVSYSTEMLIB_BUILT_BY_MSVC && !defined(_MSC_VER)
#error \
    "TEVSystemLib: the DLL was built by Visual C++, this compiler has another C++ ABI; use Visual C++."
#elif !TEVSYSTEMLIB_BUILT_BY_MSVC && defined(_MSC_VER)
#error \
    "TEVSystemLib: the DLL was built by MinGW-w64, Visual C++ has another C++ ABI; use g++ of MinGW-w64, or build the library with Visual C++."
#elif defined(_MSC_VER) && !defined(_DLL)
#error \
    "TEVSystemLib: this program has a C runtime of its own (/MT); memory and exceptions cannot pass to that of the DLL. Compile with /MD."
#elif defined(_MSC_VER) && defined(_DEBUG) && !TEVSYSTEMLIB_BUILT_WITH_DEBUG_RUNTIME
#error \
    "TEVSystemLib: the DLL uses the release runtime, this program the debug one (/MDd), whose strings, maps and heap are others. Compile with /MD, or build the library for Debug."
#elif defined(_MSC_VER) && !defined(_DEBUG) && TEVSYSTEMLIB_BUILT_WITH_DEBUG_RUNTIME
#error \
    "TEVSystemLib: the DLL uses the debug runtime, this program the release one (/MD), whose strings, maps and heap are others. Compile with /MDd, or build the library for Release."
#endif
#endif

#include <cstdlib>
#include <string>

#if defined(_ITERATOR_DEBUG_LEVEL) && defined(TEVSYSTEMLIB_BUILT_WITH_DEBUG_RUNTIME)
#if _ITERATOR_DEBUG_LEVEL != (TEVSYSTEMLIB_BUILT_WITH_DEBUG_RUNTIME ? 2 : 0)
#error \
    "TEVSystemLib: _ITERATOR_DEBUG_LEVEL lays strings and maps out unlike the DLL; leave it to /MD and /MDd."
#endif
#endif

#if !defined(_MSC_VER)
#if defined(_LIBCPP_VERSION) || !defined(__GLIBCXX__)
#error \
    "TEVSystemLib: the DLL uses libstdc++, this program another C++ standard library; strings, maps and exceptions cannot pass between the two."
#elif !defined(_GLIBCXX_USE_CXX11_ABI) || !_GLIBCXX_USE_CXX11_ABI
#error \
    "TEVSystemLib: _GLIBCXX_USE_CXX11_ABI=0 lays std::string out unlike the DLL; compile with _GLIBCXX_USE_CXX11_ABI=1."
#elif defined(_GLIBCXX_DEBUG)
#error \
    "TEVSystemLib: _GLIBCXX_DEBUG lays vectors and maps out unlike the DLL; compile without it. _GLIBCXX_ASSERTIONS checks too and fits."
#elif defined(__USING_SJLJ_EXCEPTIONS__)
#error \
    "TEVSystemLib: the DLL throws by SEH tables, this compiler by setjmp; its exceptions would end the program. Use a compiler with SEH exceptions."
#endif

#if defined(TEVSYSTEMLIB_BUILT_WITH_UCRT)
#if defined(_UCRT) && !TEVSYSTEMLIB_BUILT_WITH_UCRT
#error \
    "TEVSystemLib: the DLL uses the C runtime msvcrt.dll, this program the universal one (UCRT); memory cannot pass between their heaps. Use a compiler for msvcrt.dll, or build the library for the UCRT."
#elif !defined(_UCRT) && TEVSYSTEMLIB_BUILT_WITH_UCRT
#error \
    "TEVSystemLib: the DLL uses the universal C runtime (UCRT), this program msvcrt.dll; memory cannot pass between their heaps. Use a compiler for the UCRT."
#endif
#endif
#endif

namespace TAMO::TEV::System::detail {

struct PackingProbe {
    char first;
    double second;
};

static_assert(
    sizeof(PackingProbe) == 2 * sizeof(double),
    "TEVSystemLib: structures are packed (-fpack-struct, /Zp); the DLL was built without.");
static_assert(sizeof(wchar_t) == 2,
              "TEVSystemLib: wchar_t has 16 bits in the DLL; compile without -fno-short-wchar.");

}  // namespace TAMO::TEV::System::detail
#elif __has_include(<TEVSystemLib/TEVSystemBuild.h>)
#error \
    "TEVSystemLib: the DLL is for 64-bit Windows, this compiler makes programs for another system; compile with x86_64-w64-mingw32-g++-posix."
#endif
