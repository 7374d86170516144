#include "tree/IdentifierChecker.h"

#include "support/Utf16ToUtf8.h"
#include "tree/AskTwice.h"
#include "tree/HandleText.h"

#include <string>

namespace zt::orvex::kit::internal {

namespace {

constexpr const char* NAME = "getIdentifierName";
constexpr const char* SYMBOL = "getIdentifierSymbol";
constexpr const char* IS_VARIABLE = "isVariableSymbol";

Question about(const NodeView& identifier, const char* operation) {
    return {operation, identifier, NodeKind::Identifier};
}

std::string quoted(std::u16string_view name) {
    return '`' + zt::orvex::internal::utf16ToUtf8(name.substr(0, 100)) + '`';
}

} // namespace

void IdentifierChecker::check(const NodeView& node, Use use, NameScopes::ScopeId scope) {
    const std::optional<std::u16string_view> name = askName(node);
    const std::optional<SymbolView> symbol = askSymbol(node);
    if (!symbol) return;
    const Identifier identifier = {node, use, scope, name.value_or(u""), *symbol};
    Symbol* known = askWhetherVariable(identifier);
    if (known == nullptr || !name) return;
    checkAns(identifier);
    if (use == Use::Label) return;
    const bool isParameter = checkNameIsOne(identifier);
    checkWrite(identifier, *known);
    if (!isParameter) checkUniverseHas(identifier, *known);
}

/// Compares the texts, not the pointers: a tree may compose a name each time.
std::optional<std::u16string_view> IdentifierChecker::askName(const NodeView& node) {
    const Question question = about(node, NAME);
    const auto answer = [&] { return node.view->getIdentifierName(node.node); };
    const auto first = ask(report, question, answer);
    if (!first || !isReadable(question, *first)) return std::nullopt;
    const auto second = ask(report, question, answer);
    if (!second || !isReadable(question, *second)) return std::nullopt;
    if (*first == *second) return second;
    report.addChange(question, quoted(*first), quoted(*second));
    return std::nullopt;
}

bool IdentifierChecker::isReadable(const Question& question, std::u16string_view name) {
    if (name.size() <= options.maxNameLength && (name.data() != nullptr || name.empty())) {
        return true;
    }
    report.add(FindingCode::NameUnreadable, question,
               std::string(NAME) + " answered a name of " + std::to_string(name.size()) + " units" +
                   (name.data() == nullptr ? " at a null pointer" : "") +
                   ". Return a view of text that lives as long as the tree.");
    return false;
}

std::optional<SymbolView> IdentifierChecker::askSymbol(const NodeView& node) {
    const Question question = about(node, SYMBOL);
    const auto symbol =
        askTwice(report, question, [&] { return node.view->getIdentifierSymbol(node.node); });
    if (!symbol || symbol->view == tree) return symbol;
    if (symbol->view == nullptr) {
        report.add(FindingCode::SymbolViewNull, question,
                   "The symbol's `view` is null, and isVariableSymbol is asked through it. Return "
                   "the symbol with the pointer of its tree.",
                   symbol);
    } else {
        report.add(FindingCode::SymbolViewForeign, question,
                   "The symbol's `view` is that of another tree, whose isVariableSymbol would be "
                   "asked. Return the symbol with the pointer of the identifier's tree.",
                   symbol);
    }
    return std::nullopt;
}

/// What is known of the symbol, or null after a finding.
IdentifierChecker::Symbol* IdentifierChecker::askWhetherVariable(const Identifier& identifier) {
    const Question question = about(identifier.node, IS_VARIABLE);
    const auto answer = [&] { return tree->isVariableSymbol(identifier.symbol.symbol); };
    const auto found = symbols.find(identifier.symbol.symbol);
    if (found == symbols.end()) {
        const auto isVariable = askTwice(report, question, answer);
        return &symbols.emplace(identifier.symbol.symbol, Symbol{isVariable.value_or(true)})
                    .first->second;
    }
    const auto isVariable = ask(report, question, answer);
    if (!isVariable) return nullptr;
    if (*isVariable == found->second.isVariable) return &found->second;
    report.addChange(question, showAnswer(found->second.isVariable), showAnswer(*isVariable));
    return nullptr;
}

/// Returns whether the name is that of a parameter of an anonymous function.
bool IdentifierChecker::checkNameIsOne(const Identifier& identifier) {
    NameScopes::Name& name =
        identifier.use == Use::Declare
            ? names.declare(identifier.scope, identifier.name, identifier.symbol.symbol)
            : names.use(identifier.scope, identifier.name, identifier.symbol.symbol);
    if (name.symbol != identifier.symbol.symbol && !name.isReported) {
        name.isReported = true;
        report.add(FindingCode::NameAmbiguous, about(identifier.node, SYMBOL),
                   quoted(identifier.name) + " has this symbol here and " +
                       handleText("symbol", name.symbol) +
                       " elsewhere in the scope, so its reads and writes don't meet. Give a name "
                       "one symbol in each scope.",
                   identifier.symbol);
    }
    return name.isParameter;
}

void IdentifierChecker::checkWrite(const Identifier& identifier, const Symbol& symbol) {
    const bool isWritten = identifier.use == Use::Write || identifier.use == Use::Target;
    if (!isWritten || symbol.isVariable) return;
    report.add(
        FindingCode::WriteNotVariable, about(identifier.node, IS_VARIABLE),
        quoted(identifier.name) +
            " is written here, but isVariableSymbol answers false, so its reads don't count. "
            "Answer true for every symbol that is written.",
        identifier.symbol);
}

void IdentifierChecker::checkUniverseHas(const Identifier& identifier, Symbol& symbol) {
    if (options.universe == nullptr || symbol.isReported) return;
    if (!mustBeInUniverse(identifier, symbol)) return;
    if (options.universe->contains(identifier.symbol)) return;
    symbol.isReported = true;
    report.add(FindingCode::UniverseLacks, about(identifier.node, SYMBOL),
               "The universe lacks the symbol of " + quoted(identifier.name) +
                   ", so no analysis sees the variable. Add the symbol, or return the one that the "
                   "universe has.",
               identifier.symbol);
}

/// Whether an analysis of the root would take account of the identifier.
bool IdentifierChecker::mustBeInUniverse(const Identifier& identifier, const Symbol& symbol) const {
    if (!names.isInRoot(identifier.scope)) return false;
    switch (identifier.use) {
    case Use::Read:
        return symbol.isVariable;
    case Use::Write:
        return true;
    case Use::Target:
        return identifier.name != u"ans";
    default:
        return false;
    }
}

void IdentifierChecker::checkAns(const Identifier& identifier) {
    if (!options.ans || identifier.symbol != *options.ans || identifier.name == u"ans") return;
    report.add(FindingCode::AnsMisnamed, about(identifier.node, NAME),
               quoted(identifier.name) +
                   " has the symbol of `ans`, but the analyses know `ans` by its name. Return the "
                   "name \"ans\", or another symbol.",
               identifier.symbol);
}

void IdentifierChecker::checkUniverseIsUsed() {
    if (options.universe == nullptr) return;
    for (const SymbolView& symbol : *options.universe) {
        if (symbols.find(symbol.symbol) != symbols.end()) continue;
        report.addAtRoot(FindingCode::UniverseUnused, std::nullopt,
                         "No identifier has this symbol of the universe. Make the universe of the "
                         "symbols that getIdentifierSymbol returns.",
                         symbol);
    }
}

} // namespace zt::orvex::kit::internal
