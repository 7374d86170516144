#include <zt_orvex_kit/tree/DumpTree.h>

#include "tree/EscapedText.h"
#include "tree/HandleText.h"
#include "tree/NodeFacts.h"
#include "tree/TraversalStack.h"

#include <zt_orvex_kit/tree/KindName.h>

#include <ostream>
#include <sstream>
#include <string_view>
#include <vector>

namespace zt::orvex::kit {

namespace {

using internal::escaped;
using internal::NodeFacts;

/// Writes a node in one of the formats. `depth` counts from 0 for the root, whose role is empty.
class Format {
public:
    explicit Format(std::ostream& to) : stream(to) {}
    virtual ~Format() = default;

    virtual void begin() {}
    virtual void enter(const NodeFacts& facts, const ChildRole& role, std::size_t depth) = 0;
    virtual void leave() {}
    /// What is left out after the limit of nodes.
    virtual void cut() = 0;
    virtual void end() {}

protected:
    std::ostream& stream;
};

class TextFormat final : public Format {
public:
    using Format::Format;

    void enter(const NodeFacts& facts, const ChildRole& role, std::size_t depth) override {
        indent(depth);
        if (depth != 0) stream << role << ": ";
        const std::string handle = internal::handleText("node", facts.node.node);
        if (!facts.hasView) {
            stream << handle << " without a view\n";
            return;
        }
        stream << internal::kindText(facts.kind);
        for (const auto& text : {facts.name, facts.spelling, facts.literal})
            if (text) stream << ' ' << *text;
        stream << " (" << handle << ')';
        if (facts.symbol) stream << " symbol " << *facts.symbol;
        if (!facts.isVariable) stream << " not a variable";
        stream << '\n';
    }
    void cut() override { stream << "...\n"; }

private:
    static constexpr std::size_t DEEPEST_INDENT = 40;

    void indent(std::size_t depth) {
        for (std::size_t i = 0; i < depth && i < DEEPEST_INDENT; ++i)
            stream << "  ";
        if (depth > DEEPEST_INDENT) stream << '[' << depth << "] ";
    }
};

class DotFormat final : public Format {
public:
    using Format::Format;

    void begin() override { stream << "digraph tree {\n  node [shape=box];\n"; }
    void enter(const NodeFacts& facts, const ChildRole& role, std::size_t depth) override {
        const std::size_t own = count++;
        stream << "  n" << own << " [label=\"" << labelOf(facts) << "\"];\n";
        if (depth != 0) {
            stream << "  n" << path.back() << " -> n" << own << " [label=\"" << role << "\"];\n";
        }
        path.push_back(own);
    }
    void leave() override { path.pop_back(); }
    void cut() override { stream << "  more [label=\"...\"];\n"; }
    void end() override { stream << "}\n"; }

private:
    static std::string labelOf(const NodeFacts& facts) {
        if (!facts.hasView) return internal::handleText("no view, node", facts.node.node);
        std::string label = internal::kindText(facts.kind);
        for (const auto& text : {facts.name, facts.spelling, facts.literal})
            if (text) label += "\\n" + escaped(*text);
        return label;
    }

    std::vector<std::size_t> path;
    std::size_t count = 0;
};

class JsonFormat final : public Format {
public:
    using Format::Format;

    void enter(const NodeFacts& facts, const ChildRole& role, std::size_t depth) override {
        if (depth != 0) openChild();
        stream << "{\"node\":\"" << internal::hexText(facts.node.node) << '"';
        if (facts.hasView) {
            member("kind", internal::kindText(facts.kind));
            member("class", className(facts.kind));
        }
        if (depth != 0) member("role", role.accessor);
        if (role.isRangeElement) stream << ",\"index\":" << role.index;
        if (facts.name) member("name", *facts.name);
        if (facts.symbol) {
            member("symbol", *facts.symbol);
            stream << ",\"variable\":" << (facts.isVariable ? "true" : "false");
        }
        if (facts.spelling) member("operator", *facts.spelling);
        if (facts.literal) member("literal", *facts.literal);
        hasChildren.push_back(false);
    }
    void leave() override {
        stream << (hasChildren.back() ? "]}" : "}");
        hasChildren.pop_back();
    }
    void cut() override {
        openChild();
        stream << "\"...\"";
    }
    void end() override { stream << '\n'; }

private:
    void openChild() {
        stream << (hasChildren.back() ? "," : ",\"children\":[");
        hasChildren.back() = true;
    }
    void member(const char* key, std::string_view value) {
        stream << ",\"" << key << "\":\"" << escaped(value) << '"';
    }

    std::vector<bool> hasChildren; ///< Of the nodes on the path, whether one has been written.
};

class Dump {
public:
    Dump(Format& writer, const DumpOptions& optionsToUse) : format(writer), options(optionsToUse) {}

    void run(const NodeView& root) {
        format.begin();
        enter(root);
        while (!stack.empty()) {
            NodeView child = {};
            if (isCut || !stack.top().children.advance(child)) {
                format.leave();
                stack.leave();
            } else {
                enter(child);
            }
        }
        format.end();
    }

private:
    void enter(const NodeView& node) {
        if (nodes++ == options.maxNodes) {
            isCut = true;
            if (!stack.empty()) format.cut();
            return;
        }
        const NodeFacts facts = internal::factsOf(node, options);
        const ChildRole role = stack.empty() ? ChildRole() : stack.top().children.role();
        format.enter(facts, role, stack.size());
        stack.enter(node, facts.kind);
    }

    Format& format;
    const DumpOptions& options;
    internal::TraversalStack stack;
    std::size_t nodes = 0;
    bool isCut = false;
};

} // namespace

void dumpTree(std::ostream& stream, const NodeView& root, const DumpOptions& options) {
    TextFormat text(stream);
    DotFormat dot(stream);
    JsonFormat json(stream);
    Format* format = &text;
    if (options.format == DumpFormat::Dot) format = &dot;
    if (options.format == DumpFormat::Json) format = &json;
    Dump(*format, options).run(root);
}

std::string dumpTree(const NodeView& root, const DumpOptions& options) {
    std::ostringstream text;
    dumpTree(text, root, options);
    return text.str();
}

} // namespace zt::orvex::kit
