#include <zt_orvex/flow/internal/ElementKey.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>

namespace zt::orvex::flow::internal {
namespace {

/// The hash of the pointer with this address.
std::uint64_t hashOfPointer(std::uint64_t address) {
    const int* const pointer = reinterpret_cast<const int*>(static_cast<std::uintptr_t>(address));
    using Key = ElementKey<const int*>;
    return Key::hashOf(Key::of(pointer));
}

// The expected values come from the published definition of 64-bit FNV-1a, least significant byte
// first, worked out apart from this code base.
TEST(ElementKey, PointersHashByFnv1aOfTheAddress) {
    EXPECT_EQ(hashOfPointer(0), 0xa8c7f832281a39c5);
    EXPECT_EQ(hashOfPointer(1), 0x89cd31291d2aefa4);
    EXPECT_EQ(hashOfPointer(0x0123456789abcdef), 0x37eb3f3347761c55);
}

TEST(ElementKey, HandlesHashAsStdHashDoes) {
    for (const std::uint64_t handle : {std::uint64_t{0}, std::uint64_t{7}, ~std::uint64_t{0}}) {
        const SymbolView symbol{handle, nullptr};
        const NodeView node{handle, nullptr};
        using SymbolKey = ElementKey<SymbolView>;
        using NodeKey = ElementKey<NodeView>;
        EXPECT_EQ(SymbolKey::hashOf(SymbolKey::of(symbol)), std::hash<SymbolView>()(symbol));
        EXPECT_EQ(NodeKey::hashOf(NodeKey::of(node)), std::hash<NodeView>()(node));
    }
}

TEST(ElementKey, HandleIsItsOwnKeyAndIgnoresTheView) {
    const auto* const view = reinterpret_cast<const IAstView*>(std::uintptr_t{0x10});
    EXPECT_EQ(ElementKey<SymbolView>::of({5, view}), 5u);
    EXPECT_EQ(ElementKey<NodeView>::of({5, view}), 5u);
}

TEST(ElementKey, OtherElementsAreKnownByTheirStdHash) {
    const std::string text = "some text";
    EXPECT_EQ(ElementKey<std::string>::of(text), std::hash<std::string>()(text));
    EXPECT_FALSE(ElementKey<std::string>::IDENTIFIES);
}

} // namespace
} // namespace zt::orvex::flow::internal
