#pragma once

#include "support/ArrayTree.h"
#include "support/Random.h"

#include <cstdint>
#include <string>

namespace zt::orvex::benchmarks {

/// Functions full of nested expressions, both as C text and as a tree of ours, node for node as far
/// as the two languages allow.
class GeneratedSource {
public:
    explicit GeneratedSource(int functions) {
        ArrayTree::Nodes definitions;
        for (int f = 0; f < functions; ++f) {
            text += "int f" + std::to_string(f) +
                    "(int v0,int v1,int v2,int v3,int v4,int v5){int v6=2,v7=3;";
            ArrayTree::Nodes body;
            for (int i = 0; i < 13; ++i)
                body.push_back(statement());
            text += "return v4;}\n";
            body.push_back(tree.leaf(NodeKind::ReturnStatement));
            const ArrayTree::Node name = tree.identifier(0);
            const ArrayTree::Node part = tree.leaf(NodeKind::EmptyStatement);
            definitions.push_back(tree.function(name, part, body));
        }
        root = tree.program(definitions);
    }
    GeneratedSource(const GeneratedSource&) = delete;
    GeneratedSource& operator=(const GeneratedSource&) = delete;

    std::string text;
    ArrayTree tree;
    ArrayTree::Node root = 0;

private:
    ArrayTree::Node statement() {
        switch (random.below(4)) {
        case 0: {
            text += "if(";
            const ArrayTree::Node condition = expression(2);
            text += "){";
            const ArrayTree::Node then = assignment(3);
            text += "}else{";
            const ArrayTree::Node otherwise = tree.elseClause({assignment(2)});
            text += "}\n";
            return tree.ifStatement(condition, {then}, otherwise);
        }
        case 1: {
            text += "while(";
            const ArrayTree::Node condition = expression(2);
            text += "){";
            const ArrayTree::Node body = assignment(3);
            text += "}\n";
            return tree.whileLoop(condition, {body});
        }
        default:
            return assignment(4);
        }
    }

    ArrayTree::Node assignment(int depth) {
        const ArrayTree::Node target = variable();
        text += "=";
        const ArrayTree::Node value = expression(depth);
        text += ";\n";
        return tree.assignment(target, value);
    }

    ArrayTree::Node expression(int depth) {
        if (depth == 0 || random.below(4) == 0) {
            if (random.below(3) != 0) return read();
            text += std::to_string(random.below(100));
            return tree.leaf(NodeKind::NumberLiteral);
        }
        static constexpr const char* SPELLINGS[] = {"+", "-", "*", "&", "<", "=="};
        text += "(";
        const ArrayTree::Node left = expression(depth - 1);
        text += SPELLINGS[random.below(6)];
        const ArrayTree::Node right = expression(depth - 1);
        text += ")";
        return tree.parenthesized(tree.binary(BinaryOperator::Add, left, right));
    }

    /// In C, reading a variable is a conversion, with a node around that of the variable. Our tree
    /// has parentheses in its place.
    ArrayTree::Node read() { return tree.parenthesized(variable()); }

    ArrayTree::Node variable() {
        const std::uint32_t number = random.below(8);
        text += "v" + std::to_string(number);
        return tree.identifier(number);
    }

    Random random{4};
};

/// The minimum duration of a row. Its first walk takes longer than the others, because it finds the
/// tree of another row in the caches.
constexpr double WALK_SECONDS = 0.1;

/// One for all rows. With 2,000 functions, it exceeds the private caches of a core.
inline const GeneratedSource& generatedSource() {
    static const GeneratedSource source(2000);
    return source;
}

} // namespace zt::orvex::benchmarks
