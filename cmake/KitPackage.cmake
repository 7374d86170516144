# Installs the kit beside the library, as a component of the same package: included by Package.cmake.
set_target_properties(zt_orvex_kit PROPERTIES INSTALL_RPATH "\$ORIGIN")
install(TARGETS zt_orvex_kit EXPORT zt_orvex_kitTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        COMPONENT kit_runtime NAMELINK_COMPONENT kit_development
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT kit_runtime
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT kit_development
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/kit/include/zt_orvex_kit"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT kit_development
    FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
install(EXPORT zt_orvex_kitTargets NAMESPACE zt_orvex:: DESTINATION "${package_dir}"
    COMPONENT kit_development)

set(pkg_config_kit_cflags)
if(ZT_ORVEX_LIBRARY_TYPE STREQUAL STATIC)
    set(pkg_config_kit_cflags " -DZT_ORVEX_KIT_STATIC")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/zt_orvex_kit.pc.in"
    "${PROJECT_BINARY_DIR}/zt_orvex_kit.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zt_orvex_kit.pc" DESTINATION "${pkg_config_dir}"
    COMPONENT kit_development)

# gdb loads printers by the name of the file that has the code, which with a static library is the
# consumer's program. So they are just there for it to name.
if(ZT_ORVEX_LIBRARY_TYPE STREQUAL STATIC)
    install(FILES "${ZT_ORVEX_GDB_PRINTERS}" DESTINATION "${CMAKE_INSTALL_DATADIR}/zt_orvex"
        COMPONENT kit_development)
    return()
endif()

# gdb looks for the printers below its folder of scripts, at the whole path of the library. That is
# known when the installation runs, since the prefix may be another one then.
install(CODE "
    set(library \"$<TARGET_FILE_NAME:zt_orvex>\")
    set(libdir \"$<IF:$<BOOL:${WIN32}>,${CMAKE_INSTALL_BINDIR},${CMAKE_INSTALL_LIBDIR}>\")
    set(printers \"${ZT_ORVEX_GDB_PRINTERS}\")
" COMPONENT kit_development)
install(CODE [[
    get_filename_component(folder "${libdir}" ABSOLUTE BASE_DIR "${CMAKE_INSTALL_PREFIX}")
    file(INSTALL DESTINATION "${CMAKE_INSTALL_PREFIX}/share/gdb/auto-load${folder}" TYPE FILE
        RENAME "${library}-gdb.py" FILES "${printers}")
]] COMPONENT kit_development)
