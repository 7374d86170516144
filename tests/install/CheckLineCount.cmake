# Fails unless FILE has fewer than LIMIT lines.
file(READ "${FILE}" text)
string(REGEX MATCHALL "\n" ends "${text}")
list(LENGTH ends count)
message(STATUS "${FILE} has ${count} lines")
if(count EQUAL 0 OR NOT count LESS LIMIT)
    message(FATAL_ERROR "there should be fewer than ${LIMIT}")
endif()
