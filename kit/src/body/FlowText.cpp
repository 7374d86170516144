#include <zt_orvex_kit/body/FlowText.h>

#include "support/Utf16ToUtf8.h"
#include "tree/EscapedText.h"
#include "tree/HandleText.h"

#include <zt_orvex_kit/tree/KindName.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace zt::orvex::kit {

namespace {

/// The texts of which both forms are made.
class FlowTexts {
public:
    explicit FlowTexts(const FlowGraph& of) : graph(of), names(of.variableCount()) {
        for (FlowNode node = 0; node < graph.size(); ++node) {
            for (const Access& access : graph.accesses(node)) {
                if (names[access.index].empty()) names[access.index] = nameOf(access);
            }
        }
    }

    std::string title(FlowNode node) const {
        const std::string number = std::to_string(node) + ' ';
        if (node == graph.entry()) return number + "entry";
        if (node == graph.exit()) return number + "exit";
        const NodeView& view = graph.nodeAt(node);
        return number + std::string(kindName(view.getKind())) + " (" +
               internal::handleText("node", view.node) + ')';
    }

    /// "certain read a, whole write x"
    std::string accesses(FlowNode node) const {
        std::string text;
        for (const Access& access : graph.accesses(node)) {
            if (!text.empty()) text += ", ";
            text += std::string(kit::toText(access.kind)) + ' ' + nameOf(access);
        }
        return text;
    }

    std::string successors(FlowNode node) const {
        std::string text;
        for (const FlowNode next : graph.successors(node))
            text += ' ' + std::to_string(next);
        return text;
    }

    std::string liveBefore(FlowNode node) const {
        return namesWhere([&](std::uint64_t index) { return graph.isLiveBefore(node, index); });
    }
    std::string liveAfter(FlowNode node) const {
        return namesWhere([&](std::uint64_t index) { return graph.isLiveAfter(node, index); });
    }

private:
    static std::string nameOf(const Access& access) {
        return zt::orvex::internal::utf16ToUtf8(access.identifier.getIdentifierName());
    }

    template <typename Predicate>
    std::string namesWhere(Predicate holds) const {
        std::string text;
        for (std::uint64_t index = 0; index < names.size(); ++index) {
            if (holds(index)) text += ' ' + names[index];
        }
        return text;
    }

    const FlowGraph& graph;
    std::vector<std::string> names; // of what is accessed; nothing else is ever live
};

void appendLine(std::string& to, std::string_view label, const std::string& text) {
    if (!text.empty()) to.append("    ").append(label).append(text) += '\n';
}

} // namespace

std::string toText(const FlowGraph& graph) {
    const FlowTexts texts(graph);
    std::string all;
    for (FlowNode node = 0; node < graph.size(); ++node) {
        all += texts.title(node) + '\n';
        appendLine(all, "", texts.accesses(node));
        appendLine(all, "next:", texts.successors(node));
        appendLine(all, "live before:", texts.liveBefore(node));
        appendLine(all, "live after:", texts.liveAfter(node));
    }
    return all;
}

std::string toDot(const FlowGraph& graph) {
    const FlowTexts texts(graph);
    std::string all = "digraph flow {\n    node [shape=box];\n";
    for (FlowNode node = 0; node < graph.size(); ++node) {
        const std::string accesses = texts.accesses(node);
        const std::string label = texts.title(node) + (accesses.empty() ? "" : "\n" + accesses);
        all += "    n" + std::to_string(node) + " [label=\"" + internal::escaped(label) + "\"];\n";
        for (const FlowNode next : graph.successors(node)) {
            all += "    n" + std::to_string(node) + " -> n" + std::to_string(next) + " [label=\"" +
                   internal::escaped(texts.liveBefore(next)) + "\"];\n";
        }
    }
    return all + "}\n";
}

} // namespace zt::orvex::kit
