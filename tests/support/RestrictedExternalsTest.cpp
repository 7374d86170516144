#include <zt_orvex/support/RestrictedExternals.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>

namespace zt::orvex {
namespace {

TEST(RestrictedExternals, AreTheseEighteenNames) {
    const std::set<std::u16string> expected = {
        u"assignin", u"builtin",    u"dbstack",   u"eval",     u"evalc",  u"evalin",
        u"feval",    u"input",      u"inputname", u"load",     u"nargin", u"narginchk",
        u"nargout",  u"nargoutchk", u"save",      u"varargin", u"who",    u"whos"};
    const auto& names = getRestrictedExternals();
    EXPECT_EQ(names.size(), 18U);
    EXPECT_EQ(std::set<std::u16string>(names.begin(), names.end()), expected);
}

TEST(RestrictedExternals, LookupIsExactAndCaseSensitive) {
    const auto& names = getRestrictedExternals();
    EXPECT_EQ(names.count(u"eval"), 1U);
    for (const char16_t* name : {u"Eval", u"EVAL", u"eva", u"evals", u"", u" eval", u"nargins"}) {
        EXPECT_EQ(names.count(name), 0U);
    }
}

TEST(RestrictedExternals, AreOneObjectForAllThreads) {
    const auto* const mine = &getRestrictedExternals();
    EXPECT_EQ(mine, &getRestrictedExternals());
    const void* theirs = nullptr;
    std::thread([&theirs] { theirs = &getRestrictedExternals(); }).join();
    EXPECT_EQ(mine, theirs);
}

} // namespace
} // namespace zt::orvex
