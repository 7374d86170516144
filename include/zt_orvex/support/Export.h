#pragma once

#include <zt_orvex/support/internal/Requirements.h>

/// Marks what the library exports. Everything else is hidden, and can change or disappear without
/// notice.
#if defined(_WIN32)
#if defined(ZT_ORVEX_BUILDING)
#define ZT_ORVEX_EXPORT __declspec(dllexport)
#else
#define ZT_ORVEX_EXPORT __declspec(dllimport)
#endif
#else
#define ZT_ORVEX_EXPORT __attribute__((visibility("default")))
#endif
