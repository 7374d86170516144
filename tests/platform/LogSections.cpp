// The log of a tree matcher.
#include "platform/Lines.h"
#include "platform/Sections.h"
#include "testing/Random.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <cstddef>
#include <string>

namespace zt::orvex::testing {

namespace {

void begin(EquivalenceLogger& logger, std::size_t choice, const std::string& name) {
    const std::u16string wide(name.begin(), name.end());
    const std::u16string other = u"\u00E9\u4E2D\U0001F600\xDC00" + wide;
    switch (choice) {
    case 0:
        logger.beginMatchingStrings(std::u16string_view(wide), std::u16string_view(other));
        return;
    case 1:
        logger.beginMatchingStrings(boost::basic_string_ref<char16_t>(other),
                                    boost::basic_string_ref<char16_t>(wide));
        return;
    case 2:
        logger.beginMatchingRange();
        return;
    case 3:
        logger.beginMatchingIntroductionNodes();
        return;
    case 4:
        logger.beginMatchingMemoryAddressesOfIntroductionNodes();
        return;
    default:
        logger.beginMatching("A" + name, "B" + name);
    }
}

void note(EquivalenceLogger& logger, std::size_t choice, const std::string& name) {
    switch (choice) {
    case 0:
        logger.logRangeIndex(static_cast<unsigned>(name.size()) * 1000000U);
        return;
    case 1:
        logger.logMismatchedNodes("a", "b", NodeKind::IfStatement, NodeKind::Row, 1, 2);
        return;
    case 2:
        logger.logMismatchedOptionals(true, "a", NodeKind::End, 3);
        return;
    case 3:
        logger.logMismatchedIntroductionNodes("i" + name, "n1", "j" + name, "n2");
        return;
    default:
        logger.log(("note " + name).c_str());
    }
}

void match(EquivalenceLogger& logger, Random& random, std::size_t depth, const std::string& name) {
    begin(logger, random.below(8), name);
    for (std::size_t child = random.below(4); child > 0; --child) {
        const std::string path = name + '.' + std::to_string(child);
        note(logger, random.below(7), path);
        if (depth > 0) match(logger, random, depth - 1, path);
    }
    logger.doneMatching(random.oneIn(3));
}

} // namespace

void probeMatchLogs() {
    Random random(7);
    internal::EquivalenceFullLogger logger;
    line("empty log", shown(logger.getLog()));
    for (std::size_t number = 0; number < 8; ++number) {
        logger.startNewMatch();
        match(logger, random, 1 + number % 3, std::to_string(number));
        lines("log " + std::to_string(number), logger.getLog());
        if (number % 2 == 1) logger.clear();
    }
    logger.beginMatching("open", "level");
    logger.log("inside");
    lines("log of an open level", logger.getLog());
    internal::EquivalenceNullLogger none;
    line("no log", shown(none.getLog()));
}

} // namespace zt::orvex::testing
