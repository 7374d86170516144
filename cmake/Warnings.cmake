# Every target of this project links zt_orvex_warnings privately; consumers see nothing of it.
add_library(zt_orvex_warnings INTERFACE)
target_compile_options(zt_orvex_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wundef)
if(ZT_ORVEX_DEVELOPER_MODE)
    target_compile_options(zt_orvex_warnings INTERFACE -Werror)
endif()
if(ZT_ORVEX_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With a sanitizer's checks in the code, g++ 12 loses track of what has been initialised and warns
    # of the standard library's own <regex>.
    target_compile_options(zt_orvex_warnings INTERFACE -Wno-maybe-uninitialized)
endif()
