#include <zt_orvex/flow/internal/EquationTable.h>

#include "flow/MaxLattice.h"

#include <zt_orvex/flow/internal/Factory.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

class Tables : public ::testing::Test {
protected:
    Equation<Level>* equationOf(Variable<Level>* variable) {
        Term<Level>* const terms[] = {variable};
        return factory.createEquation(variable, terms, terms + 1);
    }

    Factory<Level> factory;
};

TEST_F(Tables, FindTheEquationOfAVariable) {
    EquationTable<Level> table;
    std::vector<Variable<Level>*> variables;
    for (int i = 0; i < 200; ++i) {
        variables.push_back(factory.createVariable("", {}));
        EXPECT_EQ(table.find(variables.back()), nullptr);
        Equation<Level>* const equation = equationOf(variables.back());
        table.add(equation);
        EXPECT_EQ(table.find(variables.back()), equation);
    }
    for (std::size_t i = 0; i < variables.size(); ++i)
        EXPECT_EQ(table.find(variables[i]), table[i]);
}

TEST_F(Tables, DoNotConfuseAVariableThatHasAnEquationInSeveral) {
    EquationTable<Level> first;
    EquationTable<Level> second;
    Variable<Level>* const both = factory.createVariable("", {});
    Variable<Level>* const firstOnly = factory.createVariable("", {});
    Variable<Level>* const secondOnly = factory.createVariable("", {});
    first.add(equationOf(firstOnly));
    first.add(equationOf(both));
    second.add(equationOf(both)); // the variable now remembers its number in the second
    second.add(equationOf(secondOnly));
    EXPECT_EQ(first.find(both), first[1]);
    EXPECT_EQ(second.find(both), second[0]);
    EXPECT_EQ(first.find(secondOnly), nullptr);
    EXPECT_EQ(second.find(firstOnly), nullptr);
    first.add(equationOf(secondOnly));
    EXPECT_EQ(first.find(secondOnly), first[2]) << "added after the first lookup by hash";
    EXPECT_EQ(second.find(secondOnly), second[1]);
}

} // namespace
} // namespace zt::orvex::flow::internal
