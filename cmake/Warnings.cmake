# Every target of this project links zt_orvex_warnings privately; nothing of it reaches consumers.
add_library(zt_orvex_warnings INTERFACE)
target_compile_options(zt_orvex_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wundef)
if(ZT_ORVEX_DEVELOPER_MODE)
    target_compile_options(zt_orvex_warnings INTERFACE -Werror)
endif()
