#include "WalkTraces.h"
#include "testing/FakeAst.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>

// NodeKinds.def against what was written by hand: the list of operations and the traces of walks.
namespace zt::orvex::testing {
namespace {

using Forms = std::map<std::string, std::string>;

/// The operations that return children, with their form, as the list of operations has them.
Forms formsByHand() {
    Forms forms;
#define ZT_ORVEX_TEST_ONE(name) forms[#name] = "one";
#define ZT_ORVEX_TEST_MAYBE(name) forms[#name] = "optional";
#define ZT_ORVEX_TEST_RANGE(name, View) forms[#name] = #View;
#include "testing/IAstViewOperations.def"
    return forms;
}

TEST(NodeKindsTable, NamesEveryOperationThatReturnsChildrenInItsForm) {
    Forms forms;
#define ZT_ORVEX_ONE(Kind, accessor) forms[#accessor] = "one";
#define ZT_ORVEX_MAYBE(Kind, accessor) forms[#accessor] = "optional";
#define ZT_ORVEX_HELD(Kind, accessor, Held) forms[#accessor] = "optional";
#define ZT_ORVEX_EACH(Kind, accessor, View) forms[#accessor] = #View;
#include <zt_orvex/ast/NodeKinds.def>
    EXPECT_EQ(forms, formsByHand());
}

TEST(NodeKindsTable, NamesEveryOperationThatReturnsAValueOfANode) {
    std::set<std::string> values;
#define ZT_ORVEX_VALUE(Kind, accessor, Type) values.insert(#accessor);
#include <zt_orvex/ast/NodeKinds.def>
    std::set<std::string> expected;
#define ZT_ORVEX_TEST_OTHER(name) expected.insert(#name);
#include "testing/IAstViewOperations.def"
    for (const char* ofNoKind : {"isVariableSymbol", "getEntryNode", "getExitNode", "getNodeKind"})
        EXPECT_EQ(expected.erase(ofNoKind), 1U) << ofNoKind;
    EXPECT_EQ(values, expected);
}

TEST(NodeKindsTable, GivesEachKindTheChildrenThatItsTraceAsksFor) {
    std::set<std::pair<NodeKind, std::string>> children;
#define ZT_ORVEX_ONE(Kind, accessor) children.emplace(NodeKind::Kind, #accessor);
#define ZT_ORVEX_MAYBE(Kind, accessor) children.emplace(NodeKind::Kind, #accessor);
#define ZT_ORVEX_EACH(Kind, accessor, View) children.emplace(NodeKind::Kind, #accessor);
#include <zt_orvex/ast/NodeKinds.def>

    const Forms forms = formsByHand();
    std::set<std::pair<NodeKind, std::string>> expected;
    for (const WalkTrace& trace : FULL_TRACES) {
        if (trace.kind == NodeKind::InputParameter)
            continue; // Its rows are of a form of their own.
        std::istringstream tokens(trace.expected);
        for (std::string token; tokens >> token;) {
            if (forms.count(token) != 0) expected.emplace(trace.kind, token);
        }
    }
    EXPECT_EQ(children, expected);
}

TEST(NodeKindsTable, NamesAnOperationOfTwoKindsAsSharedInTheSecond) {
    std::map<std::string, int> unshared;
    std::map<std::string, int> shared;
#define ZT_ORVEX_ONE(Kind, accessor) ++unshared[#accessor];
#define ZT_ORVEX_MAYBE(Kind, accessor) ++unshared[#accessor];
#define ZT_ORVEX_HELD(Kind, accessor, Held) ++unshared[#accessor];
#define ZT_ORVEX_EACH(Kind, accessor, View) ++unshared[#accessor];
#define ZT_ORVEX_VALUE(Kind, accessor, Type) ++unshared[#accessor];
#define ZT_ORVEX_SHARED_ONE(Kind, accessor) ++shared[#accessor];
#define ZT_ORVEX_SHARED_EACH(Kind, accessor, View) ++shared[#accessor];
#include <zt_orvex/ast/NodeKinds.def>
    for (const auto& [accessor, count] : unshared)
        EXPECT_EQ(count, 1) << accessor;
    const std::map<std::string, int> expected{
        {"getMethodInputs", 1}, {"getMethodName", 1}, {"getMethodOutputs", 1}};
    EXPECT_EQ(shared, expected);
}

} // namespace
} // namespace zt::orvex::testing
