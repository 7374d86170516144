#include "analysis/AnalysisFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace zt::orvex::testing {
namespace {

using flow::internal::classify;
using flow::internal::Effect;
using flow::internal::EffectKind;
using flow::internal::GenKillSets;
using flow::internal::GenOrKill;

class GenKillSetsOfEffects : public AnalysisFixture {
protected:
    Effect effect(EffectKind kind, const std::string& name) {
        const IdentifierView identifier = id(name);
        return {kind, identifier, symbol(name), universe.indexOf(symbol(name))};
    }
};

TEST_F(GenKillSetsOfEffects, ClassificationIsThatOfTheTable) {
    struct Row {
        EffectKind effect;
        GenOrKill may;
        GenOrKill mayAns;
        GenOrKill must;
    };
    static const Row ROWS[] = {
        {EffectKind::CertainRead, GenOrKill::Gen, GenOrKill::Gen, GenOrKill::Gen},
        {EffectKind::ConditionalRead, GenOrKill::Gen, GenOrKill::Gen, GenOrKill::Neither},
        {EffectKind::WholeWrite, GenOrKill::Kill, GenOrKill::Kill, GenOrKill::Kill},
        {EffectKind::PartialWrite, GenOrKill::Gen, GenOrKill::Gen, GenOrKill::Kill},
        {EffectKind::ImplicitTarget, GenOrKill::Neither, GenOrKill::Kill, GenOrKill::Kill},
    };
    for (const Row& row : ROWS) {
        const int kind = static_cast<int>(row.effect);
        EXPECT_EQ(classify(row.effect, MAY, PLAIN), row.may) << kind;
        EXPECT_EQ(classify(row.effect, MAY, SLICED), row.may) << kind;
        EXPECT_EQ(classify(row.effect, MAY, ANS), row.mayAns) << kind;
        for (const Mode mode : {PLAIN, SLICED, ANS})
            EXPECT_EQ(classify(row.effect, MUST, mode), row.must) << kind;
    }
}

TEST_F(GenKillSetsOfEffects, EffectsAddUpUntilTheSetsAreCleared) {
    GenKillSets sets(universe, MAY, PLAIN);
    sets.record(effect(EffectKind::CertainRead, "a"));
    sets.record(effect(EffectKind::PartialWrite, "b"));
    sets.record(effect(EffectKind::WholeWrite, "a"));
    sets.record(effect(EffectKind::ImplicitTarget, "ans"));
    EXPECT_EQ(namesOf(sets.gen()), "a b");
    EXPECT_EQ(namesOf(sets.kill()), "a");
    sets.clear();
    EXPECT_EQ(namesOf(sets.gen()), "");
    EXPECT_EQ(namesOf(sets.kill()), "");
}

TEST_F(GenKillSetsOfEffects, VariableAddedToTheUniverseMeanwhileIsRecorded) {
    GenKillSets sets(universe, MAY, PLAIN);
    sets.record(effect(EffectKind::CertainRead, "a"));
    for (int i = 0; i < 200; ++i)
        universe.add(symbol("later" + std::to_string(i)));
    sets.record(effect(EffectKind::CertainRead, "later199"));
    sets.record(effect(EffectKind::WholeWrite, "later60"));
    EXPECT_EQ(namesOf(sets.gen()), "a later199");
    EXPECT_EQ(namesOf(sets.kill()), "later60");
}

} // namespace
} // namespace zt::orvex::testing
