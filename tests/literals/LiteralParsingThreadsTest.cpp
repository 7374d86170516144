#include "literals/BothWidths.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace zt::orvex::testing {
namespace {

std::string useEverything() {
    std::string all;
    const auto add = [&all](internal::LiteralValidationResult result) {
        all += std::to_string(static_cast<int>(result));
    };
    add(internal::validateBinaryLiteral("0b1u8"));
    add(internal::validateBinaryLiteral(u"0b1u8"));
    add(internal::validateHexLiteral("0x1FFu8"));
    add(internal::validateHexLiteral(u"0x1FFu8"));
    add(internal::validateDoubleLiteral("1.5d3"));
    add(internal::validateDoubleLiteral(u"1.5d"));
    all += describe(internal::parseBinaryLiteral("0b11"));
    all += describe(internal::parseBinaryLiteral(u"0b11"));
    all += describe(internal::parseHexLiteral("0x11s8"));
    all += describe(internal::parseHexLiteral(u"0x11s8"));
    all += std::to_string(internal::parseDoubleLiteral("1.5d3"));
    all += outcomeOf([] { return internal::parseBinaryLiteral(u"0b2"); });
    return all;
}

TEST(LiteralParsingThreads, EveryThreadCompilesItsOwnPatterns) {
    const std::string expected = "002201#0 3#0 3#4 17#4 171500.000000"
                                 "Conversion failed converting '2' Reason: Not Specified";
    std::vector<std::string> results(8);
    std::vector<std::thread> threads;
    for (std::string& result : results)
        threads.emplace_back([&result] {
            for (int i = 0; i < 50; ++i)
                result = useEverything();
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& result : results)
        EXPECT_EQ(result, expected);
}

} // namespace
} // namespace zt::orvex::testing
