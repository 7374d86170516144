// Keeps docs/dataflow.md true. The page carries one small program from its statements to its
// equations and its solution; this file builds those equations and prints what the page shows.

#include <zt_orvex/flow/PowerSetLattice.h>
#include <zt_orvex/flow/SystemOfEquationsBuilder.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::flow {
namespace {

using NameSet = BitSet<std::string>;
using Names = std::vector<std::string>;

std::string readFile(const std::string& name) {
    std::ifstream file(std::string(ZT_ORVEX_SOURCE_DIR) + "/" + name);
    EXPECT_TRUE(file.is_open()) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The fenced block of the page that follows the mark `<!-- checked: name -->`.
std::string blockOf(const std::string& page, const std::string& name) {
    const std::size_t mark = page.find("<!-- checked: " + name + " -->");
    const std::size_t fence = page.find("```", mark);
    const std::size_t begin = page.find('\n', fence) + 1;
    const std::size_t end = page.find("```", begin);
    if (mark == std::string::npos || end == std::string::npos) return "no block of that name";
    return page.substr(begin, end - begin);
}

/// The sets of a lattice of names, printed in the order of the universe.
std::string textOf(const NameSet& set, const OrderedSet<std::string>& universe) {
    std::string text;
    set.forEachIndex([&](std::uint64_t index) {
        text += (text.empty() ? "" : ", ") + universe.elementAt(index);
    });
    return "{" + text + "}";
}

/// Passes all on to a lattice of sets, and calls back before each evaluation of an equation: every
/// right-hand side begins with its only `assign`.
class WatchedLattice final : public Lattice<NameSet> {
public:
    explicit WatchedLattice(const OrderedSet<std::string>& universe) : inner(universe) {}

    bool isLessOrEqual(const NameSet& a, const NameSet& b) const override {
        return inner.isLessOrEqual(a, b);
    }
    NameSet bottom() const override { return inner.bottom(); }
    void setToBottom(NameSet& value) const override { inner.setToBottom(value); }
    void assign(NameSet& target, const NameSet& source) const override {
        beforeEvaluation();
        inner.assign(target, source);
    }
    void joinInto(NameSet& target, const NameSet& other) const override {
        inner.joinInto(target, other);
    }
    void meetInto(NameSet& target, const NameSet& other) const override {
        inner.meetInto(target, other);
    }
    void minusInto(NameSet& target, const NameSet& other) const override {
        inner.minusInto(target, other);
    }

    std::function<void()> beforeEvaluation = [] {};

private:
    PowerSetLattice<std::string> inner;
};

/// The page's program:
///
///     for k = 1:n        F  reads n, writes k
///         if c           I  reads c
///             break;     B
///         end
///         s = k;         S  reads k, writes s
///     end
///     y = s;             Y  reads s, writes y
///
/// Edges: entry -> F, F -> I, I -> B, I -> S, S -> F, F -> Y, B -> Y, Y -> exit. The equations are
/// written in the order in which the analysis of statements writes them.
class Program {
public:
    explicit Program(bool isMust) : meets(isMust) {
        enter("entry", {}, {});
        enter("F", {"n"}, {"k"});
        connect("entry", "F");
        enter("I", {"c"}, {});
        connect("F", "I");
        enter("B", {}, {});
        connect("I", "B");
        enter("S", {"k"}, {"s"});
        connect("I", "S");
        connect("S", "F");
        enter("Y", {"s"}, {"y"});
        connect("F", "Y");
        connect("B", "Y");
        enter("exit", {}, {});
        connect("Y", "exit");
    }

    /// The equations of `liveIn` and `liveOut`, in order of creation.
    std::string equationText() const {
        std::string text;
        for (const auto* variable : defined) {
            if (isTransfer(variable)) continue;
            text += variable->toString() + " = ";
            for (const auto* term : builder.equationOf(variable)->rightHandSide) {
                text += term->toString();
            }
            text += "\n";
        }
        return text;
    }

    std::string orderText() {
        const auto system = builder.build();
        Names lines = {""};
        for (const auto* equation : system->equations()) {
            if (isTransfer(equation->variable)) continue;
            const std::string name = equation->variable->toString();
            if (lines.back().size() + name.size() > 60) lines.push_back("");
            lines.back() += (lines.back().empty() ? "" : ", ") + name;
        }
        std::string text;
        for (const std::string& line : lines)
            text += line + "\n";
        return text;
    }

    /// `liveIn` of each node after each sweep, a line for each node.
    std::string sweepText() {
        const auto system = builder.build();
        std::map<std::string, std::string> rows;
        const auto record = [&] {
            for (const std::string& node : nodes) {
                std::string cell = textOf(variables.at("liveIn " + node)->value(), universe);
                cell.resize(std::max<std::size_t>(cell.size(), 14), ' ');
                rows[node] += cell;
            }
        };
        std::size_t evaluations = 0;
        lattice.beforeEvaluation = [&] {
            if (evaluations != 0 && evaluations % defined.size() == 0) record();
            ++evaluations;
        };
        const auto sweeps = system->solve();
        lattice.beforeEvaluation = [] {};
        record();
        std::string text = "liveIn  ";
        for (std::uint64_t sweep = 1; sweep <= sweeps; ++sweep) {
            text += "sweep " + std::to_string(sweep) + "       ";
        }
        text = trimmed(text) + "\n";
        for (const std::string& node : nodes) {
            std::string head = node;
            head.resize(8, ' ');
            text += trimmed(head + rows[node]) + "\n";
        }
        return text;
    }

    std::string liveAtEntry() const {
        return textOf(variables.at("liveIn entry")->value(), universe);
    }

private:
    using NameVariable = Variable<NameSet>;

    static std::string trimmed(std::string text) {
        text.erase(text.find_last_not_of(' ') + 1);
        return text;
    }

    static bool isTransfer(const NameVariable* variable) {
        return variable->toString()[0] != 'l'; // gen and kill
    }

    NameVariable* at(const std::string& name) {
        NameVariable*& variable = variables[name];
        if (variable == nullptr) variable = builder.createVariable(name);
        return variable;
    }

    Constant<NameSet>* setOfNames(const Names& names) {
        NameSet set(universe);
        for (const std::string& name : names)
            set.add(name);
        return builder.createConstant(set);
    }

    void define(NameVariable* variable, std::initializer_list<Term<NameSet>*> terms) {
        builder.addEquation(variable, terms);
        defined.push_back(variable);
    }

    void enter(const std::string& node, const Names& reads, const Names& writes) {
        nodes.push_back(node);
        define(at("gen " + node), {setOfNames(reads)});
        define(at("kill " + node), {setOfNames(writes)});
        define(at("liveIn " + node),
               {at("liveOut " + node), builder.createMinus(at("kill " + node)),
                builder.createJoin(at("gen " + node))});
    }

    void connect(const std::string& node, const std::string& successor) {
        NameVariable* const liveOut = at("liveOut " + node);
        NameVariable* const liveIn = at("liveIn " + successor);
        if (!builder.hasEquation(liveOut)) {
            define(liveOut, {liveIn});
        } else if (meets) {
            builder.extendEquation(liveOut, {builder.createMeet(liveIn)});
        } else {
            builder.extendEquation(liveOut, {builder.createJoin(liveIn)});
        }
    }

    bool meets;
    OrderedSet<std::string> universe{"k", "n", "c", "s", "y"};
    WatchedLattice lattice{universe};
    SystemOfEquationsBuilder<WatchedLattice> builder{lattice, nullptr};
    std::map<std::string, NameVariable*> variables;
    std::vector<const NameVariable*> defined;
    Names nodes;
};

class DataflowPage : public ::testing::Test {
protected:
    std::string page = readFile("docs/dataflow.md");
};

TEST_F(DataflowPage, ShowsTheEquations) {
    EXPECT_EQ(blockOf(page, "equations"), Program(false).equationText());
}

TEST_F(DataflowPage, ShowsTheOrderOfEvaluation) {
    EXPECT_EQ(blockOf(page, "order"), Program(false).orderText());
}

TEST_F(DataflowPage, ShowsTheSetsAfterEachSweep) {
    EXPECT_EQ(blockOf(page, "sweeps"), Program(false).sweepText());
}

TEST_F(DataflowPage, ShowsTheSetsAfterEachSweepWherePathsMeet) {
    EXPECT_EQ(blockOf(page, "sweeps of must"), Program(true).sweepText());
}

TEST_F(DataflowPage, ShowsTheEquationsThatDifferWherePathsMeet) {
    const std::string join = Program(false).equationText();
    std::istringstream lines(Program(true).equationText());
    std::string differing;
    for (std::string line; std::getline(lines, line);) {
        if (join.find(line + "\n") == std::string::npos) differing += line + "\n";
    }
    EXPECT_EQ(blockOf(page, "equations of must"), differing);
}

TEST_F(DataflowPage, ShowsAProgramThatCompilesAndRuns) {
    // Begin of the page's program.
    OrderedSet<std::string> universe({"a", "b"});
    PowerSetLattice<std::string> lattice(universe);
    SystemOfEquationsBuilder<PowerSetLattice<std::string>> builder(lattice, nullptr);

    BitSet<std::string> onlyA(universe);
    onlyA.add("a");
    auto* x = builder.createVariable("x");
    auto* y = builder.createVariable("y");
    builder.addEquation(x, {builder.createConstant(onlyA), builder.createJoin(y)});
    builder.addEquation(y, {x});

    std::uint64_t sweeps = builder.build()->solve();
    // End of the page's program.
    EXPECT_EQ(sweeps, 3u);
    EXPECT_EQ(textOf(x->value(), universe), "{a}");
    EXPECT_EQ(textOf(y->value(), universe), "{a}");

    std::string source = readFile("tests/flow/DataflowDocTest.cpp");
    const std::size_t begin = source.find("page's program.\n    OrderedSet") + 16;
    source = source.substr(begin, source.find("    // End of the page's program.\n") - begin);
    std::string unindented;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        unindented += (line.empty() ? line : line.substr(4)) + "\n";
    }
    EXPECT_EQ(blockOf(page, "program"), unindented);
}

} // namespace
} // namespace zt::orvex::flow
