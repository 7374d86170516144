// Bit sets, graphs and equations.
#include "platform/Lines.h"
#include "platform/Sections.h"
#include "testing/Random.h"

#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/Digraph.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

namespace {

using Set = flow::BitSet<int>;
using Universe = flow::OrderedSet<int>;
using LatticeOfSets = flow::PowerSetLattice<int>;
using Builder = flow::SystemOfEquationsBuilder<LatticeOfSets>;

/// Elements that aren't their indices: 7, 10, 13 and so on.
Universe numbers(std::size_t count) {
    Universe universe;
    for (std::size_t i = 0; i < count; ++i)
        universe.add(static_cast<int>(7 + 3 * i));
    return universe;
}

std::string membersOf(const Set& set) {
    std::vector<std::string> members;
    set.forEachIndex([&](std::uint64_t index) { members.push_back(std::to_string(index)); });
    return joined(members);
}

Set randomSet(const Universe& universe, Random& random) {
    Set set(universe);
    const std::size_t density = 1 + random.below(6);
    for (const int element : universe) {
        if (random.oneIn(density)) set.add(element);
    }
    return set;
}

void probePair(const std::string& name, const Universe& universe, Random& random) {
    const Set a = randomSet(universe, random);
    const Set b = randomSet(universe, random);
    line(name + " a", membersOf(a));
    line(name + " b", membersOf(b));
    line(name + " compares", "equal " + shown(a == b) + " different " + shown(a != b) + " subset " +
                                 shown(a.isSubsetOf(b)) + " empty " + shown(a.isEmpty()) +
                                 " members " + std::to_string(a.toElementSet().size()) +
                                 " others " + std::to_string(a.toComplementElementSet().size()));
    Set both = a;
    both.unionWith(b);
    line(name + " union", membersOf(both) + " holds a " + shown(a.isSubsetOf(both)));
    Set common = a;
    common.intersectWith(b);
    line(name + " intersection", membersOf(common) + " in b " + shown(common.isSubsetOf(b)));
    Set rest = a;
    rest.subtract(b);
    line(name + " difference", membersOf(rest) + " equals a " + shown(rest == a));
    line(name + " smallest", outcome([&] { return std::to_string(a.getSmallestElement()); }));
    const std::uint64_t from = random.below(universe.size() + 2);
    line(name + " smallest from " + std::to_string(from),
         outcome([&] { return std::to_string(a.getSmallestElementStartingFromIndex(from)); }));
}

void probeGrowth(std::size_t before, std::size_t after) {
    Universe universe = numbers(before);
    Set set(universe);
    set.addAll();
    for (std::size_t i = before; i < after; ++i)
        universe.add(-static_cast<int>(i) - 1);
    const std::string name =
        "growth from " + std::to_string(before) + " to " + std::to_string(after);
    line(name + " before it is used", std::to_string(set.bitCount()) + " bits");
    line(name, std::to_string(set.toElementSet().size()) + " members");
    line(name + " afterwards", std::to_string(set.bitCount()) + " bits");
    line(name + " of a stranger", outcome([&] { return shown(set.contains(1)); }));
    set.addAll();
    line(name + " filled", std::to_string(set.toElementSet().size()));
}

class Visits : public flow::DfsCallback<int> {
public:
    std::vector<std::string> seen;

    void preVisit(const int& node) override { seen.push_back("+" + std::to_string(node)); }
    void postVisit(const int& node) override { seen.push_back("-" + std::to_string(node)); }
};

/// A random system, with its variables.
struct System {
    Universe universe = numbers(70);
    LatticeOfSets lattice{universe};
    Builder builder{lattice, nullptr};
    std::vector<flow::Variable<Set>*> variables;

    flow::Term<Set>* randomTerm(Random& random, bool isFirst) {
        const std::size_t choice = random.below(isFirst ? 2 : 4);
        flow::Variable<Set>* const operand = random.pick(variables);
        if (isFirst && choice == 0) return builder.createConstant(randomSet(universe, random));
        if (isFirst) return operand;
        if (choice == 0) return builder.createMeet(operand);
        if (choice == 1) return builder.createMinus(operand);
        return builder.createJoin(operand);
    }

    std::string addRandomEquation(flow::Variable<Set>* variable, Random& random) {
        std::vector<flow::Term<Set>*> terms;
        for (std::size_t left = 1 + random.below(4); left > 0; --left)
            terms.push_back(randomTerm(random, terms.empty()));
        builder.addEquation(variable, terms.data(), terms.data() + terms.size());
        std::string text;
        for (const flow::Term<Set>* term : terms)
            text += term->toString();
        return text;
    }
};

void probeSystem(const std::string& name, Random& random) {
    System system;
    for (std::size_t left = 2 + random.below(7); left > 0; --left)
        system.variables.push_back(system.builder.createVariable(""));
    for (std::size_t i = 0; i < system.variables.size(); ++i) {
        if (random.oneIn(6)) continue; // a variable without an equation
        line(name + " equation " + std::to_string(i),
             system.addRandomEquation(system.variables[i], random));
    }
    const auto solved = system.builder.build();
    line(name + " settles after", outcome([&] { return std::to_string(solved->solve()); }));
    for (std::size_t i = 0; i < system.variables.size(); ++i)
        line(name + " value " + std::to_string(i), membersOf(system.variables[i]->value()));
}

/// A chain of equations in the order that takes most sweeps: each reads the one made before it.
void probeChain(std::size_t length) {
    System system;
    flow::Variable<Set>* previous = nullptr;
    flow::Variable<Set>* first = nullptr;
    Set everything(system.universe);
    everything.addAll();
    for (std::size_t i = 0; i < length; ++i) {
        flow::Variable<Set>* const variable = system.builder.createVariable("");
        if (previous == nullptr) {
            first = variable;
            system.builder.addEquation(variable, {system.builder.createConstant(everything)});
        } else {
            system.builder.addEquation(variable, {previous});
        }
        previous = variable;
    }
    system.builder.extendEquation(first, {system.builder.createJoin(previous)});
    line("chain of " + std::to_string(length) + " settles after",
         outcome([&] { return std::to_string(system.builder.build()->solve()); }));
}

void probeMisuse() {
    System system;
    flow::Variable<Set>* const x = system.builder.createVariable("");
    line("equation without terms", outcome([&] {
             system.builder.addEquation(x, {});
             return "nothing";
         }));
    line("extension of no equation", outcome([&] {
             system.builder.extendEquation(x, {x});
             return "nothing";
         }));
    line("two equations", outcome([&] {
             system.builder.addEquation(x, {x});
             system.builder.addEquation(x, {x});
             return "nothing";
         }));
    line("system without equations", outcome([] {
             System empty;
             return std::to_string(empty.builder.build()->solve());
         }));
    line("system that never settles", outcome([] {
             System swinging;
             flow::Variable<Set>* const first = swinging.builder.createVariable("");
             flow::Variable<Set>* const second = swinging.builder.createVariable("");
             Set one(swinging.universe);
             one.add(7);
             swinging.builder.addEquation(first, {swinging.builder.createConstant(one),
                                                  swinging.builder.createMinus(second)});
             swinging.builder.addEquation(second, {first});
             return std::to_string(swinging.builder.build()->solve());
         }));
}

} // namespace

void probeBitSets() {
    Random random(1);
    for (const std::size_t size : {0U, 1U, 2U, 63U, 64U, 65U, 127U, 128U, 129U, 200U, 260U}) {
        const Universe universe = numbers(size);
        for (const char* which : {"first", "second"})
            probePair("sets over " + std::to_string(size) + " " + which, universe, random);
    }
    const std::pair<std::size_t, std::size_t> growths[] = {{0, 1},   {1, 2},   {63, 64},
                                                           {64, 65}, {65, 66}, {64, 300}};
    for (const auto& [before, after] : growths)
        probeGrowth(before, after);
    Universe universe = numbers(3);
    line("index of a stranger", outcome([&] { return std::to_string(universe.indexOf(8)); }));
}

void probeGraphs() {
    Random random(2);
    for (std::size_t number = 0; number < 12; ++number) {
        flow::Digraph<int> graph;
        const std::size_t nodes = 1 + random.below(12);
        for (std::size_t left = random.below(3 * nodes); left > 0; --left) {
            const auto from = static_cast<int>(random.below(nodes));
            const auto to = static_cast<int>(random.below(nodes));
            graph.addEdge(from, to);
        }
        const std::string name = "graph " + std::to_string(number);
        Visits visits;
        graph.traverseDepthFirst(visits);
        line(name + " visited", joined(visits.seen));
        const auto order = graph.inReversePostOrder();
        std::vector<std::string> texts;
        for (const int node : *order)
            texts.push_back(std::to_string(node));
        line(name + " in reverse postorder", joined(texts));
        line(name + " successors of a stranger",
             outcome([&] { return std::to_string(graph.successors(100).size()); }));
    }
}

void probeEquations() {
    Random random(3);
    for (std::size_t number = 0; number < 20; ++number)
        probeSystem("system " + std::to_string(number), random);
    for (const std::size_t length : {1U, 2U, 10U, 900U})
        probeChain(length);
    probeMisuse();
}

} // namespace zt::orvex::testing
