#pragma once

#include "source/Place.h"
#include "source/SourceText.h"
#include "terminal/TextStyle.h"
#include "terminal/Tone.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace ostrel {

/// Something to say about a place in a source text. All of it is made safe for a terminal.
struct Message {
    Tone tone = Tone::Error;
    std::string_view severity; ///< Such as "error".
    std::string text;          ///< One line, no full stop.
    std::string help;          ///< What to do about it, likewise; may be empty.
};

/// Writes messages about places in source text, the same way for all programs:
///
///     MessageWriter(std::cout, style).write("sum.ost", source, place,
///                                           {Tone::Error, "error", "no such thing", "write y"});
///
///     sum.ost:3:5: error: no such thing
///         3 | x = yy;
///           |     ^~
///           help: write y
///
/// The parts of a message may also be written one by one, in another combination.
class MessageWriter {
public:
    /// The stream must outlive the writer.
    MessageWriter(std::ostream& stream, const TextStyle& textStyle)
        : out(stream), style(textStyle) {}

    /// All of a message.
    void write(std::string_view path, const SourceText& source, const Place& place,
               const Message& message);

    /// `path:line:column: severity: text`, or `path:line:column: text` without a severity. Never
    /// broken, since editors and scripts look for it in one line.
    void writeHead(std::string_view path, const Place& place, Tone tone, std::string_view severity,
                   std::string_view text);

    /// The line of the place, and a mark below it. If the place goes on in further lines, the mark
    /// ends with the first one, and a note says how far the place extends.
    void writeSnippet(const SourceText& source, const Place& place, Tone tone);

    /// A text below a snippet, aligned with the source, and wrapped with the label outside:
    ///
    ///     help: write the code out, or move it into
    ///           a function
    ///
    /// `place` is that of the snippet. `indent` is further indentation. The label must be ASCII; a
    /// blank separates it from the text. It may be empty.
    void writeNote(const Place& place, Tone tone, std::string_view label, std::string_view text,
                   std::size_t indent = 0);

private:
    std::size_t columnsAfter(std::size_t used) const;
    void writeBar(std::string_view gutter);

    std::ostream& out;
    TextStyle style;
};

/// `path:line:column`, safe for a terminal.
std::string placeText(std::string_view path, const Place& place);

} // namespace ostrel
