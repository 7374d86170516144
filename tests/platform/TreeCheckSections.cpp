// What the kit finds in trees that lie.
#include "lying/LyingAst.h"
#include "platform/Lines.h"
#include "platform/Sections.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex_kit/tree/CheckTree.h>
#include <zt_orvex_kit/tree/Finding.h>
#include <zt_orvex_kit/tree/Place.h>
#include <zt_orvex_kit/tree/SymbolNames.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zt::orvex::testing {

namespace {

/// A program, and a tree that answers as it is told.
struct Case {
    Case() : lying(t.ast) {
        t.ast.setIsVariable(u"f", false);
        for (const char* name : {"a", "b", "c", "k", "n", "r", "t", "x"})
            universe.add({t.symbol(name).symbol, &lying});
        options.universe = &universe;
    }

    TreeBuilder t;
    const IdentifierView a = t.id("a");
    const IdentifierView x = t.id("x");
    const IdentifierView written = t.id("t");
    const AssignmentStatementView first = t.assign(written, a);
    const AssignmentStatementView second = t.assign(t.id("t"), x);
    const IfStatementView branch = t.ifStatement(t.id("c"), {second});
    const BinaryOperationView sum = t.add(t.id("b"), t.paren(t.id("f"), {t.id("t")}));
    const AssignmentStatementView last = t.assign(t.id("r"), sum);
    const ParforStatementView loop = t.parforLoop(t.id("k"), t.id("n"), {first, branch, last});

    LyingAst lying;
    flow::OrderedSet<SymbolView> universe;
    kit::CheckTreeOptions options;
};

void probeCase(const char* name, const std::function<void(Case&)>& lie) {
    Case tree;
    lie(tree);
    std::size_t number = 0;
    for (const kit::Finding& finding : kit::checkTree(tree.lying.view(tree.loop), tree.options)) {
        std::ostringstream text;
        text << finding;
        line(std::string("lie: ") + name + " " + std::to_string(number++),
             withoutHandles(text.str()));
    }
    line(std::string("lie: ") + name + " findings", std::to_string(number));
}

void answer(Case& tree, Operation asked, const NodeView& about, NodeView answer) {
    tree.lying.onNode = [=](const Call& call, NodeView& node) {
        if (call.operation == asked && call.arguments[0] == about.node) node = answer;
    };
}

void probeNodeLies() {
    probeCase("nothing", [](Case&) {});
    probeCase("kind 0", [](Case& tree) {
        tree.lying.onKind = [&](const Call& call, NodeKind& kind) {
            if (call.arguments[0] == tree.a.node) kind = NodeKind::Invalid;
        };
    });
    probeCase("a statement for an expression", [](Case& tree) {
        tree.lying.onKind = [&](const Call& call, NodeKind& kind) {
            if (call.arguments[0] == tree.x.node) kind = NodeKind::BreakStatement;
        };
    });
    probeCase("no tree", [](Case& tree) {
        answer(tree, Operation::getAssignmentRhs, tree.first, NodeView{tree.a.node, nullptr});
    });
    probeCase("another tree", [](Case& tree) {
        answer(tree, Operation::getAssignmentRhs, tree.first, NodeView{tree.a.node, &tree.t.ast});
    });
    probeCase("shared node", [](Case& tree) {
        answer(tree, Operation::getAssignmentRhs, tree.first, tree.lying.view(tree.x));
    });
    probeCase("cycle", [](Case& tree) {
        answer(tree, Operation::getAssignmentRhs, tree.first, tree.lying.view(tree.first));
    });
    probeCase("equal pseudo nodes", [](Case& tree) {
        tree.lying.onNode = [&](const Call& call, NodeView& node) {
            if (call.operation == Operation::getExitNode) node.node = FakeAst::ENTRY_NODE;
        };
    });
    probeCase("real pseudo node", [](Case& tree) {
        tree.lying.onNode = [&](const Call& call, NodeView& node) {
            if (call.operation == Operation::getExitNode) node.node = tree.a.node;
        };
    });
    probeCase("exception", [](Case& tree) {
        tree.lying.onNode = [&](const Call& call, NodeView&) {
            if (call.operation == Operation::getBinaryLhs) throw std::runtime_error("no operand");
        };
    });
    probeCase("unknown operator", [](Case& tree) {
        tree.lying.onOperator = [](const Call&, std::uint32_t& op) { op = 21; };
    });
    probeCase("long range", [](Case& tree) {
        tree.lying.onSize = [](const Call& call, std::uint64_t& size) {
            if (call.operation == Operation::getStatementRangeSize && size == 3)
                size = ~std::uint64_t{0};
        };
    });
}

void probeSymbolLies() {
    probeCase("unreadable name", [](Case& tree) {
        tree.lying.onName = [](const Call&, std::u16string_view& name) {
            if (name == u"x") name = std::u16string_view(nullptr, 1);
        };
    });
    probeCase("two symbols", [](Case& tree) {
        tree.lying.onSymbol = [&](const Call& call, SymbolView& symbol) {
            if (call.arguments[0] == tree.written.node) symbol.symbol += 100;
        };
    });
    probeCase("no view", [](Case& tree) {
        tree.lying.onSymbol = [&](const Call& call, SymbolView& symbol) {
            if (call.arguments[0] == tree.written.node) symbol.view = nullptr;
        };
    });
    probeCase("no variable", [](Case& tree) {
        tree.lying.onVariable = [](const Call&, bool& isVariable) { isVariable = false; };
    });
    probeCase("small universe", [](Case& tree) {
        tree.universe = flow::OrderedSet<SymbolView>({{tree.t.symbol("r").symbol, &tree.lying}});
    });
    probeCase("large universe", [](Case& tree) {
        tree.universe.add({tree.t.symbol("unused").symbol, &tree.lying});
    });
    probeCase("ans of another name", [](Case& tree) {
        tree.options.ans = SymbolView{tree.t.symbol("x").symbol, &tree.lying};
    });
    probeCase("few nodes allowed", [](Case& tree) { tree.options.maxNodes = 3; });
    probeCase("little depth allowed", [](Case& tree) { tree.options.maxDepth = 2; });
}

} // namespace

void probeTreeChecks() {
    const kit::FindingCode codes[] = {
#define ZT_ORVEX_KIT_FINDING(Code, text, meaning) kit::FindingCode::Code,
#include <zt_orvex_kit/tree/FindingCodes.def>
    };
    for (const kit::FindingCode code : codes)
        line("code " + std::string(kit::codeText(code)), std::string(kit::codeMeaning(code)));
    probeNodeLies();
    probeSymbolLies();

    Case tree;
    const kit::SymbolNames names(tree.loop);
    line("names", names.list(tree.universe));
    for (const NodeView& node : {NodeView(tree.x), NodeView(tree.sum), NodeView(tree.loop)}) {
        const auto place = kit::findPlace(tree.loop, node);
        line("place of " + label(node), place ? kit::toText(*place) : "none");
    }
}

} // namespace zt::orvex::testing
