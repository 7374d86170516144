# Fails unless zt_orvex/zt_orvex.h includes every other header below INCLUDE_DIR, and no file that
# isn't there. Tables (*.def) are no headers: whoever reads them says what a row is to become.
set(umbrella "zt_orvex/zt_orvex.h")
file(GLOB_RECURSE wanted RELATIVE "${INCLUDE_DIR}" "${INCLUDE_DIR}/*.h")
list(REMOVE_ITEM wanted "${umbrella}")
list(LENGTH wanted count)
if(count EQUAL 0)
    message(FATAL_ERROR "no headers below ${INCLUDE_DIR}")
endif()

file(STRINGS "${INCLUDE_DIR}/${umbrella}" lines REGEX "^#include <.*>$")
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
    message(FATAL_ERROR "${umbrella} lacks [${missing}] and includes in vain [${strange}]")
endif()
