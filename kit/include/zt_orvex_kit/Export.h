#pragma once

#include <zt_orvex/support/internal/Requirements.h>

/// Marks what the kit exports. Everything else is hidden, and can change or disappear without
/// notice.
///
/// On Windows, a declaration says whether the symbol is in this module or in another one. The build
/// of the kit defines `ZT_ORVEX_KIT_BUILDING`. Who links the static kit must define
/// `ZT_ORVEX_KIT_STATIC`, which the target `zt_orvex::kit` does where it is static.
#if !defined(_WIN32)
#define ZT_ORVEX_KIT_EXPORT __attribute__((visibility("default")))
#elif defined(ZT_ORVEX_KIT_STATIC)
#define ZT_ORVEX_KIT_EXPORT
#elif defined(ZT_ORVEX_KIT_BUILDING)
#define ZT_ORVEX_KIT_EXPORT __declspec(dllexport)
#else
#define ZT_ORVEX_KIT_EXPORT __declspec(dllimport)
#endif
