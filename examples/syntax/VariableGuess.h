#pragma once

#include "tree/TreeStorage.h"

#include <unordered_set>
#include <vector>

namespace ostrel {

/// The parser's assumption about which names of a scope are variables.
///
/// Whether `a b` is a command, and whether `x` alone names a variable, depends on all writes in the
/// scope, including later ones. So a scope is parsed on the assumption that a name not written yet
/// never is; if a later write proves that wrong, the scope is parsed again with what the previous
/// pass has found.
///
///     VariableGuess guess;
///     do { read(guess); } while (guess.startAnotherPass());
class VariableGuess {
public:
    void write(NameId name) { written.insert(name); }

    /// Whether `name` is assumed to be a variable. Remembers an answer that may prove wrong.
    bool isVariable(NameId name) {
        if (written.count(name) != 0 || writtenBefore.count(name) != 0) return true;
        refused.push_back(name);
        return false;
    }

    /// Whether an answer proved wrong. If so, prepares for parsing the scope again.
    ///
    /// Another pass may find new writes, and so need yet another. That takes a contrived text, and
    /// the number of passes is limited, so that time stays linear.
    bool startAnotherPass() {
        if (passes == MAX_PASSES || !hasErred()) return false;
        ++passes;
        writtenBefore.insert(written.begin(), written.end());
        written.clear();
        refused.clear();
        return true;
    }

private:
    static constexpr int MAX_PASSES = 4;

    bool hasErred() const {
        for (const NameId name : refused) {
            if (written.count(name) != 0) return true;
        }
        return false;
    }

    int passes = 1;
    std::unordered_set<NameId> written;
    std::unordered_set<NameId> writtenBefore;
    std::vector<NameId> refused;
};

} // namespace ostrel
