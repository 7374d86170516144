# Packages, made by CPack: of the sources, and of what is installed. Included last, since it looks at
# all rules of installation.
set(CPACK_PACKAGE_NAME zt_orvex)
set(CPACK_PACKAGE_VENDOR "The zt_orvex maintainers")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR TGZ)
# A package has the paths of an installation in its place, by which gdb finds the printers.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/PackTrackedFiles.cmake")

include(SourcePackage)
set(CPACK_ZT_ORVEX_GIT "${ZT_ORVEX_GIT}")
if(ZT_ORVEX_DEBIAN_PACKAGES)
    include(DebianPackages)
endif()
include(CPack)
