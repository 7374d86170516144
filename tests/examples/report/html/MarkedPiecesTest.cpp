#include "report/html/MarkedPieces.h"

#include <gmock/gmock.h>

#include <string>

namespace ostrel::report {

namespace {

using ::testing::ElementsAre;

/// Errors and remarks of a text of ten characters.
class MarkedPieces : public ::testing::Test {
protected:
    MarkedPieces() { file.source = SourceText(u"0123456789"); }

    void addError(std::size_t offset, std::size_t length) {
        file.diagnostics.push_back({file.source.place(offset, length), Severity::Error, "", ""});
    }

    void addRemark(std::size_t offset, std::size_t length) {
        file.remarks.emplace_back();
        file.remarks.back().place = file.source.place(offset, length);
    }

    std::vector<std::string> pieces() const {
        std::vector<std::string> texts;
        for (const MarkedPiece& piece : findMarkedPieces(file)) {
            texts.push_back(std::to_string(piece.offset) + "-" + std::to_string(piece.end) +
                            (piece.isError ? " error" : " remark"));
        }
        return texts;
    }

    File file;
};

} // namespace

TEST_F(MarkedPieces, EachErrorAndRemarkIsAPiece) {
    addError(1, 2);
    addRemark(5, 3);
    EXPECT_THAT(pieces(), ElementsAre("1-3 error", "5-8 remark"));
}

TEST_F(MarkedPieces, ErrorCutsTheRemarkAroundIt) {
    addRemark(1, 8);
    addError(3, 2);
    EXPECT_THAT(pieces(), ElementsAre("1-3 remark", "3-5 error", "5-9 remark"));
}

TEST_F(MarkedPieces, PlacesThatOverlapAreCutWhereOneBegins) {
    addRemark(1, 4);
    addRemark(3, 4);
    EXPECT_THAT(pieces(), ElementsAre("1-3 remark", "3-5 remark", "5-7 remark"));
}

TEST_F(MarkedPieces, PlaceWithoutLengthIsAnEmptyPiece) {
    addRemark(4, 1);
    addError(10, 0);
    EXPECT_THAT(pieces(), ElementsAre("4-5 remark", "10-10 error"));
}

} // namespace ostrel::report
