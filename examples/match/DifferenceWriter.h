#pragma once

#include "frontend/ParsedFile.h"
#include "match/Differences.h"
#include "terminal/MessageWriter.h"
#include "terminal/TextStyle.h"

#include <ostream>
#include <string>
#include <string_view>

namespace ostrel {

/// Writes differences for a person: for each, both places with their lines.
///
///     a.ost:3:9: difference: the number 1 here
///         3 | y = x + 1;
///           |         ^
///     b.ost:4:9: the number 2 there
///         4 | y = x + 2;
///           |         ^
class DifferenceWriter {
public:
    /// All must outlive the writer.
    DifferenceWriter(std::ostream& stream, const TextStyle& style, const ParsedFile& firstFile,
                     const ParsedFile& secondFile)
        : messages(stream, style), first(firstFile), second(secondFile) {}

    void write(const Difference& difference);

private:
    void writeOnlyIn(const ParsedFile& owner, NodeId node, const ParsedFile& other,
                     const Difference& difference, NodeId anchor);
    void writeHere(const ParsedFile& file, const Place& place, std::string_view text);
    void writeThere(const ParsedFile& file, const Place& place, std::string_view text);

    MessageWriter messages;
    const ParsedFile& first;
    const ParsedFile& second;
};

} // namespace ostrel
