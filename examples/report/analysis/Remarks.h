#pragma once

#include "report/model/Remark.h"
#include "report/model/Report.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/TypedViews.h>

#include <string>

namespace ostrel::report {

// What the remarks say; all writers use these texts. Places within a text are `line:column`.

/// At a read of what another iteration wrote at `written`, or at a partial write, which keeps it.
/// Without a help.
Remark remarkOnCarried(const std::string& name, const Place& read, const Place& written,
                       bool isPartialWrite);
Remark remarkOnShared(const std::string& name, const std::string& loopVariable, const Place& write);
Remark remarkOnLoopVariable(const std::string& name, const Place& write);

/// At a write whose value is read at `read` after the `parfor`.
Remark remarkOnUseAfter(const std::string& name, const Place& write, const Place& read,
                        const std::string& loopVariable);
/// The same, where the value is read by the caller of the function.
Remark remarkOnLostOutput(const std::string& name, const Place& write, const std::string& function,
                          const std::string& loopVariable);

/// At a `break` or `return`.
Remark remarkOnLeaving(ConstructKind kind, bool isReturn, const Place& place);
Remark remarkOnAns(ConstructKind kind, const Place& place);
Remark remarkOnRestricted(ConstructKind kind, const std::string& name, const Place& place);
Remark remarkOnUnknownPragma(const PragmaEntry& pragma);

// Other helps.

/// `block` writes the variable, but not on every path, or after the read inside it.
std::string helpToAssignBefore(const std::string& name, zt::orvex::NodeView block,
                               const Place& place, bool isReadInside);
std::string helpToAssignWhole(const std::string& name, const std::string& loopVariable);
/// The body writes its loop variable.
std::string helpToLeaveLoopVariable(const std::string& loopVariable);
std::string helpToMakeIndependent(const std::string& name, bool isWrittenWhole);

// The ends of a path.

Step stepOfWrite(const std::string& name, const Place& place);
Step stepOfRead(const std::string& name, const Place& place, bool isPartialWrite);
Step stepOfOutput(const std::string& name, const Place& end);

/// The name of the variable of a `parfor`.
std::string nameOfLoopVariable(zt::orvex::ParforStatementView loop);

} // namespace ostrel::report
