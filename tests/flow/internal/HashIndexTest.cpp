#include <zt_orvex/flow/internal/HashIndex.h>

#include "flow/ExpectThrows.h"

#include <zt_orvex/ast/NodeView.h>
#include <zt_orvex/ast/SymbolView.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

using testing::expectThrows;

/// The index beside its array.
template <typename T>
struct Indexed {
    std::vector<T> elements;
    HashIndex<T> index;

    void add(const T& element) {
        index.reserve(elements.size() + 1);
        elements.push_back(element);
        index.insert(HashIndex<T>::keyOf(element), elements.size() - 1);
    }
    std::uint64_t find(const T& element) const {
        return index.find(HashIndex<T>::keyOf(element),
                          [&](std::uint64_t place) { return elements[place] == element; });
    }
};

constexpr std::uint64_t NONE = HashIndex<int>::NONE;

TEST(HashIndex, FindsNothingWhileEmpty) {
    const Indexed<std::uint64_t> indexed;
    for (const std::uint64_t element : {std::uint64_t{0}, std::uint64_t{1}, ~std::uint64_t{0}})
        EXPECT_EQ(indexed.find(element), NONE);
}

template <typename T, typename Make>
void expectFindsAtEverySize(Make make) {
    Indexed<T> indexed;
    for (std::uint64_t i = 0; i < 3000; ++i) {
        indexed.add(make(2 * i));
        ASSERT_EQ(indexed.find(make(2 * i)), i);
        ASSERT_EQ(indexed.find(make(2 * i + 1)), NONE);
    }
    for (std::uint64_t i = 0; i < 3000; ++i)
        ASSERT_EQ(indexed.find(make(2 * i)), i);
}

TEST(HashIndex, FindsWhatWasInsertedAtEverySize) {
    expectFindsAtEverySize<std::uint64_t>([](std::uint64_t i) { return i; });
    expectFindsAtEverySize<std::string>([](std::uint64_t i) { return std::to_string(i); });
    expectFindsAtEverySize<SymbolView>([](std::uint64_t i) { return SymbolView{i, nullptr}; });
    expectFindsAtEverySize<NodeView>([](std::uint64_t i) { return NodeView{i << 40, nullptr}; });
}

/// All elements have one hash.
struct Colliding {
    int value;
    friend bool operator==(const Colliding& a, const Colliding& b) { return a.value == b.value; }
};

} // namespace
} // namespace zt::orvex::flow::internal

template <>
struct std::hash<zt::orvex::flow::internal::Colliding> {
    std::size_t operator()(const zt::orvex::flow::internal::Colliding&) const {
        return ~std::size_t{0};
    }
};

namespace zt::orvex::flow::internal {
namespace {

TEST(HashIndex, ElementsOfOneHashAreToldApart) {
    Indexed<Colliding> indexed;
    for (int i = 0; i < 100; ++i)
        indexed.add({i});
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(indexed.find({i}), static_cast<std::uint64_t>(i));
    EXPECT_EQ(indexed.find({100}), NONE);
}

TEST(HashIndex, HandlesAreFoundWithoutComparison) {
    Indexed<SymbolView> indexed;
    for (std::uint64_t i = 0; i < 500; ++i)
        indexed.add(SymbolView{i, nullptr});
    for (std::uint64_t i = 0; i < 1000; ++i) {
        const auto neverAsked = [](std::uint64_t) {
            ADD_FAILURE() << "asked";
            return false;
        };
        EXPECT_EQ(indexed.index.find(i, neverAsked), i < 500 ? i : NONE);
    }
}

TEST(HashIndex, NumbersInARowAndMultiplesSpread) {
    for (const std::uint64_t stride : {1u, 8u, 64u, 4096u, 1u << 20}) {
        Indexed<std::uint64_t> indexed;
        for (std::uint64_t i = 0; i < 10000; ++i)
            indexed.add(i * stride);
        std::uint64_t comparisons = 0;
        for (std::uint64_t i = 0; i < 10000; ++i) {
            indexed.index.find(i * stride, [&](std::uint64_t place) {
                ++comparisons;
                return place == i;
            });
        }
        EXPECT_EQ(comparisons, 10000u) << stride;
    }
}

TEST(HashIndex, TooManyElementsAreRefused) {
    HashIndex<int> index;
    expectThrows<std::length_error>([&] { index.reserve((std::uint64_t{1} << 40) + 1); },
                                    "too many elements");
    EXPECT_EQ(index.find(1, [](std::uint64_t) { return true; }), NONE);
}

} // namespace
} // namespace zt::orvex::flow::internal
