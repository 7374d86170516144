# Runs PROGRAM, which must succeed and print exactly what the file EXPECTED holds.
file(READ "${EXPECTED}" expected)
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT output STREQUAL expected)
    message(FATAL_ERROR "ended with ${result} and printed:\n${output}instead of:\n${expected}")
endif()
