# The licences of what is in bin/ and of the scripts in docs/, where Debian's packages and our build of
# GDAL have them.
set(licences_dir licenses)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/package/TEVSystemLib-licence.txt
    DESTINATION ${licences_dir} RENAME TEVSystemLib.txt)
if(MINGW AND CMAKE_CROSSCOMPILING)
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/package/licences.txt
        DESTINATION ${licences_dir} RENAME README.txt)
    foreach(part gdal proj sqlite3)
        install(FILES ${tev_gdal_folder}/share/licenses/${part}
            DESTINATION ${licences_dir} RENAME ${part}.txt)
    endforeach()
    install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
        DESTINATION ${licences_dir} RENAME gcc.txt)
    install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
        DESTINATION ${licences_dir} RENAME mingw-w64.txt)
    if(TEV_BUILD_TOOLS)
        foreach(part libcli11 nlohmann-json3)
            install(FILES /usr/share/doc/${part}-dev/copyright
                DESTINATION ${licences_dir} RENAME ${part}.txt)
        endforeach()
    endif()
    # Where the pages were made.
    install(FILES /usr/share/doc/doxygen/copyright
        DESTINATION ${licences_dir} RENAME doxygen.txt OPTIONAL)
    foreach(text Apache-2.0 GPL-3)
        install(FILES /usr/share/common-licenses/${text}
            DESTINATION ${licences_dir} RENAME ${text}.txt)
    endforeach()
endif()
