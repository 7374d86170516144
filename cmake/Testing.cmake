# What the tests of all folders share: how long they may take, how they start programs, and how those
# that can't run on a platform say so.

# The most seconds that a test may take. An emulator is slower by an order of magnitude.
set(zt_orvex_test_timeout 600)
if(CMAKE_CROSSCOMPILING_EMULATOR)
    set(zt_orvex_test_timeout 3600)
endif()

# zt_orvex_get_program(<variable> <target>)
#
# The path by which a test starts a built program. add_test does without it if its command begins with
# the target. If programs need an emulator, it is the path of a script with the name of the program:
# whatever starts the script, the shell, git or exec, needs to know nothing of the emulator.
function(zt_orvex_get_program variable target)
    set(program "$<TARGET_FILE:${target}>")
    if(CMAKE_CROSSCOMPILING_EMULATOR)
        set(script "${PROJECT_BINARY_DIR}/emulated/${target}")
        get_property(has_script TARGET ${target} PROPERTY zt_orvex_has_script)
        if(NOT has_script)
            set_property(TARGET ${target} PROPERTY zt_orvex_has_script TRUE)
            list(JOIN CMAKE_CROSSCOMPILING_EMULATOR "' '" emulator)
            file(GENERATE OUTPUT "${script}"
                CONTENT "#!/bin/sh\nexec '${emulator}' '${program}' \"$@\"\n"
                FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
        endif()
        set(program "${script}")
    endif()
    set(${variable} "${program}" PARENT_SCOPE)
endfunction()

# zt_orvex_add_skipped_test(<name> <reason>): a test that can't run on this platform, which CTest lists
# as skipped.
function(zt_orvex_add_skipped_test name reason)
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "Skipped: ${reason}")
    set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "Skipped: ")
endfunction()

# zt_orvex_skip_tests_of(<reason> <file>...): the same for each test in source files of the folder.
function(zt_orvex_skip_tests_of reason)
    foreach(file IN LISTS ARGN)
        file(STRINGS "${file}" tests REGEX "^TEST(_F)?\\(")
        foreach(test IN LISTS tests)
            string(REGEX REPLACE "TEST(_F)?\\(([A-Za-z0-9]+), ([A-Za-z0-9]+).*" "\\2.\\3" test "${test}")
            zt_orvex_add_skipped_test(${test} "${reason}")
        endforeach()
    endforeach()
endfunction()
