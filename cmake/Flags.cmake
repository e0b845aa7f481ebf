# Flags that every target shares, and `tm_flags`, the warnings that only our own code is held to.
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

if(WIN32)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
    add_link_options(-static -static-libgcc -static-libstdc++ -fstack-protector-strong)
    add_compile_options(-fstack-protector-strong)
    # What is built depends on the sources alone: not on the time, nor on the folders of a machine. Of the
    # libraries of the compiler the program would keep their debug information.
    add_link_options(-Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
    add_compile_options("-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=")
    # Pages stand in the file as in memory: Wine maps such a file, and copies any other in every worker.
    add_link_options(-Wl,--file-alignment,4096)
    set(CMAKE_RC_FLAGS "-c 65001")
    set(CMAKE_SHARED_LIBRARY_PREFIX "")
else()
    # wchar_t is a UTF-16 unit here too, so that texts and layouts are those of the real program.
    add_compile_options(-fshort-wchar -fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -g)
    add_link_options(-fsanitize=address,undefined)
endif()

add_library(tm_flags INTERFACE)
target_compile_options(tm_flags INTERFACE -Wall -Wextra -Wpedantic -Werror)
target_include_directories(tm_flags INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})
