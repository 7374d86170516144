// A program of its own: it replaces the global allocation functions.

#include "testing/Exhaustion.h"

#include <zt_orvex/pragma/Pragma.h>

#include <gtest/gtest.h>

#include <ios>
#include <sstream>
#include <string>
#include <utility>

namespace zt::orvex {
namespace {

using testing::expectRightOrThrow;

const std::u16string TEXT = u"%# codegen   , an argument that is too long for a string object, ";

TEST(PragmaExhaustion, ParsingIsRightOrThrows) {
    expectRightOrThrow([] { return std::u16string(parsePragma(TEXT, 7)->getSourceText()); });
    expectRightOrThrow([] {
        Pragma pragma = *parsePragma(TEXT, 7);
        const Pragma moved = std::move(pragma);
        return std::u16string(moved.getTrimmedArgumentsText());
    });
}

TEST(PragmaExhaustion, WordsAreRightOrThrow) {
    expectRightOrThrow([] { return pragmaKindFromString(u"TestStandardWithALongName"); });
    expectRightOrThrow([] { return pragmaKindToString(PragmaKind::UNRECOGNIZED); });
}

TEST(PragmaExhaustion, InsertionIsWholeOrThrows) {
    const Pragma pragma = *parsePragma(TEXT, 7);
    expectRightOrThrow([&] {
        std::ostringstream stream;
        stream.exceptions(std::ios_base::badbit);
        stream << pragma;
        return stream.str();
    });
}

} // namespace
} // namespace zt::orvex
