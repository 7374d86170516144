#pragma once

/// The storage of compiled patterns of literals: each thread has its own.
///
/// Where thread-local storage is emulated for Windows, a thread frees it before the destructors of
/// what is in it run. There all threads share one object, which is constant once it is compiled.
#if defined(__MINGW32__)
#define ZT_ORVEX_THREAD_LOCAL static
#else
#define ZT_ORVEX_THREAD_LOCAL thread_local
#endif
