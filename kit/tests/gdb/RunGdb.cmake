# Stops PROGRAM in lookHere and prints each value that EXPECTED names, which must give that file.
#
# EXPECTED has a line "<expression>: <text>" for each. With SCRIPT, gdb is told to load the printers.
# With PREFIX, the library is installed there, and gdb must find them itself.
cmake_minimum_required(VERSION 3.22)
file(STRINGS "${EXPECTED}" lines ENCODING UTF-8)
set(commands -ex "break lookHere" -ex "run" -ex "up")
foreach(line IN LISTS lines)
    string(REGEX REPLACE ": .*" "" expression "${line}")
    list(APPEND commands -ex "echo value ${expression}:\\040" -ex "output ${expression}" -ex "echo \\n")
endforeach()
set(loading -iex "set charset UTF-8" -iex "set width 0")
if(SCRIPT)
    list(APPEND loading -ex "source ${SCRIPT}")
endif()
if(PREFIX)
    file(REMOVE_RECURSE "${PREFIX}")
    execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}"
        --prefix "${PREFIX}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    set(scripts "${PREFIX}/share/gdb/auto-load")
    list(APPEND loading -iex "set auto-load scripts-directory ${scripts}"
        -iex "set auto-load safe-path ${scripts}"
        -iex "set environment LD_LIBRARY_PATH ${PREFIX}/${LIBDIR}")
endif()

execute_process(COMMAND "${GDB}" --batch -nx ${loading} ${commands} "${PROGRAM}"
    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
string(REGEX MATCHALL "value [^\n]*" values "${output}")
list(TRANSFORM values REPLACE "^value " "")
list(JOIN values "\n" values)
file(READ "${EXPECTED}" expected)
if(NOT "${values}\n" STREQUAL expected)
    message(FATAL_ERROR "gdb printed\n${values}\ninstead of\n${expected}\nand said\n${errors}")
endif()
