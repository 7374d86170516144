# What the build needs. The headers say the same to consumers, in support/internal/Requirements.h.
if(CMAKE_SIZEOF_VOID_P LESS 8)
    message(FATAL_ERROR "zt_orvex is for 64 bits only: handles and sets are stored in 64-bit words. "
        "Configure it for a 64-bit platform (without -m32).")
endif()
