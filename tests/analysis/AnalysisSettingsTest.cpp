#include <zt_orvex/analysis/AnalysisSettings.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace zt::orvex::testing {
namespace {

TEST(AnalysisSettings, ValuesArePartOfTheInterface) {
    using Type = flow::AnalysisTypeView;
    using Mode = flow::AnalysisModeView;
    EXPECT_EQ(static_cast<std::uint32_t>(Type::May), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(Type::Must), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(Mode::Plain), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(Mode::Sliced), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(Mode::Ans), 2u);
    EXPECT_EQ(sizeof(Type), 4u);
    EXPECT_EQ(sizeof(Mode), 4u);
}

} // namespace
} // namespace zt::orvex::testing
