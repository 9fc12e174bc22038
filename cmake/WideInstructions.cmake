# The instruction levels of util/string/detail/wide. The processor decides at run time which one
# serves, up to TEV_WIDE_LEVEL.
set(TEV_WIDE_LEVEL avx2 CACHE STRING "Highest instruction level: portable, ssse3 or avx2")
set(tev_wide_levels portable ssse3 avx2)
set_property(CACHE TEV_WIDE_LEVEL PROPERTY STRINGS ${tev_wide_levels})
list(FIND tev_wide_levels "${TEV_WIDE_LEVEL}" tev_wide_highest)
if(tev_wide_highest EQUAL -1)
    message(FATAL_ERROR "TEV_WIDE_LEVEL is \"${TEV_WIDE_LEVEL}\"; use portable, ssse3 or avx2")
endif()
math(EXPR tev_wide_highest "${tev_wide_highest} + 1")

if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    set(folder util/string/detail/wide)
    target_sources(tev_pure PRIVATE ${folder}/Kernels_ssse3.cpp ${folder}/Kernels_avx2.cpp)
    set_property(SOURCE ${folder}/Kernels.cpp APPEND PROPERTY COMPILE_DEFINITIONS
        TEV_WIDE_SSSE3 TEV_WIDE_HIGHEST=${tev_wide_highest})
    if(MSVC)
        set_property(SOURCE ${folder}/Kernels_avx2.cpp PROPERTY COMPILE_OPTIONS /arch:AVX2)
    else()
        # Their loops are short and gain a third by being unrolled.
        set_property(SOURCE ${folder}/Kernels_ssse3.cpp PROPERTY COMPILE_OPTIONS
            -mssse3 $<$<CONFIG:Release>:-funroll-loops>)
        set_property(SOURCE ${folder}/Kernels_avx2.cpp PROPERTY COMPILE_OPTIONS
            -mavx2 $<$<CONFIG:Release>:-funroll-loops>)
        if(MINGW)
            # This compiler misaligns 32-byte slots on the stack.
            set_property(SOURCE ${folder}/Kernels_avx2.cpp APPEND PROPERTY COMPILE_OPTIONS
                -Wa,-muse-unaligned-vector-move)
        endif()
    endif()
endif()
