// A program of its own: it replaces the global allocation functions.

#include "testing/Exhaustion.h"
#include "flow/TestElements.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/flow/BitSet.h>
#include <zt_orvex/flow/Digraph.h>
#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SmallOrderedSet.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using testing::expectAllOrNothing;
using testing::expectRightOrThrow;

using Names = std::vector<std::string>;

/// Too long to be kept inside a string object.
std::string longName(int number) {
    return "an element with a long name, " + std::to_string(number);
}

Names elementsOf(const OrderedSet<std::string>& set) { return {set.begin(), set.end()}; }

TEST(OrderedSetExhaustion, AddingIsAllOrNothingAtEverySize) {
    for (int size = 0; size < 40; ++size) {
        const auto make = [&] {
            auto set = std::make_unique<OrderedSet<std::string>>();
            for (int i = 0; i < size; ++i)
                set->add(longName(i));
            return set;
        };
        expectAllOrNothing(
            make, [&](auto& set) { set.add(longName(size)); }, elementsOf);
        expectAllOrNothing(
            make, [&](auto& set) { set.reserve(500); }, elementsOf);
    }
    expectRightOrThrow([] {
        const Names names = {longName(1), longName(2), longName(1)};
        return elementsOf(OrderedSet<std::string>(names.begin(), names.end()));
    });
}

TEST(SmallOrderedSetExhaustion, EveryOperationIsAllOrNothing) {
    using Set = SmallOrderedSet<int>;
    const auto show = [](const Set& set) { return std::vector<int>(set.begin(), set.end()); };
    const auto make = [](int first, int count) {
        auto set = std::make_unique<Set>();
        for (int i = first; i < first + count; ++i)
            set->insert(i);
        return set;
    };
    for (int size = 0; size < 40; ++size) {
        expectAllOrNothing([&] { return make(0, size); }, [&](Set& set) { set.insert(size); },
                           show);
        for (const int other : {1, 4, 5, 20, 41}) {
            using Pair = std::pair<std::unique_ptr<Set>, std::unique_ptr<Set>>;
            expectAllOrNothing(
                [&] { return std::make_unique<Pair>(make(0, size), make(size / 2, other)); },
                [](Pair& sets) { sets.first->merge(*sets.second); },
                [&](const Pair& sets) {
                    return std::make_pair(show(*sets.first), show(*sets.second));
                });
        }
    }
}

TEST(BitSetExhaustion, GrowthAndCopiesAreAllOrNothing) {
    struct State {
        OrderedSet<int> universe = numbers(60);
        BitSet<int> set = setOf(universe, {1, 59});
        BitSet<int> other = setOf(universe, {2, 59});
        State() { growTo(universe, 130); }
    };
    const auto make = [] { return std::make_unique<State>(); };
    const auto show = [](const State& state) {
        // Copies, so that looking doesn't grow the sets of the state.
        return std::make_pair(indicesOf(BitSet<int>(state.set)),
                              indicesOf(BitSet<int>(state.other)));
    };
    // Looking grows a set, so the state is looked at in the end only.
    const auto expectGood = [&](auto operate) {
        testing::expectNoTraceInTheEnd(make, operate, show);
    };
    expectGood([](State& state) { state.set.add(number(129)); });
    expectGood([](State& state) { state.set.remove(number(1)); });
    expectGood([](State& state) { static_cast<void>(state.set.contains(number(129))); });
    expectGood([](State& state) { state.set.clear(); });
    expectGood([](State& state) { state.set.addAll(); });
    expectGood([](State& state) { state.set.unionWith(state.other); });
    expectGood([](State& state) { state.set.intersectWith(state.other); });
    expectGood([](State& state) { state.set.subtract(state.other); });
    expectGood([](State& state) { state.set = state.other; });
    expectGood([](State& state) { state.set = std::move(state.other); });
    expectGood([](State& state) {
        state.other.growToUniverse();
        state.set.assign(state.other);
    });
    expectRightOrThrow([] {
        const OrderedSet<int> universe = numbers(130);
        const BitSet<int> set = setOf(universe, {0, 64, 129});
        return std::make_pair(set.toElementSet(), BitSet<int>(set).toComplementElementSet());
    });
}

TEST(DigraphExhaustion, EveryOperationIsAllOrNothingButForTheEndsOfAnEdge) {
    using Graph = Digraph<std::string>;
    const auto make = [](int size) {
        auto graph = std::make_unique<Graph>();
        for (int i = 0; i < size; ++i) {
            graph->addNode(longName(i));
            if (i > 0) graph->addEdge(longName(0), longName(i));
        }
        return graph;
    };
    const auto show = [](const Graph& graph) {
        std::vector<Names> shown = {*graph.inReversePostOrder()};
        for (const std::string& node : Names(shown.front())) {
            Names& successors = shown.emplace_back();
            for (const std::string& successor : graph.successors(node))
                successors.push_back(successor);
        }
        return shown;
    };
    for (int size = 0; size < 20; ++size) {
        const auto makeThis = [&] { return make(size); };
        expectAllOrNothing(
            makeThis, [&](Graph& graph) { graph.addNode(longName(size)); }, show);
        expectAllOrNothing(
            makeThis, [&](Graph& graph) { graph.reserve(100); }, show);
        // Its ends may have become nodes before the edge failed.
        testing::expectNoTraceInTheEnd(
            makeThis, [&](Graph& graph) { graph.addEdge(longName(1), longName(size)); }, show);
        expectRightOrThrow([&] { return *make(size)->inReversePostOrder(); });
    }
}

using Lattice = PowerSetLattice<int>;
using Builder = SystemOfEquationsBuilder<Lattice>;
using Value = BitSet<int>;

/// A builder with `size` variables, each with an equation that reads the one before.
struct Chain {
    explicit Chain(int size) {
        variables.push_back(builder.createVariable(longName(0)));
        builder.addEquation(variables[0], {builder.createConstant(setOf(universe, {1, 129}))});
        for (int i = 1; i < size; ++i) {
            variables.push_back(builder.createVariable(longName(i)));
            builder.addEquation(variables.back(),
                                {variables[variables.size() - 2],
                                 builder.createJoin(variables[variables.size() - 2])});
        }
    }

    std::vector<std::set<int>> solution() {
        builder.build()->solve();
        std::vector<std::set<int>> values;
        for (const Variable<Value>* variable : variables)
            values.push_back(indicesOf(variable->value()));
        return values;
    }

    OrderedSet<int> universe = numbers(130);
    Lattice lattice{universe};
    Builder builder{lattice, nullptr};
    std::vector<Variable<Value>*> variables;
};

TEST(SystemOfEquationsExhaustion, BuildingAndSolvingIsRightOrThrows) {
    for (const int size : {1, 2, 31, 33, 70})
        expectRightOrThrow([&] { return Chain(size).solution(); });
}

TEST(SystemOfEquationsExhaustion, EveryStepOfBuildingMayBeTriedAgain) {
    for (const int size : {1, 2, 31, 32, 33}) {
        const auto expectGood = [&](auto operate) {
            testing::expectNoTraceInTheEnd([&] { return std::make_unique<Chain>(size); }, operate,
                                           [](Chain& chain) { return chain.solution(); });
        };
        expectGood([](Chain& chain) { chain.builder.createVariable(longName(77)); });
        expectGood([](Chain& chain) { chain.builder.createConstant(Value(chain.universe)); });
        expectGood([](Chain& chain) { chain.builder.createJoin(chain.variables[0]); });
        expectGood([](Chain& chain) { chain.builder.createMeet(chain.variables[0]); });
        expectGood([](Chain& chain) { chain.builder.createMinus(chain.variables[0]); });
        expectGood([](Chain& chain) { chain.builder.reserve(1000); });
        expectGood([](Chain& chain) { chain.builder.build(); });
        expectGood([](Chain& chain) { chain.solution(); });
        expectGood([](Chain& chain) {
            chain.builder.extendEquation(chain.variables[0],
                                         {chain.builder.createMinus(chain.variables.back()),
                                          chain.builder.createJoin(chain.variables.back())});
        });
    }
}

TEST(SystemOfEquationsExhaustion, AddingAnEquationIsAllOrNothing) {
    struct State {
        Chain chain{33};
        Variable<Value>* added = chain.builder.createVariable("");
    };
    expectAllOrNothing(
        [] { return std::make_unique<State>(); },
        [](State& state) {
            state.chain.builder.addEquation(state.added, {state.chain.variables[32]});
        },
        [](const State& state) { return state.chain.builder.hasEquation(state.added); });
}

TEST(SystemOfEquationsExhaustion, SolvingGrownSetsIsRightOrThrows) {
    struct State {
        Chain chain{5};
        std::shared_ptr<SystemOfEquations<Lattice>> system = chain.builder.build();
        State() { growTo(chain.universe, 1000); }
    };
    testing::expectNoTraceInTheEnd([] { return std::make_unique<State>(); },
                                   [](State& state) { state.system->solve(); },
                                   [](State& state) { return state.chain.solution(); });
}

TEST(VariableFamilyExhaustion, FailureKeepsNothing) {
    struct State {
        explicit State(std::uint64_t size) {
            for (std::uint64_t i = 0; i < size; ++i)
                family.at(node(i));
        }
        static NodeView node(std::uint64_t handle) { return NodeView{handle, nullptr}; }

        Chain chain{1};
        VariableFamily<Value> family = chain.builder.createVariableFamily("family", true);
    };
    for (std::uint64_t size = 0; size < 40; ++size)
        testing::expectNoTraceInTheEnd([&] { return std::make_unique<State>(size); },
                                       [&](State& state) { state.family.at(State::node(size)); },
                                       [&](State& state) {
                                           std::set<Variable<Value>*> distinct;
                                           for (std::uint64_t i = 0; i <= size; ++i) {
                                               EXPECT_NE(state.family.at(State::node(i)), nullptr);
                                               distinct.insert(state.family.at(State::node(i)));
                                           }
                                           return distinct.size();
                                       });
}

TEST(TermsExhaustion, TextAndDependenciesAreRightOrThrow) {
    Chain chain(2);
    Term<Value>* const join = chain.builder.createJoin(chain.variables[0]);
    expectRightOrThrow([&] { return join->toString(); });
    expectRightOrThrow([&] { return chain.variables[0]->toString(); });
    expectRightOrThrow([&] {
        DependencySet<Value> dependencies;
        join->collectDependencies(dependencies);
        return dependencies.size();
    });
}

} // namespace
} // namespace zt::orvex::flow
