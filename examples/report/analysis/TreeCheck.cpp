#include "report/analysis/TreeCheck.h"

#include "terminal/Complaint.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/tree/CheckTree.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <ostream>
#include <sstream>
#include <vector>

namespace ostrel::report {

using namespace zt::orvex;

namespace {

using Findings = std::vector<kit::Finding>;

Findings check(const NodeView& root, const ostrel::Scope& scope) {
    const flow::OrderedSet<SymbolView> universe(scope.universe.begin(), scope.universe.end());
    kit::CheckTreeOptions options;
    options.universe = &universe;
    options.ans = scope.ans;
    return kit::checkTree(root, options);
}

/// Whether only the check against the right universe finds it.
bool isAboutUniverse(const kit::Finding& finding) {
    return finding.code == kit::FindingCode::UniverseLacks ||
           finding.code == kit::FindingCode::AnsMisnamed;
}

/// The whole tree first, with the variables of the script. The constructs of the other scopes then
/// need only be held against their own; a nested construct is checked as a part of the outermost.
/// None has to name all variables of its scope.
Findings check(const ParsedFile& file) {
    constexpr std::size_t SCRIPT = 0;
    Findings all = check(file.root, file.scopes[SCRIPT]);
    std::size_t end = 0;
    for (const ostrel::Construct& construct : file.constructs) {
        if (construct.scope == SCRIPT || construct.offset < end) continue;
        end = file.tree->endOffset(construct.node);
        const Findings found = check(construct.node, file.scopes[construct.scope]);
        std::copy_if(found.begin(), found.end(), std::back_inserter(all), isAboutUniverse);
    }
    return all;
}

} // namespace

bool isTreeCorrect(const ParsedFile& file, std::ostream& errors) {
    const Findings findings = check(file);
    for (const kit::Finding& finding : findings) {
        std::ostringstream line;
        line << "the tree of '" << file.path << "' is wrong: " << finding;
        errors << complaint("orvex-report", line.str());
    }
    return findings.empty();
}

} // namespace ostrel::report
