#include "testing/FakeAst.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace zt::orvex::testing {

namespace {

constexpr const char* OPERATION_NAMES[] = {
#define ZT_ORVEX_TEST_ONE(name) #name,
#define ZT_ORVEX_TEST_MAYBE(name) #name,
#define ZT_ORVEX_TEST_RANGE(name, View) #name,
#define ZT_ORVEX_TEST_ELEMENT(name, View) #name,
#define ZT_ORVEX_TEST_SIZE(name, View) #name,
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments) #name,
#define ZT_ORVEX_TEST_OTHER(name) #name,
#include "testing/IAstViewOperations.def"
};

constexpr const char* KIND_NAMES[] = {
    "Invalid",
#define ZT_ORVEX_NODE_KIND(Name, Class) #Name,
#include <zt_orvex/ast/NodeKinds.def>
};

/// The families of ranges. `None` is for operations that don't concern a range.
enum class Family : std::uint8_t {
    None,
#define ZT_ORVEX_RANGE_FAMILY(View, element, size) View,
#include <zt_orvex/ast/RangeFamilies.def>
};

constexpr Family FAMILIES[] = {
#define ZT_ORVEX_TEST_ONE(name) Family::None,
#define ZT_ORVEX_TEST_MAYBE(name) Family::None,
#define ZT_ORVEX_TEST_RANGE(name, View) Family::View,
#define ZT_ORVEX_TEST_ELEMENT(name, View) Family::View,
#define ZT_ORVEX_TEST_SIZE(name, View) Family::View,
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments) Family::None,
#define ZT_ORVEX_TEST_OTHER(name) Family::None,
#include "testing/IAstViewOperations.def"
};

Family familyOf(Operation operation) { return FAMILIES[static_cast<std::size_t>(operation)]; }

[[noreturn, gnu::noinline]] void refuse(Operation operation, const std::string& reason) {
    throw std::logic_error(std::string("FakeAst: ") + nameOf(operation) + " was asked " + reason);
}

std::string describe(NodeKind kind) {
    return std::string("of a node of kind ") + nameOf(kind) + " (" +
           std::to_string(static_cast<int>(kind)) + ")";
}

// The library's conversion is hidden, and a FakeAst also serves tests that link the shared library.
std::string narrow(std::u16string_view name) {
    std::string text;
    for (const char16_t unit : name)
        text += unit < 0x80 ? static_cast<char>(unit) : '?';
    return text;
}

} // namespace

const char* nameOf(Operation operation) {
    return OPERATION_NAMES[static_cast<std::size_t>(operation)];
}

const char* nameOf(NodeKind kind) {
    const auto value = static_cast<std::size_t>(kind);
    return value < std::size(KIND_NAMES) ? KIND_NAMES[value] : "unknown";
}

NodeView FakeAst::append(NodeKind kind, std::uint32_t datum) {
    nodes.push_back(Node{kind, 0, static_cast<std::uint32_t>(parts.size()), datum});
    return NodeView{FIRST_NODE + nodes.size() - 1, this};
}

NodeView FakeAst::add(NodeKind kind, const std::vector<Part>& newParts, std::uint32_t datum) {
    const NodeView node = append(kind, datum);
    nodes.back().partCount = static_cast<std::uint8_t>(newParts.size());
    for (const Part& part : newParts) {
        const auto size = static_cast<std::uint32_t>(part.size);
        parts.push_back(
            StoredPart{part.operation, static_cast<std::uint32_t>(children.size()), size, size});
        children.insert(children.end(), part.nodes, part.nodes + part.size);
    }
    return node;
}

NodeView FakeAst::addIdentifier(std::u16string_view name) {
    return append(NodeKind::Identifier,
                  static_cast<std::uint32_t>(symbol(name).symbol - FIRST_SYMBOL));
}

void FakeAst::clear() {
    nodes.clear();
    parts.clear();
    children.clear();
    symbolNumbers.clear();
    symbols.clear();
    recorded.clear();
}

SymbolView FakeAst::symbol(std::u16string_view name) {
    auto found = symbolNumbers.find(name);
    if (found == symbolNumbers.end()) {
        const auto number = static_cast<std::uint32_t>(symbols.size());
        symbols.push_back(Symbol{std::u16string(name), true});
        found = symbolNumbers.emplace(symbols.back().name, number).first;
    }
    return SymbolView{FIRST_SYMBOL + found->second, this};
}

std::u16string_view FakeAst::nameOfSymbol(const SymbolView& of) const {
    return symbols.at(of.symbol - FIRST_SYMBOL).name;
}

void FakeAst::setIsVariable(std::u16string_view name, bool isVariable) {
    symbols.at(symbol(name).symbol - FIRST_SYMBOL).isVariable = isVariable;
}

std::vector<NodeView> FakeAst::childrenOf(const NodeView& node, Operation accessor) const {
    const StoredPart& part = parts[partIndex(accessor, node.node)];
    const NodeView* first = children.data() + part.firstChild;
    return {first, first + part.size};
}

void FakeAst::setKind(const NodeView& node, NodeKind kind) {
    nodes.at(node.node - FIRST_NODE).kind = kind;
}

void FakeAst::setSize(const NodeView& node, Operation accessor, std::size_t size) {
    StoredPart& part = parts[partIndex(accessor, node.node)];
    if (size > part.builtSize) throw std::logic_error("FakeAst: a part was built smaller");
    part.size = static_cast<std::uint32_t>(size);
}

void FakeAst::startRecording() {
    recorded.clear();
    isRecording = true;
}

std::size_t FakeAst::count(Operation operation) const {
    return static_cast<std::size_t>(
        std::count_if(recorded.begin(), recorded.end(),
                      [&](const Call& call) { return call.operation == operation; }));
}

void FakeAst::watch(const Call& call) const {
    if (isRecording) recorded.push_back(call);
    if (onCall) onCall(call);
}

const FakeAst::Node& FakeAst::at(Operation operation, std::uint64_t node) const {
    if (node - FIRST_NODE >= nodes.size()) refuse(operation, "for a handle that isn't a node's");
    return nodes[node - FIRST_NODE];
}

std::uint32_t FakeAst::datumOf(Operation operation, NodeKind kind, std::uint64_t node) const {
    called(operation, node);
    const Node& asked = at(operation, node);
    if (asked.kind != kind) refuse(operation, describe(asked.kind));
    return asked.datum;
}

std::size_t FakeAst::partIndex(Operation operation, std::uint64_t node) const {
    const Node& asked = at(operation, node);
    for (std::size_t i = asked.firstPart; i < asked.firstPart + asked.partCount; ++i) {
        if (parts[i].operation == operation) return i;
    }
    refuse(operation, describe(asked.kind));
}

NodeView FakeAst::one(Operation operation, std::uint64_t node) const {
    called(operation, node);
    return children.at(parts[partIndex(operation, node)].firstChild);
}

boost::optional<NodeView> FakeAst::maybe(Operation operation, std::uint64_t node) const {
    called(operation, node);
    const StoredPart& part = parts[partIndex(operation, node)];
    if (part.size == 0) return boost::none;
    return children.at(part.firstChild);
}

std::uint64_t FakeAst::range(Operation operation, std::uint64_t node) const {
    called(operation, node);
    return partIndex(operation, node);
}

const FakeAst::StoredPart& FakeAst::rangePart(Operation operation, std::uint64_t first,
                                              std::uint64_t second) const {
    const Node& owner = at(operation, first);
    if (second < owner.firstPart || second >= owner.firstPart + owner.partCount) {
        refuse(operation, "for words that aren't a range's");
    }
    const StoredPart& part = parts[second];
    if (familyOf(part.operation) != familyOf(operation)) {
        refuse(operation, std::string("of the range of ") + nameOf(part.operation));
    }
    return part;
}

NodeView FakeAst::element(Operation operation, std::uint64_t index, std::uint64_t first,
                          std::uint64_t second) const {
    called(operation, index, first, second);
    const StoredPart& part = rangePart(operation, first, second);
    if (index >= part.size) {
        refuse(operation,
               "for element " + std::to_string(index) + " of " + std::to_string(part.size));
    }
    return children[part.firstChild + index];
}

std::uint64_t FakeAst::size(Operation operation, std::uint64_t first, std::uint64_t second) const {
    called(operation, first, second);
    return rangePart(operation, first, second).size;
}

void FakeAst::reserved(Operation operation) const { refuse(operation, "although it is reserved"); }

bool FakeAst::isVariableSymbol(std::uint64_t symbol) const {
    called(Operation::isVariableSymbol, symbol);
    if (symbol - FIRST_SYMBOL >= symbols.size()) {
        refuse(Operation::isVariableSymbol, "for a handle that isn't a symbol's");
    }
    return symbols[symbol - FIRST_SYMBOL].isVariable;
}

NodeView FakeAst::getEntryNode() const {
    called(Operation::getEntryNode);
    return NodeView{ENTRY_NODE, this};
}

NodeView FakeAst::getExitNode() const {
    called(Operation::getExitNode);
    return NodeView{EXIT_NODE, this};
}

BinaryOperator FakeAst::getBinaryOperator(std::uint64_t node) const {
    return BinaryOperator{datumOf(Operation::getBinaryOperator, NodeKind::BinaryOperation, node)};
}

std::u16string_view FakeAst::getIdentifierName(std::uint64_t node) const {
    return symbols[datumOf(Operation::getIdentifierName, NodeKind::Identifier, node)].name;
}

SymbolView FakeAst::getIdentifierSymbol(std::uint64_t node) const {
    return SymbolView{
        FIRST_SYMBOL + datumOf(Operation::getIdentifierSymbol, NodeKind::Identifier, node), this};
}

NodeKind FakeAst::getInputParameterKind(std::uint64_t node) const {
    return static_cast<NodeKind>(
        datumOf(Operation::getInputParameterKind, NodeKind::InputParameter, node));
}

NodeKind FakeAst::getNodeKind(std::uint64_t node) const {
    called(Operation::getNodeKind, node);
    return at(Operation::getNodeKind, node).kind;
}

UnaryOperator FakeAst::getUnaryOperator(std::uint64_t node) const {
    return UnaryOperator{datumOf(Operation::getUnaryOperator, NodeKind::UnaryOperation, node)};
}

std::string FakeAst::labelOf(const NodeView& node) const {
    const Node& asked = nodes.at(node.node - FIRST_NODE);
    if (asked.kind != NodeKind::Identifier) return nameOf(asked.kind);
    return narrow(symbols[asked.datum].name);
}

std::string label(const NodeView& node) {
    if (node.node == FakeAst::ENTRY_NODE) return "entry";
    if (node.node == FakeAst::EXIT_NODE) return "exit";
    const auto* ast = dynamic_cast<const FakeAst*>(node.view);
    if (ast == nullptr) return "foreign node";
    return ast->labelOf(node);
}

std::string label(const SymbolView& symbol) {
    const auto* ast = dynamic_cast<const FakeAst*>(symbol.view);
    if (ast == nullptr) return "foreign symbol";
    return narrow(ast->nameOfSymbol(symbol));
}

} // namespace zt::orvex::testing
