#pragma once

#include "report/analysis/ConstructFacts.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>
#include <zt_orvex_kit/body/Access.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace ostrel::report {

/// Which uses in the body of a `parfor` are of the iteration's own elements: those whose index,
/// directly after the name, has the bare loop variable at a certain position, as in `x(k)` or
/// `a(:, k)`.
///
/// The library has no such rule. It finds `x` live in `x(k) = x(k) + 1`, because an iteration reads
/// it before it has written all of it, and that alone would look like a carried value. But nothing
/// is carried if no two iterations use the same element.
///
/// A use that removes elements, `x(k) = []`, moves the others, and so isn't one of this kind. If the
/// body writes the loop variable, none is.
class OwnElements {
public:
    /// `facts` are those of a `parfor`. Cost: linear in its body.
    explicit OwnElements(const ConstructFacts& facts);

    /// Whether every use of the variable has the loop variable at one and the same position of an
    /// index, among equally many subscripts. Then no two iterations use the same element.
    bool hasOnlyOwn(zt::orvex::SymbolView variable) const;

    /// Whether what is read here can't have come from another iteration: the use has the loop
    /// variable where all writes of the variable have it. The same of a write: whether no other
    /// iteration writes the same element.
    bool isOwn(const zt::orvex::kit::Access& access) const;

    /// Whether the use has the loop variable, bare, in its index.
    bool isIndexedByLoopVariable(const zt::orvex::kit::Access& access) const;

    /// Whether the body writes the loop variable. Then nothing is known of any index.
    bool isLoopVariableWritten() const { return loopVariableIsWritten; }

private:
    /// Where an index has the loop variable.
    struct IndexShape {
        std::size_t size = 0;
        std::vector<std::size_t>
            places; ///< Sorted; the subscripts that are the bare loop variable.
    };
    using Shapes = std::unordered_map<zt::orvex::SymbolView, IndexShape>;
    class Finder;

    /// Keeps the places that both have. Shapes of different sizes have none in common.
    static void restrict(IndexShape& known, const IndexShape& shape);
    static void restrict(Shapes& shapes, zt::orvex::SymbolView variable, const IndexShape& shape);

    std::unordered_map<zt::orvex::NodeView, IndexShape> indexed; ///< By the name before the index.
    Shapes uses;   ///< What all uses of a variable have in common.
    Shapes writes; ///< Likewise, of the writes.
    bool loopVariableIsWritten = false;
};

} // namespace ostrel::report
