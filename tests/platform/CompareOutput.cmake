# Runs PROGRAM, under EMULATOR if there is one, and fails unless what it prints has the bytes of the
# file EXPECTED. Leaves the output in the file OUTPUT.
cmake_minimum_required(VERSION 3.22)

execute_process(COMMAND ${EMULATOR} "${PROGRAM}" OUTPUT_FILE "${OUTPUT}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ended with ${result}")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${OUTPUT}" "${EXPECTED}"
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
if(result EQUAL 0)
    return()
endif()

find_program(diff diff)
if(diff)
    execute_process(COMMAND "${diff}" -u "${EXPECTED}" "${OUTPUT}" OUTPUT_VARIABLE difference)
    string(SUBSTRING "${difference}" 0 5000 difference)
endif()
message(FATAL_ERROR "${OUTPUT} differs from ${EXPECTED}\n${difference}")
