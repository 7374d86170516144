#include <zt_orvex_kit/tree/KindName.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace zt::orvex::kit {
namespace {

TEST(KindName, IsTheEnumerator) {
    EXPECT_EQ(kindName(NodeKind::AnonymousFunction), "AnonymousFunction");
    EXPECT_EQ(kindName(NodeKind::IfStatement), "IfStatement");
    EXPECT_EQ(kindName(NodeKind::WhileStatement), "WhileStatement");
}

TEST(KindName, DiffersBetweenAllKinds) {
    std::set<std::string> names;
    for (const NodeKind kind : getAllNodeKinds())
        names.emplace(kindName(kind));
    EXPECT_EQ(names.size(), getAllNodeKinds().size());
    EXPECT_EQ(names.count("unknown"), 0u);
}

TEST(KindName, OfAValueThatIsNoKindIsUnknown) {
    EXPECT_EQ(kindName(NodeKind::Invalid), "unknown");
    EXPECT_EQ(kindName(NodeKind{67}), "unknown");
    EXPECT_EQ(kindName(NodeKind{255}), "unknown");
}

TEST(ClassName, IsThatOfTheTable) {
    EXPECT_EQ(className(NodeKind::IfStatement), "statement");
    EXPECT_EQ(className(NodeKind::Row), "expression");
    EXPECT_EQ(className(NodeKind::MethodDeclaration), "method");
    EXPECT_EQ(className(NodeKind::ElseClause), "other");
}

TEST(ClassName, OfAnUnknownKindIsOther) {
    EXPECT_EQ(className(NodeKind::Invalid), "other");
    EXPECT_EQ(className(NodeKind{200}), "other");
}

} // namespace
} // namespace zt::orvex::kit
