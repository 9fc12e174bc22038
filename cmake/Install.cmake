# A relocatable tree: bin/ with every DLL needed, include/, lib/ with the import library and the
# CMake package, examples/, and docs/ where the documentation has been built.
include(CMakePackageConfigHelpers)
include(CheckCXXSourceCompiles)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TEVSystemLib)

install(TARGETS TEVSystemLib EXPORT TEVSystemLibTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${tev_runtime_dlls} ${tev_debug_file} DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/TEVSystemLib DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h" PATTERN detail EXCLUDE)

# What TEVSystemAbi.h compares a consumer's compiler with.
check_cxx_source_compiles("#include <cstdlib>
    #ifndef _UCRT
    #error
    #endif
    int main() {}" TEVSYSTEMLIB_BUILT_WITH_UCRT)
set(TEVSYSTEMLIB_BUILT_BY_MSVC ${MSVC})
if(MSVC AND CMAKE_BUILD_TYPE STREQUAL Debug)
    set(TEVSYSTEMLIB_BUILT_WITH_DEBUG_RUNTIME ON)
endif()
configure_file(TEVSystemBuild.h.in ${PROJECT_BINARY_DIR}/TEVSystemBuild.h @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/TEVSystemBuild.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TEVSystemLib)
install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/docs/html DESTINATION docs OPTIONAL)
install(EXPORT TEVSystemLibTargets NAMESPACE TAMO:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TEVSystemLibConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TEVSystemLibConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TEVSystemLibConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TEVSystemLibConfig.cmake
    ${PROJECT_BINARY_DIR}/TEVSystemLibConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/TEVSystemLib.natvis DESTINATION ${package_dir})
if(MINGW AND CMAKE_CROSSCOMPILING)
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/package/README.txt DESTINATION .)
    # For consumers that cross-compile too.
    install(FILES ${CMAKE_TOOLCHAIN_FILE} DESTINATION ${package_dir})
endif()
