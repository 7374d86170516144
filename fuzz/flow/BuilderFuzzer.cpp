// Input: calls of two builders that share their variables, misuse included. What they say about
// each equation is compared with texts.
#include "Require.h"
#include "testing/Random.h"

#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

using namespace zt::orvex;
using fuzz::require;
using testing::Random;

namespace {

using Lattice = flow::PowerSetLattice<int>;
using Set = flow::BitSet<int>;
using Variable = flow::Variable<Set>;
using Terms = std::vector<flow::Term<Set>*>;

/// An equation as text, and the variables that it reads.
struct Plain {
    std::string text;
    std::vector<Variable*> reads;

    void append(const std::string& term, Variable* read) {
        text += term;
        if (read != nullptr && std::find(reads.begin(), reads.end(), read) == reads.end())
            reads.push_back(read);
    }
};

class Game {
public:
    explicit Game(Random& from) : random(from) {
        for (const char* name : {"a", "b", "c", "d", "e", "f"})
            variables.push_back(builders[name[0] % 2].createVariable(name));
    }

    void step() {
        const std::size_t which = random.below(2);
        Variable* const variable = random.pick(variables);
        switch (random.below(4)) {
        case 0:
            add(which, variable);
            break;
        case 1:
            extend(which, variable);
            break;
        case 2:
            if (random.oneIn(4)) builders[which].reserve(random.below(64));
            break;
        default:
            if (variables.size() < 60)
                variables.push_back(builders[which].createVariable(std::string(1, 'g')));
        }
        check(which, variable);
        check(1 - which, variable);
    }

    void finish() {
        for (std::size_t which = 0; which < 2; ++which) {
            const auto system = builders[which].build();
            require(system->equations().size() == plain[which].size(), "each equation");
            for (const auto* equation : system->equations())
                require(plain[which].count(equation->variable) != 0, "and no other");
        }
    }

private:
    void add(std::size_t which, Variable* variable) {
        const bool isKnown = plain[which].count(variable) != 0;
        Plain added;
        Terms terms;
        if (!random.oneIn(8)) {
            terms = {first(which, added)};
            appendTo(terms, which, added);
        }
        try {
            builders[which].addEquation(variable, terms.data(), terms.data() + terms.size());
            require(!isKnown && !terms.empty(), "the equation is accepted");
            plain[which][variable] = added;
        } catch (const std::invalid_argument& error) {
            const std::string known = "Equation already exists for this variable";
            const std::string empty = "The right-hand side of an equation cannot be empty";
            require(isKnown || terms.empty(), "only these are refused");
            require(error.what() == (isKnown ? known : empty), "the message");
        }
    }

    void extend(std::size_t which, Variable* variable) {
        const auto known = plain[which].find(variable);
        Plain added;
        Terms terms;
        appendTo(terms, which, added);
        try {
            builders[which].extendEquation(variable, terms.data(), terms.data() + terms.size());
            require(known != plain[which].end(), "there is an equation");
            known->second.text += added.text;
            for (Variable* const read : added.reads)
                known->second.append("", read);
        } catch (const std::invalid_argument& error) {
            require(known == plain[which].end(), "there is none");
            require(error.what() == std::string("Equation does not exist for this variable"),
                    "the message");
        }
    }

    flow::Term<Set>* first(std::size_t which, Plain& added) {
        if (random.oneIn(3)) {
            added.append("<names omitted in non-asserted builds", nullptr);
            return builders[which].createConstant(Set(universe));
        }
        Variable* const variable = random.pick(variables);
        added.append(variable->toString(), variable);
        return variable;
    }

    void appendTo(Terms& terms, std::size_t which, Plain& added) {
        for (std::size_t left = random.below(4); left > 0; --left) {
            Variable* const operand = random.pick(variables);
            const std::size_t kind = random.below(3);
            if (kind == 0) terms.push_back(builders[which].createJoin(operand));
            if (kind == 1) terms.push_back(builders[which].createMeet(operand));
            if (kind == 2) terms.push_back(builders[which].createMinus(operand));
            added.append(std::string(" ") + "U&-"[kind] + " " + operand->toString(), operand);
        }
    }

    void check(std::size_t which, Variable* variable) {
        const auto known = plain[which].find(variable);
        const auto* const equation = builders[which].equationOf(variable);
        require((equation != nullptr) == (known != plain[which].end()), "the equation exists");
        require(builders[which].hasEquation(variable) == (equation != nullptr), "or doesn't");
        if (equation == nullptr) return;
        std::string text;
        for (const flow::Term<Set>* term : equation->rightHandSide)
            text += term->toString();
        require(text == known->second.text, "its terms");
        const auto reads = equation->dependencies();
        require(std::equal(reads.begin(), reads.end(), known->second.reads.begin(),
                           known->second.reads.end()),
                "what it reads");
    }

    Random& random;
    flow::OrderedSet<int> universe{1, 2, 3};
    Lattice lattice{universe};
    flow::SystemOfEquationsBuilder<Lattice> builders[2] = {{lattice, nullptr}, {lattice, nullptr}};
    std::vector<Variable*> variables;
    std::map<Variable*, Plain> plain[2];
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    Game game(random);
    while (!random.isUsedUp())
        game.step();
    game.finish();
    return 0;
}
