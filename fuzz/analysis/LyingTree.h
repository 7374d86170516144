#pragma once

#include "testing/Random.h"

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/RangeViews.h>

#include <boost/none.hpp>
#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace zt::orvex::fuzz {

/// A tree that is made up while it is asked: each answer is drawn from bytes, and now and then the
/// answer to an old question, too. Kinds stand at any place, unknown ones included, sizes change
/// between two questions, and an optional child may be gone when it is asked again.
///
/// Finite: nodes at a certain depth are leaves, and after a certain number of answers all kinds are
/// unknown and all ranges empty.
class LyingTree final : public IAstView {
public:
    explicit LyingTree(testing::Random& from) : random(from), lies(random.below(4)) {}

    /// The root of a new tree of that kind.
    NodeView root(NodeKind kind) {
        const NodeView node = newNode(0);
        kinds[node.node] = static_cast<std::uint8_t>(kind);
        return node;
    }

#define ZT_ORVEX_TEST_ONE(name)                                                                    \
    NodeView name(std::uint64_t node) const override { return childOf(node); }
#define ZT_ORVEX_TEST_MAYBE(name)                                                                  \
    boost::optional<NodeView> name(std::uint64_t node) const override {                            \
        if (answer(presences, node, 2) == 0) return boost::none;                                   \
        return childOf(node);                                                                      \
    }
#define ZT_ORVEX_TEST_RANGE(name, View)                                                            \
    View name(std::uint64_t node) const override { return View{node, nextRange++, this}; }
#define ZT_ORVEX_TEST_ELEMENT(name, View)                                                          \
    NodeView name(std::uint64_t, std::uint64_t node, std::uint64_t) const override {               \
        return childOf(node);                                                                      \
    }
#define ZT_ORVEX_TEST_SIZE(name, View)                                                             \
    std::uint64_t name(std::uint64_t, std::uint64_t range) const override {                        \
        return answer(sizes, range, 5);                                                            \
    }
#define ZT_ORVEX_TEST_NODE std::uint64_t
#define ZT_ORVEX_TEST_NO_ARGUMENT
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments)                                                   \
    std::uint64_t name(ZT_ORVEX_TEST_##arguments) const override { return random.next(); }
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_TEST_NODE
#undef ZT_ORVEX_TEST_NO_ARGUMENT
    bool isVariableSymbol(std::uint64_t) const override { return random.below(4) != 1; }
    NodeView getEntryNode() const override { return NodeView{ENTRY, this}; }
    NodeView getExitNode() const override {
        return NodeView{random.below(64) == 63 ? ENTRY : EXIT, this};
    }
    BinaryOperator getBinaryOperator(std::uint64_t) const override {
        return static_cast<BinaryOperator>(random.below(64));
    }
    std::u16string_view getIdentifierName(std::uint64_t) const override {
        constexpr std::u16string_view NAMES[] = {u"ans", u"x", u"", u"\xD800"};
        return NAMES[random.below(4)];
    }
    SymbolView getIdentifierSymbol(std::uint64_t) const override {
        return SymbolView{random.below(8), this};
    }
    NodeKind getInputParameterKind(std::uint64_t) const override {
        return static_cast<NodeKind>(random.below(80));
    }
    NodeKind getNodeKind(std::uint64_t node) const override {
        if (depthOf(node) >= MAXIMUM_DEPTH) return NodeKind::End;
        return static_cast<NodeKind>(answer(kinds, node, 80));
    }
    UnaryOperator getUnaryOperator(std::uint64_t) const override {
        return static_cast<UnaryOperator>(random.below(64));
    }

private:
    using Answers = std::unordered_map<std::uint64_t, std::uint8_t>;

    static constexpr std::uint64_t ENTRY = ~std::uint64_t{0};
    static constexpr std::uint64_t EXIT = ENTRY - 1;
    static constexpr std::uint64_t MAXIMUM_DEPTH = 60;
    static constexpr std::size_t MAXIMUM_ANSWERS = 4000;

    static std::uint64_t depthOf(std::uint64_t node) { return node >> 32; }

    NodeView newNode(std::uint64_t depth) const { return {depth << 32 | nextNode++, this}; }

    /// As a rule a new node; else one that may have been seen, and not deeper.
    NodeView childOf(std::uint64_t node) const {
        const std::uint64_t depth = depthOf(node) + 1;
        if (lies > 1 && random.below(32) == 31)
            return {depth << 32 | random.below(nextNode + 1), this};
        return newNode(depth);
    }

    /// The answer to a question that was asked before, unless it is time for a lie.
    std::uint8_t answer(Answers& answers, std::uint64_t question, std::size_t limit) const {
        if (++given > MAXIMUM_ANSWERS) return 0;
        const auto known = answers.find(question);
        const bool isNew = known == answers.end();
        const std::size_t odds = lies > 1 ? 4 : 16;
        if (!isNew && (lies == 0 || random.below(odds) != odds - 1)) return known->second;
        const auto drawn = static_cast<std::uint8_t>(random.below(limit));
        answers[question] = drawn;
        return drawn;
    }

    testing::Random& random;
    std::size_t lies; // 0 for an honest tree
    mutable Answers kinds;
    mutable Answers sizes;
    mutable Answers presences;
    mutable std::uint64_t nextNode = 0;
    mutable std::uint64_t nextRange = 0;
    mutable std::size_t given = 0;
};

} // namespace zt::orvex::fuzz
