#include <zt_orvex/equivalence/AstEquivalence.h>

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace zt::orvex {
namespace {

/// The quoted lines of the header's comment, without the quotes.
std::string readExampleOfHeader() {
    std::ifstream header(ZT_ORVEX_INCLUDE_DIR "/zt_orvex/equivalence/AstEquivalence.h");
    EXPECT_TRUE(header.is_open());
    const std::string start = "///     \"";
    std::string text;
    for (std::string line; std::getline(header, line);) {
        if (line.compare(0, start.size(), start) != 0) continue;
        EXPECT_EQ(line.back(), '"');
        text += line.substr(start.size(), line.size() - start.size() - 1) + "\n";
    }
    return text;
}

TEST(AstEquivalence, ExampleOfTheHeaderIsWhatTheLoggerWrites) {
    internal::EquivalenceFullLogger logger;
    logger.beginMatching("A", "B");
    logger.beginMatching("C", "D");
    logger.doneMatching(true);
    logger.beginMatching("E", "F");
    logger.logMismatchedNodes("E", "F", NodeKind::IfStatement, NodeKind::WhileStatement, 1, 2);
    logger.doneMatching(false);
    logger.doneMatching(false);
    EXPECT_EQ(readExampleOfHeader(), logger.getLog());
    EXPECT_EQ(logger.getLog(),
              "Matching A against B\n"
              "    Matching C against D - OK\n"
              "    Matching E against F\n"
              "        -> Node kinds do not match\n"
              "        -> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < \n"
              "    -> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < \n");
}

} // namespace
} // namespace zt::orvex
