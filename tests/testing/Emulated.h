#pragma once

namespace zt::orvex::testing {

/// Whether the tests run under an emulator of another processor or system. Such a test skips what the
/// emulator doesn't do as the real thing does, and says what that is:
///
///   if (IS_EMULATED) GTEST_SKIP() << "the emulator itself takes more address space than that";
#if defined(ZT_ORVEX_TEST_EMULATED)
constexpr bool IS_EMULATED = true;
#else
constexpr bool IS_EMULATED = false;
#endif

} // namespace zt::orvex::testing
