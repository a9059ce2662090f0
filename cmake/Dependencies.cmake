# The libraries that the project uses: pugixml::static, CLI11::CLI11, nlohmann_json::nlohmann_json and, for the
# tests, GTest::gtest, GTest::gmock and GTest::gtest_main.
#
# Built for this machine they are the installed packages. A cross build takes the header-only ones from the same
# packages and builds the others from the distribution's sources.

if(NOT CMAKE_CROSSCOMPILING)
    find_package(pugixml REQUIRED)
    find_package(CLI11 REQUIRED)
    find_package(nlohmann_json REQUIRED)
    if(SYMBKDS_TESTS)
        find_package(GTest REQUIRED)
    endif()
    return()
endif()

# Where this machine's header-only libraries lie; the folder as a whole would bring in its system headers.
set(SYMBKDS_HEADERS "/usr/include" CACHE PATH "Folder with the headers of CLI11 and nlohmann-json")
set(SYMBKDS_PUGIXML "${CMAKE_SOURCE_DIR}/.cache/pugixml" CACHE PATH "Source folder of pugixml")
set(SYMBKDS_GOOGLETEST "/usr/src/googletest" CACHE PATH "Source folder of GoogleTest")

function(add_header_library target folder)
    if(NOT EXISTS ${SYMBKDS_HEADERS}/${folder})
        message(FATAL_ERROR "${SYMBKDS_HEADERS}/${folder} is missing; scripts/windows.sh installs it")
    endif()
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
    file(CREATE_LINK ${SYMBKDS_HEADERS}/${folder} ${CMAKE_BINARY_DIR}/headers/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} INTERFACE ${CMAKE_BINARY_DIR}/headers)
endfunction()

add_header_library(CLI11::CLI11 CLI)
add_header_library(nlohmann_json::nlohmann_json nlohmann)

if(NOT EXISTS ${SYMBKDS_PUGIXML}/src/pugixml.cpp)
    message(FATAL_ERROR "${SYMBKDS_PUGIXML} holds no sources of pugixml; scripts/bootstrap.sh fetches them")
endif()
add_library(pugixml STATIC ${SYMBKDS_PUGIXML}/src/pugixml.cpp)
target_include_directories(pugixml SYSTEM PUBLIC ${SYMBKDS_PUGIXML}/src)
add_library(pugixml::static ALIAS pugixml)

if(SYMBKDS_TESTS)
    set(INSTALL_GTEST OFF)
    add_subdirectory(${SYMBKDS_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
