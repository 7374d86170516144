#include <zt_orvex_kit/body/Access.h>

#include <gtest/gtest.h>

namespace zt::orvex::kit {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;

constexpr AnalysisTypeView MAY = AnalysisTypeView::May;
constexpr AnalysisTypeView MUST = AnalysisTypeView::Must;

struct Row {
    AccessKind kind;
    const char* text;
    bool isWrite;
    LivenessEffect inMay;
    LivenessEffect inMayWithAns;
    LivenessEffect inMust;
};

constexpr LivenessEffect NONE = LivenessEffect::None;
constexpr LivenessEffect LIVE = LivenessEffect::MakesLive;
constexpr LivenessEffect ENDS = LivenessEffect::EndsLiveness;

constexpr Row ROWS[] = {
    {AccessKind::CertainRead, "certain read", false, LIVE, LIVE, LIVE},
    {AccessKind::ConditionalRead, "conditional read", false, LIVE, LIVE, NONE},
    {AccessKind::WholeWrite, "whole write", true, ENDS, ENDS, ENDS},
    {AccessKind::PartialWrite, "partial write", true, LIVE, LIVE, ENDS},
    {AccessKind::ImplicitTarget, "implicit target", true, NONE, ENDS, ENDS},
};

TEST(Access, EveryKindHasItsTextAndEffect) {
    for (const Row& row : ROWS) {
        EXPECT_EQ(toText(row.kind), row.text);
        EXPECT_EQ(isWrite(row.kind), row.isWrite) << row.text;
        EXPECT_EQ(livenessEffectOf(row.kind, MAY, AnalysisModeView::Plain), row.inMay);
        EXPECT_EQ(livenessEffectOf(row.kind, MAY, AnalysisModeView::Sliced), row.inMay);
        EXPECT_EQ(livenessEffectOf(row.kind, MAY, AnalysisModeView::Ans), row.inMayWithAns);
        for (const AnalysisModeView mode :
             {AnalysisModeView::Plain, AnalysisModeView::Sliced, AnalysisModeView::Ans})
            EXPECT_EQ(livenessEffectOf(row.kind, MUST, mode), row.inMust) << row.text;
    }
}

} // namespace
} // namespace zt::orvex::kit
