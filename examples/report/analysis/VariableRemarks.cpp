#include "report/analysis/VariableRemarks.h"

#include "report/analysis/CarriedValues.h"
#include "report/analysis/PathSteps.h"
#include "report/analysis/Remarks.h"

#include <zt_orvex/ast/NodeKind.h>

#include <boost/optional.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ostrel::report {

using namespace zt::orvex;
using kit::FlowNode;

namespace {

class RoleRemark {
public:
    RoleRemark(const ParsedFile& parsed, const ConstructFacts& constructFacts,
               const OwnElements& ownElements, const Variable& about, SymbolView of,
               const PlaceFinder& placeFinder)
        : file(parsed), facts(constructFacts), own(ownElements), variable(about), symbol(of),
          places(placeFinder), index(facts.universe.indexOf(symbol)) {}

    std::optional<Remark> carried() const {
        const boost::optional<kit::CarriedValue> why = explainCarriedValue(facts, own, symbol);
        if (!why) return {};
        const kit::Access& read = *why->read.access;
        const Place written = places.of(placeOfWrite(why->write));
        Remark remark = remarkOnCarried(variable.name, places.of(read.identifier), written,
                                        kit::isWrite(read.kind));
        remark.help = helpFor(*why);
        remark.paths = {pathOfWrite(why->write, written), pathOfRead(why->read)};
        return remark;
    }

    /// At the first write that isn't indexed by the loop variable, or else at the first of all.
    std::optional<Remark> shared() const {
        const kit::Access* first = nullptr;
        for (const bool mayBeIndexed : {false, true}) {
            forEachWrite([&](const kit::Access& access) {
                if (first == nullptr && (mayBeIndexed || !own.isIndexedByLoopVariable(access)))
                    first = &access;
            });
        }
        if (first == nullptr) return {};
        Remark remark = remarkOnShared(variable.name, loopVariable(), places.of(first->identifier));
        if (own.isLoopVariableWritten()) remark.help = helpToLeaveLoopVariable(loopVariable());
        return remark;
    }

    std::optional<Remark> written() const {
        const kit::Access* first = nullptr;
        forEachWrite([&](const kit::Access& access) {
            if (first == nullptr) first = &access;
        });
        if (first == nullptr) return {};
        return remarkOnLoopVariable(variable.name, places.of(first->identifier));
    }

private:
    std::string loopVariable() const {
        return nameOfLoopVariable(ParforStatementView(facts.construct.node));
    }

    template <typename Use>
    void forEachWrite(Use use) const {
        for (FlowNode node = 0; node < facts.graph.size(); ++node) {
            if (!facts.unwritten.isReachable(node)) continue;
            for (const kit::Access& access : facts.graph.accesses(node)) {
                if (access.index == index && kit::isWrite(access.kind)) use(access);
            }
        }
    }

    /// An `ans` that isn't in the text is written where its statement is.
    NodeView placeOfWrite(const kit::FlowPath& path) const {
        return path.access->kind == kit::AccessKind::ImplicitTarget
                   ? facts.graph.nodeAt(path.nodes.front())
                   : path.access->identifier;
    }

    Path pathOfWrite(const kit::FlowPath& path, const Place& written) const {
        Path steps{stepOfWrite(variable.name, written)};
        for (Step& step : decisionsOn(facts.graph, path.nodes, places))
            steps.push_back(std::move(step));
        return steps;
    }

    Path pathOfRead(const kit::FlowPath& path) const {
        Path steps = decisionsOn(facts.graph, path.nodes, places);
        steps.push_back(stepOfRead(variable.name, places.of(path.access->identifier),
                                   kit::isWrite(path.access->kind)));
        return steps;
    }

    std::string helpFor(const kit::CarriedValue& why) const {
        const boost::optional<NodeView> block = blockThatWrites(why.read.nodes);
        if (block) {
            const bool isReadInside = isIn(*block, readOffset(why.read.nodes));
            return helpToAssignBefore(variable.name, *block, places.of(*block), isReadInside);
        }
        const kit::Access& write = *why.write.access;
        const bool isWrittenWhole = write.kind == kit::AccessKind::WholeWrite;
        if (isWrittenWhole || own.isOwn(write))
            return helpToMakeIndependent(variable.name, isWrittenWhole);
        return own.isLoopVariableWritten() ? helpToLeaveLoopVariable(loopVariable())
                                           : helpToAssignWhole(variable.name, loopVariable());
    }

    /// The first block on the path to the read that would have written the variable whole on another
    /// path, before the read; or a loop that reads it first.
    boost::optional<NodeView> blockThatWrites(const std::vector<FlowNode>& path) const {
        const std::vector<std::size_t> writes = wholeWrites();
        for (const FlowNode node : path) {
            if (facts.graph.isPseudoNode(node)) continue;
            const NodeView statement = facts.graph.nodeAt(node);
            const bool mayHoldRead = isLoop(statement.getKind());
            if (!mayHoldRead && !isBranching(statement.getKind())) continue;
            const std::size_t read = readOffset(path);
            if (isIn(statement, read) && !(mayHoldRead && node != path.back())) continue;
            const auto write = std::lower_bound(writes.begin(), writes.end(),
                                                file.tree->beginOffset(statement) + 1);
            if (write != writes.end() && isIn(statement, *write)) return statement;
        }
        return boost::none;
    }

    static bool isLoop(NodeKind kind) {
        return kind == NodeKind::ForStatement || kind == NodeKind::WhileStatement;
    }
    static bool isBranching(NodeKind kind) {
        return kind == NodeKind::ParforStatement || kind == NodeKind::IfStatement ||
               kind == NodeKind::SwitchStatement || kind == NodeKind::TryStatement;
    }

    /// Of the statement at the end of a path.
    std::size_t readOffset(const std::vector<FlowNode>& path) const {
        return file.tree->beginOffset(facts.graph.nodeAt(path.back()));
    }
    bool isIn(NodeView block, std::size_t offset) const {
        return file.tree->beginOffset(block) <= offset && offset < file.tree->endOffset(block);
    }

    /// The offsets of the statements that write the variable whole, in source order.
    std::vector<std::size_t> wholeWrites() const {
        std::vector<std::size_t> offsets;
        for (FlowNode node = 1; node < facts.graph.exit(); ++node) {
            if (facts.graph.endsLiveness(node, index))
                offsets.push_back(file.tree->beginOffset(facts.graph.nodeAt(node)));
        }
        return offsets;
    }

    const ParsedFile& file;
    const ConstructFacts& facts;
    const OwnElements& own;
    const Variable& variable;
    const SymbolView symbol;
    const PlaceFinder& places;
    const std::uint64_t index;
};

} // namespace

std::optional<Remark> remarkOnRole(const ParsedFile& file, const ConstructFacts& facts,
                                   const OwnElements& own, const Variable& variable,
                                   SymbolView symbol, const PlaceFinder& places) {
    const RoleRemark remark(file, facts, own, variable, symbol, places);
    switch (variable.role) {
    case Role::Carried:
        return remark.carried();
    case Role::Shared:
        return remark.shared();
    case Role::LoopVariable:
        return remark.written();
    default:
        return {};
    }
}

} // namespace ostrel::report
