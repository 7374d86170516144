#include "report/analysis/Classify.h"

#include "report/analysis/FirstAndLastUses.h"
#include "report/analysis/Reductions.h"
#include "report/analysis/Roles.h"
#include "source/Utf8.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

/// Collects what is known about each variable of one construct.
class Classifier {
public:
    Classifier(const ParsedFile& parsed, const ConstructFacts& constructFacts,
               const OwnElements* ownElements, const PlaceFinder& placeFinder)
        : file(parsed), facts(constructFacts), own(ownElements), places(placeFinder),
          construct(facts.construct), kind(kindOf(construct)),
          uses(findFirstAndLastUses(*file.tree, facts.graph, facts.unwritten)) {
        if (kind != ConstructKind::Parfor) return;
        const ParforStatementView loop(construct.node);
        loopVariable = IdentifierView(loop.getParforVariable()).getIdentifierSymbol();
        reductions = findReductions(loop.getParforBody());
    }

    std::vector<ClassifiedVariable> run() {
        std::vector<Variable> all(facts.universe.size());
        isReadByHead.resize(all.size());
        gatherPlaces(all);
        std::vector<ClassifiedVariable> named;
        for (std::uint64_t i = 0; i < all.size(); ++i) {
            if (all[i].places.empty()) continue;
            describe(all[i], i);
            named.push_back({std::move(all[i]), facts.universe.elementAt(i)});
        }
        std::sort(named.begin(), named.end(),
                  [](const ClassifiedVariable& a, const ClassifiedVariable& b) {
                      return a.variable.places.front().offset < b.variable.places.front().offset;
                  });
        return named;
    }

private:
    void gatherPlaces(std::vector<Variable>& variables) {
        std::vector<NodeView> names;
        forEachNodeIn(construct.node, [&](NodeView node) {
            if (node.getKind() == NodeKind::Identifier && !file.tree->isImplicit(node))
                names.push_back(node);
        });
        std::sort(names.begin(), names.end(), [&](NodeView a, NodeView b) {
            return file.tree->beginOffset(a) < file.tree->beginOffset(b);
        });
        const std::size_t bodyBegin = offsetOfBody();
        for (const NodeView name : names) {
            const std::uint64_t index =
                facts.universe.indexOrSize(IdentifierView(name).getIdentifierSymbol());
            if (index >= variables.size()) continue;
            variables[index].places.push_back(places.of(name));
            if (variables[index].places.back().offset >= bodyBegin) {
                variables[index].isInBody = true;
            } else if (!isVariableOfHead(name)) {
                isReadByHead[index] = true;
            }
        }
    }

    /// The head of a `parfor` writes its variable, and reads all others that it names.
    bool isVariableOfHead(NodeView name) const {
        return kind == ConstructKind::Parfor &&
               ParforStatementView(construct.node).getParforVariable() == name;
    }

    std::size_t offsetOfBody() const {
        const StatementRangeView body = bodyOf(construct);
        return body.size() == 0 ? file.tree->endOffset(construct.node)
                                : file.tree->beginOffset(body[0]);
    }

    void describe(Variable& variable, std::uint64_t index) const {
        const SymbolView symbol = facts.universe.elementAt(index);
        const FirstAndLastUses& of = uses[index];
        variable.name = toUtf8(file.tree->symbolName(symbol));
        variable.hasOwnElements = own != nullptr && own->hasOnlyOwn(symbol);
        variable.isReadOnEveryPath = facts.answers.liveAsTemporary.count(symbol) != 0;
        variable.role = roleOf(evidenceOf(variable, index));
        if (variable.role == Role::Reduction) variable.by = reductions.at(symbol);
        if (of.lastWrite) variable.lastWrite = placeOfWrite(*of.lastWrite);
        if (!of.firstRead) return;
        variable.firstRead = places.of(of.firstRead->access.identifier);
        variable.isFirstReadPartialWrite = kit::isWrite(of.firstRead->access.kind);
    }

    Evidence evidenceOf(const Variable& variable, std::uint64_t index) const {
        const SymbolView symbol = facts.universe.elementAt(index);
        Evidence evidence;
        evidence.kind = kind;
        evidence.isLoopVariable = loopVariable == symbol;
        evidence.isReadByHead = isReadByHead[index];
        evidence.isWritten = uses[index].lastWrite.has_value();
        evidence.isLive = isLive(symbol);
        evidence.isLiveAsSliced = facts.answers.notLiveAsSliced.count(symbol) == 0;
        evidence.hasOwnElements = variable.hasOwnElements;
        evidence.isReduction = reductions.count(symbol) != 0;
        return evidence;
    }

    /// The analyses of temporaries and of outputs ignore that an expression statement writes `ans`;
    /// the analysis of `ans` counts it.
    bool isLive(SymbolView symbol) const {
        if (symbol == file.scopes[construct.scope].ans)
            return facts.answers.ansPossiblyReadBeforeBeingWritten;
        if (kind == ConstructKind::Parfor)
            return facts.answers.maybeLiveAsTemporary.count(symbol) != 0;
        return facts.answers.outputs.count(symbol) == 0;
    }

    /// An `ans` that isn't in the text is written where its statement is.
    Place placeOfWrite(const Use& write) const {
        const bool isImplicit = write.access.kind == kit::AccessKind::ImplicitTarget;
        return isImplicit ? places.of(write.statement) : places.of(write.access.identifier);
    }

    const ParsedFile& file;
    const ConstructFacts& facts;
    const OwnElements* own;
    const PlaceFinder& places;
    const ostrel::Construct& construct;
    const ConstructKind kind;
    const std::vector<FirstAndLastUses> uses;
    std::optional<SymbolView> loopVariable;
    std::unordered_map<SymbolView, std::string> reductions;
    std::vector<bool> isReadByHead; ///< By index in the universe.
};

} // namespace

std::vector<ClassifiedVariable> classify(const ParsedFile& file, const ConstructFacts& facts,
                                         const OwnElements* own, const PlaceFinder& places) {
    return Classifier(file, facts, own, places).run();
}

} // namespace ostrel::report
