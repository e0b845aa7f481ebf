# `tm_desktop`: the libraries of windows, drawing and the shell, loaded at their first call. The worker and the
# plug-ins in it hardly ever call them, and a process per file would start their desktop side for nothing.
# Where the tools can't make such import libraries, the plain ones serve.
if(WIN32)
    block()
    add_library(tm_desktop INTERFACE)
    set(folder ${CMAKE_BINARY_DIR}/delayed)
    file(MAKE_DIRECTORY ${folder})
    foreach(library user32 gdi32 shell32 ole32)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=lib${library}.a
            OUTPUT_VARIABLE plain OUTPUT_STRIP_TRAILING_WHITESPACE)
        execute_process(COMMAND ${CMAKE_NM} --defined-only ${plain} OUTPUT_VARIABLE symbols ERROR_QUIET)
        string(REGEX MATCHALL " T [A-Z][A-Za-z0-9]*\n" names "${symbols}")
        list(TRANSFORM names REPLACE " T |\n" "")
        list(SORT names)
        list(REMOVE_DUPLICATES names)
        list(JOIN names "\n" names)
        file(CONFIGURE OUTPUT ${folder}/${library}.def CONTENT "LIBRARY ${library}.dll\nEXPORTS\n@names@\n" @ONLY)
        set(delayed ${folder}/lib${library}.a)
        execute_process(COMMAND ${CMAKE_DLLTOOL} -d ${library}.def -D ${library}.dll -y lib${library}.a
            WORKING_DIRECTORY ${folder} RESULT_VARIABLE failed OUTPUT_QUIET ERROR_QUIET)
        if(failed)
            message(STATUS "No delayed import library of ${library}: it is loaded at once")
            set(delayed ${library})
        endif()
        target_link_libraries(tm_desktop INTERFACE ${delayed})
    endforeach()
    endblock()
endif()
