// Never includes Char16Locale.h: a consumer's file can make a stream of 16-bit characters without
// it, and must still link and use the same facets. libc++ declares two of the facets without a
// definition, so such a file doesn't compile with it.
#include <zt_orvex/support/Export.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <locale>
#include <sstream>

namespace zt::orvex {

ZT_ORVEX_EXPORT const std::locale& getChar16Locale();

namespace {

TEST(Char16Locale, WorksForAFileThatHasNotSeenItsHeader) {
#if defined(_LIBCPP_VERSION)
    GTEST_SKIP() << "with libc++, a file that uses the facets must include the header";
#else
    std::basic_ostringstream<char16_t> stream;
    EXPECT_FALSE(std::has_facet<std::ctype<char16_t>>(stream.getloc()));
    stream.imbue(getChar16Locale());
    EXPECT_TRUE(std::has_facet<std::ctype<char16_t>>(stream.getloc()));
    EXPECT_TRUE(std::has_facet<std::numpunct<char16_t>>(stream.getloc()));
    EXPECT_TRUE(std::has_facet<std::num_put<char16_t>>(stream.getloc()));
    stream << std::setfill(u'*') << std::setw(5) << 2.5 << std::endl;
    EXPECT_EQ(stream.str(), u"**2.5\n");
#endif
}

} // namespace
} // namespace zt::orvex
