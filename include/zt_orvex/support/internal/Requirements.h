#pragma once

// What the headers need of a compiler. They include this one before any other, so that what is wrong is
// said in plain words ahead of the errors that follow from it. It includes nothing for the same reason.

#if defined(__SIZEOF_POINTER__) && __SIZEOF_POINTER__ < 8
#error "zt_orvex is for 64 bits only: handles and sets are stored in 64-bit words (don't use -m32)"
#elif !defined(__cpp_exceptions)
#error "zt_orvex throws exceptions: compile with them (without -fno-exceptions)"
#endif
