# Headers, library, find_package files and a pkg-config file.
include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/zt_orvex")

install(TARGETS zt_orvex EXPORT zt_orvexTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/zt_orvex"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
install(EXPORT zt_orvexTargets NAMESPACE zt_orvex:: DESTINATION "${package_dir}")

configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/zt_orvexConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/zt_orvexConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/zt_orvexConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/zt_orvexConfig.cmake"
    "${PROJECT_BINARY_DIR}/zt_orvexConfigVersion.cmake"
    DESTINATION "${package_dir}")

configure_file("${PROJECT_SOURCE_DIR}/cmake/zt_orvex.pc.in"
    "${PROJECT_BINARY_DIR}/zt_orvex.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zt_orvex.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
