#include "report/analysis/Classify.h"

#include "report/analysis/FirstAndLastUses.h"
#include "report/analysis/OwnElements.h"
#include "source/Utf8.h"

#include <zt_orvex/ast/ForEachNodeIn.h>
#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/TypedViews.h>

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace ostrel::report {

using namespace zt::orvex;

Role roleOf(const Evidence& evidence) {
    const bool isParfor = evidence.kind == ConstructKind::Parfor;
    if (evidence.isLoopVariable) return Role::LoopVariable;
    if (!evidence.isWritten) return evidence.isLive ? Role::ReadFromOutside : Role::NotUsed;
    if (!evidence.isLive) return isParfor ? Role::Temporary : Role::Output;
    if (!isParfor) return Role::Updated;
    return evidence.isLiveAsSliced && !evidence.hasOwnElements ? Role::Carried : Role::Sliced;
}

namespace {

/// Collects what is known about each variable of one construct.
class Classifier {
public:
    Classifier(const ParsedFile& parsed, const ostrel::Construct& which,
               const std::vector<SymbolView>& variables, const LibraryAnswers& libraryAnswers,
               const PlaceFinder& placeFinder)
        : file(parsed), construct(which), universe(variables), answers(libraryAnswers),
          places(placeFinder), kind(kindOf(construct)),
          uses(findFirstAndLastUses(file, bodyOf(construct), universe)) {
        for (std::size_t i = 0; i < universe.size(); ++i)
            indices.emplace(universe[i], i);
        if (kind == ConstructKind::Parfor) noteLoopVariable(ParforStatementView(construct.node));
    }

    std::vector<Variable> run() {
        std::vector<Variable> all(universe.size());
        gatherPlaces(all);
        std::vector<Variable> named;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i].places.empty()) continue;
            describe(all[i], universe[i], uses[i]);
            named.push_back(std::move(all[i]));
        }
        return named;
    }

private:
    void noteLoopVariable(ParforStatementView loop) {
        loopVariable = IdentifierView(loop.getParforVariable()).getIdentifierSymbol();
        const auto index = indices.find(*loopVariable);
        const bool isWritten = index != indices.end() && uses[index->second].lastWrite;
        if (!isWritten) ownElements = findOwnElements(loop);
    }

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
            const auto index = indices.find(IdentifierView(name).getIdentifierSymbol());
            if (index == indices.end()) continue;
            Variable& variable = variables[index->second];
            variable.places.push_back(places.of(name));
            if (variable.places.back().offset >= bodyBegin) variable.isInBody = true;
        }
    }

    std::size_t offsetOfBody() const {
        const StatementRangeView body = bodyOf(construct);
        return body.size() == 0 ? file.tree->endOffset(construct.node)
                                : file.tree->beginOffset(body[0]);
    }

    void describe(Variable& variable, SymbolView symbol, const FirstAndLastUses& of) {
        variable.name = toUtf8(file.tree->symbolName(symbol));
        variable.hasOwnElements = ownElements.count(symbol) != 0;
        variable.isReadOnEveryPath = answers.liveAsTemporary.count(symbol) != 0;
        variable.role = roleOf(evidenceOf(variable, symbol, of));
        if (of.lastWrite) variable.lastWrite = placeOfWrite(*of.lastWrite);
        const bool isPartWriteOfSlice = variable.role == Role::Sliced && !variable.hasOwnElements;
        if (variable.role == Role::LoopVariable || isPartWriteOfSlice) return;
        if (!of.firstRead) return;
        variable.firstRead = places.of(of.firstRead->access.identifier);
        variable.isFirstReadPartialWrite = kit::isWrite(of.firstRead->access.kind);
    }

    Evidence evidenceOf(const Variable& variable, SymbolView symbol,
                        const FirstAndLastUses& of) const {
        Evidence evidence;
        evidence.kind = kind;
        evidence.isLoopVariable = loopVariable == symbol;
        evidence.isWritten = of.lastWrite.has_value();
        evidence.isLive = isLive(symbol) || !variable.isInBody; // else the head reads it
        evidence.isLiveAsSliced = answers.notLiveAsSliced.count(symbol) == 0;
        evidence.hasOwnElements = variable.hasOwnElements;
        return evidence;
    }

    /// The analyses of temporaries and of outputs ignore that an expression statement writes `ans`;
    /// the analysis of `ans` counts it.
    bool isLive(SymbolView symbol) const {
        if (symbol == file.scopes[construct.scope].ans)
            return answers.ansPossiblyReadBeforeBeingWritten;
        if (kind == ConstructKind::Parfor) return answers.maybeLiveAsTemporary.count(symbol) != 0;
        return answers.outputs.count(symbol) == 0;
    }

    /// An `ans` that isn't in the text is written where its statement is.
    Place placeOfWrite(const Use& write) const {
        const bool isImplicit = write.access.kind == kit::AccessKind::ImplicitTarget;
        return isImplicit ? places.of(write.statement) : places.of(write.access.identifier);
    }

    const ParsedFile& file;
    const ostrel::Construct& construct;
    const std::vector<SymbolView>& universe;
    const LibraryAnswers& answers;
    const PlaceFinder& places;
    ConstructKind kind;
    std::vector<FirstAndLastUses> uses;
    std::unordered_map<SymbolView, std::size_t> indices;
    std::optional<SymbolView> loopVariable;
    SymbolSet ownElements;
};

} // namespace

std::vector<Variable> classify(const ParsedFile& file, const ostrel::Construct& construct,
                               const std::vector<SymbolView>& universe,
                               const LibraryAnswers& answers, const PlaceFinder& places) {
    return Classifier(file, construct, universe, answers, places).run();
}

} // namespace ostrel::report
