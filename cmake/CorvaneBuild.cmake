# How everything is compiled: warnings, asserts, sanitizers, the compiler cache, the headers read once.

add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                       $<$<BOOL:${CORVANE_WERROR}>:-Werror>)

# A build that looks for mistakes keeps its asserts and those of the standard library, whatever its type says.
if(CORVANE_SANITIZE OR CORVANE_SANITIZE_THREADS OR CORVANE_FUZZ OR CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_options(-UNDEBUG)
    add_compile_definitions(_GLIBCXX_ASSERTIONS CORVANE_CHECKED)
endif()
if(CORVANE_SANITIZE)
    # Under sanitizers -Og compiles in a third of the time of -O2; -g1 is enough for the lines of a stack.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -Og -g1)
    add_link_options(-fsanitize=address,undefined)
endif()
if(CORVANE_SANITIZE_THREADS)
    add_compile_options(-fsanitize=thread -Og -g1)
    add_link_options(-fsanitize=thread)
endif()
if(CORVANE_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "CORVANE_FUZZ needs clang: -DCMAKE_CXX_COMPILER=clang++")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()

# The compiler cache, where there is one. It caches files with precompiled headers only if told that their macros
# and times do not count.
if(NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(CORVANE_CCACHE ccache)
    find_program(CORVANE_ENV env)
    if(CORVANE_CCACHE AND CORVANE_ENV)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CORVANE_ENV}" CCACHE_SLOPPINESS=pch_defines,time_macros "${CORVANE_CCACHE}")
    endif()
endif()

# corvane_precompiled(NAME LINKS targets... HEADERS headers... [OPTIONS options...])
#
# Compiles the headers once. A target that calls corvane_precompile(TARGET NAME) reads them from there; it must be
# compiled with the same options and definitions, else the compiler says so (-Winvalid-pch).
function(corvane_precompiled NAME)
    cmake_parse_arguments(ARG "" "" "LINKS;HEADERS;OPTIONS" ${ARGN})
    if(NOT CORVANE_PRECOMPILE)
        return()
    endif()
    set(source "${PROJECT_BINARY_DIR}/precompiled/${NAME}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "// Carries the precompiled headers.\n")
    add_library(${NAME} OBJECT "${source}")
    target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} corvane_warnings)
    target_compile_options(${NAME} PRIVATE ${ARG_OPTIONS})
    target_precompile_headers(${NAME} PRIVATE ${ARG_HEADERS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Without it ccache cannot see which precompiled header a file reads.
        target_compile_options(${NAME} PRIVATE -fpch-preprocess)
    endif()
endfunction()

function(corvane_precompile TARGET NAME)
    if(CORVANE_PRECOMPILE AND NOT NAME STREQUAL "none")
        target_precompile_headers(${TARGET} REUSE_FROM ${NAME})
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${TARGET} PRIVATE -fpch-preprocess)
        endif()
    endif()
endfunction()

corvane_precompiled(corvane_standard_headers HEADERS <algorithm> <array> <cstdint> <functional> <map> <memory>
                    <optional> <string> <string_view> <unordered_map> <utility> <vector>)
