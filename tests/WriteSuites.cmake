# Writes the ctest entries of a test program, one for each suite of its tests.
#
#   cmake -DPROGRAM=... -DPREFIX=... -DOUTPUT=... -P WriteSuites.cmake
execute_process(
    COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE list COMMAND_ERROR_IS_FATAL ANY
)
# Suites stand at the beginning of a line and end in a full stop; tests are indented.
string(REGEX MATCHALL "\n[^ \n]+\\.\n" suites "\n${list}")
if(NOT suites)
    message(FATAL_ERROR "${PROGRAM} has no tests")
endif()
set(entries "")
foreach(suite IN LISTS suites)
    string(REGEX REPLACE "\n|\\.\n" "" suite "${suite}")
    string(APPEND entries "add_test([=[${PREFIX}.${suite}]=] [=[${PROGRAM}]=]"
                          " --gtest_brief=1 [=[--gtest_filter=${suite}.*]=])\n"
    )
endforeach()
file(WRITE ${OUTPUT} "${entries}")
