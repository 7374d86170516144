# What the tests of the installed libraries share.

# Runs a program of the consumer, which must succeed and print `expected_output`.
function(run_consumer program)
    execute_process(COMMAND "${program}" OUTPUT_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0 OR NOT output STREQUAL expected_output)
        message(FATAL_ERROR "${program} ended with ${result} and printed: ${output}")
    endif()
endfunction()

# configure_consumer(<source> <build> <prefix> <option>...): sets `configure_result` and
# `configure_output`.
function(configure_consumer source build prefix)
    file(REMOVE_RECURSE "${build}")
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}"
            -D "CMAKE_CXX_COMPILER=${COMPILER}"
            -D "CMAKE_CXX_FLAGS=${FLAGS}"
            -D "CMAKE_PREFIX_PATH=${prefix}"
            ${ARGN}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    set(configure_result "${result}" PARENT_SCOPE)
    set(configure_output "${output}" PARENT_SCOPE)
endfunction()
