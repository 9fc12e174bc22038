# Cross-compiles for 64-bit Windows with MinGW-w64 (posix threads) and runs what it built under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(TEV_MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${TEV_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TEV_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${TEV_MINGW_TRIPLET}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${TEV_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Packages also come from CMAKE_PREFIX_PATH: GDAL from the cache, an installed tree of this library.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
