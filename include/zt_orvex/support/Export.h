#pragma once

#include <zt_orvex/support/internal/Requirements.h>

/// Marks what the library exports. Everything else is hidden, and can change or disappear without
/// notice.
///
/// On Windows, a declaration says whether the symbol is in this module or in another one. The build
/// of the library defines `ZT_ORVEX_BUILDING`. Who links the static library must define
/// `ZT_ORVEX_STATIC`, which the target `zt_orvex::zt_orvex` does where it is static.
#if !defined(_WIN32)
#define ZT_ORVEX_EXPORT __attribute__((visibility("default")))
#elif defined(ZT_ORVEX_STATIC)
#define ZT_ORVEX_EXPORT
#elif defined(ZT_ORVEX_BUILDING)
#define ZT_ORVEX_EXPORT __declspec(dllexport)
#else
#define ZT_ORVEX_EXPORT __declspec(dllimport)
#endif
