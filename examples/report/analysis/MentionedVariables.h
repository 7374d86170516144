#pragma once

#include "frontend/ParsedFile.h"

#include <zt_orvex/ast/SymbolView.h>

#include <cstddef>
#include <vector>

namespace ostrel::report {

/// The variables that each construct of a file names.
///
/// They are all that the analyses of a construct need to know. A variable of the scope that a
/// construct doesn't name is neither read nor written there, so the library never finds it live. But
/// given as part of the universe, it costs a bit in each set, and a scope may have thousands of such
/// variables and of constructs.
class MentionedVariables {
public:
    /// Refers to `parsed`. Cost: linear in the symbols.
    explicit MentionedVariables(const ParsedFile& parsed);

    /// The variables of the scope that the construct names, its head, its nested constructs and an
    /// implicit `ans` included, in the order of the scope's universe. Cost: linear in the
    /// construct, and sorting.
    std::vector<zt::orvex::SymbolView> in(const ostrel::Construct& construct) const;

private:
    const ParsedFile& file;
    std::vector<std::size_t> ranks; ///< The place of each symbol in the universe of its scope.
};

} // namespace ostrel::report
