# What an installation holds, in two components: runtime is what runs, development what a host is built with. Every
# file finds the others by relative ways, so an installation can be moved.

set(documents ${CMAKE_INSTALL_DOCDIR})

# With the libraries that it needs; where it is not in the programs' folder then, what starts it is there.
if(SYMBKDS_TOOLS)
    install(TARGETS symbhost RUNTIME DESTINATION ${symbkds_library_folder} COMPONENT runtime)
endif()
if(TARGET symbhost_manual)
    install(FILES ${PROJECT_BINARY_DIR}/man/symbhost.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
endif()
foreach(document IN ITEMS dump-file.md export-file.md host-contract.md install.md plant-memory.svg symbhost.md windows.md)
    install(FILES docs/${document} DESTINATION ${documents} COMPONENT runtime)
endforeach()
install(FILES examples/plant.kds DESTINATION ${documents}/examples COMPONENT runtime)
include(Licences)

if(WIN32)
    install(TARGETS symbkds KorvaProServices LIBRARY DESTINATION ${symbkds_library_folder} COMPONENT runtime)
    install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/KorvaProServices.manifest ${symbkds_windows_runtime}
        DESTINATION ${symbkds_library_folder} COMPONENT runtime)
    if(SYMBKDS_TOOLS)
        install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/symbhost.exe.manifest DESTINATION ${CMAKE_INSTALL_BINDIR}
            COMPONENT runtime)
    endif()
    return()
endif()

install(TARGETS symbkds_platform EXPORT symbkdsTargets
    LIBRARY DESTINATION ${symbkds_library_folder} COMPONENT runtime)
install(TARGETS symbkds LIBRARY DESTINATION ${symbkds_library_folder} COMPONENT runtime)
install(TARGETS KorvaProServices LIBRARY DESTINATION ${symbkds_library_folder}/comservers COMPONENT runtime)
set_target_properties(symbkds symbkds_platform PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(KorvaProServices PROPERTIES INSTALL_RPATH "$ORIGIN/..")
if(SYMBKDS_TOOLS)
    install(FILES symbhost/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME symbhost COMPONENT runtime)
    set_target_properties(symbhost PROPERTIES INSTALL_RPATH "$ORIGIN")
    add_subdirectory(platform/posix/launcher)
    add_dependencies(symbhost symbhost_launcher) # whoever builds the one installs both
    install(TARGETS symbhost_launcher RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()

# The contract's headers and those of platform/ that they include.
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/symbkds)
install(DIRECTORY symbtables/symb DESTINATION ${headers} COMPONENT development FILES_MATCHING PATTERN *.h)
install(FILES ${PROJECT_BINARY_DIR}/include/symb/Version.h DESTINATION ${headers}/symb COMPONENT development)
foreach(header IN ITEMS win32/Library win32/Types com/Bstr com/ClassObject com/TaskMemory com/Unknown com/Variant
        mfc/CArray mfc/CString mfc/Exceptions)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES platform/${header}.h DESTINATION ${headers}/platform/${folder} COMPONENT development)
endforeach()
install(DIRECTORY examples/host DESTINATION ${documents}/examples COMPONENT development)

# find_package(symbkds)
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/symbkds)
set(SYMBKDS_PLUGIN_FILE ${symbkds_library_folder}/libsymbkds.so)
configure_package_config_file(cmake/symbkdsConfig.cmake.in ${PROJECT_BINARY_DIR}/package/symbkdsConfig.cmake
    INSTALL_DESTINATION ${package_folder} PATH_VARS SYMBKDS_PLUGIN_FILE)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/symbkdsConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(EXPORT symbkdsTargets NAMESPACE symbkds:: DESTINATION ${package_folder} COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/package/symbkdsConfig.cmake ${PROJECT_BINARY_DIR}/package/symbkdsConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT development)

# pkg-config symbkds
relative_way(SYMBKDS_WAY_TO_PREFIX ${CMAKE_INSTALL_LIBDIR}/pkgconfig "")
configure_file(cmake/symbkds.pc.in ${PROJECT_BINARY_DIR}/package/symbkds.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/symbkds.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
