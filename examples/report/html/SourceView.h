#pragma once

#include "report/html/MarkedPieces.h"
#include "report/model/Report.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace ostrel::report {

/// Writes the lines of one file: numbered, coloured, with the places of variables, errors and
/// remarks, and with the messages of a line below it.
///
/// The lines are to be written once each, in order. Cost: linear in the file and its report.
class SourceView {
public:
    /// `file` must outlive the view; `number` is its number in the report.
    SourceView(std::ostream& out, const File& file, std::size_t number);

    /// Writes the lines from `first` to `last`, inclusive.
    void writeLines(std::size_t first, std::size_t last);

private:
    /// A piece of the source with a class or a variable's look of its own.
    struct Token {
        std::size_t offset;
        std::size_t end;
        std::string attributes;
    };

    void addSyntax();
    void addVariables();
    void writeChunk(std::size_t first, std::size_t last);
    void writeLine(std::size_t line);
    void writeMarked(const MarkedPiece& piece, std::size_t from, std::size_t to);
    void writeTokens(std::size_t from, std::size_t to);
    void writeMessages(std::size_t line);
    void writeText(std::size_t from, std::size_t to);
    std::size_t lineBegin(std::size_t line) const;

    std::ostream& out;
    const File& file;
    const std::size_t number;
    std::vector<Token> tokens;       ///< In source order.
    std::vector<MarkedPiece> pieces; ///< In source order.

    // The first ones that are not done.
    std::size_t nextToken = 0;
    std::size_t nextPiece = 0;
    std::size_t nextDiagnostic = 0;
    std::size_t nextRemark = 0;
};

} // namespace ostrel::report
