#include "testing/Widen.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/support/Char16Locale.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>

namespace zt::orvex {
namespace {

using Stream16 = std::basic_ostringstream<char16_t>;

// By number: what is printed doesn't depend on the names.
constexpr auto KIND_10 = static_cast<NodeKind>(10);
constexpr auto KIND_38 = static_cast<NodeKind>(38);
constexpr auto KIND_66 = static_cast<NodeKind>(66);

TEST(NodeKindPrint, EveryByteGivesItsNumberOnNarrowAndWideStreams) {
    for (int value = 0; value <= 255; ++value) {
        const auto kind = static_cast<NodeKind>(value);
        std::ostringstream narrow;
        narrow << kind;
        EXPECT_EQ(narrow.str(), std::to_string(value));
        Stream16 bare;
        bare << kind;
        EXPECT_EQ(bare.str(), testing::widen(std::to_string(value)));
        EXPECT_TRUE(bare.good());
    }
}

TEST(NodeKindPrint, EnumeratorsPrintAsNumbersNotAsNames) {
    std::ostringstream stream;
    stream << NodeKind::IfStatement << ' ' << NodeKind::Invalid;
    EXPECT_EQ(stream.str(), std::to_string(static_cast<int>(NodeKind::IfStatement)) + " 0");
}

TEST(NodeKindPrint, ReturnsItsStream) {
    std::ostringstream narrow;
    EXPECT_EQ(&(narrow << NodeKind::End), &narrow);
    Stream16 wideStream;
    EXPECT_EQ(&(wideStream << NodeKind::End), &wideStream);
}

TEST(NodeKindPrint, FlagsOfANarrowStreamApply) {
    std::ostringstream stream;
    stream << std::hex << std::showbase << std::setfill('*') << std::setw(6) << std::internal
           << KIND_38 << KIND_38;
    EXPECT_EQ(stream.str(), "0x**260x26");
}

TEST(NodeKindPrint, WideStreamWithoutFacetsPadsAndStaysGood) {
    Stream16 stream;
    stream << std::setw(4) << KIND_38 << std::left << std::setw(4) << KIND_10 << KIND_66;
    EXPECT_EQ(stream.str(), u"  3810  66");
    EXPECT_TRUE(stream.good());
}

TEST(NodeKindPrint, FillOfAWideStreamApplies) {
    Stream16 stream;
    stream.imbue(getChar16Locale());
    stream << std::setfill(u'*') << std::setw(4) << KIND_38 << std::setw(1) << KIND_38;
    EXPECT_EQ(stream.str(), u"**3838");
}

TEST(NodeKindPrint, WideStreamGetsDecimalTextInAnyBase) {
    for (const bool isBare : {true, false}) {
        Stream16 stream;
        if (!isBare) stream.imbue(getChar16Locale());
        stream << std::hex << std::showbase << std::showpos << KIND_38;
        EXPECT_EQ(stream.str(), u"38") << "bare: " << isBare;
    }
}

} // namespace
} // namespace zt::orvex
