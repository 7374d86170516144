# Run by cpack before it packs. Leaves out of a source package what git doesn't track.
if(NOT CPACK_INSTALLED_DIRECTORIES OR NOT CPACK_ZT_ORVEX_GIT)
    return() # these aren't the sources, or git isn't there
endif()
list(GET CPACK_INSTALLED_DIRECTORIES 0 sources)
if(NOT EXISTS "${sources}/.git")
    return()
endif()
execute_process(COMMAND "${CPACK_ZT_ORVEX_GIT}" -C "${sources}" -c core.quotePath=off
        ls-files --others --directory
    OUTPUT_VARIABLE untracked COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "/?\n" ";" untracked "${untracked}")
foreach(place IN LISTS untracked)
    if(place)
        string(REGEX REPLACE "([][+.*()^$?|])" "\\\\\\1" pattern "${sources}/${place}")
        list(APPEND CPACK_IGNORE_FILES "^${pattern}(/|$)")
    endif()
endforeach()
