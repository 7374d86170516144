#include "testing/FakeAst.h"

#include <zt_orvex/ast/IAstView.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace zt::orvex {
namespace {

static_assert(std::is_abstract_v<IAstView> && std::has_virtual_destructor_v<IAstView>);
static_assert(sizeof(IAstView) == sizeof(void*), "no data members");

// In the Itanium ABI a pointer to a virtual member holds its slot in the table of functions.
#if defined(__x86_64__) && !defined(_WIN32)
template <typename Function>
std::size_t slotOf(Function operation) {
    std::size_t words[2];
    static_assert(sizeof operation == sizeof words);
    std::memcpy(words, &operation, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

TEST(IAstView, OperationsAreDeclaredInTheOrderOfTheInterface) {
    std::size_t expected = 2; // The destructor comes first and takes two slots.
#define ZT_ORVEX_EXPECT_SLOT(name) EXPECT_EQ(slotOf(&IAstView::name), expected++) << #name;
#define ZT_ORVEX_TEST_ONE(name) ZT_ORVEX_EXPECT_SLOT(name)
#define ZT_ORVEX_TEST_MAYBE(name) ZT_ORVEX_EXPECT_SLOT(name)
#define ZT_ORVEX_TEST_RANGE(name, View) ZT_ORVEX_EXPECT_SLOT(name)
#define ZT_ORVEX_TEST_ELEMENT(name, View) ZT_ORVEX_EXPECT_SLOT(name)
#define ZT_ORVEX_TEST_SIZE(name, View) ZT_ORVEX_EXPECT_SLOT(name)
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments) ZT_ORVEX_EXPECT_SLOT(name)
#define ZT_ORVEX_TEST_OTHER(name) ZT_ORVEX_EXPECT_SLOT(name)
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_EXPECT_SLOT
}
#endif

/// An implementation with data of its own, which a consumer copies.
class Copied : public testing::FakeAst {
public:
    Copied() = default;
    Copied(const Copied& other) : testing::FakeAst(), value(other.value) {}
    int value = 0;
};

TEST(IAstView, AssignmentReturnsTheObjectAndCopiesNothing) {
    Copied a;
    Copied b;
    a.value = 1;
    b.value = 2;
    IAstView& target = a;
    IAstView& result = target.IAstView::operator=(b);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(a.value, 1);
}

TEST(IAstView, IsDestroyedThroughItsPointer) {
    static bool isDestroyed;
    class Marked : public testing::FakeAst {
    public:
        ~Marked() override { isDestroyed = true; }
    };
    isDestroyed = false;
    const IAstView* view = new Marked;
    delete view;
    EXPECT_TRUE(isDestroyed);
}

} // namespace
} // namespace zt::orvex
