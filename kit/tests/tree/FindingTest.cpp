#include <zt_orvex_kit/tree/Finding.h>

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace zt::orvex::kit {
namespace {

constexpr int CODES = 0
#define ZT_ORVEX_KIT_FINDING(Code, text, meaning) +1
#include <zt_orvex_kit/tree/FindingCodes.def>
    ;

TEST(Finding, CodesHaveDifferentTexts) {
    std::set<std::string_view> texts;
    for (int code = 0; code < CODES; ++code)
        texts.insert(codeText(static_cast<FindingCode>(code)));
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(CODES));
    EXPECT_EQ(codeText(FindingCode::KindUnknown), "kind-unknown");
    EXPECT_EQ(codeText(FindingCode::TooManyFindings), "too-many-findings");
}

TEST(Finding, CodesHaveAMeaning) {
    EXPECT_EQ(codeMeaning(FindingCode::NodeCycle), "A node is below itself.");
}

TEST(Finding, PrintsOnOneLine) {
    std::ostringstream text;
    text << Finding{FindingCode::NodeShared, "Row.getRowExpressions[0]", "Copy it.",
                    NodeView{0x1F, nullptr}, std::nullopt};
    EXPECT_EQ(text.str(), "node-shared at Row.getRowExpressions[0] (node 0x1f): Copy it.");
}

TEST(Finding, PrintsASymbol) {
    std::ostringstream text;
    text << Finding{FindingCode::UniverseUnused, "root", "Drop it.", std::nullopt,
                    SymbolView{16, nullptr}};
    EXPECT_EQ(text.str(), "universe-symbol-unused at root (symbol 0x10): Drop it.");
}

} // namespace
} // namespace zt::orvex::kit
