#pragma once

#include "testing/FakeAst.h"

#include <string>

namespace zt::orvex::testing {

/// Logs what a walk of a FakeAst asks and which nodes it visits, in the form of the traces in
/// WalkTraces.h.
///
/// Replaces the tree's `onCall`.
class WalkLog {
public:
    explicit WalkLog(FakeAst& ast);

    /// The walk's callback calls this.
    void visited(const NodeView& node);

    const std::string& text() const { return log; }

private:
    void append(const std::string& token);
    void asked(const FakeAst& ast, const Call& call);

    std::string log;
    std::uint64_t lastAsked = 0; // The node whose kind was asked last.
};

} // namespace zt::orvex::testing
