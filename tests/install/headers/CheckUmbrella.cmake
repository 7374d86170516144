# Fails unless UMBRELLA (zt_orvex/zt_orvex.h) includes every other header below INCLUDE_DIR, except
# those in folders named internal, and no file that doesn't exist. Tables (*.def) aren't headers:
# whoever includes one says first what a row becomes.
if(NOT UMBRELLA)
    set(UMBRELLA "zt_orvex/zt_orvex.h")
endif()
file(GLOB_RECURSE wanted RELATIVE "${INCLUDE_DIR}" "${INCLUDE_DIR}/*.h")
list(REMOVE_ITEM wanted "${UMBRELLA}")
list(FILTER wanted EXCLUDE REGEX "/internal/")
list(LENGTH wanted count)
if(count EQUAL 0)
    message(FATAL_ERROR "no headers below ${INCLUDE_DIR}")
endif()

file(STRINGS "${INCLUDE_DIR}/${UMBRELLA}" lines REGEX "^#include <.*>$")
set(given)
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^#include <(.*)>$" "\\1" header "${line}")
    list(APPEND given "${header}")
endforeach()

set(missing ${wanted})
list(REMOVE_ITEM missing ${given})
set(strange ${given})
list(REMOVE_ITEM strange ${wanted})
if(missing OR strange)
    message(FATAL_ERROR "${UMBRELLA} lacks [${missing}] and shouldn't include [${strange}]")
endif()
