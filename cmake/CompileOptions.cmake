# tev_options: what every target of this project is compiled with. Link it PRIVATE.
add_library(tev_options INTERFACE)
target_include_directories(tev_options INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
    # Nobody has seen this compiler's warnings here, so they are no errors. 4251: private members of
    # exported classes are of the standard library, which host and DLL share.
    target_compile_options(tev_options INTERFACE /W4 /wd4251 /permissive- /utf-8)
else()
    target_compile_options(tev_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
        # Two checkouts of one commit compile to the same bytes, and share a compiler cache.
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
endif()
if(TEV_COVERAGE)
    # Only the library counts itself (TEVSystemLib/CMakeLists.txt); what links it needs the runtime.
    target_link_options(tev_options INTERFACE --coverage)
endif()
# "address,undefined" and "thread" report; "trap" stops a program where the compiler has no runtime
# for reports.
if(TEV_SANITIZE STREQUAL "trap")
    target_compile_options(tev_options INTERFACE
        -fsanitize=undefined -fsanitize-undefined-trap-on-error)
elseif(TEV_SANITIZE)
    target_compile_options(tev_options INTERFACE -fsanitize=${TEV_SANITIZE}
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tev_options INTERFACE -fsanitize=${TEV_SANITIZE})
endif()
if(TEV_SANITIZE MATCHES "address|thread")
    # An index beyond a view is an error even where the memory behind it is someone's; and what is read
    # behind a terminator, on purpose, would be one.
    target_compile_definitions(tev_options INTERFACE _GLIBCXX_ASSERTIONS TEV_ADDRESS_SANITIZER)
endif()
if(TEV_FUZZ)
    target_compile_options(tev_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
