# One step of the tests of find_package's components. INSTALLED is the folder that the library's own
# tests have installed and moved.
cmake_minimum_required(VERSION 3.22)
include("${CMAKE_CURRENT_LIST_DIR}/../Consumer.cmake")

# configure_project(<prefix> <text>): a project that finds the package as the text says. Sets
# `configure_result` and `configure_output`.
function(configure_project prefix text)
    set(source "${WORK_DIR}/${STEP}_source")
    file(WRITE "${source}/CMakeLists.txt"
        "cmake_minimum_required(VERSION 3.22)\nproject(consumer LANGUAGES CXX)\n${text}\n")
    configure_consumer("${source}" "${WORK_DIR}/${STEP}" "${prefix}")
    # CMake wraps messages.
    string(REGEX REPLACE "[ \n]+" " " configure_output "${configure_output}")
    set(configure_result "${configure_result}" PARENT_SCOPE)
    set(configure_output "${configure_output}" PARENT_SCOPE)
endfunction()

# Fails unless the project was refused with the text.
function(expect_refusal text)
    string(FIND "${configure_output}" "${text}" position)
    if(configure_result EQUAL 0 OR position EQUAL -1)
        message(FATAL_ERROR "expected to be refused with \"${text}\", not: ${configure_output}")
    endif()
endfunction()

function(step_unknown)
    configure_project("${INSTALLED}" "find_package(zt_orvex 1.0 REQUIRED COMPONENTS kit kitt)")
    expect_refusal("zt_orvex has no component 'kitt', only kit and tools.")
endfunction()

function(step_optional_unknown)
    configure_project("${INSTALLED}" [[
find_package(zt_orvex 1.0 REQUIRED OPTIONAL_COMPONENTS kitt)
if(NOT TARGET zt_orvex::zt_orvex OR NOT zt_orvex_FOUND OR zt_orvex_kitt_FOUND)
    message(FATAL_ERROR "expected the library without that component")
endif()]])
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
endfunction()

# The programs are named as targets, and run as a step of the consumer's build.
function(step_tools)
    configure_project("${INSTALLED}" [[
find_package(zt_orvex 1.0 REQUIRED COMPONENTS tools)
if(TARGET zt_orvex::kit)
    message(FATAL_ERROR "expected no kit")
endif()
foreach(tool orvex-report orvex-match)
    add_custom_target(run-${tool} ALL COMMAND zt_orvex::${tool} --version >${tool}.txt)
endforeach()]])
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK_DIR}/tools"
        COMMAND_ERROR_IS_FATAL ANY)
    foreach(tool orvex-report orvex-match)
        file(READ "${WORK_DIR}/tools/${tool}.txt" version)
        if(NOT version MATCHES "[0-9]+\\.[0-9]+\\.[0-9]+")
            message(FATAL_ERROR "${tool} printed: ${version}")
        endif()
    endforeach()
endfunction()

# A copy of the package without the files of the tools, as a build without them installs.
function(step_missing_tools)
    set(prefix "${WORK_DIR}/without_tools")
    file(REMOVE_RECURSE "${prefix}")
    file(COPY "${INSTALLED}/" DESTINATION "${prefix}" FOLLOW_SYMLINK_CHAIN)
    file(GLOB tool_files "${prefix}/${LIBDIR}/cmake/zt_orvex/zt_orvex_tools*")
    file(REMOVE ${tool_files})
    configure_project("${prefix}" "find_package(zt_orvex 1.0 REQUIRED COMPONENTS tools)")
    expect_refusal("The component 'tools' of zt_orvex isn't installed here.")
endfunction()

cmake_language(CALL step_${STEP})
