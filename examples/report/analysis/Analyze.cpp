#include "report/analysis/Analyze.h"

#include "report/analysis/Classify.h"
#include "report/analysis/ConstructFacts.h"
#include "report/analysis/LeavesParallel.h"
#include "report/analysis/LibraryAnswers.h"
#include "report/analysis/LostValueRemarks.h"
#include "report/analysis/MentionedVariables.h"
#include "report/analysis/OwnElements.h"
#include "report/analysis/PlaceFinder.h"
#include "report/analysis/Remarks.h"
#include "report/analysis/RestrictedUses.h"
#include "report/analysis/SyntaxSpans.h"
#include "report/analysis/UsedAfter.h"
#include "report/analysis/VariableRemarks.h"
#include "source/SortByOffset.h"
#include "source/Utf8.h"

#include <zt_orvex/ast/TypedViews.h>
#include <zt_orvex/pragma/Pragma.h>

#include <cstddef>
#include <exception>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

class FileAnalysis {
public:
    explicit FileAnalysis(ParsedFile& toAnalyze)
        : parsed(toAnalyze), mentioned(parsed), places(parsed.source, *parsed.tree),
          usedAfter(parsed) {}

    File run(Highlighting highlighting) {
        file.path = parsed.path;
        file.diagnostics = parsed.diagnostics;
        for (const PragmaComment& comment : parsed.pragmas)
            addPragma(comment);
        for (const ostrel::Scope& scope : parsed.scopes)
            addScope(scope);
        for (const ostrel::Construct& construct : parsed.constructs)
            tryAddConstruct(construct);
        sortDiagnostics();
        addRestrictedRemarks();
        addLeavingRemarks();
        sortRemarks();
        if (highlighting == Highlighting::Wanted) file.syntax = findSyntaxSpans(parsed);
        file.source = std::move(parsed.source);
        return std::move(file);
    }

private:
    void addPragma(const PragmaComment& comment) {
        const auto pragma = parsePragma(comment.text, static_cast<unsigned>(comment.offset));
        if (!pragma) return;
        PragmaEntry entry;
        entry.place = places.at(comment.offset, comment.text.size());
        entry.kind = toUtf8(pragmaKindToString(pragma->getKind()));
        entry.name = toUtf8(pragma->getPragmaName());
        entry.arguments = toUtf8(pragma->getTrimmedArgumentsText());
        if (pragma->getKind() == PragmaKind::UNRECOGNIZED)
            file.remarks.push_back(remarkOnUnknownPragma(entry));
        file.pragmas.push_back(std::move(entry));
    }

    void addScope(const ostrel::Scope& scope) {
        file.scopes.push_back({scope.name, {}});
        for (const SymbolView symbol : scope.universe)
            file.scopes.back().universe.push_back(toUtf8(parsed.tree->symbolName(symbol)));
    }

    /// What the library refuses is an error of the construct, and the rest of the file is still
    /// reported. Too little memory isn't: it ends the report on the file.
    void tryAddConstruct(const ostrel::Construct& construct) {
        try {
            addConstruct(construct);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) {
            addFailure(construct, error.what());
        }
    }

    void addFailure(const ostrel::Construct& construct, const char* what) {
        Diagnostic diagnostic;
        const std::string_view keyword = keywordOf(kindOf(construct));
        diagnostic.place = places.at(construct.offset, keyword.size());
        diagnostic.message = "this " + std::string(keyword) + " cannot be analysed: " + what;
        file.diagnostics.push_back(std::move(diagnostic));
    }

    void sortDiagnostics() {
        sortByOffset(file.diagnostics,
                     [](const Diagnostic& diagnostic) { return diagnostic.place.offset; });
    }

    void addConstruct(const ostrel::Construct& parsedConstruct) {
        const std::vector<SymbolView> universe = mentioned.in(parsedConstruct);
        const ConstructFacts facts(parsedConstruct, universe,
                                   parsed.scopes[parsedConstruct.scope].ans);
        const LibraryAnswers& answers = facts.answers;
        Construct construct;
        construct.kind = kindOf(parsedConstruct);
        construct.keyword =
            places.at(parsedConstruct.offset, std::string_view(keywordOf(construct.kind)).size());
        construct.extent = places.of(parsedConstruct.node);
        construct.enclosing = findEnclosing(construct.extent);
        construct.scope = parsedConstruct.scope;
        if (construct.kind == ConstructKind::Parfor)
            construct.loopVariable = nameOfLoopVariable(ParforStatementView(parsedConstruct.node));
        construct.liveAsTemporary = sortedNames(answers.liveAsTemporary);
        construct.maybeLiveAsTemporary = sortedNames(answers.maybeLiveAsTemporary);
        if (construct.kind == ConstructKind::Parfor)
            construct.liveAsSliced = sortedNames(without(universe, answers.notLiveAsSliced));
        else
            construct.notOutputs = sortedNames(without(universe, answers.outputs));
        construct.ansPossiblyReadBeforeBeingWritten = answers.ansPossiblyReadBeforeBeingWritten;
        addVariables(facts, construct);
        std::vector<NodeView> uses = findRestrictedUses(bodyOf(parsedConstruct));
        construct.restrictedExternals = restrictedNames(uses);
        addAnsRemark(construct);
        reported.emplace(parsedIndexOf(facts), file.constructs.size());
        file.constructs.push_back(std::move(construct));
        restrictedUses.push_back(std::move(uses));
    }

    /// With the remarks on them. `construct` is the next in `file.constructs`.
    void addVariables(const ConstructFacts& facts, Construct& construct) {
        std::optional<OwnElements> own;
        if (construct.kind == ConstructKind::Parfor) own.emplace(facts);
        for (ClassifiedVariable& each : classify(parsed, facts, own ? &*own : nullptr, places)) {
            if (own) addRemarks(facts, *own, each, construct);
            construct.variables.push_back(std::move(each.variable));
        }
    }

    void addRemarks(const ConstructFacts& facts, const OwnElements& own,
                    const ClassifiedVariable& each, const Construct& construct) {
        const std::size_t index = file.constructs.size();
        auto remark = remarkOnRole(parsed, facts, own, each.variable, each.symbol, places);
        if (remark) add(*std::move(remark), index);
        const Role role = each.variable.role;
        if (role != Role::Temporary && role != Role::LoopVariable) return;
        const std::string& function = file.scopes[construct.scope].name;
        remark = remarkOnLostValue(usedAfter, parsedIndexOf(facts), facts.graph, each,
                                   construct.loopVariable, function, places);
        if (remark) add(*std::move(remark), index);
    }

    /// Constructs that can't be analysed aren't in the report.
    std::size_t parsedIndexOf(const ConstructFacts& facts) const {
        return static_cast<std::size_t>(&facts.construct - parsed.constructs.data());
    }

    /// In source order, what encloses a construct is the previous one or one that encloses that.
    std::optional<std::size_t> findEnclosing(const Place& extent) const {
        std::optional<std::size_t> candidate;
        if (!file.constructs.empty()) candidate = file.constructs.size() - 1;
        while (candidate) {
            const Construct& construct = file.constructs[*candidate];
            if (extent.offset < construct.extent.offset + construct.extent.length) break;
            candidate = construct.enclosing;
        }
        return candidate;
    }

    static SymbolSet without(const std::vector<SymbolView>& universe, const SymbolSet& removed) {
        SymbolSet rest;
        for (const SymbolView symbol : universe) {
            if (removed.count(symbol) == 0) rest.insert(symbol);
        }
        return rest;
    }

    /// Sorted by UTF-16 code unit.
    std::vector<std::string> sortedNames(const SymbolSet& symbols) const {
        std::set<std::u16string_view> names;
        for (const SymbolView symbol : symbols)
            names.insert(parsed.tree->symbolName(symbol));
        return toUtf8Names(names);
    }

    std::vector<std::string> restrictedNames(const std::vector<NodeView>& uses) const {
        std::set<std::u16string_view> names;
        for (const NodeView use : uses)
            names.insert(IdentifierView(use).getIdentifierName());
        return toUtf8Names(names);
    }

    static std::vector<std::string> toUtf8Names(const std::set<std::u16string_view>& names) {
        std::vector<std::string> result;
        for (const std::u16string_view name : names)
            result.push_back(toUtf8(name));
        return result;
    }

    /// `construct` is the next in `file.constructs`.
    void addAnsRemark(const Construct& construct) {
        if (!construct.ansPossiblyReadBeforeBeingWritten) return;
        for (const Variable& variable : construct.variables) {
            if (variable.name != "ans" || !variable.firstRead) continue;
            add(remarkOnAns(construct.kind, *variable.firstRead), file.constructs.size());
        }
    }

    /// A use in the body of a nested construct gets its remark there only.
    void addRestrictedRemarks() {
        std::unordered_set<NodeView> told;
        for (std::size_t i = file.constructs.size(); i-- > 0;) {
            for (const NodeView use : restrictedUses[i]) {
                if (!told.insert(use).second) continue;
                const std::string name = toUtf8(IdentifierView(use).getIdentifierName());
                add(remarkOnRestricted(file.constructs[i].kind, name, places.of(use)), i);
            }
        }
    }

    void addLeavingRemarks() {
        for (const Leaving& leaving : findLeaving(parsed)) {
            const auto construct = reported.find(leaving.construct);
            if (construct == reported.end()) continue;
            const bool isReturn = leaving.statement.getKind() == NodeKind::ReturnStatement;
            add(remarkOnLeaving(file.constructs[construct->second].kind, isReturn,
                                places.of(leaving.statement)),
                construct->second);
        }
    }

    void add(Remark remark, std::size_t construct) {
        remark.construct = construct;
        file.remarks.push_back(std::move(remark));
    }

    void sortRemarks() {
        sortByOffset(file.remarks, [](const Remark& remark) { return remark.place.offset; });
    }

    ParsedFile& parsed;
    const MentionedVariables mentioned;
    const PlaceFinder places;
    UsedAfter usedAfter;
    File file;
    std::unordered_map<std::size_t, std::size_t> reported; ///< Of the parsed: their indices here.
    std::vector<std::vector<NodeView>> restrictedUses;     ///< Indexed like `file.constructs`.
};

} // namespace

File analyze(ParsedFile parsed, Highlighting highlighting) {
    return FileAnalysis(parsed).run(highlighting);
}

} // namespace ostrel::report
