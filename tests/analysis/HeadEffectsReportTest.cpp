#include "analysis/AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

using flow::internal::Effect;
using flow::internal::EffectKind;
using ::testing::ElementsAre;

struct RecordedEffects {
    void record(const Effect& effect) { effects.push_back(effect); }
    std::vector<Effect> effects;
};

// Each effect, with its kind and its identifier.
class HeadEffectsReport : public AnalysisFixture {
protected:
    std::vector<Effect> report(const NodeView& head, Mode mode = PLAIN,
                               const std::string& subscriptVariables = "") {
        RecordedEffects recorded;
        flow::internal::HeadEffects(universe, mode, symbols(subscriptVariables), recorded)
            .report(head);
        return recorded.effects;
    }

    static std::string nameOfKind(EffectKind kind) {
        switch (kind) {
        case EffectKind::CertainRead:
            return "certain read of ";
        case EffectKind::ConditionalRead:
            return "conditional read of ";
        case EffectKind::WholeWrite:
            return "whole write of ";
        case EffectKind::PartialWrite:
            return "partial write of ";
        case EffectKind::ImplicitTarget:
            return "implicit target ";
        }
        return "";
    }

    std::vector<std::string> describe(const NodeView& head, Mode mode = PLAIN,
                                      const std::string& subscriptVariables = "") {
        std::vector<std::string> texts;
        for (const Effect& effect : report(head, mode, subscriptVariables))
            texts.push_back(nameOfKind(effect.kind) + label(effect.identifier));
        return texts;
    }
};

TEST_F(HeadEffectsReport, ReadsComeInOrderAndBeforeWrites) {
    // x(k) = a + b
    EXPECT_THAT(describe(assign(paren(id("x"), {id("k")}), add(id("a"), id("b")))),
                ElementsAre("certain read of a", "certain read of b", "certain read of k",
                            "partial write of x"));
}

TEST_F(HeadEffectsReport, OperandThatMayBeSkippedIsAConditionalRead) {
    EXPECT_THAT(describe(whileLoop(shortCircuitAnd(id("a"), id("b")), {})),
                ElementsAre("certain read of a", "conditional read of b"));
}

TEST_F(HeadEffectsReport, EveryOccurrenceIsReported) {
    // x = x(x)
    const IdentifierView base = id("x");
    const IdentifierView subscript = id("x");
    const IdentifierView target = id("x");
    const std::vector<Effect> effects = report(assign(target, paren(base, {subscript})));
    ASSERT_EQ(effects.size(), 3u);
    EXPECT_EQ(effects[0].identifier, subscript);
    EXPECT_EQ(effects[1].identifier, base);
    EXPECT_EQ(effects[2].identifier, target);
    for (const Effect& effect : effects) {
        EXPECT_EQ(effect.symbol, symbol("x"));
        EXPECT_EQ(effect.index, universe.indexOf(symbol("x")));
    }
}

TEST_F(HeadEffectsReport, ModeDecidesWhichWritesAreWhole) {
    const NodeView write = assign(paren(id("x"), {id("k")}), number());
    EXPECT_THAT(describe(write, PLAIN), ElementsAre("certain read of k", "partial write of x"));
    EXPECT_THAT(describe(write, ANS), ElementsAre("certain read of k", "partial write of x"));
    EXPECT_THAT(describe(write, SLICED), ElementsAre("certain read of k", "whole write of x"));
    EXPECT_THAT(describe(write, SLICED, "k"),
                ElementsAre("certain read of k", "partial write of x"));
}

TEST_F(HeadEffectsReport, AnsOfAnExpressionOrCommandStatementIsAnImplicitTargetInEveryMode) {
    for (const Mode mode : {PLAIN, SLICED, ANS}) {
        EXPECT_THAT(describe(expressionStatement(id("ans"), id("x")), mode),
                    ElementsAre("certain read of x", "implicit target ans"));
        EXPECT_THAT(describe(command(id("ans"), id("x"), {}), mode),
                    ElementsAre("certain read of x", "implicit target ans"));
        EXPECT_THAT(describe(assign(id("ans"), id("x")), mode),
                    ElementsAre("certain read of x", "whole write of ans"));
    }
}

TEST_F(HeadEffectsReport, BareIdentifierAndImplicitCommandHaveNoEffectOnAns) {
    EXPECT_THAT(describe(bareIdentifier(id("ans")), ANS), ElementsAre());
    EXPECT_THAT(describe(implicitCommand(id("ans"), {}), ANS), ElementsAre());
}

TEST_F(HeadEffectsReport, OnlyVariablesOfTheUniverseAreReported) {
    EXPECT_THAT(describe(assign(id("outside"), add(id("sin"), id("outside")))), ElementsAre());
}

TEST_F(HeadEffectsReport, HeadsAreReportedIndependently) {
    RecordedEffects recorded;
    flow::internal::HeadEffects effects(universe, PLAIN, {}, recorded);
    // The condition's context must not carry over to the assignment.
    effects.report(ifStatement(elementOr(id("a"), id("b")), {}));
    effects.report(assign(id("x"), elementOr(id("a"), id("b"))));
    std::vector<EffectKind> kinds;
    for (const Effect& effect : recorded.effects)
        kinds.push_back(effect.kind);
    EXPECT_THAT(kinds, ElementsAre(EffectKind::CertainRead, EffectKind::ConditionalRead,
                                   EffectKind::CertainRead, EffectKind::CertainRead,
                                   EffectKind::WholeWrite));
}

} // namespace
} // namespace zt::orvex::testing
