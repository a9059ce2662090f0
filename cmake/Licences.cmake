# The licences of the libraries that become part of our files, from Debian's packages or from the library's sources.

# install_licence LIBRARY FILE...: the first file that there is.
function(install_licence library)
    foreach(file IN LISTS ARGN)
        if(EXISTS ${file})
            install(FILES ${file} DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences RENAME ${library}.txt COMPONENT runtime)
            return()
        endif()
    endforeach()
    message(STATUS "The licence of ${library} is not on this machine; an installation will lack it")
endfunction()

install_licence(pugixml ${SYMBKDS_PUGIXML}/LICENSE.md /usr/share/doc/libpugixml-dev/copyright)
if(SYMBKDS_TOOLS)
    install_licence(CLI11 /usr/share/doc/libcli11-dev/copyright)
    install_licence(nlohmann-json /usr/share/doc/nlohmann-json3-dev/copyright)
endif()
if(WIN32)
    install_licence(libstdc++ /usr/share/doc/gcc-mingw-w64-base/copyright)
    install_licence(winpthreads /usr/share/doc/mingw-w64-common/copyright)
endif()
