#pragma once

#include "testing/FakeAst.h"

#include <string>

namespace zt::orvex::testing {

/// Writes down all that a walk of a FakeAst asks and calls, in the form of the traces of
/// WalkTraces.h.
///
/// Takes the place of the tree's `onCall`.
class WalkLog {
public:
    explicit WalkLog(FakeAst& ast);

    /// To be called by the walk's callback.
    void visited(const NodeView& node);

    const std::string& text() const { return log; }

private:
    void append(const std::string& token);
    void asked(const FakeAst& ast, const Call& call);

    std::string log;
    std::uint64_t lastAsked = 0; // The node whose kind was asked last.
};

} // namespace zt::orvex::testing
