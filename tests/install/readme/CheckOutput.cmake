# Runs PROGRAM, which must succeed and print exactly the text of the file EXPECTED, or text that
# contains that of the file EXCERPT.
execute_process(COMMAND "${PROGRAM}" ${ARGUMENT} OUTPUT_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "ended with ${result}")
endif()

if(EXCERPT)
    file(READ "${EXCERPT}" excerpt)
    string(FIND "${output}" "${excerpt}" position)
    if(position EQUAL -1)
        message(FATAL_ERROR "printed:\n${output}without:\n${excerpt}")
    endif()
else()
    file(READ "${EXPECTED}" expected)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "printed:\n${output}instead of:\n${expected}")
    endif()
endif()
