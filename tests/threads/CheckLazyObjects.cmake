# Fails unless tests/threads/lazy_objects.txt lists every object that is local to a function of the
# library and made when the function first runs: FirstUseTest.cpp has a row for each of them.
#
#   cmake -D SOURCE_DIR=<tree> -P CheckLazyObjects.cmake
cmake_minimum_required(VERSION 3.22)

file(GLOB_RECURSE sources RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.h"
    "${SOURCE_DIR}/include/*.h")
list(SORT sources)
set(found)
foreach(source IN LISTS sources)
    file(STRINGS "${SOURCE_DIR}/${source}" lines
        REGEX "^ +(\\[\\[maybe_unused\\]\\] )?(static|thread_local|ZT_ORVEX_THREAD_LOCAL) ")
    foreach(line IN LISTS lines)
        # A type and a name that something follows which isn't a list of parameters.
        if(line MATCHES "(static|thread_local|ZT_ORVEX_THREAD_LOCAL) (const )?[A-Za-z0-9_:<>]+[&*]? ([A-Za-z_]+)( =|;|{|\\(.*[^{,]$)"
                AND NOT line MATCHES "constexpr|\\(.*\\).*{|\\) const;")
            string(REGEX MATCH "(static|thread_local|ZT_ORVEX_THREAD_LOCAL) (const )?[A-Za-z0-9_:<>]+[&*]? [A-Za-z_]+" object
                "${line}")
            string(APPEND found "${source}: ${object}\n")
        endif()
    endforeach()
endforeach()

# The identity of a facet is a member of its class, and a constant.
string(REGEX REPLACE "[^\n]*: static std::locale::id id\n" "" found "${found}")

file(READ "${SOURCE_DIR}/tests/threads/lazy_objects.txt" listed)
if(NOT found STREQUAL listed)
    message(NOTICE "${found}")
    message(FATAL_ERROR "tests/threads/lazy_objects.txt doesn't list what the library makes on first "
        "use. Give each new object a row in FirstUseTest.cpp, and make the lines above the list.")
endif()
