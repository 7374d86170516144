// Kinds, walks and operators.
#include "ast/WalkTraces.h"
#include "platform/Lines.h"
#include "platform/Sections.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ControlFlow.h>
#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/support/Char16Locale.h>
#include <zt_orvex_kit/tree/DumpTree.h>
#include <zt_orvex_kit/tree/KindName.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

namespace zt::orvex::testing {

namespace {

using Stream16 = std::basic_ostringstream<char16_t>;

template <typename Value>
std::string printedWide(const Value& value) {
    Stream16 stream;
    stream.imbue(getChar16Locale());
    stream << std::setfill(u'*') << std::setw(4) << value;
    return shown(stream.str());
}

void probeKind(int value) {
    const auto kind = static_cast<NodeKind>(value);
    TreeBuilder t;
    const NodeView node = t.unknown(value);
    std::ostringstream narrow;
    narrow << std::setw(4) << kind;
    const std::string name = "kind " + std::to_string(value);
    line(name + " prints", shown(narrow.str()) + " " + printedWide(kind));
    line(name + " is", std::string(kit::kindName(kind)) + " " + std::string(kit::className(kind)) +
                           " known " + shown(getAllNodeKinds().count(kind) == 1) + " flow " +
                           shown(flow::isControlFlowNode(node)));
}

void probeWalk(const NodeView& node, const std::string& name) {
    std::vector<std::string> walked;
    forEachNodeIn(node, [&](const NodeView& visited) { walked.push_back(label(visited)); });
    line(name + " walked", joined(walked));
}

void probeTrace(const WalkTrace& trace, const std::string& sort) {
    TreeBuilder t;
    const NodeView root = trace.build(t);
    const std::string name = sort + ' ' + nameOf(trace.kind);
    probeWalk(root, name);

    t.ast.startRecording();
    forEachNodeIn(root, [](const NodeView&) {});
    std::vector<std::string> asked;
    for (const Call& call : t.ast.calls())
        asked.push_back(nameOf(call.operation));
    line(name + " asked", joined(asked));

    std::vector<std::string> visits;
    kit::traverse(root, {[&](const kit::Visit& visit) {
                             std::ostringstream text;
                             text << visit.depth() << ':' << visit.role();
                             visits.push_back(text.str());
                             return kit::Next::Descend;
                         },
                         {}});
    line(name + " traversed", joined(visits));
    lines(name + " dumped", withoutHandles(kit::dumpTree(root)));
}

template <typename Operator>
void probeOperator(const char* sort, std::uint32_t value) {
    const auto op = static_cast<Operator>(value);
    const std::string name = std::string(sort) + " operator " + std::to_string(value);
    line(name, outcome([&] { return shown(toString(op)) + " " + printedWide(op); }));
}

} // namespace

void probeKinds() {
    for (int value = 0; value <= 70; ++value)
        probeKind(value);
    probeKind(200);
    probeKind(255);
}

void probeWalks() {
    for (const WalkTrace& trace : FULL_TRACES)
        probeTrace(trace, "full");
    for (const WalkTrace& trace : BARE_TRACES)
        probeTrace(trace, "bare");

    TreeBuilder t;
    const NodeView id = t.id("x");
    line("walk without a callback", outcome([&] {
             forEachNodeIn(id, std::function<void(NodeView)>());
             return "nothing";
         }));
    line("walk of an unknown kind without a callback", outcome([&] {
             forEachNodeIn(t.unknown(67), std::function<void(NodeView)>());
             return "nothing";
         }));
    kit::DumpOptions options;
    options.format = kit::DumpFormat::Json;
    const NodeView statement = t.assign(t.id("x"), t.stringLiteral());
    lines("assignment as JSON", withoutHandles(kit::dumpTree(statement, options)));
    for (const std::uint64_t handle : {0ULL, 1ULL, 0xFFULL, 0x0123456789ABCDEFULL, ~0ULL}) {
        line("hash of node " + hex(handle), hex(std::hash<NodeView>()(NodeView{handle, &t.ast})));
        line("hash of symbol " + hex(handle),
             hex(std::hash<SymbolView>()(SymbolView{handle, nullptr})));
    }
}

void probeOperators() {
    for (std::uint32_t value = 0; value <= 22; ++value)
        probeOperator<BinaryOperator>("binary", value);
    probeOperator<BinaryOperator>("binary", 0xFFFFFFFF);
    for (std::uint32_t value = 0; value <= 8; ++value)
        probeOperator<UnaryOperator>("unary", value);
    probeOperator<UnaryOperator>("unary", 0xFFFFFFFF);
}

} // namespace zt::orvex::testing
