#pragma once

#include "tree/CheckPath.h"

#include <zt_orvex_kit/tree/Finding.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zt::orvex::kit::internal {

/// A question that a check asks.
///
/// Without a kind it is about the child that the path is at: the top's accessor, or the kind of what
/// that returned. With a kind it is about the node there, such as an identifier's name, and the
/// place gets one step more.
struct Question {
    const char* operation;
    NodeView node;
    NodeKind kind = NodeKind::Invalid;
};

/// The findings of a check, up to a limit.
class CheckReport {
public:
    CheckReport(const CheckPath& of, std::size_t most) : path(of), limit(most) {}

    [[gnu::cold, gnu::noinline]] void add(FindingCode code, const Question& question,
                                          std::string advice,
                                          std::optional<SymbolView> symbol = std::nullopt);
    /// About the tree as a whole.
    [[gnu::cold, gnu::noinline]] void addAtRoot(FindingCode code, std::optional<NodeView> node,
                                                std::string advice,
                                                std::optional<SymbolView> symbol = std::nullopt);

    // The findings about questions themselves.
    [[gnu::cold, gnu::noinline]] void addException(const Question& question, const char* what);
    [[gnu::cold, gnu::noinline]] void addChange(const Question& question, const std::string& first,
                                                const std::string& second);

    /// Whether there was a finding beyond the limit, so that the check must end.
    bool isFull() const { return isBeyondLimit; }
    std::vector<Finding> take() { return std::move(findings); }

private:
    void append(Finding finding);

    const CheckPath& path;
    std::size_t limit;
    bool isBeyondLimit = false;
    std::vector<Finding> findings;
};

} // namespace zt::orvex::kit::internal
