#pragma once

#include "match/WideNames.h"
#include "source/SourceText.h"
#include "tree/Tree.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/equivalence/EquivalenceLogger.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace ostrel {

/// A tree, and the source that its offsets refer to.
struct MatchedProgram {
    const Tree& tree;
    const SourceText& source;
};

/// Walks two trees side by side and tells whether they are equivalent: the same kinds, operators,
/// names and values in the same places. Layout, comments and the spelling of values don't count:
/// 1.50 equals 1.5, and 0xFFu8 equals 0Xffu8; but 0xFF differs from 0x00FF, which has another type.
///
/// Reports each step to `logger`; a full logger then shows the path to the first difference, and a
/// null logger costs nothing. Stops at the first difference. Recurses as deep as the trees.
///
///     zt::orvex::internal::EquivalenceFullLogger logger;
///     if (!TreeMatcher(first, second, logger).match()) std::cout << logger.getLog();
class TreeMatcher {
public:
    /// The programs and the logger must outlive the matcher.
    TreeMatcher(const MatchedProgram& firstProgram, const MatchedProgram& secondProgram,
                zt::orvex::EquivalenceLogger& stepLogger)
        : first(firstProgram), second(secondProgram), logger(stepLogger) {}

    bool match();

private:
    bool matchNodes(zt::orvex::NodeView a, zt::orvex::NodeView b);
    bool matchKinds(zt::orvex::NodeView a, zt::orvex::NodeView b);
    bool matchOwnText(zt::orvex::NodeView a, zt::orvex::NodeView b);
    bool matchNumbers(zt::orvex::NodeView a, zt::orvex::NodeView b);
    bool matchTexts(zt::orvex::NodeView a, zt::orvex::NodeView b);
    template <typename Operator>
    bool matchOperators(Operator a, Operator b);
    bool matchStrings(std::u16string_view a, std::u16string_view b);
    bool reportStrings(std::u16string_view a, std::u16string_view b, bool matched);
    bool matchChildren(zt::orvex::NodeView a, zt::orvex::NodeView b);
    bool matchOptional(Field a, Field b);
    bool matchRange(Field a, Field b);

    MatchedProgram first;
    MatchedProgram second;
    zt::orvex::EquivalenceLogger& logger;
    WideNames spellings;
};

} // namespace ostrel
