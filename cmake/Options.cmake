# A project that adds this folder to its build gets only the library; developer mode adds the rest.
if(NOT CMAKE_CXX_STANDARD OR CMAKE_CXX_STANDARD LESS 17)
    set(CMAKE_CXX_STANDARD 17)
endif()
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# Both libraries are shared, unless BUILD_SHARED_LIBS is off. It has a default of ours only where the
# whole build is ours: in the cache of another project, it would decide for that project's libraries.
if(PROJECT_IS_TOP_LEVEL)
    option(BUILD_SHARED_LIBS "Build shared libraries; static ones if off" ON)
endif()
if(BUILD_SHARED_LIBS OR NOT DEFINED BUILD_SHARED_LIBS)
    set(ZT_ORVEX_LIBRARY_TYPE SHARED)
else()
    set(ZT_ORVEX_LIBRARY_TYPE STATIC)
endif()

option(ZT_ORVEX_DEVELOPER_MODE "Build examples and tests, and treat warnings as errors" OFF)
option(ZT_ORVEX_BUILD_KIT "Build the companion library zt_orvex_kit" ON)
option(ZT_ORVEX_BUILD_EXAMPLES "Build the example consumer" ${ZT_ORVEX_DEVELOPER_MODE})
option(ZT_ORVEX_BUILD_TESTS "Build the tests" ${ZT_ORVEX_DEVELOPER_MODE})
option(ZT_ORVEX_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(ZT_ORVEX_BUILD_FUZZERS "Build the fuzzers" OFF)
set(ZT_ORVEX_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
set(ZT_ORVEX_TEST_FLAGS "" CACHE STRING "Flags of the compiler for the tests alone, such as -O0")
option(ZT_ORVEX_COVERAGE "Instrument for coverage" OFF)
option(ZT_ORVEX_DEBIAN_PACKAGES "Make Debian's packages of the target package" OFF)

# Programs and libraries are in neighbouring folders, so that a program finds the library.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
include(GNUInstallDirs)

if(MINGW)
    # As large as usual elsewhere: the limits on nesting are made for that.
    add_link_options("$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:LINKER:--stack,8388608>")
endif()
