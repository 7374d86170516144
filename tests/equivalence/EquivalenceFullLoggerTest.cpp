#include <zt_orvex/equivalence/EquivalenceFullLogger.h>

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace zt::orvex::internal {
namespace {

const std::string FAILED = "-> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < \n";

std::string indent(std::size_t depth) { return std::string(4 * depth, ' '); }

template <class Text, class = void>
constexpr bool BEGINS_MATCHING_STRINGS = false;
template <class Text>
constexpr bool BEGINS_MATCHING_STRINGS<
    Text, std::void_t<decltype(std::declval<EquivalenceLogger&>().beginMatchingStrings(
              std::declval<Text>(), std::declval<Text>()))>> = true;

static_assert(BEGINS_MATCHING_STRINGS<std::u16string_view>);
static_assert(BEGINS_MATCHING_STRINGS<boost::basic_string_ref<char16_t>>);
static_assert(!BEGINS_MATCHING_STRINGS<const char16_t (&)[2]>, "a bare literal is ambiguous");

static_assert(std::is_abstract_v<EquivalenceLogger>);
static_assert(std::has_virtual_destructor_v<EquivalenceLogger>);

class EquivalenceFullLoggerReport : public ::testing::Test {
protected:
    void logMismatchedNodes() {
        logger.logMismatchedNodes("ignored", "ignored", NodeKind::IfStatement, NodeKind::Invalid, 1,
                                  2);
    }

    EquivalenceFullLogger logger;
};

TEST_F(EquivalenceFullLoggerReport, LogIsEmptyAtFirst) { EXPECT_EQ(logger.getLog(), ""); }

TEST_F(EquivalenceFullLoggerReport, MatchWithoutMismatchIsOneLine) {
    logger.beginMatching("A", "B");
    logger.beginMatchingRange();
    logger.logRangeIndex(0);
    logger.beginMatching("C", "D");
    logger.log("a detail");
    logger.doneMatching(true);
    logger.doneMatching(true);
    logger.doneMatching(true);
    EXPECT_EQ(logger.getLog(), "Matching A against B - OK\n");
}

TEST_F(EquivalenceFullLoggerReport, FailedBranchKeepsThePathToTheMismatch) {
    logger.beginMatching("A", "B");
    logger.beginMatching("C", "D");
    logger.doneMatching(true);
    logger.beginMatching("E", "F");
    logMismatchedNodes();
    logger.doneMatching(false);
    logger.doneMatching(false);
    EXPECT_EQ(logger.getLog(), "Matching A against B\n"
                               "    Matching C against D - OK\n"
                               "    Matching E against F\n"
                               "        -> Node kinds do not match\n"
                               "        " +
                                   FAILED + "    " + FAILED);
}

TEST_F(EquivalenceFullLoggerReport, FailureInsideALevelThatMatchesLeavesNoTrace) {
    logger.beginMatching("A", "B");
    logger.beginMatching("C", "D");
    logger.log("a detail");
    logger.doneMatching(false);
    logger.doneMatching(true);
    EXPECT_EQ(logger.getLog(), "Matching A against B - OK\n");
}

TEST_F(EquivalenceFullLoggerReport, MatchedBranchesAfterAFailedOneAreLogged) {
    logger.beginMatching("A", "B");
    logger.beginMatching("C", "D");
    logger.doneMatching(false);
    logger.beginMatching("E", "F");
    logger.doneMatching(true);
    logger.log("the end");
    logger.doneMatching(false);
    EXPECT_EQ(logger.getLog(), "Matching A against B\n"
                               "    Matching C against D\n"
                               "        " +
                                   FAILED +
                                   "    Matching E against F - OK\n"
                                   "    -> the end\n"
                                   "    " +
                                   FAILED);
}

TEST_F(EquivalenceFullLoggerReport, EveryOpeningHasItsHeadLine) {
    const auto headOf = [this](auto open) {
        logger.clear();
        open();
        logger.doneMatching(true);
        return logger.getLog();
    };
    EXPECT_EQ(headOf([&] { logger.beginMatching("A", ""); }), "Matching A against  - OK\n");
    EXPECT_EQ(headOf([&] {
                  logger.beginMatchingStrings(std::u16string_view(u"a"), std::u16string_view(u""));
              }),
              "Matching strings [a] and [] - OK\n");
    EXPECT_EQ(headOf([&] {
                  logger.beginMatchingStrings(boost::basic_string_ref<char16_t>(u"a"),
                                              boost::basic_string_ref<char16_t>(u"b"));
              }),
              "Matching strings [a] and [b] - OK\n");
    EXPECT_EQ(headOf([&] { logger.beginMatchingRange(); }),
              "Matching boost::iterator_range - OK\n");
    EXPECT_EQ(headOf([&] { logger.beginMatchingIntroductionNodes(); }),
              "Matching introduction nodes - OK\n");
    EXPECT_EQ(headOf([&] { logger.beginMatchingMemoryAddressesOfIntroductionNodes(); }),
              "Matching memory addresses of introduction nodes - OK\n");
}

TEST_F(EquivalenceFullLoggerReport, StringsAreWrittenAsUtf8) {
    const std::u16string_view zero(u"a\0b", 3);
    logger.beginMatchingStrings(std::u16string_view(u"\u00E9\U0001F600"), zero);
    logger.doneMatching(true);
    EXPECT_EQ(logger.getLog(), std::string("Matching strings [\xC3\xA9\xF0\x9F\x98\x80] and [a") +
                                   '\0' + "b] - OK\n");
    logger.clear();
    logger.beginMatchingStrings(boost::basic_string_ref<char16_t>(u"\xD800"),
                                boost::basic_string_ref<char16_t>(u"\u20AC"));
    logger.doneMatching(true);
    EXPECT_EQ(logger.getLog(), "Matching strings [\xEF\xBF\xBD] and [\xE2\x82\xAC] - OK\n");
}

TEST_F(EquivalenceFullLoggerReport, LinesCanBeLoggedAtAnyLevel) {
    logger.log("top");
    EXPECT_EQ(logger.getLog(), "-> top\n");
    logger.beginMatchingRange();
    logger.log("");
    logger.logRangeIndex(0);
    logger.logRangeIndex(12);
    EXPECT_EQ(logger.getLog(), "    -> \n"
                               "    -> Matching nodes at index 0 of boost::iterator_range\n"
                               "    -> Matching nodes at index 12 of boost::iterator_range\n");
}

TEST_F(EquivalenceFullLoggerReport, MismatchesIgnoreTheirArguments) {
    logMismatchedNodes();
    logger.logMismatchedOptionals(true, "ignored", NodeKind::IfStatement, 3);
    logger.logMismatchedOptionals(false, "ignored", NodeKind::IfStatement, 3);
    EXPECT_EQ(logger.getLog(),
              "-> Node kinds do not match\n"
              "-> boost::optionals do not match (one is empty, the other is not)\n"
              "-> boost::optionals do not match (one is empty, the other is not)\n");
}

TEST_F(EquivalenceFullLoggerReport, MismatchedIntroductionNodesAreFiveLines) {
    logger.beginMatchingIntroductionNodes();
    logger.logMismatchedIntroductionNodes("x", "First", "y", "Second");
    EXPECT_EQ(logger.getLog(), "    Introduction nodes do not match\n"
                               "        Identifier in first tree:         x\n"
                               "        Introduction node in first tree:  First\n"
                               "        Identifier in second tree:        y\n"
                               "        Introduction node in second tree: Second\n");
}

/// Overrides every operation, records its name and then does what the base class does. A name that
/// is recorded without having been called by the test shows a virtual call inside the base class.
class RecordingLogger : public EquivalenceFullLogger {
public:
    using Base = EquivalenceFullLogger;
    using Ref = boost::basic_string_ref<char16_t>;
    using Text = const std::string&;

    void startNewMatch() override { record("startNewMatch").Base::startNewMatch(); }
    void beginMatching(Text a, Text b) override {
        record("beginMatching").Base::beginMatching(a, b);
    }
    void beginMatchingStrings(std::u16string_view a, std::u16string_view b) override {
        record("beginMatchingStrings(view)").Base::beginMatchingStrings(a, b);
    }
    void beginMatchingStrings(Ref a, Ref b) override {
        record("beginMatchingStrings(ref)").Base::beginMatchingStrings(a, b);
    }
    void beginMatchingRange() override { record("beginMatchingRange").Base::beginMatchingRange(); }
    void beginMatchingIntroductionNodes() override {
        record("beginMatchingIntroductionNodes").Base::beginMatchingIntroductionNodes();
    }
    void beginMatchingMemoryAddressesOfIntroductionNodes() override {
        record("beginMatchingMemoryAddressesOfIntroductionNodes")
            .Base::beginMatchingMemoryAddressesOfIntroductionNodes();
    }
    void log(const char* message) override {
        record(std::string("log ") + message).Base::log(message);
    }
    void logRangeIndex(unsigned index) override {
        record("logRangeIndex").Base::logRangeIndex(index);
    }
    void logMismatchedNodes(Text a, Text b, NodeKind kindA, NodeKind kindB, unsigned positionA,
                            unsigned positionB) override {
        record("logMismatchedNodes")
            .Base::logMismatchedNodes(a, b, kindA, kindB, positionA, positionB);
    }
    void logMismatchedOptionals(bool first, Text node, NodeKind kind, unsigned position) override {
        record("logMismatchedOptionals").Base::logMismatchedOptionals(first, node, kind, position);
    }
    void logMismatchedIntroductionNodes(Text a, Text nodeA, Text b, Text nodeB) override {
        record("logMismatchedIntroductionNodes")
            .Base::logMismatchedIntroductionNodes(a, nodeA, b, nodeB);
    }
    void doneMatching(bool matched) override { record("doneMatching").Base::doneMatching(matched); }
    std::string getLog() const override {
        calls.emplace_back("getLog");
        return Base::getLog();
    }

    mutable std::vector<std::string> calls;

private:
    RecordingLogger& record(std::string call) {
        calls.push_back(std::move(call));
        return *this;
    }
};

TEST(EquivalenceFullLoggerOverrides, OnlyMismatchesOfNodesAndOptionalsCallAnotherOperation) {
    RecordingLogger logger;
    logger.clear();
    logger.startNewMatch();
    logger.beginMatching("A", "B");
    logger.beginMatchingStrings(std::u16string_view(u"a"), std::u16string_view(u"b"));
    logger.beginMatchingStrings(RecordingLogger::Ref(u"a"), RecordingLogger::Ref(u"b"));
    logger.beginMatchingRange();
    logger.beginMatchingIntroductionNodes();
    logger.beginMatchingMemoryAddressesOfIntroductionNodes();
    logger.log("x");
    logger.logRangeIndex(0);
    logger.logMismatchedNodes("", "", NodeKind::Invalid, NodeKind::Invalid, 0, 0);
    logger.logMismatchedOptionals(true, "", NodeKind::Invalid, 0);
    logger.logMismatchedIntroductionNodes("", "", "", "");
    logger.doneMatching(true);
    logger.doneMatching(false);
    logger.getLog();
    EXPECT_EQ(
        logger.calls,
        (std::vector<std::string>{
            "startNewMatch", "beginMatching", "beginMatchingStrings(view)",
            "beginMatchingStrings(ref)", "beginMatchingRange", "beginMatchingIntroductionNodes",
            "beginMatchingMemoryAddressesOfIntroductionNodes", "log x", "logRangeIndex",
            "logMismatchedNodes", "log Node kinds do not match", "logMismatchedOptionals",
            "log boost::optionals do not match (one is empty, the other is not)",
            "logMismatchedIntroductionNodes", "doneMatching", "doneMatching", "getLog"}));
}

TEST_F(EquivalenceFullLoggerReport, OpenLevelHidesTheLevelsAroundIt) {
    logger.beginMatching("A", "B");
    EXPECT_EQ(logger.getLog(), "");
    logger.log("x");
    EXPECT_EQ(logger.getLog(), "    -> x\n");
    logger.beginMatching("C", "D");
    EXPECT_EQ(logger.getLog(), "");
    logger.doneMatching(false);
    EXPECT_EQ(logger.getLog(), "    -> x\n    Matching C against D\n        " + FAILED);
}

TEST_F(EquivalenceFullLoggerReport, NewMatchKeepsWhatIsThere) {
    logger.beginMatching("A", "B");
    logger.doneMatching(true);
    logger.startNewMatch();
    EXPECT_EQ(logger.getLog(), "Matching A against B - OK\n");
    logger.beginMatching("C", "D");
    logger.startNewMatch(); // closes no level
    logger.log("x");
    EXPECT_EQ(logger.getLog(), "    -> x\n");
}

TEST_F(EquivalenceFullLoggerReport, SuccessiveMatchesAppendToTheSameReport) {
    logger.beginMatching("A", "B");
    logger.doneMatching(false);
    logger.startNewMatch();
    logger.beginMatching("C", "D");
    logger.doneMatching(true);
    EXPECT_EQ(logger.getLog(),
              "Matching A against B\n    " + FAILED + "Matching C against D - OK\n");
}

TEST_F(EquivalenceFullLoggerReport, ClearEmptiesTheLogAndClosesAllLevels) {
    logger.beginMatching("A", "B");
    logger.beginMatching("C", "D");
    logger.doneMatching(false);
    logger.clear();
    EXPECT_EQ(logger.getLog(), "");
    logger.log("x");
    EXPECT_EQ(logger.getLog(), "-> x\n");
}

TEST_F(EquivalenceFullLoggerReport, LevelsMayBeOpenWhenItIsDestroyed) {
    for (int i = 0; i < 100; ++i)
        logger.beginMatching("A", "B");
}

TEST_F(EquivalenceFullLoggerReport, LongChainOfFailuresIsReportedInFull) {
    constexpr std::size_t DEPTH = 2000;
    for (std::size_t i = 0; i < DEPTH; ++i)
        logger.beginMatching("A", "B");
    for (std::size_t i = 0; i < DEPTH; ++i)
        logger.doneMatching(false);
    std::string expected;
    for (std::size_t i = 0; i < DEPTH; ++i)
        expected += indent(i) + "Matching A against B\n";
    for (std::size_t i = DEPTH; i > 0; --i)
        expected += indent(i) + FAILED;
    EXPECT_TRUE(logger.getLog() == expected);
}

/// A random walk, for which the expected report is composed from the whole tree of its steps.
struct Node {
    bool matched = true;
    std::vector<std::pair<int, Node>> steps; // a numbered line, or -1 and a level
};

Node makeNode(testing::Random& random, int depth) {
    Node node;
    node.matched = random.oneIn(3);
    for (std::size_t i = random.below(5); i > 0; --i) {
        const bool isLevel = depth < 8 && random.oneIn(2);
        node.steps.emplace_back(isLevel ? -1 : static_cast<int>(random.below(100)),
                                isLevel ? makeNode(random, depth + 1) : Node());
    }
    return node;
}

void walk(const Node& node, EquivalenceLogger& logger) {
    for (const auto& [number, inner] : node.steps) {
        if (number < 0) {
            logger.beginMatching("A", "B");
            walk(inner, logger);
            logger.doneMatching(inner.matched);
        } else {
            logger.log(std::to_string(number).c_str());
        }
    }
}

std::string report(const Node& node, std::size_t depth) {
    std::string text;
    for (const auto& [number, inner] : node.steps) {
        text += indent(depth);
        if (number >= 0) {
            text += "-> " + std::to_string(number) + "\n";
        } else if (inner.matched) {
            text += "Matching A against B - OK\n";
        } else {
            text +=
                "Matching A against B\n" + report(inner, depth + 1) + indent(depth + 1) + FAILED;
        }
    }
    return text;
}

TEST_F(EquivalenceFullLoggerReport, ReportsRandomWalks) {
    testing::Random random;
    SCOPED_TRACE(random.describe());
    for (std::size_t round = 0; round < testing::rounds(2000); ++round) {
        const Node root = makeNode(random, 0);
        logger.clear();
        walk(root, logger);
        ASSERT_EQ(logger.getLog(), report(root, 0));
    }
}

} // namespace
} // namespace zt::orvex::internal
