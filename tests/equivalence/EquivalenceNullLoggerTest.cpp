#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

namespace zt::orvex::internal {
namespace {

static_assert(sizeof(EquivalenceNullLogger) == sizeof(void*), "no data but that of virtual calls");

const char* const NOTICE = "No AST matcher log available.  See the documentation in "
                           "AstEquivalence for more information.";

TEST(EquivalenceNullLogger, HasANoticeForALog) {
    EXPECT_EQ(EquivalenceNullLogger().getLog(), NOTICE);
}

TEST(EquivalenceNullLogger, NothingChangesTheNotice) {
    EquivalenceNullLogger nullLogger;
    EquivalenceLogger& logger = nullLogger;
    logger.startNewMatch();
    logger.beginMatching("A", "B");
    logger.beginMatchingStrings(std::u16string_view(u"a"), std::u16string_view(u"b"));
    logger.beginMatchingStrings(boost::basic_string_ref<char16_t>(u"a"),
                                boost::basic_string_ref<char16_t>(u"b"));
    logger.beginMatchingRange();
    logger.beginMatchingIntroductionNodes();
    logger.beginMatchingMemoryAddressesOfIntroductionNodes();
    logger.logRangeIndex(0);
    logger.logMismatchedNodes("A", "B", NodeKind::Invalid, NodeKind::Invalid, 0, 0);
    logger.logMismatchedOptionals(true, "A", NodeKind::Invalid, 0);
    logger.logMismatchedIntroductionNodes("a", "b", "c", "d");
    for (int i = 0; i < 20; ++i)
        logger.doneMatching(i % 2 == 0); // any number of times
    EXPECT_EQ(logger.getLog(), NOTICE);
}

TEST(EquivalenceNullLogger, ReadsNoArgument) {
    EquivalenceNullLogger logger;
    logger.log(nullptr);
    logger.beginMatchingStrings(std::u16string_view(nullptr, 0), std::u16string_view(nullptr, 0));
    EXPECT_EQ(logger.getLog(), NOTICE);
}

} // namespace
} // namespace zt::orvex::internal
