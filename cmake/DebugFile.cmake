# The optimised DLL keeps its debug information beside it, in TEVSystemLib.dll.debug, where a debugger
# finds it through a link in the DLL. A debug build keeps it inside.
set(tev_debug_file)
if(MINGW AND CMAKE_BUILD_TYPE STREQUAL Release)
    set(tev_debug_file ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/TEVSystemLib.dll.debug)
    target_compile_options(tev_objects PRIVATE -ffile-prefix-map=${tev_gdal_folder}=gdal/)
    foreach(target tev_pure tev_objects)
        target_compile_options(${target} PRIVATE -g)
    endforeach()
    add_custom_command(TARGET TEVSystemLib POST_BUILD VERBATIM
        WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
        # The tools would write the time of day into the files.
        COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0
            ${CMAKE_OBJCOPY} --only-keep-debug TEVSystemLib.dll TEVSystemLib.dll.debug
        COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0
            ${CMAKE_STRIP} --strip-debug TEVSystemLib.dll
        COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0
            ${CMAKE_OBJCOPY} --add-gnu-debuglink=TEVSystemLib.dll.debug TEVSystemLib.dll)
endif()
if(MINGW)
    # No time of linking in the DLL: two builds of one commit are the same.
    target_link_options(TEVSystemLib PRIVATE LINKER:--no-insert-timestamp)
endif()
