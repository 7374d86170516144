#pragma once

#include "tree/TreeStorage.h"

#include <unordered_set>
#include <vector>

namespace ostrel {

/// Which names of one scope are variables, as far as the parser can know while it reads.
///
/// Whether `a b` is a command and whether `x` alone names a variable depends on all writes of the
/// scope, also on those further down. So a scope is read on the assumption that what is not written
/// yet never is; when a write further down proves that wrong, it is read once more with what the
/// look before has found.
///
///     VariableGuess guess;
///     do { read(guess); } while (guess.startAnotherLook());
class VariableGuess {
public:
    void write(NameId name) { written.insert(name); }

    /// Whether `name` is taken for a variable. The answer is remembered if it may prove wrong.
    bool isVariable(NameId name) {
        if (written.count(name) != 0 || writtenBefore.count(name) != 0) return true;
        refused.push_back(name);
        return false;
    }

    /// Whether an answer proved wrong; then everything is set for reading the scope again.
    ///
    /// A new reading may find new writes, which changes the reading once more. That takes a text
    /// made for it, and the number of looks is limited, so that time stays linear.
    bool startAnotherLook() {
        if (looks == MAX_LOOKS || !hasErred()) return false;
        ++looks;
        writtenBefore.insert(written.begin(), written.end());
        written.clear();
        refused.clear();
        return true;
    }

private:
    static constexpr int MAX_LOOKS = 4;

    bool hasErred() const {
        for (const NameId name : refused) {
            if (written.count(name) != 0) return true;
        }
        return false;
    }

    int looks = 1;
    std::unordered_set<NameId> written;
    std::unordered_set<NameId> writtenBefore;
    std::vector<NameId> refused;
};

} // namespace ostrel
