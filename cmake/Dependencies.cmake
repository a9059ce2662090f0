# The libraries that the project uses: component_pugixml; for the tools CLI11::CLI11 and nlohmann_json::nlohmann_json;
# for the tests GTest::gtest, GTest::gmock and GTest::gtest_main.
#
# pugixml is built from the distribution's sources in its compact mode, which halves the memory of a load; the
# installed library is built without it. The others are the installed packages; a cross build takes the header-only
# ones from the same packages and builds GoogleTest from its sources.

set(SYMBKDS_PUGIXML "${PROJECT_SOURCE_DIR}/.cache/pugixml" CACHE PATH "Source folder of pugixml")
if(EXISTS ${SYMBKDS_PUGIXML}/src/pugixml.cpp)
    add_library(component_pugixml OBJECT ${SYMBKDS_PUGIXML}/src/pugixml.cpp)
    target_include_directories(component_pugixml SYSTEM PUBLIC ${SYMBKDS_PUGIXML}/src)
    target_compile_definitions(component_pugixml PUBLIC PUGIXML_COMPACT)
    target_compile_options(component_pugixml PRIVATE ${sanitizer_flags})
    # A load spends much of its time in the parser's small accessors: the component is compiled together with them. Not
    # by CMake's own property, whose options clang-tidy takes for errors.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(component_pugixml PUBLIC $<$<CONFIG:Release>:-flto=auto>)
        target_link_options(component_pugixml PUBLIC $<$<CONFIG:Release>:-flto=auto>)
    endif()
elseif(CMAKE_CROSSCOMPILING)
    message(FATAL_ERROR "${SYMBKDS_PUGIXML} holds no sources of pugixml; scripts/bootstrap.sh fetches them")
else()
    message(WARNING "${SYMBKDS_PUGIXML} holds no sources of pugixml, which scripts/bootstrap.sh fetches; "
        "with the installed library a load takes twice the memory")
    find_package(pugixml REQUIRED)
    add_library(component_pugixml INTERFACE)
    target_link_libraries(component_pugixml INTERFACE pugixml::static)
endif()

if(NOT CMAKE_CROSSCOMPILING)
    if(SYMBKDS_TOOLS)
        find_package(CLI11 REQUIRED)
        find_package(nlohmann_json REQUIRED)
    endif()
    if(SYMBKDS_TESTS)
        find_package(GTest REQUIRED)
    endif()
    return()
endif()

# Where this machine's header-only libraries lie; the folder as a whole would bring in its system headers.
set(SYMBKDS_HEADERS "/usr/include" CACHE PATH "Folder with the headers of CLI11 and nlohmann-json")
set(SYMBKDS_GOOGLETEST "/usr/src/googletest" CACHE PATH "Source folder of GoogleTest")

function(add_header_library target folder)
    if(NOT EXISTS ${SYMBKDS_HEADERS}/${folder})
        message(FATAL_ERROR "${SYMBKDS_HEADERS}/${folder} is missing; scripts/windows.sh installs it")
    endif()
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
    file(CREATE_LINK ${SYMBKDS_HEADERS}/${folder} ${PROJECT_BINARY_DIR}/headers/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} INTERFACE ${PROJECT_BINARY_DIR}/headers)
endfunction()

if(SYMBKDS_TOOLS)
    add_header_library(CLI11::CLI11 CLI)
    add_header_library(nlohmann_json::nlohmann_json nlohmann)
endif()

if(SYMBKDS_TESTS)
    set(INSTALL_GTEST OFF)
    add_subdirectory(${SYMBKDS_GOOGLETEST} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
