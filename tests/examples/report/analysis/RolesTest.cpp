#include "report/analysis/Roles.h"

#include <gtest/gtest.h>

#include <vector>

namespace ostrel::report::testing {

namespace {

constexpr ConstructKind PARFOR = ConstructKind::Parfor;
constexpr ConstructKind SPMD = ConstructKind::Spmd;

Evidence evidence(ConstructKind kind, bool isWritten, bool isLive) {
    Evidence e;
    e.kind = kind;
    e.isWritten = isWritten;
    e.isLive = isLive;
    e.isLiveAsSliced = true;
    return e;
}

Evidence with(bool Evidence::*fact, bool value, Evidence e) {
    e.*fact = value;
    return e;
}

TEST(Roles, VariableThatIsNotWrittenIsReadOrNotUsed) {
    for (const ConstructKind kind : {PARFOR, SPMD}) {
        EXPECT_EQ(roleOf(evidence(kind, false, true)), Role::ReadFromOutside);
        EXPECT_EQ(roleOf(evidence(kind, false, false)), Role::NotUsed);
        EXPECT_EQ(roleOf(with(&Evidence::isReadByHead, true, evidence(kind, false, false))),
                  Role::ReadFromOutside);
    }
}

TEST(Roles, VariableThatIsWrittenFirstIsTemporaryOrOutput) {
    EXPECT_EQ(roleOf(evidence(PARFOR, true, false)), Role::Temporary);
    EXPECT_EQ(roleOf(evidence(SPMD, true, false)), Role::Output);
    EXPECT_EQ(roleOf(with(&Evidence::isReadByHead, true, evidence(PARFOR, true, false))),
              Role::Temporary);
}

TEST(Roles, VariableThatIsReadFirstIsCarriedOrUpdated) {
    EXPECT_EQ(roleOf(evidence(PARFOR, true, true)), Role::Carried);
    EXPECT_EQ(roleOf(evidence(SPMD, true, true)), Role::Updated);
}

TEST(Roles, LiveVariableWithOwnElementsIsSliced) {
    EXPECT_EQ(roleOf(with(&Evidence::hasOwnElements, true, evidence(PARFOR, true, true))),
              Role::Sliced);
    EXPECT_EQ(roleOf(with(&Evidence::hasOwnElements, true, evidence(PARFOR, true, false))),
              Role::Temporary);
    EXPECT_EQ(roleOf(with(&Evidence::hasOwnElements, true, evidence(PARFOR, false, true))),
              Role::ReadFromOutside);
}

TEST(Roles, LiveVariableThatIsNotLiveAsSlicedIsShared) {
    const Evidence shared = with(&Evidence::isLiveAsSliced, false, evidence(PARFOR, true, true));
    EXPECT_EQ(roleOf(shared), Role::Shared);
    EXPECT_EQ(roleOf(with(&Evidence::hasOwnElements, true, shared)), Role::Sliced);
    EXPECT_EQ(roleOf(with(&Evidence::isLiveAsSliced, false, evidence(PARFOR, true, false))),
              Role::Temporary);
}

TEST(Roles, LiveVariableThatIsOnlyCombinedIsAReduction) {
    EXPECT_EQ(roleOf(with(&Evidence::isReduction, true, evidence(PARFOR, true, true))),
              Role::Reduction);
    EXPECT_EQ(roleOf(with(&Evidence::isReduction, true, evidence(SPMD, true, true))),
              Role::Updated);
    EXPECT_EQ(roleOf(with(&Evidence::isReduction, true, evidence(PARFOR, false, true))),
              Role::ReadFromOutside);
}

TEST(Roles, LoopVariableTakesPrecedence) {
    for (const bool isWritten : {false, true}) {
        for (const bool isLive : {false, true}) {
            EXPECT_EQ(
                roleOf(with(&Evidence::isLoopVariable, true, evidence(PARFOR, isWritten, isLive))),
                Role::LoopVariable);
        }
    }
}

} // namespace

} // namespace ostrel::report::testing
