#include <zt_orvex/flow/internal/SharedNames.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace zt::orvex::flow::internal {
namespace {

TEST(SharedNames, EqualTextsShareOneCopy) {
    SharedNames names;
    const std::string& first = names.keep("liveIn");
    const std::string other = "liveOut";
    EXPECT_NE(&names.keep(other), &first);
    EXPECT_EQ(&names.keep(std::string("liveIn")), &first);
    EXPECT_EQ(first, "liveIn");
}

TEST(SharedNames, NameIsACopy) {
    SharedNames names;
    std::string name = "a text that no string object holds in place";
    const std::string before = name;
    const std::string& kept = names.keep(name);
    name.assign(name.size(), '?');
    EXPECT_EQ(kept, before);
    EXPECT_EQ(names.keep(name), name) << "a changed text is another text";
    EXPECT_EQ(kept, before);
}

TEST(SharedNames, EmptyNameIsKept) {
    SharedNames names;
    EXPECT_EQ(names.keep(""), "");
    EXPECT_EQ(&names.keep(""), &names.keep(""));
}

TEST(SharedNames, ManyNamesKeepTheirPlaces) {
    SharedNames names;
    std::vector<const std::string*> kept;
    for (int i = 0; i < 10000; ++i)
        kept.push_back(&names.keep(std::to_string(i)));
    EXPECT_EQ(std::set<const std::string*>(kept.begin(), kept.end()).size(), kept.size());
    for (std::size_t i = 0; i < kept.size(); ++i) {
        ASSERT_EQ(*kept[i], std::to_string(i));
        ASSERT_EQ(&names.keep(std::to_string(i)), kept[i]);
    }
}

} // namespace
} // namespace zt::orvex::flow::internal
