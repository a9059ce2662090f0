# The runtime of the compiler in libraries of their own: linked into each module instead, an exception of one could
# not be caught in another.
set(symbkds_windows_runtime)
foreach(name libstdc++-6.dll libgcc_s_dw2-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${file}")
        set(file /usr/i686-w64-mingw32/lib/${name})
    endif()
    if(NOT EXISTS ${file})
        message(FATAL_ERROR "the compiler's ${name} is missing")
    endif()
    list(APPEND symbkds_windows_runtime ${file})
endforeach()
add_custom_target(windows_runtime ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${symbkds_windows_runtime} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
    COMMENT "Copying the compiler's runtime")
