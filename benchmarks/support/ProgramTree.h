#pragma once

#include "support/ArrayTree.h"
#include "support/GeneratedProgram.h"

#include <zt_orvex/flow/OrderedSet.h>

#include <utility>
#include <vector>

namespace zt::orvex::benchmarks {

/// A generated program as a tree, with the universe of its variables: variable n is the symbol n
/// and has the index n.
class ProgramTree {
public:
    explicit ProgramTree(const GeneratedProgram& program) {
        std::size_t next = 0;
        const ArrayTree::Nodes body = readBlock(program.code, next);
        root = nodes.whileLoop(nodes.leaf(NodeKind::NumberLiteral), body);
        for (std::uint64_t variable = 0; variable < program.variables; ++variable)
            variables.add({variable, &nodes});
    }
    ProgramTree(const ProgramTree&) = delete;
    ProgramTree& operator=(const ProgramTree&) = delete;

    StatementRangeView statements() const { return nodes.bodyOf(root); }
    const flow::OrderedSet<SymbolView>& universe() const { return variables; }

private:
    using Code = std::vector<Instruction>;

    /// Reads up to and including the instruction that ends the block.
    ArrayTree::Nodes readBlock(const Code& code, std::size_t& next) {
        ArrayTree::Nodes block;
        while (next < code.size()) {
            const Instruction& instruction = code[next++];
            switch (instruction.op) {
            case Op::Assign:
                block.push_back(nodes.assignment(nodes.identifier(instruction.target),
                                                 combine(BinaryOperator::Add, instruction)));
                break;
            case Op::While: {
                const ArrayTree::Node condition = combine(BinaryOperator::Less, instruction);
                block.push_back(nodes.whileLoop(condition, readBlock(code, next)));
                break;
            }
            case Op::If: {
                const ArrayTree::Node condition = combine(BinaryOperator::Less, instruction);
                const ArrayTree::Nodes body = readBlock(code, next);
                ArrayTree::Node otherwise = ArrayTree::NONE;
                if (code[next - 1].op == Op::Else) {
                    otherwise = nodes.elseClause(readBlock(code, next));
                }
                block.push_back(nodes.ifStatement(condition, body, otherwise));
                break;
            }
            case Op::Break:
                block.push_back(nodes.leaf(NodeKind::BreakStatement));
                break;
            case Op::Continue:
                block.push_back(nodes.leaf(NodeKind::ContinueStatement));
                break;
            case Op::EndWhile:
            case Op::Else:
            case Op::EndIf:
                return block;
            }
        }
        return block;
    }

    ArrayTree::Node combine(BinaryOperator op, const Instruction& instruction) {
        const ArrayTree::Node left = nodes.identifier(instruction.left);
        const ArrayTree::Node right = nodes.identifier(instruction.right);
        return nodes.binary(op, left, right);
    }

    ArrayTree nodes;
    ArrayTree::Node root = 0;
    flow::OrderedSet<SymbolView> variables;
};

} // namespace zt::orvex::benchmarks
