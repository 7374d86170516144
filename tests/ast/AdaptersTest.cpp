#include <zt_orvex/ast/ILnrAdapter.h>
#include <zt_orvex/ast/IUnparserAdapter.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace zt::orvex {
namespace {

/// The numbers 1 to `size` as a list: each node is the right operand of the one before.
class ListAdapter : public ILnrAdapter {
public:
    explicit ListAdapter(std::uint64_t nodes) : size(nodes) {}

    boost::optional<NodeView> getRoot() const override { return at(1); }
    boost::optional<NodeView> getParent(const NodeView& node) const override {
        return at(node.node - 1);
    }
    boost::optional<NodeView> getLeft(const NodeView&) const override { return boost::none; }
    boost::optional<NodeView> getRight(const NodeView& node) const override {
        return at(node.node + 1);
    }
    boost::optional<NodeView> getFirst() const override { return at(1); }
    boost::optional<NodeView> getNext(const NodeView& node) const override {
        return at(node.node + 1);
    }
    boost::optional<NodeView> getPrevious(const NodeView& node) const override {
        return at(node.node - 1);
    }

    std::uint64_t size;

private:
    boost::optional<NodeView> at(std::uint64_t node) const {
        if (node == 0 || node > size) return boost::none;
        return NodeView{node, nullptr};
    }
};

class NumberUnparser : public IUnparserAdapter {
public:
    explicit NumberUnparser(bool* destroyedFlag = nullptr) : destroyed(destroyedFlag) {}
    NumberUnparser(const NumberUnparser&) = default;
    NumberUnparser& operator=(const NumberUnparser&) = default;
    ~NumberUnparser() override {
        if (destroyed != nullptr) *destroyed = true;
    }
    std::u16string unparse(const NodeView& node) const override {
        return std::u16string(1, static_cast<char16_t>(u'0' + node.node));
    }

private:
    bool* destroyed;
};

template <class Adapter>
void expectInterface() {
    static_assert(std::is_abstract_v<Adapter>);
    static_assert(std::has_virtual_destructor_v<Adapter>);
    static_assert(sizeof(Adapter) == sizeof(void*));
    static_assert(std::is_copy_assignable_v<Adapter>);
}

TEST(Adapters, AreAbstractAndHoldNoData) {
    expectInterface<ILnrAdapter>();
    expectInterface<IUnparserAdapter>();
}

TEST(Adapters, WalkerReachesEveryNodeThroughTheInterface) {
    const ListAdapter list(3);
    const ILnrAdapter& adapter = list;
    std::vector<std::uint64_t> nodes;
    for (auto node = adapter.getFirst(); node; node = adapter.getNext(*node)) {
        nodes.push_back(node->node);
    }
    EXPECT_EQ(nodes, (std::vector<std::uint64_t>{1, 2, 3}));
    EXPECT_EQ(adapter.getRoot()->node, 1U);
    EXPECT_EQ(adapter.getParent(NodeView{2, nullptr})->node, 1U);
    EXPECT_EQ(adapter.getRight(NodeView{1, nullptr})->node, 2U);
    EXPECT_FALSE(adapter.getLeft(NodeView{1, nullptr}));
    EXPECT_FALSE(adapter.getPrevious(NodeView{1, nullptr}));
}

TEST(Adapters, UnparserIsDestroyedThroughItsInterface) {
    bool destroyed = false;
    IUnparserAdapter* const adapter = new NumberUnparser(&destroyed);
    EXPECT_EQ(adapter->unparse(NodeView{7, nullptr}), u"7");
    delete adapter;
    EXPECT_TRUE(destroyed);
}

TEST(Adapters, CopyCopiesOnlyTheDerivedClass) {
    ListAdapter a(1);
    const ListAdapter b(2);
    const ListAdapter copy(b);
    EXPECT_EQ(copy.size, 2U);
    EXPECT_EQ(&(a = b), &a);
    EXPECT_EQ(a.size, 2U);
}

TEST(Adapters, AssignmentThroughTheInterfaceCopiesNothingAndReturnsTheObject) {
    ListAdapter a(1);
    const ListAdapter b(2);
    ILnrAdapter& interface = a;
    EXPECT_EQ(&(interface = b), &interface);
    EXPECT_EQ(a.size, 1U);
}

#if defined(__x86_64__) && !defined(_WIN32)
/// The slot of a virtual operation in the table of its class, not counting the destructor's two. On
/// this platform a pointer to a virtual operation holds the offset plus one.
template <class Operation>
std::size_t placeOf(Operation operation) {
    std::size_t words[2];
    static_assert(sizeof(operation) == sizeof(words));
    std::memcpy(words, &operation, sizeof(words));
    return (words[0] - 1) / sizeof(void*) - 2;
}

TEST(Adapters, OrderOfTheOperationsIsFixed) {
    EXPECT_EQ(placeOf(&ILnrAdapter::getRoot), 0U);
    EXPECT_EQ(placeOf(&ILnrAdapter::getParent), 1U);
    EXPECT_EQ(placeOf(&ILnrAdapter::getLeft), 2U);
    EXPECT_EQ(placeOf(&ILnrAdapter::getRight), 3U);
    EXPECT_EQ(placeOf(&ILnrAdapter::getFirst), 4U);
    EXPECT_EQ(placeOf(&ILnrAdapter::getNext), 5U);
    EXPECT_EQ(placeOf(&ILnrAdapter::getPrevious), 6U);
    EXPECT_EQ(placeOf(&IUnparserAdapter::unparse), 0U);
}
#endif

} // namespace
} // namespace zt::orvex
