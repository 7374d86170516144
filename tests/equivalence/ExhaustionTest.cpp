// A program of its own: it replaces the global allocation functions.

#include "testing/Exhaustion.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <string>

namespace zt::orvex::internal {
namespace {

using testing::expectAllOrNothing;
using testing::expectNoTraceInTheEnd;
using testing::expectRightOrThrow;

const std::string LONG_NAME(200, 'n');

constexpr std::size_t MOST_LEVELS = 6;

/// A logger with `levels` open levels, each with some text.
std::unique_ptr<EquivalenceFullLogger> makeLogger(std::size_t levels) {
    auto logger = std::make_unique<EquivalenceFullLogger>();
    logger->log("a first line");
    for (std::size_t level = 0; level < levels; ++level) {
        logger->beginMatching(LONG_NAME, std::to_string(level));
        logger->logRangeIndex(static_cast<unsigned>(level));
    }
    return logger;
}

/// The texts of all levels, innermost first. Closes them, with a last line in each.
std::string closeAndShow(EquivalenceFullLogger& logger, std::size_t openLevels) {
    std::string shown = logger.getLog();
    for (; openLevels > 0; --openLevels) {
        logger.log("a last line");
        logger.doneMatching(false);
        shown += "\n====\n" + logger.getLog();
    }
    return shown;
}

/// `operate` opens `opened` levels and closes `closed`.
void expectNoTrace(const std::function<void(EquivalenceFullLogger&)>& operate,
                   std::size_t opened = 0, std::size_t closed = 0) {
    for (std::size_t levels = closed; levels < MOST_LEVELS; ++levels) {
        const auto show = [&](EquivalenceFullLogger& logger) {
            return closeAndShow(logger, levels + opened - closed);
        };
        expectNoTraceInTheEnd([&] { return makeLogger(levels); }, operate, show);
        expectAllOrNothing([&] { return makeLogger(levels); }, operate,
                           [](const EquivalenceFullLogger& logger) { return logger.getLog(); });
    }
}

TEST(EquivalenceExhaustion, OpeningALevelLeavesNoTrace) {
    const std::u16string name(100, u'\u00E9');
    expectNoTrace([](auto& logger) { logger.beginMatching(LONG_NAME, "B"); }, 1);
    expectNoTrace(
        [&](auto& logger) { logger.beginMatchingStrings(std::u16string_view(name), name); }, 1);
    expectNoTrace(
        [&](auto& logger) {
            logger.beginMatchingStrings(boost::basic_string_ref<char16_t>(name), u"B");
        },
        1);
    expectNoTrace([](auto& logger) { logger.beginMatchingRange(); }, 1);
    expectNoTrace([](auto& logger) { logger.beginMatchingIntroductionNodes(); }, 1);
    expectNoTrace([](auto& logger) { logger.beginMatchingMemoryAddressesOfIntroductionNodes(); },
                  1);
}

TEST(EquivalenceExhaustion, WritingALineLeavesNoTrace) {
    expectNoTrace([](auto& logger) { logger.log(LONG_NAME.c_str()); });
    expectNoTrace([](auto& logger) { logger.logRangeIndex(1234567); });
    expectNoTrace([](auto& logger) {
        logger.logMismatchedNodes("a", "b", NodeKind::IfStatement, NodeKind::Invalid, 1, 2);
    });
    expectNoTrace(
        [](auto& logger) { logger.logMismatchedOptionals(true, "a", NodeKind::IfStatement, 1); });
    expectNoTrace([](auto& logger) {
        logger.logMismatchedIntroductionNodes(LONG_NAME, "b", LONG_NAME, "d");
    });
}

TEST(EquivalenceExhaustion, ClosingALevelLeavesNoTrace) {
    expectNoTrace([](auto& logger) { logger.doneMatching(true); }, 0, 1);
    expectNoTrace([](auto& logger) { logger.doneMatching(false); }, 0, 1);
}

TEST(EquivalenceExhaustion, ClearingLeavesNoTrace) {
    for (std::size_t levels = 0; levels < MOST_LEVELS; ++levels)
        expectAllOrNothing([&] { return makeLogger(levels); },
                           [](EquivalenceFullLogger& logger) { logger.clear(); },
                           [](const EquivalenceFullLogger& logger) { return logger.getLog(); });
}

TEST(EquivalenceExhaustion, MakingALoggerAndReadingItsLog) {
    expectRightOrThrow([] { return makeLogger(3)->getLog(); });
    expectRightOrThrow([] {
        EquivalenceNullLogger logger;
        logger.beginMatching("", "");
        logger.doneMatching(true);
        return logger.getLog();
    });
}

TEST(EquivalenceExhaustion, LineAfterAFailureStandsWhereTheFailedOneWould) {
    EquivalenceFullLogger logger;
    logger.log("before");
    {
        const testing::AllocationLimit limit(2);
        EXPECT_THROW(logger.log(std::string(5000, 'x').c_str()), std::bad_alloc);
    }
    logger.log("after");
    EXPECT_EQ(logger.getLog(), "-> before\n-> after\n");
}

} // namespace
} // namespace zt::orvex::internal
