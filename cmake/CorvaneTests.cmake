# How tests become entries of ctest.

# Tests compile in two thirds of the time with -O1 and lose nothing; the program that they test is what ships.
set(test_options $<$<CONFIG:Release>:-O1>)

# corvane_shards(NAME COUNT [ENVIRONMENT])
#
# Runs the tests of a program in COUNT processes, each its share: a process for each test would take minutes. One
# test alone: the program itself with --gtest_filter=Suite.name.
function(corvane_shards NAME COUNT)
    math(EXPR last "${COUNT} - 1")
    foreach(shard RANGE ${last})
        math(EXPR number "${shard} + 1")
        add_test(NAME ${NAME}.${number}of${COUNT} COMMAND ${NAME})
        set_tests_properties(${NAME}.${number}of${COUNT} PROPERTIES ENVIRONMENT
                             "GTEST_TOTAL_SHARDS=${COUNT};GTEST_SHARD_INDEX=${shard};${ARGN}")
    endforeach()
endfunction()

# Gives the tests of this folder an end, so that one that hangs fails. The output of such a test ends with the name
# of what was running.
function(corvane_limit_tests)
    get_property(tests DIRECTORY PROPERTY TESTS)
    if(tests)
        set_tests_properties(${tests} PROPERTIES TIMEOUT 600)
        # The machine's own services are not for tests.
        foreach(test ${tests})
            set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nonexistent)
        endforeach()
    endif()
endfunction()
