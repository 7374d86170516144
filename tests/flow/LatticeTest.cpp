#include <zt_orvex/flow/Lattice.h>

#include "flow/MaxLattice.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace zt::orvex::flow {
namespace {

TEST(Lattice, IsAnAbstractClassWithoutData) {
    static_assert(std::is_abstract_v<Lattice<Level>>);
    static_assert(std::has_virtual_destructor_v<Lattice<Level>>);
    EXPECT_EQ(sizeof(Lattice<Level>), sizeof(void*));
}

TEST(Lattice, ValuesMayBeOfAnyType) {
    const MaxLattice levels;
    const Lattice<Level>& lattice = levels;
    Level value = lattice.bottom();
    EXPECT_EQ(value.height, 0);
    lattice.assign(value, {3});
    lattice.joinInto(value, {5});
    lattice.meetInto(value, {4});
    lattice.minusInto(value, {1});
    EXPECT_EQ(value.height, 3);
    EXPECT_TRUE(lattice.isLessOrEqual(value, {3}));
    EXPECT_FALSE(lattice.isLessOrEqual(value, {2}));
    lattice.setToBottom(value);
    EXPECT_EQ(value.height, 0);
}

} // namespace
} // namespace zt::orvex::flow
