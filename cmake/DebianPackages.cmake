# Debian's packages, one of each component of Package.cmake: included by Packaging.cmake. The preset
# `package` and scripts/package.sh make them.
#
# CPack writes the control files. What it can't know is put in place by packaging/debian/Stage.cmake
# once the files of each component lie in a folder of their own, and before they are packed.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr" OR NOT CMAKE_SKIP_INSTALL_RPATH
        OR NOT ZT_ORVEX_LIBRARY_TYPE STREQUAL SHARED
        OR NOT ZT_ORVEX_BUILD_KIT OR NOT ZT_ORVEX_BUILD_EXAMPLES)
    message(FATAL_ERROR "ZT_ORVEX_DEBIAN_PACKAGES takes a build of both libraries and the programs for "
        "/usr, without rpath: use the preset package.")
endif()

set(ZT_ORVEX_DEBIAN_REVISION 1 CACHE STRING "The number of the package within its version")
# There is no address yet; whoever publishes packages puts in theirs.
set(ZT_ORVEX_DEBIAN_MAINTAINER "The zt_orvex maintainers <maintainers@zt-orvex.invalid>" CACHE STRING
    "Whom the packages name as their maintainer")

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development kit_runtime kit_development tools)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/Stage.cmake")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE zt-orvex)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${ZT_ORVEX_DEBIAN_REVISION}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${ZT_ORVEX_DEBIAN_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_ZT_ORVEX_SOURCE_DIR "${PROJECT_SOURCE_DIR}")
set(CPACK_ZT_ORVEX_LIBDIR "usr/${CMAKE_INSTALL_LIBDIR}")
set(CPACK_ZT_ORVEX_SOVERSION "${PROJECT_VERSION_MAJOR}")

# zt_orvex_debian_package(<component> <package> SECTION <section> [MULTI_ARCH same]
#                         [DEPENDS <dependency>...])
#
# The description is in packaging/debian. What programs and libraries are linked against is added to
# the dependencies when they are packed.
macro(zt_orvex_debian_package component package)
    cmake_parse_arguments(arg "" "SECTION;MULTI_ARCH" "DEPENDS" ${ARGN})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${arg_SECTION})
    if(arg_MULTI_ARCH)
        # CPack knows the field from 3.31 on. Until then it is the second line of another.
        string(APPEND CPACK_DEBIAN_${upper}_PACKAGE_SECTION "\nMulti-Arch: ${arg_MULTI_ARCH}")
    endif()
    list(JOIN arg_DEPENDS ", " CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS)
    file(READ "${PROJECT_SOURCE_DIR}/packaging/debian/${component}.description"
        CPACK_DEBIAN_${upper}_DESCRIPTION)
    string(STRIP "${CPACK_DEBIAN_${upper}_DESCRIPTION}" CPACK_DEBIAN_${upper}_DESCRIPTION)
endmacro()

set(this_version "(= ${PROJECT_VERSION}-${ZT_ORVEX_DEBIAN_REVISION})")
set(library_package "libzt-orvex${PROJECT_VERSION_MAJOR}")
set(kit_package "libzt-orvex-kit${PROJECT_VERSION_MAJOR}")
zt_orvex_debian_package(runtime ${library_package} SECTION libs MULTI_ARCH same)
zt_orvex_debian_package(development libzt-orvex-dev SECTION libdevel MULTI_ARCH same
    # Debian 12 has two versions of Boost, which can't be installed together. Consumers may have either.
    DEPENDS "${library_package} ${this_version}" "libboost-dev (>= 1.74) | libboost1.81-dev")
zt_orvex_debian_package(kit_runtime ${kit_package} SECTION libs MULTI_ARCH same)
zt_orvex_debian_package(kit_development libzt-orvex-kit-dev SECTION libdevel MULTI_ARCH same
    DEPENDS "${kit_package} ${this_version}" "libzt-orvex-dev ${this_version}")
zt_orvex_debian_package(tools zt-orvex-tools SECTION devel)
