#pragma once

#include "testing/FakeAst.h"
#include "testing/Random.h"
#include "tree/Roles.h"

#include <zt_orvex/ast/NodeKind.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zt::orvex::testing {

/// Grows random trees of all kinds with nothing wrong in them.
///
/// The same random numbers give the same tree on every platform.
class CorrectTree {
public:
    CorrectTree(FakeAst& into, Random& from) : ast(into), random(from) {}

    /// A Program with all that a node of any kind may hold.
    NodeView program(std::size_t depth) { return make(NodeKind::Program, depth); }

    NodeView make(NodeKind kind, std::size_t depth) {
        if (kind == NodeKind::Identifier) return identifier();
        if (kind == NodeKind::InputParameter) return parameter();
        const std::size_t inside = depth == 0 ? 0 : depth - 1;
        // A Part refers to its nodes, so they are all made first.
        std::vector<std::vector<NodeView>> children;
        for (const kit::internal::Part& part : kit::internal::PartsOf(kind))
            children.push_back(grow(part, depth, inside));
        std::vector<Part> parts;
        for (const kit::internal::Part& part : kit::internal::PartsOf(kind)) {
            const auto& nodes = children[parts.size()];
            const Operation operation = operationOf(part.name);
            if (part.form == kit::internal::Form::One) {
                parts.emplace_back(operation, nodes.front());
            } else {
                parts.emplace_back(operation, nodes);
            }
        }
        return ast.add(kind, parts, operatorOf(kind));
    }

private:
    using Form = kit::internal::Form;
    using Expected = kit::internal::Expected;

    std::vector<NodeView> grow(const kit::internal::Part& part, std::size_t depth,
                               std::size_t inside) {
        std::size_t count = 1;
        if (part.form == Form::Maybe) count = depth > 0 && random.oneIn(2) ? 1 : 0;
        if (part.form == Form::Each) count = depth > 0 ? random.below(4) : 0;
        std::vector<NodeView> nodes;
        for (; count > 0; --count)
            nodes.push_back(make(pickKind(kit::internal::roleOf(part).expected, inside), inside));
        return nodes;
    }

    NodeKind pickKind(const Expected& expected, std::size_t depth) {
        if (expected.kind != NodeKind::Invalid) return expected.kind;
        std::vector<NodeKind> kinds;
        for (const NodeKind kind : getAllNodeKinds()) {
            if (expected.allows(kind) && (depth > 0 || isShallow(kind))) kinds.push_back(kind);
        }
        return random.pick(kinds);
    }

    /// Whether a node of the kind needs no children that need children.
    static bool isShallow(NodeKind kind) {
        for (const kit::internal::Part& part : kit::internal::PartsOf(kind)) {
            if (part.form == Form::One && kind != NodeKind::MethodDeclaration) return false;
        }
        return kind != NodeKind::InputParameter;
    }

    NodeView identifier() {
        static const std::vector<std::u16string> NAMES = {u"a", u"b", u"c", u"k", u"x", u"ans"};
        return ast.addIdentifier(random.pick(NAMES));
    }

    NodeView parameter() {
        if (random.oneIn(2)) {
            const NodeView held = identifier();
            return ast.add(NodeKind::InputParameter,
                           {Part(Operation::getInputParameterIdentifier, held)},
                           static_cast<std::uint32_t>(NodeKind::Identifier));
        }
        const NodeView held = ast.add(NodeKind::IgnoredArgument, {});
        return ast.add(NodeKind::InputParameter, {Part(Operation::getInputParameterIgnored, held)},
                       static_cast<std::uint32_t>(NodeKind::IgnoredArgument));
    }

    std::uint32_t operatorOf(NodeKind kind) {
        if (kind == NodeKind::BinaryOperation) return static_cast<std::uint32_t>(random.below(21));
        if (kind == NodeKind::UnaryOperation) return static_cast<std::uint32_t>(random.below(7));
        return 0;
    }

    static Operation operationOf(const std::string& accessor) {
        for (int value = 0;; ++value) {
            const auto operation = static_cast<Operation>(value);
            if (accessor == nameOf(operation)) return operation;
        }
    }

    FakeAst& ast;
    Random& random;
};

} // namespace zt::orvex::testing
