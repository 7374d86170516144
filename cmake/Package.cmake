# Installs headers, library, find_package files and a pkg-config file. They name each other's places
# relatively, so all of them together can be moved afterwards.
#
# Each file belongs to a component, of which DebianPackages.cmake makes a package: runtime,
# development, kit_runtime, kit_development, tools.
option(ZT_ORVEX_INSTALL "Install the library" ${PROJECT_IS_TOP_LEVEL})
if(NOT ZT_ORVEX_INSTALL)
    return()
endif()

include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/zt_orvex")

install(TARGETS zt_orvex EXPORT zt_orvexTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        COMPONENT runtime NAMELINK_COMPONENT development
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime # a DLL
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/zt_orvex"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
    FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
install(EXPORT zt_orvexTargets NAMESPACE zt_orvex:: DESTINATION "${package_dir}"
    COMPONENT development)

# The version of Boost that a consumer takes. A shared library was tried with this one and later ones,
# though building it takes a later one. With a static library, the linker makes one of the templates
# that both instantiate, so both must have the same headers.
set(zt_orvex_boost_version 1.74)
if(ZT_ORVEX_LIBRARY_TYPE STREQUAL STATIC)
    set(zt_orvex_boost_version "${Boost_VERSION_STRING} EXACT")
endif()
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/zt_orvexConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/zt_orvexConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/zt_orvexConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/zt_orvexConfig.cmake"
    "${PROJECT_BINARY_DIR}/zt_orvexConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT development)

# zt_orvex_pkg_config_place(<variable> <folder>): the folder as the pkg-config file names it, relative
# to the file itself unless the folder is absolute.
function(zt_orvex_pkg_config_place variable folder)
    if(IS_ABSOLUTE "${folder}")
        set(${variable} "${folder}" PARENT_SCOPE)
    else()
        set(${variable} "\${prefix}/${folder}" PARENT_SCOPE)
    endif()
endfunction()

set(pkg_config_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
if(IS_ABSOLUTE "${pkg_config_dir}")
    set(pkg_config_prefix "${CMAKE_INSTALL_PREFIX}")
else()
    file(RELATIVE_PATH way_up "/${pkg_config_dir}" "/")
    string(REGEX REPLACE "/$" "" way_up "${way_up}")
    set(pkg_config_prefix "\${pcfiledir}/${way_up}")
endif()
zt_orvex_pkg_config_place(pkg_config_libdir "${CMAKE_INSTALL_LIBDIR}")
zt_orvex_pkg_config_place(pkg_config_includedir "${CMAKE_INSTALL_INCLUDEDIR}")

# The public headers need Boost's, for which there is no pkg-config file to require. If the compiler
# doesn't search their folder by default, the flags name it. A folder below a root of a cross
# compilation is named as the system has it whose files are there.
set(pkg_config_cflags)
foreach(folder IN LISTS Boost_INCLUDE_DIRS)
    foreach(root IN LISTS CMAKE_FIND_ROOT_PATH)
        string(FIND "${folder}" "${root}/" position)
        if(position EQUAL 0)
            file(RELATIVE_PATH folder "${root}" "${folder}")
            string(PREPEND folder "/")
        endif()
    endforeach()
    if(NOT folder IN_LIST CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
        string(APPEND pkg_config_cflags " -I${folder}")
    endif()
endforeach()

# What a static library leaves to the consumer's linker. A C++ compiler names these libraries itself;
# another driver takes them from pkg-config --static.
set(pkg_config_libs_private)
if(ZT_ORVEX_LIBRARY_TYPE STREQUAL STATIC)
    string(APPEND pkg_config_cflags " -DZT_ORVEX_STATIC")
    foreach(library IN LISTS CMAKE_CXX_IMPLICIT_LINK_LIBRARIES)
        if(library MATCHES "^(stdc\\+\\+|c\\+\\+|c\\+\\+abi|m)$")
            string(APPEND pkg_config_libs_private " -l${library}")
        endif()
    endforeach()
endif()

configure_file("${PROJECT_SOURCE_DIR}/cmake/zt_orvex.pc.in"
    "${PROJECT_BINARY_DIR}/zt_orvex.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zt_orvex.pc" DESTINATION "${pkg_config_dir}"
    COMPONENT development)

if(ZT_ORVEX_BUILD_KIT)
    include(KitPackage)
endif()
