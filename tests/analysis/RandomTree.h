#pragma once

#include "testing/Random.h"
#include "testing/TreeBuilder.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zt::orvex::testing {

/// What trees to grow.
struct RandomTreeShape {
    std::size_t statementDepth = 3;  ///< How deep statements nest.
    std::size_t expressionDepth = 2; ///< How deep expressions nest.
    std::size_t breadth = 4;         ///< The most elements in a range.
    bool hasLoops = true;            ///< Whether to grow `for` and `while` loops.
    bool isWeird = false;            ///< Whether to put nodes where no parser would.
};

/// Grows random trees of statements: all kinds, all shapes of targets, jumps anywhere.
///
/// The same random numbers give the same tree on every platform. There are few names, so that reads
/// and writes meet; "outside" is in no universe, and "sin" isn't a variable.
class RandomTree {
public:
    RandomTree(TreeBuilder& into, Random& from, const RandomTreeShape& like)
        : t(into), random(from), shape(like) {
        t.ast.setIsVariable(u"sin", false);
    }

    static const std::vector<std::string>& names() {
        static const std::vector<std::string> NAMES = {"a", "b", "c",   "k",   "x",
                                                       "y", "z", "ans", "sin", "outside"};
        return NAMES;
    }

    Nodes statements() { return statements(shape.statementDepth); }

private:
    Nodes statements(std::size_t depth) {
        return several([&] { return statement(depth); });
    }

    template <typename Make>
    Nodes several(const Make& make) {
        Nodes nodes;
        for (std::size_t left = random.below(shape.breadth + 1); left > 0; --left)
            nodes.push_back(make());
        return nodes;
    }

    template <typename Make>
    MaybeNode maybe(const Make& make) {
        if (random.oneIn(2)) return {};
        return make();
    }

    NodeView identifier() { return t.id(random.pick(names())); }

    NodeView statement(std::size_t depth) {
        if (shape.isWeird && random.oneIn(6)) return strangeStatement(depth);
        if (depth == 0 || random.oneIn(2)) return simpleStatement(depth);
        return compoundStatement(depth - 1);
    }

    NodeView simpleStatement(std::size_t depth) {
        switch (random.below(14)) {
        case 0: {
            const Nodes targets = several([&] { return target(); });
            return t.multiAssign(targets, expression());
        }
        case 1: {
            const NodeView left = implicitTarget();
            return t.expressionStatement(left, expression());
        }
        case 2: {
            const NodeView left = implicitTarget();
            const NodeView callee = identifier();
            return t.command(left, callee, several([&] { return t.characterLiteral(); }));
        }
        case 3: {
            const NodeView left = implicitTarget();
            return t.implicitCommand(left, several([&] { return t.characterLiteral(); }));
        }
        case 4:
            return t.bareIdentifier(implicitTarget());
        case 5:
            return t.emptyStatement();
        case 6:
            return t.global(several([&] { return identifier(); }));
        case 7:
            return t.persistent(several([&] { return identifier(); }));
        case 8:
            return jump();
        case 9:
            return t.print(depth == 0 ? assignment() : statement(depth - 1));
        default:
            return assignment();
        }
    }

    NodeView assignment() {
        const NodeView left = target();
        return t.assign(left, expression());
    }

    NodeView jump() {
        switch (random.below(3)) {
        case 0:
            return t.breakStatement();
        case 1:
            return t.continueStatement();
        default:
            return t.returnStatement();
        }
    }

    NodeView compoundStatement(std::size_t depth) {
        switch (random.below(shape.hasLoops ? 7 : 5)) {
        case 0:
            return ifStatement(depth);
        case 1:
            return switchStatement(depth);
        case 2:
            return tryStatement(depth);
        case 3: {
            const Nodes options = several([&] { return expression(); });
            const NodeView variable = identifier();
            const NodeView range = expression();
            return t.parforLoop(variable, range, statements(depth), options);
        }
        case 4: {
            const Nodes options = several([&] { return expression(); });
            return t.spmd(statements(depth), options);
        }
        case 5: {
            const NodeView variable = random.oneIn(4) ? target() : identifier();
            const NodeView range = expression();
            return t.forLoop(variable, range, statements(depth));
        }
        default: {
            const NodeView condition = expression();
            return t.whileLoop(condition, statements(depth));
        }
        }
    }

    NodeView ifStatement(std::size_t depth) {
        const NodeView condition = expression();
        const Nodes body = statements(depth);
        const Nodes clauses = several([&] { return elseIfClause(depth); });
        return t.ifStatement(condition, body, clauses,
                             maybe([&] { return t.elseClause(statements(depth)); }));
    }

    NodeView elseIfClause(std::size_t depth) {
        const NodeView condition = expression();
        return t.elseIfClause(condition, statements(depth));
    }

    NodeView switchStatement(std::size_t depth) {
        const NodeView subject = expression();
        const Nodes cases = several([&] { return caseClause(depth); });
        return t.switchStatement(subject, cases,
                                 maybe([&] { return t.otherwiseClause(statements(depth)); }));
    }

    NodeView caseClause(std::size_t depth) {
        const NodeView label = expression();
        return t.caseClause(label, statements(depth));
    }

    NodeView tryStatement(std::size_t depth) {
        const Nodes body = statements(depth);
        return t.tryStatement(body, maybe([&] { return catchClause(depth); }));
    }

    NodeView catchClause(std::size_t depth) {
        const MaybeNode identifierOfError = maybe([&] { return identifier(); });
        return t.catchClause(identifierOfError, statements(depth));
    }

    // What no parser puts into a range of statements.
    NodeView strangeStatement(std::size_t depth) {
        const std::size_t inside = depth == 0 ? 0 : depth - 1;
        switch (random.below(9)) {
        case 0:
            return depth == 0 ? t.caseClause(expression(), {}) : caseClause(inside);
        case 1:
            return depth == 0 ? t.elseIfClause(expression(), {}) : elseIfClause(inside);
        case 2:
            return depth == 0 ? t.catchClause(identifier(), {}) : catchClause(inside);
        case 3:
            return t.elseClause(depth == 0 ? Nodes() : statements(inside));
        case 4:
            return t.otherwiseClause(depth == 0 ? Nodes() : statements(inside));
        case 5:
            return t.discardedStatement();
        case 6:
            return t.unknown(0);
        case 7:
            return t.unknown(static_cast<int>(random.between(128, 255)));
        default:
            return expression();
        }
    }

    NodeView implicitTarget() {
        if (random.oneIn(4)) return target();
        return random.oneIn(2) ? NodeView(t.id("ans")) : identifier();
    }

    NodeView target() { return target(shape.expressionDepth); }

    NodeView target(std::size_t depth) {
        if (depth == 0 || random.oneIn(3)) return identifier();
        switch (random.below(11)) {
        case 0:
        case 1: {
            const NodeView base = target(depth - 1);
            return t.paren(base, several([&] { return subscript(); }));
        }
        case 2: {
            const NodeView base = target(depth - 1);
            return t.brace(base, several([&] { return subscript(); }));
        }
        case 3: {
            const NodeView base = target(depth - 1);
            return t.dot(base, identifier());
        }
        case 4: {
            const NodeView base = target(depth - 1);
            return t.dynamicField(base, expression());
        }
        case 5:
            return t.ignoredArgument();
        case 6:
            return t.parenthesized(target(depth - 1));
        case 7:
            return t.minus(target(depth - 1));
        case 8:
            return colonOperation([&] { return target(depth - 1); });
        case 9: {
            const NodeView name = identifier();
            return t.namedArgument(name, target(depth - 1));
        }
        default:
            return expression(depth - 1);
        }
    }

    NodeView subscript() {
        switch (random.below(5)) {
        case 0:
            return t.parenthesized(identifier());
        case 1:
            return expression();
        default:
            return identifier();
        }
    }

    template <typename Make>
    NodeView colonOperation(const Make& make) {
        const NodeView start = make();
        const MaybeNode step = maybe(make);
        return t.colonOperation(start, step, make());
    }

    NodeView expression() { return expression(shape.expressionDepth); }

    NodeView expression(std::size_t depth) {
        if (shape.isWeird && random.oneIn(20)) return strangeExpression();
        if (depth == 0 || random.oneIn(4)) return random.oneIn(4) ? leaf() : identifier();
        const auto part = [&] { return expression(depth - 1); };
        const auto rowOfParts = [&] { return t.row(several(part)); };
        switch (random.below(19)) {
        case 0: {
            const Nodes parameters = several([&] { return t.inputParameter(identifier()); });
            return t.anonymousFunction(parameters, part());
        }
        case 1: {
            const NodeView base = part();
            return t.brace(base, several(part));
        }
        case 2: {
            const NodeView base = part();
            return t.paren(base, several(part));
        }
        case 3:
            return t.cellArray(several(rowOfParts));
        case 4:
            return t.matrix(several(rowOfParts));
        case 5:
            return t.matrix({t.row({part()})});
        case 6:
            return colonOperation(part);
        case 7: {
            const NodeView base = part();
            return t.dot(base, identifier());
        }
        case 8: {
            const NodeView base = part();
            return t.dynamicField(base, part());
        }
        case 9: {
            const NodeView name = identifier();
            return t.namedArgument(name, part());
        }
        case 10:
            return t.parenthesized(part());
        case 11: {
            const UnaryOperator op = random.pick(UNARY_OPERATORS);
            return t.unary(op, part());
        }
        case 12:
            return rowOfParts();
        default: {
            const BinaryOperator op = random.pick(BINARY_OPERATORS);
            const NodeView left = part();
            return t.binary(op, left, part());
        }
        }
    }

    NodeView leaf() {
        switch (random.below(6)) {
        case 0:
            return t.characterLiteral(maybe([&] { return identifier(); }));
        case 1:
            return t.colon();
        case 2:
            return t.end();
        case 3:
            return t.ignoredArgument();
        case 4:
            return t.stringLiteral(maybe([&] { return identifier(); }));
        default:
            return t.number();
        }
    }

    NodeView strangeExpression() {
        switch (random.below(6)) {
        case 0:
            return t.anyExpression();
        case 1:
            return t.discardedExpression();
        case 2:
            return t.filler();
        case 3:
            return t.unknown(0);
        case 4:
            return t.unknown(static_cast<int>(random.between(128, 255)));
        default: {
            const NodeView left = identifier();
            return t.assign(left, identifier());
        }
        }
    }

    // The analyses treat logical operators specially, so they come up more often than others.
    static constexpr BinaryOperator BINARY_OPERATORS[] = {
        BinaryOperator::Add,       BinaryOperator::At,
        BinaryOperator::ElementOr, BinaryOperator::ElementAnd,
        BinaryOperator::ElementOr, BinaryOperator::ElementAnd,
        BinaryOperator::ElementOr, BinaryOperator::ShortCircuitAnd,
        BinaryOperator::Less,      BinaryOperator::ShortCircuitOr};
    static constexpr UnaryOperator UNARY_OPERATORS[] = {
        UnaryOperator::Tilde, UnaryOperator::UnaryMinus, UnaryOperator::UnaryAt};

    TreeBuilder& t;
    Random& random;
    RandomTreeShape shape;
};

} // namespace zt::orvex::testing
