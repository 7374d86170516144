#include "report/sarif/FileUri.h"

#include <gtest/gtest.h>

namespace ostrel::report {

TEST(FileUri, RelativePathStaysRelative) {
    EXPECT_EQ(fileUri("a.ost"), "a.ost");
    EXPECT_EQ(fileUri("sub/a-b_c~1.ost"), "sub/a-b_c~1.ost");
    EXPECT_EQ(fileUri("../a.ost"), "../a.ost");
    EXPECT_EQ(fileUri("-"), "-");
}

TEST(FileUri, AbsolutePathIsAFileUri) { EXPECT_EQ(fileUri("/a/b.ost"), "file:///a/b.ost"); }

TEST(FileUri, LeadingDotsAreLeftOut) {
    EXPECT_EQ(fileUri("./a.ost"), "a.ost");
    EXPECT_EQ(fileUri(".//./sub/./a.ost"), "sub/./a.ost");
    EXPECT_EQ(fileUri(".a.ost"), ".a.ost");
}

TEST(FileUri, ColonDoesNotMakeAScheme) { EXPECT_EQ(fileUri("a:b.ost"), "a%3Ab.ost"); }

TEST(FileUri, OtherBytesArePercentEncoded) {
    EXPECT_EQ(fileUri("a b%#?.ost"), "a%20b%25%23%3F.ost");
    EXPECT_EQ(fileUri("\xC3\xA9\xFF\x1b\"<'"), "%C3%A9%FF%1B%22%3C%27");
}

TEST(FileUri, BackslashSeparatesFoldersWhereThereAreDrives) {
#if defined(_WIN32)
    EXPECT_EQ(fileUri("a\\b.ost"), "a/b.ost");
    EXPECT_EQ(fileUri("C:\\a b\\c.ost"), "file:///C:/a%20b/c.ost");
#else
    EXPECT_EQ(fileUri("a\\b.ost"), "a%5Cb.ost");
    EXPECT_EQ(fileUri("C:/a.ost"), "C%3A/a.ost");
#endif
}

} // namespace ostrel::report
