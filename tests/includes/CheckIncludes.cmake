# Fails when an #include in the library leads from one of its folders to another against the table in
# docs/architecture.md, or from a public header to a private one.
#
#   cmake -D SOURCE_DIR=<tree> -P CheckIncludes.cmake
#
# The table stands below the heading "Which folder may include which". It has a row for each folder,
# which names the folders, or the headers alone, that its files may include:
#
#   | `flow` | `ast/NodeView.h`, `ast/SymbolView.h`, `support` |
#   | `support` | nothing |
cmake_minimum_required(VERSION 3.22)
set(page "${SOURCE_DIR}/docs/architecture.md")
set(problems)

# Sets `folders`, and `allowed_<folder>` for each of them, from the page.
function(read_table)
    set(folders)
    set(is_in_section FALSE)
    file(STRINGS "${page}" lines)
    foreach(line IN LISTS lines)
        if(line MATCHES "^#+ ")
            set(is_in_section FALSE)
        endif()
        if(line MATCHES "^#+ Which folder may include which$")
            set(is_in_section TRUE)
        endif()
        if(is_in_section AND line MATCHES "^\\| `([a-z]+)` \\| ([^|]*) \\|$")
            set(folder "${CMAKE_MATCH_1}")
            string(REGEX MATCHALL "`[^`]+`" allowed "${CMAKE_MATCH_2}")
            list(TRANSFORM allowed REPLACE "`" "")
            if(NOT allowed AND NOT line MATCHES "\\| nothing \\|$")
                message(FATAL_ERROR "${page}: a row allows neither something nor nothing: ${line}")
            endif()
            list(APPEND folders "${folder}")
            set(allowed_${folder} "${allowed}" PARENT_SCOPE)
        endif()
    endforeach()
    if(NOT folders)
        message(FATAL_ERROR "${page} has no table of the includes that are allowed")
    endif()
    set(folders "${folders}" PARENT_SCOPE)
endfunction()

# Appends to `problems` if a file of `folder` may not include `target`, which is a path such as
# ast/NodeView.h.
function(check_arrow file folder target)
    get_filename_component(target_folder "${target}" DIRECTORY)
    string(REGEX REPLACE "/.*" "" target_folder "${target_folder}")
    if(NOT target_folder STREQUAL folder
            AND NOT target_folder IN_LIST allowed_${folder}
            AND NOT target IN_LIST allowed_${folder})
        list(APPEND problems "${file} includes ${target}")
        set(problems "${problems}" PARENT_SCOPE)
    endif()
endfunction()

# Checks the files below `root`, whose path from there begins with the name of their folder.
function(check_root root is_public)
    file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}/${root}"
        "${SOURCE_DIR}/${root}/*.h" "${SOURCE_DIR}/${root}/*.cpp" "${SOURCE_DIR}/${root}/*.def")
    foreach(file IN LISTS files)
        string(REGEX REPLACE "/.*" "" folder "${file}")
        if(file MATCHES "^(zt_orvex|zt_orvex_kit|Export)\\.h$")
            continue() # include everything by design, or nothing
        endif()
        if(NOT folder IN_LIST folders)
            list(APPEND problems "${root}/${file} is in a folder that the table lacks")
            continue()
        endif()
        file(STRINGS "${SOURCE_DIR}/${root}/${file}" lines REGEX "^[ \t]*#[ \t]*include")
        foreach(line IN LISTS lines)
            if(line MATCHES "<zt_orvex(_kit)?/([^>]+)>" AND NOT CMAKE_MATCH_2 STREQUAL "Export.h")
                check_arrow("${root}/${file}" "${folder}" "${CMAKE_MATCH_2}")
            elseif(line MATCHES "\"([^\"]+)\"")
                set(target "${CMAKE_MATCH_1}")
                if(is_public)
                    list(APPEND problems "${root}/${file} is public and includes \"${target}\"")
                else()
                    check_arrow("${root}/${file}" "${folder}" "${target}")
                endif()
            endif()
        endforeach()
    endforeach()
    list(LENGTH files count)
    message(STATUS "${root}: ${count} files")
    if(count EQUAL 0)
        list(APPEND problems "no files below ${root}")
    endif()
    set(problems "${problems}" PARENT_SCOPE)
endfunction()

read_table()
check_root(include/zt_orvex TRUE)
check_root(src FALSE)
if(IS_DIRECTORY "${SOURCE_DIR}/kit")
    check_root(kit/include/zt_orvex_kit TRUE)
    check_root(kit/src FALSE)
endif()
if(problems)
    list(JOIN problems "\n  " text)
    message(FATAL_ERROR "includes that ${page} doesn't allow:\n  ${text}")
endif()
