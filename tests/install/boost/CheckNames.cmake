# Fails unless DESCRIPTION, the description of the binary interface, names these templates of Boost and
# no other: README.md tells for which versions they are known to have one layout.
set(expected boost::basic_string_ref boost::optional boost::variant)

file(STRINGS "${DESCRIPTION}" lines REGEX " id=\"boost::")
set(names)
foreach(line IN LISTS lines)
    string(REGEX MATCH " id=\"(boost::[A-Za-z_:0-9]+)" match "${line}")
    list(APPEND names "${CMAKE_MATCH_1}")
endforeach()
list(REMOVE_DUPLICATES names)
list(SORT names)
if(NOT names STREQUAL expected)
    message(FATAL_ERROR "the binary interface names [${names}] instead of [${expected}]")
endif()
