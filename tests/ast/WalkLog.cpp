#include "WalkLog.h"

namespace zt::orvex::testing {

namespace {

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

} // namespace

WalkLog::WalkLog(FakeAst& ast) {
    ast.onCall = [this, &ast](const Call& call) { asked(ast, call); };
}

void WalkLog::append(const std::string& token) {
    if (!log.empty()) log += ' ';
    log += token;
}

void WalkLog::asked(const FakeAst& ast, const Call& call) {
    const std::string name = nameOf(call.operation);
    if (call.operation == Operation::getNodeKind) {
        lastAsked = call.arguments[0];
        append(ast.labelOf(NodeView{lastAsked, &ast}));
    } else if (endsWith(name, "RangeSize")) {
        append("#");
    } else if (endsWith(name, "RangeElement")) {
        append('@' + std::to_string(call.arguments[0]));
    } else {
        append(name);
    }
}

void WalkLog::visited(const NodeView& node) {
    if (node.node != lastAsked) append("another:" + label(node));
    log += '!';
}

} // namespace zt::orvex::testing
