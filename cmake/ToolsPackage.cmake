# Installs the programs with their manual pages and completions, as the component "tools": included
# by examples/CMakeLists.txt. The component has the libraries, too, so that it is of use alone; the
# other way round, the libraries need nothing of it.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_BINDIR}")
    set(tools_rpath "${CMAKE_INSTALL_FULL_LIBDIR}")
else()
    # Relative to the program, so that all can be moved together.
    file(RELATIVE_PATH way_to_libraries "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set(tools_rpath "\$ORIGIN/${way_to_libraries}")
endif()
set_target_properties(orvex-report orvex-match PROPERTIES INSTALL_RPATH "${tools_rpath}")

install(TARGETS orvex-report orvex-match EXPORT zt_orvex_toolsTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
# Without a path of their own, the programs take the libraries where the system has them: there they
# are of another component, and of another package.
if(ZT_ORVEX_LIBRARY_TYPE STREQUAL SHARED AND NOT CMAKE_SKIP_INSTALL_RPATH)
    install(TARGETS zt_orvex zt_orvex_kit
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT tools NAMELINK_SKIP
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
endif()
if(WIN32)
    include(ToolsDlls)
endif()
# Beside the files of find_package that the libraries have: COMPONENTS tools gives these programs to
# the project that asks.
install(EXPORT zt_orvex_toolsTargets NAMESPACE zt_orvex:: DESTINATION "${package_dir}"
    COMPONENT tools)
install(FILES man/orvex-report.1 man/orvex-match.1
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
install(FILES completions/orvex-report completions/orvex-match
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT tools)
