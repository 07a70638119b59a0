# The tests of a build for Windows, run under Wine (./check --windows): the tests of the folders and the stories. What
# stays on Linux: the tests of platform/linux and platform/desktop, which are about that system, and those that are
# scripts driving a shell of it. What Wine cannot show is named in left_out.txt, each with its reason.
set(BUILD_GMOCK OFF)
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

corvane_precompiled(corvane_test_headers LINKS corvane_test_support gtest_main OPTIONS ${test_options} HEADERS
    <gtest/gtest.h> <array> <filesystem> <fstream> <map> <memory> <random> <tests/support/test_program.h>)
file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" *_test.cpp)
list(FILTER sources EXCLUDE REGEX "^(forms|fuzz|platform/desktop|platform/linux)/")
add_executable(corvane_tests ${sources})
set_source_files_properties(app/handlers_test.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON
                            COMPILE_DEFINITIONS "CORVANE_FORMS_DIR=\"${PROJECT_SOURCE_DIR}/forms\"")
set_source_files_properties(app/stored_files_test.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON
                            COMPILE_DEFINITIONS "CORVANE_FIXTURES=\"${CMAKE_CURRENT_SOURCE_DIR}/fixtures\"")
file(GLOB windows_sources CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" platform/windows/*_test.cpp)
set_source_files_properties(${windows_sources} PROPERTIES SKIP_PRECOMPILE_HEADERS ON
                            COMPILE_DEFINITIONS "_WIN32_WINNT=0x0A00;NOMINMAX;WIN32_LEAN_AND_MEAN")
target_link_libraries(corvane_tests PRIVATE corvane_test_support gtest_main corvane_warnings)
target_compile_options(corvane_tests PRIVATE ${test_options})
corvane_precompile(corvane_tests corvane_test_headers)

# NAME, blanks, reason: a line each; "#" begins a comment. A name with a dot and no "story." before it is a test of the
# program above.
file(STRINGS windows/left_out.txt left_out REGEX "^[^#]" ENCODING UTF-8)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS windows/left_out.txt)
set(left_out_tests "")
set(left_out_stories "")
foreach(line IN LISTS left_out)
    string(REGEX REPLACE " .*" "" name "${line}")
    if(name MATCHES "^story\\.")
        list(APPEND left_out_stories "${name}")
    else()
        string(APPEND left_out_tests "${name}:")
    endif()
endforeach()
corvane_shards(corvane_tests 2 "GTEST_FILTER=-${left_out_tests}")

file(GLOB stories CONFIGURE_DEPENDS scripts/*.story)
foreach(story ${stories})
    get_filename_component(name "${story}" NAME_WE)
    if(NOT "story.${name}" IN_LIST left_out_stories)
        add_test(NAME story.${name} COMMAND Python3::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/scripts/run_story.py"
                 --windows "${CMAKE_CROSSCOMPILING_EMULATOR}" $<TARGET_FILE:corvane-console> "${story}")
    endif()
endforeach()
add_test(NAME windows.roads COMMAND Python3::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/windows/roads_test.py"
         "${CMAKE_CROSSCOMPILING_EMULATOR}" $<TARGET_FILE:corvane-console>)
corvane_limit_tests()
if(CORVANE_FORMS)
    add_subdirectory(forms)
endif()
