# One step of the tests of the installed library. The folders are in WORK_DIR; the one that the
# installation is moved to has a blank in its name on purpose.
cmake_minimum_required(VERSION 3.22)
include("${CMAKE_CURRENT_LIST_DIR}/Consumer.cmake")
set(first_place "${WORK_DIR}/first")
set(prefix "${WORK_DIR}/moved here")
set(consumer_dir "${SOURCE_DIR}/tests/install/consumer")
set(expected_output "consumer: all as expected\n")

# Runs a command that must succeed.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed with ${result}: ${ARGN}")
    endif()
endfunction()

function(step_install)
    file(REMOVE_RECURSE "${WORK_DIR}")
    run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}" --prefix "${first_place}")
    file(RENAME "${first_place}" "${prefix}")
endfunction()

function(step_files)
    foreach(file
            "include/zt_orvex/zt_orvex.h"
            "include/zt_orvex/ast/NodeKinds.def"
            ${LIBRARIES}
            "${LIBDIR}/cmake/zt_orvex/zt_orvexConfig.cmake"
            "${LIBDIR}/pkgconfig/zt_orvex.pc")
        if(NOT EXISTS "${prefix}/${file}")
            message(FATAL_ERROR "not installed: ${file}")
        endif()
    endforeach()

    # No text file may name the place where the library was built or first installed.
    file(GLOB_RECURSE texts "${prefix}/*.cmake" "${prefix}/*.pc")
    foreach(text IN LISTS texts)
        file(READ "${text}" content)
        foreach(place "${SOURCE_DIR}" "${BUILD_DIR}" "${first_place}")
            string(FIND "${content}" "${place}" position)
            if(NOT position EQUAL -1)
                message(FATAL_ERROR "${text} names ${place}")
            endif()
        endforeach()
    endforeach()
endfunction()

# The programs alone, in a place of their own, moved as well. They must find their libraries there:
# those in the build folder have another path.
function(step_tools)
    set(first "${WORK_DIR}/first tools")
    set(moved "${WORK_DIR}/moved tools")
    file(REMOVE_RECURSE "${first}" "${moved}")
    run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --config "${CONFIG}" --prefix "${first}"
        --component tools)
    file(RENAME "${first}" "${moved}")

    file(GLOB_RECURSE installed RELATIVE "${moved}" "${moved}/*")
    # On Windows, the libraries that they use come with them, too.
    list(FILTER installed EXCLUDE REGEX "^${LIBDIR}/libzt_orvex(_kit)?[.]so[.][0-9.]+$|^bin/.*[.]dll$")
    list(FILTER installed EXCLUDE REGEX "^${LIBDIR}/cmake/zt_orvex/zt_orvex_toolsTargets.*[.]cmake$")
    list(SORT installed)
    set(expected
        bin/orvex-match${SUFFIX}
        bin/orvex-report${SUFFIX}
        share/bash-completion/completions/orvex-match
        share/bash-completion/completions/orvex-report
        share/man/man1/orvex-match.1
        share/man/man1/orvex-report.1)
    if(NOT "${installed}" STREQUAL "${expected}")
        message(FATAL_ERROR "installed: ${installed}")
    endif()

    if(ROOTS)
        # Where the programs find the libraries that belong to the system of their platform.
        list(TRANSFORM ROOTS APPEND "/usr/lib/${LIBRARY_ARCHITECTURE}" OUTPUT_VARIABLE folders)
        list(JOIN folders ":" folders)
        set(ENV{LD_LIBRARY_PATH} "${folders}")
    endif()
    set(program "${SOURCE_DIR}/examples/programs/sieve.ost")
    foreach(command "bin/orvex-report;${program}" "bin/orvex-match;${program};${program}"
            "bin/orvex-report;--version" "bin/orvex-match;--version")
        list(POP_FRONT command tool)
        run(${EMULATOR} "${moved}/${tool}${SUFFIX}" ${command})
        if(NOT SONAME) # it began: the library is in it, or beside it and nowhere else to be found
            continue()
        endif()
        execute_process(COMMAND "${CMAKE_COMMAND}" -E env LD_TRACE_LOADED_OBJECTS=1
            ${EMULATOR} "${moved}/${tool}" OUTPUT_VARIABLE loaded COMMAND_ERROR_IS_FATAL ANY)
        string(FIND "${loaded}" "=> ${moved}/bin/../${LIBDIR}/libzt_orvex.so" position)
        if(position EQUAL -1)
            message(FATAL_ERROR "${tool} loads its library from elsewhere: ${loaded}")
        endif()
    endforeach()
endfunction()

function(step_find_package)
    set(build "${WORK_DIR}/find_package")
    configure_consumer("${consumer_dir}" "${build}" "${prefix}")
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    run("${CMAKE_COMMAND}" --build "${build}")
    run_consumer("${build}/consumer")
endfunction()

# A consumer need not have run-time type information, nor agree with the library on it.
function(step_without_type_information)
    set(build "${WORK_DIR}/without_type_information")
    configure_consumer("${consumer_dir}" "${build}" "${prefix}"
        -D "CMAKE_CXX_FLAGS=${FLAGS} -fno-rtti")
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    run("${CMAKE_COMMAND}" --build "${build}")
    run_consumer("${build}/consumer")
endfunction()

function(step_version)
    set(source "${WORK_DIR}/version_source")
    file(WRITE "${source}/CMakeLists.txt"
        "cmake_minimum_required(VERSION 3.22)\nproject(consumer LANGUAGES CXX)\n"
        "find_package(zt_orvex 2.0 CONFIG REQUIRED)\n")
    configure_consumer("${source}" "${WORK_DIR}/version" "${prefix}")
    if(configure_result EQUAL 0 OR NOT configure_output MATCHES "version: 1\\.[0-9]+\\.[0-9]+")
        message(FATAL_ERROR "version 2.0 was not refused: ${configure_output}")
    endif()
endfunction()

function(step_pkg_config)
    find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    execute_process(COMMAND "${pkg_config}" --cflags --libs "zt_orvex >= 1.0"
        OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags} ${FLAGS}")
    list(APPEND flags ${system_headers})
    execute_process(COMMAND "${pkg_config}" --variable=libdir zt_orvex
        OUTPUT_VARIABLE libdir OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(rpath UNIX_COMMAND "-Wl,-rpath,${libdir}")
    set(program "${WORK_DIR}/pkg_config_consumer")
    run("${COMPILER}" -std=c++17 "${consumer_dir}/main.cpp" -o "${program}"
        ${flags} ${rpath})
    run_consumer("${program}")
endfunction()

# Configuring shows what a consumer gets: the library's target, and none of those for development.
# Building would only compile the library a second time.
function(step_subdirectory)
    configure_consumer("${SOURCE_DIR}/tests/install/subdirectory" "${WORK_DIR}/subdirectory"
        "${prefix}" -D "ZT_ORVEX_SOURCE_DIR=${SOURCE_DIR}")
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
endfunction()

# A project with the library in its own tree installs its own files alone, unless it asks for more.
function(step_embedded)
    set(build "${WORK_DIR}/embedded")
    configure_consumer("${SOURCE_DIR}/tests/install/embedded" "${build}" "${prefix}"
        -D "ZT_ORVEX_SOURCE_DIR=${SOURCE_DIR}")
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    run("${CMAKE_COMMAND}" --install "${build}" --prefix "${build}/installed")
    file(GLOB_RECURSE installed RELATIVE "${build}/installed" "${build}/installed/*")
    if(NOT "${installed}" STREQUAL "share/consumer.txt")
        message(FATAL_ERROR "installed: ${installed}")
    endif()

    # The library isn't built, so it can't be installed. The rule is enough.
    run("${CMAKE_COMMAND}" -D ZT_ORVEX_INSTALL=ON "${build}")
    file(READ "${build}/zt_orvex/cmake_install.cmake" rules)
    if(NOT rules MATCHES "libzt_orvex[.]")
        message(FATAL_ERROR "ZT_ORVEX_INSTALL=ON is ignored")
    endif()
endfunction()

# Neither library nor kit nor tools.
function(step_not_installed)
    set(build "${WORK_DIR}/not_installed")
    configure_consumer("${SOURCE_DIR}" "${build}" "" -D ZT_ORVEX_INSTALL=OFF
        -D "ZT_ORVEX_BUILD_EXAMPLES=${EXAMPLES}")
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    run("${CMAKE_COMMAND}" --install "${build}" --prefix "${build}/installed")
    if(EXISTS "${build}/installed")
        message(FATAL_ERROR "something is in ${build}/installed")
    endif()
endfunction()

cmake_language(CALL step_${STEP})
