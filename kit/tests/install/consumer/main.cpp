// A stranger's tree with one mistake, found with the installed kit: the loop's expression is what the
// accessor of its variable returns.
#include "LoopTree.h"

#include <zt_orvex_kit/zt_orvex_kit.h>

#include <iostream>

using namespace zt::orvex;

struct WrongTree : LoopTree {
    NodeView getParforExpression(std::uint64_t node) const override {
        return getParforVariable(node);
    }
};

template <typename Tree>
std::vector<kit::Finding> check() {
    Tree t;
    const NodeView body = t.assign(t.id(u"s"), t.id(u"a"));
    return kit::checkTree(t.loop(NodeKind::ParforStatement, t.id(u"k"), t.id(u"n"), {body}));
}

int main() {
    const auto findings = check<WrongTree>();
    if (!check<LoopTree>().empty() || findings.size() != 1) return 1;
    if (findings[0].place != "ParforStatement.getParforExpression") return 1;
    if (kit::codeText(findings[0].code) != "node-shared") return 1;
    std::cout << "kit consumer: all as expected\n";
}
