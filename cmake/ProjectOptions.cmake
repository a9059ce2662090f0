# Compiler options of every target of the project, and where its binaries go. Nothing here reaches a project that has
# this one as a subdirectory.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ${PROJECT_IS_TOP_LEVEL})

# Programs and libraries lie side by side and find one another there.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

set(SYMBKDS_SANITIZE "" CACHE STRING "Sanitizers to build with: address, thread or nothing")

if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(SYMBKDS_CCACHE ccache)
    if(SYMBKDS_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${SYMBKDS_CCACHE})
    endif()
endif()

add_library(symbkds_options INTERFACE)
target_compile_options(symbkds_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual -Wformat=2
    -Wnon-virtual-dtor -Woverloaded-virtual -Wundef -Wimplicit-fallthrough
    # g++ 12 sees overlaps inside its own std::string that are none.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # clang, which builds the fuzzers, also means a nested class's parameter beside an outer field, and a stack's
    # address that is only a number.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-shadow;-Wno-return-stack-address>
    $<$<BOOL:${SYMBKDS_WARNINGS_AS_ERRORS}>:-Werror>)

if(WIN32)
    target_compile_options(symbkds_options INTERFACE
        # Interfaces of COM have no destructor at all; those in the system's headers are not declared protected.
        -Wno-non-virtual-dtor
        # GetProcAddress answers with one type of function for all of them.
        -Wno-cast-function-type
        # The system's headers declare `byte` and the like at namespace level.
        -Wno-shadow)
    include(WindowsRuntime)
else()
    # Calls between the libraries go straight through the address table.
    target_compile_options(symbkds_options INTERFACE -fno-plt)
endif()

# Host, plug-in and tests describe one object by interfaces of their own, so the
# check that compares dynamic types by name does not apply.
if(SYMBKDS_SANITIZE STREQUAL "address")
    set(sanitizer_flags -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
elseif(SYMBKDS_SANITIZE STREQUAL "thread")
    set(sanitizer_flags -fsanitize=thread -fno-omit-frame-pointer)
else()
    set(sanitizer_flags)
endif()
# Everything tells the fuzzers what it runs through; only they themselves have libFuzzer's main. clang compares the
# types of functions too.
if(SYMBKDS_FUZZ)
    list(APPEND sanitizer_flags -fsanitize=fuzzer-no-link -fno-sanitize=function)
endif()
target_compile_options(symbkds_options INTERFACE ${sanitizer_flags})
target_link_options(symbkds_options INTERFACE ${sanitizer_flags})
