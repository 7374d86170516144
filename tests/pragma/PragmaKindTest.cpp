#include <zt_orvex/pragma/PragmaKind.h>

#include "pragma/PragmaKindTable.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>

namespace zt::orvex {
namespace {

static_assert(sizeof(PragmaKind) == 1);

struct Row {
    PragmaKind kind;
    int value;
    const char16_t* word;
};

// Written by hand, to check the table rather than repeat it.
const Row ROWS[] = {
    {PragmaKind::codegen, 0, u"codegen"},
    {PragmaKind::zel, 1, u"zel"},
    {PragmaKind::function, 4, u"function"},
    {PragmaKind::internal, 5, u"internal"},
    {PragmaKind::vun, 6, u"vun"},
    {PragmaKind::obfuscate, 7, u"obfuscate"},
    {PragmaKind::ok, 8, u"ok"},
    {PragmaKind::TestStandard, 9, u"TestStandard"},
    {PragmaKind::UNRECOGNIZED, 10, u"UNRECOGNIZED"},
};

TEST(PragmaKind, EveryKindHasItsValueAndItsWord) {
    for (const Row& row : ROWS) {
        EXPECT_EQ(static_cast<int>(row.kind), row.value);
        EXPECT_TRUE(pragmaKindToString(row.kind) == row.word) << row.value;
        EXPECT_EQ(pragmaKindFromString(row.word), row.kind) << row.value;
    }
}

TEST(PragmaKind, TableHoldsTheseRowsInThisOrder) {
    ASSERT_EQ(internal::pragmaKindTable.size(), std::size(ROWS));
    for (std::size_t i = 0; i < std::size(ROWS); ++i) {
        EXPECT_EQ(internal::pragmaKindTable[i].kind, ROWS[i].kind);
        EXPECT_TRUE(internal::pragmaKindTable[i].word == ROWS[i].word) << i;
    }
}

TEST(PragmaKind, AllOtherValuesHaveNoWord) {
    std::set<int> known;
    for (const Row& row : ROWS)
        known.insert(row.value);
    for (int value = 0; value < 256; ++value) {
        if (known.count(value) != 0) continue;
        try {
            pragmaKindToString(static_cast<PragmaKind>(value));
            ADD_FAILURE() << value;
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "invalid map<K, T> key");
        }
    }
}

TEST(PragmaKind, CaseOfTheWordCounts) {
    for (const char16_t* const word :
         {u"Function", u"OK", u"Codegen", u"teststandard", u"unrecognized"})
        EXPECT_EQ(pragmaKindFromString(word), PragmaKind::UNRECOGNIZED);
}

TEST(PragmaKind, WordThatBeginsWithTestStandardIsThatKind) {
    EXPECT_EQ(pragmaKindFromString(u"TestStandardRun"), PragmaKind::TestStandard);
    EXPECT_EQ(pragmaKindFromString(u"TestStandard_1"), PragmaKind::TestStandard);
    EXPECT_EQ(pragmaKindFromString(u"TestStandar"), PragmaKind::UNRECOGNIZED);
    EXPECT_EQ(pragmaKindFromString(u"aTestStandard"), PragmaKind::UNRECOGNIZED);
}

TEST(PragmaKind, OtherWordsAreUnrecognized) {
    for (const char16_t* const word : {u"", u"o", u"okay", u"functions", u"\u00E9", u"zel "})
        EXPECT_EQ(pragmaKindFromString(word), PragmaKind::UNRECOGNIZED);
    EXPECT_EQ(pragmaKindFromString(std::u16string(u"ok\0", 3)), PragmaKind::UNRECOGNIZED);
}

} // namespace
} // namespace zt::orvex
