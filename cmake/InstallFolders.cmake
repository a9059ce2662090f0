# Where an installation keeps the plug-in, and the way to it from the programs' folder.
include(GNUInstallDirs)

if(WIN32)
    # One folder for all of it: the system looks for libraries and manifests beside the program.
    set(symbkds_library_folder ${CMAKE_INSTALL_BINDIR})
else()
    set(symbkds_library_folder ${CMAKE_INSTALL_LIBDIR}/symbkds)
endif()

# relative_way VARIABLE FROM TO: the path from one folder of an installation to another, whatever the prefix will be.
function(relative_way variable from to)
    cmake_path(ABSOLUTE_PATH from BASE_DIRECTORY /prefix NORMALIZE)
    cmake_path(ABSOLUTE_PATH to BASE_DIRECTORY /prefix NORMALIZE)
    cmake_path(RELATIVE_PATH to BASE_DIRECTORY ${from})
    string(REGEX REPLACE "/$" "" to "${to}")
    set(${variable} ${to} PARENT_SCOPE)
endfunction()

relative_way(symbkds_way_to_libraries ${CMAKE_INSTALL_BINDIR} ${symbkds_library_folder})
