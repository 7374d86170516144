#pragma once

#include "tree/Roles.h"

#include <zt_orvex/ast/BasicAstView.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::kit::fuzz {

/// A tree that makes itself up as it is asked, and lies where the input says so.
///
/// An answer follows from the question alone, by a hash, so that a tree without lies is consistent.
/// Of a handle, the low byte is the node's kind and the next one its depth; the rest tells it from
/// the others. The input has a byte for each lie: how often there is one depends on its zeros.
class LyingTree : public BasicAstView {
public:
    LyingTree(const std::uint8_t* bytes, std::size_t size) : input(bytes, bytes + size) {
        isFickle = !input.empty() && input[0] % 4 == 3;
        // The truth depends on the input, too: another tree for each size and second byte.
        salt = size << 8 | (size > 1 ? bytes[1] : 0);
    }

    NodeView root() const {
        return {static_cast<std::uint64_t>(NodeKind::ParforStatement) | ROOT, this};
    }

    /// Whether the same question can get two answers.
    bool isFickleTree() const { return isFickle; }

    bool isVariableSymbol(std::uint64_t symbol) const override {
        return lieAbout(1, symbol) == Lie::None;
    }
    NodeView getEntryNode() const override { return lied(2, 0, NodeView{UINT64_MAX - 1, this}); }
    NodeView getExitNode() const override { return lied(3, 0, NodeView{UINT64_MAX, this}); }
    NodeKind getNodeKind(std::uint64_t node) const override {
        const Lie lie = lieAbout(4, node);
        return static_cast<NodeKind>(lie == Lie::None ? node & 0xFF : hash(5, node) & 0xFF);
    }
    NodeKind getInputParameterKind(std::uint64_t node) const override {
        if (lieAbout(6, node) != Lie::None) return NodeKind::Matrix;
        return hash(6, node) % 2 == 0 ? NodeKind::Identifier : NodeKind::IgnoredArgument;
    }
    BinaryOperator getBinaryOperator(std::uint64_t node) const override {
        return BinaryOperator{operatorOf(node, 21)};
    }
    UnaryOperator getUnaryOperator(std::uint64_t node) const override {
        return UnaryOperator{operatorOf(node, 7)};
    }
    std::u16string_view getIdentifierName(std::uint64_t node) const override {
        static const std::u16string_view NAMES[] = {u"a", u"b", u"ans", u"\xD800", u""};
        switch (lieAbout(7, node)) {
        case Lie::Null:
            return {static_cast<const char16_t*>(nullptr), 5};
        case Lie::Foreign:
            return {u"x", std::size_t{1} << 50};
        case Lie::None:
            return NAMES[nameOf(node)];
        default:
            return NAMES[hash(8, node) % 5];
        }
    }
    SymbolView getIdentifierSymbol(std::uint64_t node) const override {
        switch (lieAbout(9, node)) {
        case Lie::Null:
            return {0, nullptr};
        case Lie::Foreign:
            return {0, &other};
        case Lie::None:
            return {nameOf(node), this};
        default:
            return {hash(9, node) % 5, this};
        }
    }

#define ZT_ORVEX_ONE(Kind, accessor)                                                               \
    NodeView accessor(Handle node) const override {                                                \
        return lied(Kind##_##accessor, node, make(Kind##_##accessor, node, 0));                    \
    }
#define ZT_ORVEX_MAYBE(Kind, accessor)                                                             \
    boost::optional<NodeView> accessor(Handle node) const override {                               \
        if (depthOf(node) > 6 || hash(Kind##_##accessor, node) % 2 == 0) return {};                \
        return lied(Kind##_##accessor, node, make(Kind##_##accessor, node, 0));                    \
    }
#define ZT_ORVEX_HELD(Kind, accessor, Held) ZT_ORVEX_HELD_AS_MAYBE(Kind, accessor)
#define ZT_ORVEX_HELD_AS_MAYBE(Kind, accessor)                                                     \
    boost::optional<NodeView> accessor(Handle node) const override {                               \
        return lied(Kind##_##accessor, node, make(Kind##_##accessor, node, 0));                    \
    }
#define ZT_ORVEX_EACH(Kind, accessor, View)                                                        \
    View accessor(Handle node) const override {                                                    \
        const NodeView view = lied(Kind##_##accessor, node, NodeView{node, this});                 \
        return {view.node, Kind##_##accessor, view.view};                                          \
    }
#define ZT_ORVEX_SHARED_ONE(Kind, accessor)
#define ZT_ORVEX_SHARED_EACH(Kind, accessor, View)
#include <zt_orvex/ast/NodeKinds.def>
#undef ZT_ORVEX_HELD_AS_MAYBE

protected:
    std::uint64_t rangeSize(std::uint64_t first, std::uint64_t second) const override {
        if (lieAbout(10, first ^ second) != Lie::None) return hash(10, first) >> first % 64;
        if (depthOf(first) > 6) return 0;
        return hash(second, first) % (depthOf(first) < 2 ? 6 : 3);
    }
    NodeView rangeElement(std::uint64_t index, std::uint64_t first,
                          std::uint64_t second) const override {
        return lied(second + index + 1, first, make(second, first, index));
    }

private:
    enum class Lie { None, Null, Foreign, Other, Ancestor, Throw };

    static constexpr std::uint64_t ROOT = 0x5'0000;

    // The parts by number, as in PARTS of the kit.
    enum PartNumber : std::uint64_t {
#define ZT_ORVEX_ONE(Kind, accessor) Kind##_##accessor,
#define ZT_ORVEX_MAYBE(Kind, accessor) Kind##_##accessor,
#define ZT_ORVEX_EACH(Kind, accessor, View) Kind##_##accessor,
#define ZT_ORVEX_HELD(Kind, accessor, Held) Kind##_##accessor,
#include <zt_orvex/ast/NodeKinds.def>
    };

    static std::uint64_t hash(std::uint64_t a, std::uint64_t b) {
        std::uint64_t x = (a + 1) * 0x9E3779B97F4A7C15 ^ (b + 1) * 0xC2B2AE3D27D4EB4F;
        x = (x ^ x >> 29) * 0xBF58476D1CE4E5B9;
        return x ^ x >> 32;
    }

    static std::uint64_t depthOf(std::uint64_t node) { return node >> 8 & 0xFF; }
    static std::uint64_t nameOf(std::uint64_t node) { return hash(11, node) % 3; }

    std::uint32_t operatorOf(std::uint64_t node, std::uint32_t count) const {
        const auto any = static_cast<std::uint32_t>(hash(12, node));
        return lieAbout(12, node) == Lie::None ? any % count : any;
    }

    /// A new child of a kind that may stand there.
    NodeView make(std::uint64_t part, std::uint64_t node, std::uint64_t index) const {
        const std::uint64_t depth = depthOf(node) + 1;
        const std::uint64_t own = hash(hash(part, index) ^ salt, node);
        const auto kind =
            static_cast<std::uint64_t>(pickKind(internal::ROLES[part].expected, depth > 6, own));
        return {own >> 16 << 16 | (depth & 0xFF) << 8 | kind, this};
    }

    static NodeKind pickKind(const internal::Expected& expected, bool isDeep, std::uint64_t dice) {
        if (expected.kind != NodeKind::Invalid) return expected.kind;
        static const auto LEAVES = kindsByClass(true);
        static const auto ALL = kindsByClass(false);
        const std::vector<NodeKind>& kinds = (isDeep ? LEAVES : ALL)[expected.flags];
        return kinds.empty() ? NodeKind::MethodDeclaration : kinds[dice % kinds.size()];
    }

    /// The kinds that have the flags, by flags.
    static std::array<std::vector<NodeKind>, 32> kindsByClass(bool isLeaf) {
        std::array<std::vector<NodeKind>, 32> kinds;
        for (std::uint8_t flags = 0; flags < kinds.size(); ++flags) {
            for (const NodeKind kind : getAllNodeKinds()) {
                const bool isFit = internal::Expected{NodeKind::Invalid, flags}.allows(kind);
                if (isFit && (!isLeaf || internal::PartsOf(kind).empty())) {
                    kinds[flags].push_back(kind);
                }
            }
        }
        return kinds;
    }

    /// What the input says of the answer to a question. Throws for one sort of lie.
    Lie lieAbout(std::uint64_t operation, std::uint64_t node) const {
        if (input.empty()) return Lie::None;
        std::uint64_t question = hash(operation, node);
        if (isFickle && ++askings % 8 == 0) question += askings;
        const std::uint8_t byte = input[question % input.size()];
        if (byte == 0 || byte > 5) return Lie::None;
        if (Lie{byte} == Lie::Throw) throw std::runtime_error("no answer");
        return Lie{byte};
    }

    NodeView lied(std::uint64_t operation, std::uint64_t node, NodeView truth) const {
        switch (lieAbout(operation + 100, node)) {
        case Lie::Null:
            return {truth.node, nullptr};
        case Lie::Foreign:
            return {truth.node, &other};
        case Lie::Other:
            return {hash(operation, node) % 1000, this};
        case Lie::Ancestor:
            return hash(operation, node) % 2 == 0 ? root() : NodeView{node, this};
        default:
            return truth;
        }
    }

    std::vector<std::uint8_t> input;
    std::uint64_t salt = 0;
    bool isFickle = false;
    mutable std::uint64_t askings = 0;
    BasicAstView other;
};

} // namespace zt::orvex::kit::fuzz
