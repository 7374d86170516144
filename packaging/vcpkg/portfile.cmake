# An overlay port, of the source tree that it lies in:
#
#   vcpkg install zt-orvex --overlay-ports=packaging/vcpkg
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS feature_options FEATURES
    kit ZT_ORVEX_BUILD_KIT)
vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS ${feature_options} -DZT_ORVEX_INSTALL=ON)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME zt_orvex CONFIG_PATH lib/cmake/zt_orvex)
vcpkg_fixup_pkgconfig()
vcpkg_copy_pdbs()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
# The owner hasn't given a licence yet, so there is none to install.
set(VCPKG_POLICY_SKIP_COPYRIGHT_CHECK enabled)
