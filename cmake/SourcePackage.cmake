# cmake --build BUILD --target package_source packs the source tree, which then builds by itself:
# included by Packaging.cmake.
#
# Where there is git, what it tracks is packed and nothing else; PackTrackedFiles.cmake asks it when
# the tree is packed. Elsewhere, as in an unpacked package, all files are, but those of a build.
function(zt_orvex_ignore_in_source_package)
    foreach(place IN LISTS ARGN)
        string(REGEX REPLACE "([][+.*()^$?|])" "\\\\\\1" pattern "${place}")
        list(APPEND CPACK_SOURCE_IGNORE_FILES "^${pattern}(/|$)")
    endforeach()
    set(CPACK_SOURCE_IGNORE_FILES "${CPACK_SOURCE_IGNORE_FILES}" PARENT_SCOPE)
endfunction()

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME "zt_orvex-${PROJECT_VERSION}")
set(CPACK_SOURCE_IGNORE_FILES)
zt_orvex_ignore_in_source_package("${PROJECT_BINARY_DIR}"
    "${PROJECT_SOURCE_DIR}/.git" "${PROJECT_SOURCE_DIR}/.cache" "${PROJECT_SOURCE_DIR}/build"
    "${PROJECT_SOURCE_DIR}/compile_commands.json")
find_program(ZT_ORVEX_GIT git)
mark_as_advanced(ZT_ORVEX_GIT)
