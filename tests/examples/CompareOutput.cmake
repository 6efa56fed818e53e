# Runs a program and compares its standard output, line ends made LF, with a file.
#
#   cmake -DPROGRAM=... -DEXPECTED=... -P CompareOutput.cmake
#
# PROGRAM is a list of the program and its arguments.

execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE actual RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ended with ${status}")
endif()
string(REPLACE "\r\n" "\n" actual "${actual}")
file(READ "${EXPECTED}" expected)
if(NOT actual STREQUAL expected)
    message(FATAL_ERROR "expected:\n${expected}\nbut the program printed:\n${actual}")
endif()
