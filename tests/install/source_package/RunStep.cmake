# One step of the tests of the packed source tree, in WORK_DIR: packed, unpacked in `sources`, built in
# `build` and installed in `installed`.
cmake_minimum_required(VERSION 3.22)
include("${CMAKE_CURRENT_LIST_DIR}/../Consumer.cmake")
set(name "zt_orvex-${VERSION}")
set(sources "${WORK_DIR}/sources/${name}")
set(installed "${WORK_DIR}/installed")
set(consumer_dir "${SOURCE_DIR}/tests/install/consumer")
set(kit_consumer_dir "${SOURCE_DIR}/kit/tests/install/consumer")

# Runs a command that must succeed, and shows what it prints if it doesn't.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed with ${result}: ${ARGN}\n${output}")
    endif()
endfunction()


function(step_pack)
    file(REMOVE_RECURSE "${WORK_DIR}")
    run("${CMAKE_COMMAND}" -E make_directory "${WORK_DIR}/sources")
    run("${CMAKE_CPACK_COMMAND}" --config "${BUILD_DIR}/CPackSourceConfig.cmake" -B "${WORK_DIR}/packed")
    file(ARCHIVE_EXTRACT INPUT "${WORK_DIR}/packed/${name}.tar.gz"
        DESTINATION "${WORK_DIR}/sources")
endfunction()

function(step_list)
    if(NOT GIT OR NOT EXISTS "${SOURCE_DIR}/.git")
        message("skipped: there is no git to compare with")
        return()
    endif()
    file(GLOB_RECURSE packed RELATIVE "${sources}" "${sources}/*")
    list(SORT packed)
    execute_process(COMMAND "${GIT}" -C "${SOURCE_DIR}" -c core.quotePath=off ls-files
        OUTPUT_VARIABLE tracked COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "\n" ";" tracked "${tracked}")
    list(REMOVE_ITEM tracked "")
    list(SORT tracked)
    set(missing ${tracked})
    list(REMOVE_ITEM missing ${packed})
    set(strange ${packed})
    list(REMOVE_ITEM strange ${tracked})
    if(missing OR strange)
        message(FATAL_ERROR "the package lacks [${missing}] and shouldn't have [${strange}]")
    endif()
endfunction()

# Without optimisation, to take less time.
function(step_build)
    configure_consumer("${sources}" "${WORK_DIR}/build" "" -D BUILD_SHARED_LIBS=OFF
        -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=-O0 -D CMAKE_INSTALL_LIBDIR=lib)
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    run("${CMAKE_COMMAND}" --build "${WORK_DIR}/build")
    run("${CMAKE_COMMAND}" --install "${WORK_DIR}/build" --prefix "${installed}")
    foreach(library zt_orvex zt_orvex_kit)
        if(NOT EXISTS "${installed}/lib/lib${library}.a")
            message(FATAL_ERROR "lib${library}.a isn't installed")
        endif()
    endforeach()

    # The consumer needs nothing of what only the build did.
    file(GLOB files "${installed}/lib/cmake/zt_orvex/*")
    foreach(file IN LISTS files)
        file(READ "${file}" text)
        if(text MATCHES "FastFloat|warnings|objects")
            message(FATAL_ERROR "${file} names ${CMAKE_MATCH_0}")
        endif()
    endforeach()
endfunction()

# build_and_run(<name> <source> <expected output> <option>...)
function(build_and_run name source expected_output)
    set(build "${WORK_DIR}/find_package/${name}")
    configure_consumer("${source}" "${build}" "${installed}" ${ARGN})
    if(NOT configure_result EQUAL 0)
        message(FATAL_ERROR "${configure_output}")
    endif()
    run("${CMAKE_COMMAND}" --build "${build}")
    run_consumer("${build}/consumer")
endfunction()

function(step_find_package)
    build_and_run(library "${consumer_dir}" "consumer: all as expected\n")
    build_and_run(kit "${kit_consumer_dir}" "kit consumer: all as expected\n"
        -D "LOOP_TREE_DIR=${consumer_dir}")
endfunction()

function(step_pkg_config)
    find_program(pkg_config NAMES pkg-config pkgconf REQUIRED)
    set(ENV{PKG_CONFIG_PATH} "${installed}/lib/pkgconfig")
    execute_process(COMMAND "${pkg_config}" --static --cflags --libs zt_orvex_kit
        OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
    if(NOT flags MATCHES "-DZT_ORVEX_STATIC" OR NOT flags MATCHES "-DZT_ORVEX_KIT_STATIC")
        message(FATAL_ERROR "nothing says that the libraries are static: ${flags}")
    endif()
    separate_arguments(flags UNIX_COMMAND "${flags} ${FLAGS}")
    set(program "${WORK_DIR}/pkg_config_consumer")
    run("${COMPILER}" -std=c++17 "-I${consumer_dir}" "${kit_consumer_dir}/main.cpp"
        -o "${program}" ${flags})
    set(expected_output "kit consumer: all as expected\n")
    run_consumer("${program}")
endfunction()

cmake_language(CALL step_${STEP})
