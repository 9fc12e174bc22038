# CPack runs this over the finished tree before it is packed: the list of contents is written, and
# every file gets the time of the commit.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND git -C ${CPACK_TEV_SOURCE_DIR} log -1 --format=%ct
        OUTPUT_VARIABLE commit_time OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed ERROR_QUIET)
    if(failed)
        message(FATAL_ERROR "the time of the commit is unknown here; set SOURCE_DATE_EPOCH")
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${commit_time})
endif()
file(GLOB tree LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
if(CPACK_TEV_GDAL_FOLDER)
    execute_process(COMMAND ${CPACK_TEV_SOURCE_DIR}/scripts/sbom.py
        ${tree} ${CPACK_PACKAGE_VERSION} ${CPACK_TEV_GDAL_FOLDER} COMMAND_ERROR_IS_FATAL ANY)
endif()
execute_process(COMMAND find ${tree} -exec touch -d @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
