#pragma once

#include "analysis/GenKillSets.h"
#include "analysis/HeadEffects.h"
#include "analysis/Liveness.h"
#include "testing/PrintTo.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/analysis/AnalysisSettings.h>
#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/OrderedSet.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>

namespace zt::orvex::testing {

/// What tests of the analyses share: trees built as expressions, and sets of symbols as text.
///
/// Names are written in one string, separated by blanks. The universe has the names below, unless a
/// test makes its own. "outside" is a variable that isn't in it; "sin" is in it, but isn't a
/// variable.
class AnalysisFixture : public ::testing::Test, protected TreeBuilder {
protected:
    using Type = flow::AnalysisTypeView;
    using Mode = flow::AnalysisModeView;
    using Universe = flow::OrderedSet<SymbolView>;
    using Symbols = std::unordered_set<SymbolView>;

    static constexpr Type MAY = Type::May;
    static constexpr Type MUST = Type::Must;
    static constexpr Mode PLAIN = Mode::Plain;
    static constexpr Mode SLICED = Mode::Sliced;
    static constexpr Mode ANS = Mode::Ans;

    AnalysisFixture() {
        fill(universe, "a b c d e f g k n s t x y z ans sin");
        ast.setIsVariable(u"sin", false);
    }

    void fill(Universe& into, const std::string& names) {
        std::istringstream words(names);
        for (std::string word; words >> word;)
            into.add(symbol(word));
    }

    Symbols symbols(const std::string& names) {
        Universe ordered;
        fill(ordered, names);
        return {ordered.begin(), ordered.end()};
    }

    /// The names in alphabetical order.
    static std::string namesOf(const Symbols& symbols) {
        std::set<std::string> sorted;
        for (const SymbolView& symbol : symbols)
            sorted.insert(label(symbol));
        std::string text;
        for (const std::string& name : sorted)
            text += (text.empty() ? "" : " ") + name;
        return text;
    }

    static std::string namesOf(const flow::BitSet<SymbolView>& set) {
        return namesOf(set.toElementSet());
    }

    /// What the head of one statement reads and writes, as "gen a b kill x".
    std::string effects(const NodeView& statement, Type type = MAY, Mode mode = PLAIN,
                        const std::string& subscriptVariables = "") {
        flow::internal::GenKillSets sets(universe, type, mode);
        flow::internal::HeadEffects(universe, mode, symbols(subscriptVariables), sets)
            .report(statement);
        const std::string gen = namesOf(sets.gen());
        const std::string kill = namesOf(sets.kill());
        return (gen.empty() ? "" : "gen " + gen) + (gen.empty() || kill.empty() ? "" : " ") +
               (kill.empty() ? "" : "kill " + kill);
    }

    /// What is live at the entry of the statements.
    std::string live(const Nodes& statements, Type type = MAY, Mode mode = PLAIN,
                     const std::string& subscriptVariables = "") {
        const flow::internal::Liveness analysis(universe, block(statements), type, mode,
                                                symbols(subscriptVariables), nullptr);
        return namesOf(analysis.liveAtEntry());
    }

    Universe universe;
};

} // namespace zt::orvex::testing
