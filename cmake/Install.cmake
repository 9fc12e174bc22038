# A relocatable tree: bin/ with every DLL needed, include/, lib/ with the import library and the
# CMake package.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TEVSystemLib)

install(TARGETS TEVSystemLib EXPORT TEVSystemLibTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${tev_runtime_dlls} DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/TEVSystemLib DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h" PATTERN detail EXCLUDE)
install(EXPORT TEVSystemLibTargets NAMESPACE TAMO:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TEVSystemLibConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TEVSystemLibConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TEVSystemLibConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TEVSystemLibConfig.cmake
    ${PROJECT_BINARY_DIR}/TEVSystemLibConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/TEVSystemLib.natvis DESTINATION ${package_dir})
