#pragma once

#include "flow/PlainSystem.h"
#include "testing/Random.h"

#include <cstddef>
#include <set>
#include <vector>

namespace zt::orvex::flow {

inline PlainSystem::Value randomValue(testing::Random& random, std::size_t elements) {
    PlainSystem::Value value;
    for (std::size_t left = random.below(4); left > 0; --left)
        value.set(random.below(elements));
    return value;
}

/// Up to `most` steps on any variables.
inline void addNoise(std::vector<PlainSystem::Term>& terms, testing::Random& random,
                     std::size_t variables, std::size_t most) {
    for (std::size_t left = random.below(most + 1); left > 0; --left) {
        const auto operand = static_cast<int>(random.below(variables));
        switch (random.below(5)) {
        case 0:
            terms.push_back(PlainSystem::meet(operand));
            break;
        case 1:
            terms.push_back(PlainSystem::minus(operand));
            break;
        default:
            terms.push_back(PlainSystem::join(operand));
        }
    }
}

/// Equations without any plan, some variables without one.
inline PlainSystem wildSystem(testing::Random& random, std::size_t count) {
    const std::size_t elements = random.oneIn(2) ? 4 : 128;
    PlainSystem plain;
    for (std::size_t i = 0; i < count; ++i) {
        plain.addVariable(random.oneIn(3) ? randomValue(random, elements) : PlainSystem::Value());
    }
    std::set<int> defined;
    for (std::size_t i = 0; i < count; ++i) {
        const auto variable = static_cast<int>(random.below(count));
        if (!defined.insert(variable).second) continue;
        std::vector<PlainSystem::Term> terms = {
            random.oneIn(3) ? PlainSystem::constant(randomValue(random, elements))
                            : PlainSystem::variable(static_cast<int>(random.below(count)))};
        addNoise(terms, random, count, random.oneIn(20) ? 20 : 3);
        plain.addEquation(variable, terms);
    }
    return plain;
}

/// Each variable reads its neighbours, and equations are created in order, so that values climb
/// against the order of evaluation; a little noise here and there.
inline PlainSystem climbingSystem(testing::Random& random, std::size_t count) {
    const std::size_t elements = random.oneIn(2) ? 4 : 128;
    PlainSystem plain;
    for (std::size_t i = 0; i < count; ++i)
        plain.addVariable();
    for (int i = 0; i < static_cast<int>(count); ++i) {
        std::vector<PlainSystem::Term> terms = {
            i == 0 ? PlainSystem::constant(randomValue(random, elements))
                   : PlainSystem::variable(i - 1)};
        if (i + 1 < static_cast<int>(count)) terms.push_back(PlainSystem::join(i + 1));
        if (random.oneIn(30)) addNoise(terms, random, count, 2);
        plain.addEquation(i, terms);
    }
    return plain;
}

inline PlainSystem randomSystem(testing::Random& random, std::size_t count) {
    return random.oneIn(4) ? climbingSystem(random, count) : wildSystem(random, count);
}

} // namespace zt::orvex::flow
