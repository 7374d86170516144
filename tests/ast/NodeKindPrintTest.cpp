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

TEST(NodeKindPrint, EveryByteGivesItsNumberOnBothKindsOfStream) {
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
    stream << NodeKind::IfStatement << ' ' << NodeKind::WhileStatement << ' ' << NodeKind::Invalid;
    EXPECT_EQ(stream.str(), "38 66 0");
}

TEST(NodeKindPrint, GivesBackItsStream) {
    std::ostringstream narrow;
    EXPECT_EQ(&(narrow << NodeKind::End), &narrow);
    Stream16 wideStream;
    EXPECT_EQ(&(wideStream << NodeKind::End), &wideStream);
}

TEST(NodeKindPrint, FlagsOfANarrowStreamApply) {
    std::ostringstream stream;
    stream << std::hex << std::showbase << std::setfill('*') << std::setw(6) << std::internal
           << NodeKind::IfStatement << NodeKind::IfStatement;
    EXPECT_EQ(stream.str(), "0x**260x26");
}

TEST(NodeKindPrint, BareWideStreamPadsAndStaysGood) {
    Stream16 stream;
    stream << std::setw(4) << NodeKind::IfStatement << std::left << std::setw(4)
           << NodeKind::BreakStatement << NodeKind::WhileStatement;
    EXPECT_EQ(stream.str(), u"  3810  66");
    EXPECT_TRUE(stream.good());
}

TEST(NodeKindPrint, FillOfAWideStreamApplies) {
    Stream16 stream;
    stream.imbue(getChar16Locale());
    stream << std::setfill(u'*') << std::setw(4) << NodeKind::IfStatement << std::setw(1)
           << NodeKind::IfStatement;
    EXPECT_EQ(stream.str(), u"**3838");
}

TEST(NodeKindPrint, WideStreamTakesTheDecimalTextWhateverItsBase) {
    for (const bool isBare : {true, false}) {
        Stream16 stream;
        if (!isBare) stream.imbue(getChar16Locale());
        stream << std::hex << std::showbase << std::showpos << NodeKind::IfStatement;
        EXPECT_EQ(stream.str(), u"38") << "bare: " << isBare;
    }
}

} // namespace
} // namespace zt::orvex
