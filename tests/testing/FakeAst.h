#pragma once

#include <zt_orvex/ast/IAstView.h>
#include <zt_orvex/ast/RangeViews.h>
#include <zt_orvex/ast/TypedViews.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zt::orvex::testing {

/// The operations of IAstView, in the order of their declaration.
enum class Operation : std::uint8_t {
#define ZT_ORVEX_TEST_ONE(name) name,
#define ZT_ORVEX_TEST_MAYBE(name) name,
#define ZT_ORVEX_TEST_RANGE(name, View) name,
#define ZT_ORVEX_TEST_ELEMENT(name, View) name,
#define ZT_ORVEX_TEST_SIZE(name, View) name,
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments) name,
#define ZT_ORVEX_TEST_OTHER(name) name,
#include "testing/IAstViewOperations.def"
};

const char* nameOf(Operation operation);
const char* nameOf(NodeKind kind);

/// One call of a FakeAst, with its arguments in order; those that an operation doesn't have are 0.
struct Call {
    Operation operation;
    std::uint64_t arguments[3];
};

/// What one accessor of a new node returns: a child, an optional child or the nodes of a range.
///
/// Refers to the nodes that it is made from: use it only as an argument of `FakeAst::add`.
struct Part {
    Part(Operation accessor, const NodeView& child) : operation(accessor), nodes(&child), size(1) {}
    Part(Operation accessor, const boost::optional<NodeView>& child)
        : operation(accessor), nodes(child.get_ptr()), size(child ? 1 : 0) {}
    Part(Operation accessor, const std::vector<NodeView>& range)
        : operation(accessor), nodes(range.data()), size(range.size()) {}

    Operation operation;
    const NodeView* nodes;
    std::size_t size;
};

/// A tree in memory, for tests. Build it with a TreeBuilder (TreeBuilder.h).
///
/// Strict: it throws std::logic_error, with a text that says what was asked, for an accessor that
/// the node's kind doesn't have, an element at or beyond the size of its range, a range asked
/// through another family, and for the reserved operations.
///
/// Watching. `startRecording()` keeps all calls from then on, `calls()` returns them and
/// `count(op)` counts them. `onCall` gets each call before it is answered; it may throw, or change
/// the tree with the operations under "Misbehaving". Without either, a FakeAst is effectively
/// const and can be shared between threads.
///
///   ast.onCall = [](const Call& call) {
///       if (call.operation == Operation::getIfBody) throw std::runtime_error("no body");
///   };
///
/// Symbols. Each name has one symbol in a tree; it counts as a variable unless told otherwise.
///
/// Trees live in a few flat arrays: cheap to build, and destroyed without recursion. `clear()`
/// keeps the memory for the next tree.
class FakeAst : public IAstView {
public:
    FakeAst() = default;
    FakeAst(const FakeAst&) = delete;
    FakeAst& operator=(const FakeAst&) = delete;

    // Building

    /// A node whose accessors return `parts`. `datum` is its operator, or for an InputParameter the
    /// kind that it claims to hold.
    NodeView add(NodeKind kind, const std::vector<Part>& parts, std::uint32_t datum = 0);
    NodeView addIdentifier(std::u16string_view name);
    void clear();

    /// The symbol of `name`, created if there is none yet.
    SymbolView symbol(std::u16string_view name);
    std::u16string_view nameOfSymbol(const SymbolView& symbol) const;
    void setIsVariable(std::u16string_view name, bool isVariable);

    /// What `accessor` of the node returns, as a list. Doesn't count as a call.
    std::vector<NodeView> childrenOf(const NodeView& node, Operation accessor) const;

    /// The number of nodes. Handles count from `FIRST_NODE`, in the order of creation.
    std::size_t size() const { return nodes.size(); }

    // Misbehaving

    void setKind(const NodeView& node, NodeKind kind);
    /// Sets the size of a range or an optional child, up to the size that it was built with.
    void setSize(const NodeView& node, Operation accessor, std::size_t size);

    // Watching

    void startRecording();
    const std::vector<Call>& calls() const { return recorded; }
    std::size_t count(Operation operation) const;

    std::function<void(const Call&)> onCall;

    /// An identifier's spelling; for other nodes the name of their kind. Doesn't count as a call.
    std::string labelOf(const NodeView& node) const;

    // IAstView
#define ZT_ORVEX_TEST_ONE(name)                                                                    \
    NodeView name(std::uint64_t node) const override { return one(Operation::name, node); }
#define ZT_ORVEX_TEST_MAYBE(name)                                                                  \
    boost::optional<NodeView> name(std::uint64_t node) const override {                            \
        return maybe(Operation::name, node);                                                       \
    }
#define ZT_ORVEX_TEST_RANGE(name, View)                                                            \
    View name(std::uint64_t node) const override {                                                 \
        return View{node, range(Operation::name, node), this};                                     \
    }
#define ZT_ORVEX_TEST_ELEMENT(name, View)                                                          \
    NodeView name(std::uint64_t index, std::uint64_t first, std::uint64_t second) const override { \
        return element(Operation::name, index, first, second);                                     \
    }
#define ZT_ORVEX_TEST_SIZE(name, View)                                                             \
    std::uint64_t name(std::uint64_t first, std::uint64_t second) const override {                 \
        return size(Operation::name, first, second);                                               \
    }
#define ZT_ORVEX_TEST_NODE std::uint64_t
#define ZT_ORVEX_TEST_NO_ARGUMENT
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments)                                                   \
    std::uint64_t name(ZT_ORVEX_TEST_##arguments) const override { reserved(Operation::name); }
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_TEST_NODE
#undef ZT_ORVEX_TEST_NO_ARGUMENT
    bool isVariableSymbol(std::uint64_t symbol) const override;
    NodeView getEntryNode() const override;
    NodeView getExitNode() const override;
    BinaryOperator getBinaryOperator(std::uint64_t node) const override;
    std::u16string_view getIdentifierName(std::uint64_t node) const override;
    SymbolView getIdentifierSymbol(std::uint64_t node) const override;
    NodeKind getInputParameterKind(std::uint64_t node) const override;
    NodeKind getNodeKind(std::uint64_t node) const override;
    UnaryOperator getUnaryOperator(std::uint64_t node) const override;

    // The four sorts of handles lie far apart, so that mixing them up is detected.
    static constexpr std::uint64_t FIRST_NODE = 0x1000;
    static constexpr std::uint64_t FIRST_SYMBOL = 0x5000'0000'0000;
    static constexpr std::uint64_t ENTRY_NODE = 0xE000'0000'0000'0001;
    static constexpr std::uint64_t EXIT_NODE = 0xE000'0000'0000'0002;

private:
    struct Node {
        NodeKind kind;
        std::uint8_t partCount;
        std::uint32_t firstPart;
        std::uint32_t datum; // The operator, the kind held, or the number of the symbol.
    };
    struct StoredPart {
        Operation operation;
        std::uint32_t firstChild;
        std::uint32_t size;
        std::uint32_t builtSize;
    };
    struct Symbol {
        std::u16string name;
        bool isVariable;
    };

    void called(Operation operation, std::uint64_t a = 0, std::uint64_t b = 0,
                std::uint64_t c = 0) const {
        if (isRecording || onCall) watch(Call{operation, {a, b, c}});
    }
    void watch(const Call& call) const;

    NodeView one(Operation operation, std::uint64_t node) const;
    boost::optional<NodeView> maybe(Operation operation, std::uint64_t node) const;
    std::uint64_t range(Operation operation, std::uint64_t node) const;
    NodeView element(Operation operation, std::uint64_t index, std::uint64_t first,
                     std::uint64_t second) const;
    std::uint64_t size(Operation operation, std::uint64_t first, std::uint64_t second) const;
    [[noreturn]] void reserved(Operation operation) const;

    const Node& at(Operation operation, std::uint64_t node) const;
    std::uint32_t datumOf(Operation operation, NodeKind kind, std::uint64_t node) const;
    std::size_t partIndex(Operation operation, std::uint64_t node) const;
    const StoredPart& rangePart(Operation operation, std::uint64_t first,
                                std::uint64_t second) const;
    NodeView append(NodeKind kind, std::uint32_t datum);

    std::vector<Node> nodes;
    std::vector<StoredPart> parts;
    std::vector<NodeView> children;
    std::deque<Symbol> symbols; // A deque: names are handed out as views and must not move.
    std::unordered_map<std::u16string_view, std::uint32_t> symbolNumbers;
    bool isRecording = false;
    mutable std::vector<Call> recorded;
};

/// A short name: `labelOf` for a node of a FakeAst, "entry" or "exit" for its pseudo nodes.
std::string label(const NodeView& node);
/// The name of a symbol of a FakeAst.
std::string label(const SymbolView& symbol);

} // namespace zt::orvex::testing
