# One step of the tests of the installed kit. INSTALLED is the folder that the library's own tests have
# installed and moved.
cmake_minimum_required(VERSION 3.22)
include("${CMAKE_CURRENT_LIST_DIR}/../../../tests/install/Consumer.cmake")
set(prefix "${INSTALLED}")
set(expected_output "kit consumer: all as expected\n")

# write_project(<folder> <text>): a project that finds the package as the text says.
function(write_project folder text)
    file(WRITE "${folder}/CMakeLists.txt"
        "cmake_minimum_required(VERSION 3.22)\nproject(consumer LANGUAGES CXX)\n${text}\n")
endfunction()

function(step_files)
    foreach(file "include/zt_orvex_kit/zt_orvex_kit.h" ${LIBRARIES}
            "${LIBDIR}/pkgconfig/zt_orvex_kit.pc")
        if(NOT EXISTS "${INSTALLED}/${file}")
            message(FATAL_ERROR "not installed: ${file}")
        endif()
    endforeach()
endfunction()

# build_and_run(<build> <option>...): the consumer, configured with the options.
function(build_and_run build)
    configure_consumer("${CONSUMER_DIR}" "${build}" "${INSTALLED}"
        -D "LOOP_TREE_DIR=${LOOP_TREE_DIR}" ${ARGN})
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    execute_process(COMMAND "${CMAKE_COMMAND}" --build "${build}" COMMAND_ERROR_IS_FATAL ANY)
    run_consumer("${build}/consumer")
endfunction()

function(step_find_package)
    build_and_run("${WORK_DIR}/find_package")
endfunction()

function(step_without_type_information)
    build_and_run("${WORK_DIR}/without_type_information" -D "CMAKE_CXX_FLAGS=${FLAGS} -fno-rtti")
endfunction()

function(step_without_component)
    write_project("${WORK_DIR}/without_source" [[
find_package(zt_orvex 1.0 CONFIG REQUIRED)
if(NOT TARGET zt_orvex::zt_orvex OR TARGET zt_orvex::kit)
    message(FATAL_ERROR "expected the library alone")
endif()]])
    configure_consumer("${WORK_DIR}/without_source" "${WORK_DIR}/without" "${INSTALLED}")
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
endfunction()

# A copy of the package without the kit's files, as a build without it installs.
function(step_missing_kit)
    set(prefix "${WORK_DIR}/without_kit")
    file(REMOVE_RECURSE "${prefix}")
    file(COPY "${INSTALLED}/" DESTINATION "${prefix}" FOLLOW_SYMLINK_CHAIN)
    file(GLOB kit_files "${prefix}/${LIBDIR}/cmake/zt_orvex/zt_orvex_kit*")
    file(REMOVE ${kit_files})
    write_project("${WORK_DIR}/missing_source"
        "find_package(zt_orvex 1.0 CONFIG REQUIRED COMPONENTS kit)")
    configure_consumer("${WORK_DIR}/missing_source" "${WORK_DIR}/missing" "${prefix}")
    string(REGEX REPLACE "[ \n]+" " " configure_output "${configure_output}") # CMake wraps messages
    if(configure_result EQUAL 0
            OR NOT configure_output MATCHES "The component 'kit' of zt_orvex isn't installed here[.]")
        message(FATAL_ERROR "a missing kit was not refused: ${configure_output}")
    endif()
endfunction()

function(step_pkg_config)
    find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
    set(ENV{PKG_CONFIG_PATH} "${INSTALLED}/${LIBDIR}/pkgconfig")
    execute_process(COMMAND "${pkg_config}" --cflags --libs "zt_orvex_kit >= 1.0"
        OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags} ${FLAGS}")
    list(APPEND flags ${system_headers})
    execute_process(COMMAND "${pkg_config}" --variable=libdir zt_orvex_kit
        OUTPUT_VARIABLE libdir OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(rpath UNIX_COMMAND "-Wl,-rpath,${libdir}")
    file(MAKE_DIRECTORY "${WORK_DIR}")
    set(program "${WORK_DIR}/pkg_config_consumer")
    execute_process(COMMAND "${COMPILER}" -std=c++17 "-I${LOOP_TREE_DIR}" "${CONSUMER_DIR}/main.cpp" -o "${program}"
        ${flags} ${rpath} COMMAND_ERROR_IS_FATAL ANY)
    run_consumer("${program}")
endfunction()

cmake_language(CALL step_${STEP})
