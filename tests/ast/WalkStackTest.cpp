#include "WalkTraces.h"
#include "ast/ForEachForStatementIn.h"
#include "testing/Random.h"
#include "testing/StackBounds.h"

#include <zt_orvex/ast/ForEachNodeIn.h>

#include <gtest/gtest.h>

#include <pthread.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zt::orvex::testing {
namespace {

// The usual stack of a main thread. A sanitizer's red zones make most frames too large for it.
constexpr std::size_t USUAL_STACK = 8 << 20;
constexpr std::size_t STACK = ZT_ORVEX_TEST_SANITIZED == 0 ? USUAL_STACK : 3 * USUAL_STACK;
constexpr std::size_t DEPTH = 20'000;

/// Runs `work` on a thread with a stack of that size, independently of the limit of this process.
void runOnStackOf(std::size_t bytes, const std::function<void()>& work) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    const auto run = [](void* function) -> void* {
        (*static_cast<const std::function<void()>*>(function))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&work)),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// The accessors that the full trace of a kind asks; each has a child.
std::vector<Operation> accessorsOf(const WalkTrace& trace) {
    TreeBuilder t;
    const NodeView root = trace.build(t);
    t.ast.startRecording();
    forEachNodeIn(root, [](const NodeView&) {});
    std::vector<Operation> accessors;
    for (const Call& call : t.ast.calls()) {
        const std::string name = nameOf(call.operation);
        const bool isAccessor = call.operation != Operation::getNodeKind &&
                                call.operation != Operation::getInputParameterKind &&
                                name.find("RangeSize") == std::string::npos &&
                                name.find("RangeElement") == std::string::npos;
        if (isAccessor &&
            std::find(accessors.begin(), accessors.end(), call.operation) == accessors.end()) {
            accessors.push_back(call.operation);
        }
    }
    return accessors;
}

/// A chain of `depth` nodes of one kind, each in part number `way` of the one above; the other
/// parts hold a leaf.
NodeView makeChain(FakeAst& ast, NodeKind kind, const std::vector<Operation>& accessors,
                   std::size_t way, std::size_t depth) {
    const NodeView leaf = ast.addIdentifier(u"leaf");
    NodeView node = leaf;
    for (std::size_t level = 0; level < depth; ++level) {
        std::vector<Part> parts;
        for (std::size_t i = 0; i < accessors.size(); ++i) {
            parts.emplace_back(accessors[i], i == way ? node : leaf);
        }
        node = ast.add(kind, parts, static_cast<std::uint32_t>(NodeKind::Identifier));
    }
    return node;
}

std::uintptr_t stackPointer() {
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

/// The bytes of stack that a level of the tree takes: the largest distance between the callbacks of
/// a node and its child.
std::size_t bytesPerLevel(const NodeView& root, std::size_t depth) {
    std::vector<std::uintptr_t> addresses;
    forEachNodeIn(root, [&](const NodeView& node) {
        if (node.getKind() != NodeKind::Identifier) addresses.push_back(stackPointer());
    });
    EXPECT_EQ(addresses.size(), depth);
    std::size_t most = 0;
    for (std::size_t i = 1; i < addresses.size(); ++i) {
        most = std::max<std::size_t>(most, addresses[i - 1] - addresses[i]);
    }
    return most;
}

/// A path down a tree: a kind of node, and the part that holds the next level.
struct Way {
    NodeKind kind;
    std::vector<Operation> accessors;
    std::size_t part;
};

std::vector<Way> allWays() {
    std::vector<Way> ways;
    for (const WalkTrace& trace : FULL_TRACES) {
        const auto accessors = accessorsOf(trace);
        for (std::size_t part = 0; part < accessors.size(); ++part) {
            ways.push_back(Way{trace.kind, accessors, part});
        }
    }
    return ways;
}

std::size_t bytesPerLevel(const Way& way) {
    FakeAst ast;
    return bytesPerLevel(makeChain(ast, way.kind, way.accessors, way.part, 10), 10);
}

#if defined(NDEBUG) && !ZT_ORVEX_TEST_SANITIZED
TEST(WalkStack, LevelOfTheTreeTakesFewBytes) {
    if (!stackBounds()) GTEST_SKIP() << NO_STACK_BOUNDS;
    for (const Way& way : allWays()) {
        EXPECT_LE(bytesPerLevel(way), stackBounds()->bytesOfWalk)
            << nameOf(way.accessors[way.part]);
    }
}
#endif

TEST(WalkStack, TreeOf20000LevelsFitsAlongThePathThatTakesMostStack) {
    std::size_t most = 0;
    Way worst{};
    for (const Way& way : allWays()) {
        const std::size_t bytes = bytesPerLevel(way);
        if (bytes > most) {
            most = bytes;
            worst = way;
        }
    }
    RecordProperty("bytesPerLevel", std::to_string(most));
    SCOPED_TRACE(nameOf(worst.accessors[worst.part]));
    ASSERT_LT(most, STACK / DEPTH) << "does not fit";

    FakeAst ast;
    const NodeView root = makeChain(ast, worst.kind, worst.accessors, worst.part, DEPTH);
    runOnStackOf(STACK, [&] {
        std::size_t calls = 0;
        forEachNodeIn(root, [&](const NodeView&) { ++calls; });
        EXPECT_EQ(calls, DEPTH * worst.accessors.size() + 1);
        internal::forEachForStatementIn(root, [](const NodeView&) {});
    });
}

TEST(WalkStack, LoopsAreFound20000LevelsDown) {
    TreeBuilder t;
    NodeView node = t.id("leaf");
    for (std::size_t level = 0; level < DEPTH; ++level) {
        node = t.forLoop(t.id("i"), t.id("n"), {node, t.emptyStatement()});
    }
    runOnStackOf(STACK, [&] {
        std::size_t loops = 0;
        internal::forEachForStatementIn(node, [&](const NodeView&) { ++loops; });
        EXPECT_EQ(loops, DEPTH);
    });
}

TEST(WalkStack, ExpressionOf20000LevelsFitsIn8MiB) {
    TreeBuilder t;
    NodeView node = t.id("x");
    for (std::size_t level = 0; level < DEPTH; level += 2) {
        node = t.add(t.parenthesized(node), t.number());
    }
    runOnStackOf(STACK, [&] {
        std::size_t calls = 0;
        forEachNodeIn(node, [&](const NodeView&) { ++calls; });
        EXPECT_EQ(calls, 3 * DEPTH / 2 + 1);
    });
}

} // namespace
} // namespace zt::orvex::testing
