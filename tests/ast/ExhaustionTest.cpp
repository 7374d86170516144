// A program of its own: it replaces the global allocation functions.

#include "testing/Exhaustion.h"
#include "testing/TreeBuilder.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <ios>
#include <sstream>
#include <string>

namespace zt::orvex {
namespace {

using testing::expectRightOrThrow;
using testing::expectRightOrThrowAtFirstUse;

class AstExhaustion : public ::testing::Test, protected testing::TreeBuilder {};

TEST_F(AstExhaustion, TextOfAnOperatorIsWholeOrThrows) {
    expectRightOrThrowAtFirstUse([] { return toString(BinaryOperator::ShortCircuitAnd); });
    expectRightOrThrow([] { return toString(UnaryOperator::DotApostrophe); });
}

TEST_F(AstExhaustion, InsertionOfAKindIsWholeOrThrows) {
    expectRightOrThrow([] {
        std::ostringstream stream;
        stream.exceptions(std::ios_base::badbit);
        stream << NodeKind::IfStatement;
        return stream.str();
    });
    expectRightOrThrow([] {
        std::basic_ostringstream<char16_t> bare;
        bare.exceptions(std::ios_base::badbit);
        bare.width(50);
        bare << NodeKind::IfStatement;
        return bare.str();
    });
}

TEST_F(AstExhaustion, WalkIsRightOrThrows) {
    const NodeView tree =
        program({ifStatement(id("c"), {assign(id("a"), id("b")), unknown(99)}), unknown(0)});
    expectRightOrThrowAtFirstUse([&] {
        std::size_t nodes = 0;
        forEachNodeIn(tree, [&](NodeView) { ++nodes; });
        return nodes;
    });
}

} // namespace
} // namespace zt::orvex
