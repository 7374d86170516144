# What the tests of the installed libraries share. A consumer is built for the platform of the library:
# GENERATOR, COMPILER, FLAGS, TOOLCHAIN, ROOTS and PREFIXES are those of its build. EMULATOR is the
# command that starts programs of another platform, and empty for this one; SUFFIX ends their names.

# A compiler for another platform doesn't search the headers of that system by itself.
set(system_headers)
foreach(root IN LISTS ROOTS)
    list(APPEND system_headers -isystem "${root}/usr/include" -isystem "${root}/include")
endforeach()

# Runs a program of the consumer, which must succeed and print `expected_output`. On Windows it finds
# the DLLs of `prefix` by the path, for which wine has a variable of its own.
function(run_consumer program)
    set(ENV{WINEPATH} "${prefix}/bin")
    execute_process(COMMAND ${EMULATOR} "${program}${SUFFIX}" OUTPUT_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0 OR NOT output STREQUAL expected_output)
        message(FATAL_ERROR "${program} ended with ${result} and printed: ${output}")
    endif()
endfunction()

# configure_consumer(<source> <build> <prefix> <option>...): sets `configure_result` and
# `configure_output`.
function(configure_consumer source build prefix)
    file(REMOVE_RECURSE "${build}")
    set(platform)
    if(TOOLCHAIN)
        list(APPEND platform -D "CMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}")
    endif()
    if(ROOTS)
        # CMake looks for packages below these folders alone.
        string(REPLACE ";" "\\;" roots "${ROOTS};${prefix}")
        list(APPEND platform -D "CMAKE_FIND_ROOT_PATH=${roots}")
    endif()
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}"
            -D "CMAKE_CXX_COMPILER=${COMPILER}"
            -D "CMAKE_CXX_FLAGS=${FLAGS}"
            -D "CMAKE_PREFIX_PATH=${prefix};${PREFIXES}"
            ${platform}
            ${ARGN}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    set(configure_result "${result}" PARENT_SCOPE)
    set(configure_output "${output}" PARENT_SCOPE)
endfunction()
