# Installs the DLLs that the programs use beside them, but those of Windows itself: there is no other
# place where Windows would look for them. Included by ToolsPackage.cmake.
set(dll_folders ${CMAKE_FIND_ROOT_PATH} ${CMAKE_PREFIX_PATH})
list(TRANSFORM dll_folders APPEND "/bin")
list(PREPEND dll_folders "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
foreach(runtime libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${runtime}
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    get_filename_component(folder "${file}" ABSOLUTE)
    get_filename_component(folder "${folder}" DIRECTORY)
    list(APPEND dll_folders "${folder}")
endforeach()

install(CODE "
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND \"${CMAKE_OBJDUMP}\")
    set(programs \"$<TARGET_FILE:orvex-report>;$<TARGET_FILE:orvex-match>\")
    set(dll_folders \"${dll_folders}\")
    set(bindir \"${CMAKE_INSTALL_BINDIR}\")
" COMPONENT tools)
install(CODE [[
    set(windows advapi32 kernel32 msvcrt ntdll ole32 shell32 ucrtbase user32 ws2_32 api-ms-.* ext-ms-.*)
    list(TRANSFORM windows REPLACE "(.+)" "^\\1[.]dll$")
    file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${programs} RESOLVED_DEPENDENCIES_VAR dlls
        DIRECTORIES ${dll_folders}
        PRE_EXCLUDE_REGEXES ${windows}
        POST_EXCLUDE_REGEXES "[/\\\\][Ss]ystem32[/\\\\]")
    get_filename_component(folder "${bindir}" ABSOLUTE BASE_DIR "${CMAKE_INSTALL_PREFIX}")
    file(INSTALL DESTINATION "${folder}" TYPE PROGRAM FILES ${dlls})
]] COMPONENT tools)
