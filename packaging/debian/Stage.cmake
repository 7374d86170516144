# Run by cpack when each component lies in a folder of its own, before it is packed: adds what Debian's
# policy wants beside the installed files, and tells CPack what each package depends on.
cmake_policy(VERSION 3.22)
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()
# CPack would have the project's own description as the first line of each.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(version "${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(staging "${CPACK_TEMPORARY_DIRECTORY}")
set(debian "${CMAKE_CURRENT_LIST_DIR}")
set(control "${staging}.control")
file(REMOVE_RECURSE "${control}")

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# compress(<file>): with the best compression, and without a name or time, so that a package depends on
# its contents alone.
function(compress file)
    run(gzip --best --no-name --force "${file}")
endfunction()

# add_documents(<component> <package>): what each package has below /usr/share/doc.
function(add_documents component package)
    set(folder "${staging}/${component}/usr/share/doc/${package}")
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # of SOURCE_DATE_EPOCH, if that is set
    configure_file("${debian}/changelog.in" "${folder}/changelog.Debian" @ONLY)
    configure_file("${CPACK_ZT_ORVEX_SOURCE_DIR}/CHANGELOG.md" "${folder}/changelog" COPYONLY)
    configure_file("${debian}/copyright" "${folder}/copyright" COPYONLY)
    compress("${folder}/changelog.Debian")
    compress("${folder}/changelog")
    file(CHMOD_RECURSE "${folder}"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
        DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
            WORLD_READ WORLD_EXECUTE)
endfunction()

# describe_library(<component> <package> <library>): writes what other packages learn of a shared
# library, and has ldconfig run where it is installed.
#
# A symbol is known by its version, so the file of symbols needs a line for each version only: a
# package that needs no newer symbol depends on the first release that has them.
function(describe_library component package library)
    set(folder "${control}/${package}")
    file(MAKE_DIRECTORY "${folder}/debian")
    file(WRITE "${folder}/triggers" "activate-noawait ldconfig\n")
    file(WRITE "${folder}/shlibs"
        "${library} ${CPACK_ZT_ORVEX_SOVERSION} ${package} (>= ${CPACK_PACKAGE_VERSION})\n")
    file(WRITE "${folder}/debian/control" "Source: zt-orvex\n\nPackage: ${package}\nArchitecture: any\n")
    run("${CMAKE_COMMAND}" -E chdir "${folder}" dpkg-gensymbols -c4 "-p${package}"
        "-v${CPACK_PACKAGE_VERSION}" "-P${staging}/${component}" "-I${debian}/${library}.symbols"
        "-O${folder}/symbols")
endfunction()

# find_dependencies(<variable> <component>): the packages that the programs and libraries of a component
# are linked against. Those of this source go together, so they are wanted in the same version.
function(find_dependencies variable component)
    set(folder "${control}/shlibdeps")
    file(MAKE_DIRECTORY "${folder}/debian")
    file(WRITE "${folder}/debian/control" "")
    file(WRITE "${folder}/debian/shlibs.local"
        "libzt_orvex ${CPACK_ZT_ORVEX_SOVERSION} ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${version})\n"
        "libzt_orvex_kit ${CPACK_ZT_ORVEX_SOVERSION} ${CPACK_DEBIAN_KIT_RUNTIME_PACKAGE_NAME} (= ${version})\n")
    file(GLOB files "${staging}/${component}/usr/bin/*"
        "${staging}/${component}/${CPACK_ZT_ORVEX_LIBDIR}/*.so.*.*")
    execute_process(
        COMMAND dpkg-shlibdeps -O "-l${staging}/runtime/${CPACK_ZT_ORVEX_LIBDIR}"
            "-l${staging}/kit_runtime/${CPACK_ZT_ORVEX_LIBDIR}" ${files}
        WORKING_DIRECTORY "${folder}"
        OUTPUT_VARIABLE output ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "^.*Depends=([^\n]*)\n?$" "\\1" dependencies "${output}")
    set(${variable} "${dependencies}" PARENT_SCOPE)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    add_documents(${component} ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
endforeach()

file(GLOB pages "${staging}/tools/usr/share/man/*/*.1")
foreach(page IN LISTS pages)
    compress("${page}")
endforeach()

describe_library(runtime ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} libzt_orvex)
describe_library(kit_runtime ${CPACK_DEBIAN_KIT_RUNTIME_PACKAGE_NAME} libzt_orvex_kit)
foreach(component RUNTIME KIT_RUNTIME)
    set(folder "${control}/${CPACK_DEBIAN_${component}_PACKAGE_NAME}")
    set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA
        "${folder}/triggers;${folder}/shlibs;${folder}/symbols")
endforeach()
find_dependencies(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS runtime)
find_dependencies(CPACK_DEBIAN_KIT_RUNTIME_PACKAGE_DEPENDS kit_runtime)
find_dependencies(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS tools)
