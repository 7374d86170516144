#include "terminal/MessageWriter.h"

#include "terminal/DisplayText.h"
#include "terminal/SourceSnippet.h"
#include "terminal/Wrap.h"

#include <algorithm>
#include <vector>

namespace ostrel {

namespace {

constexpr std::size_t NUMBER_WIDTH = 5;
constexpr std::size_t MIN_TEXT_WIDTH = 30;

/// The number of the line, and a blank.
std::string gutterOf(const Place& place) {
    const std::string number = std::to_string(place.line);
    return std::string(NUMBER_WIDTH - std::min(NUMBER_WIDTH, number.size()), ' ') + number + " ";
}

/// Where a place goes on in further lines: what to write after its mark; otherwise nothing. A place
/// that ends with a line break doesn't extend to the line after it.
std::string continuationOf(const Place& place) {
    const std::size_t last = place.endColumn > 1 ? place.endLine : place.endLine - 1;
    if (last <= place.line) return "";
    return "(continues to line " + std::to_string(last) + ")";
}

} // namespace

std::string placeText(std::string_view path, const Place& place) {
    return displayed(path) + ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
}

void MessageWriter::write(std::string_view path, const SourceText& source, const Place& place,
                          const Message& message) {
    writeHead(path, place, message.tone, message.severity, message.text);
    writeSnippet(source, place, message.tone);
    if (!message.help.empty()) writeNote(place, Tone::Help, "help:", message.help);
}

void MessageWriter::writeHead(std::string_view path, const Place& place, Tone tone,
                              std::string_view severity, std::string_view text) {
    out << painted(style, Tone::Heading, placeText(path, place) + ":") << ' ';
    if (!severity.empty()) out << painted(style, tone, displayed(severity) + ":") << ' ';
    out << displayed(text) << '\n';
}

void MessageWriter::writeSnippet(const SourceText& source, const Place& place, Tone tone) {
    const std::string gutter = gutterOf(place);
    const std::size_t width = columnsAfter(gutter.size() + 2);
    const SourceSnippet snippet = cutSnippet(source, place, width);
    writeBar(gutter);
    out << snippet.source << '\n';
    const std::string below(gutter.size(), ' ');
    writeBar(below);
    out << painted(style, tone, snippet.marker);
    const std::string continuation = continuationOf(place);
    if (!continuation.empty()) {
        if (snippet.marker.size() + 1 + continuation.size() > width) {
            out << '\n';
            writeBar(below);
        } else {
            out << ' ';
        }
        out << painted(style, Tone::Faint, continuation);
    }
    out << '\n';
}

void MessageWriter::writeNote(const Place& place, Tone tone, std::string_view label,
                              std::string_view text, std::size_t indent) {
    const std::string outer(gutterOf(place).size() + indent, ' ');
    const std::string inner(outer.size() + (label.empty() ? 0 : label.size() + 1), ' ');
    out << outer << painted(style, tone, label) << (label.empty() ? "" : " ");
    bool isFirst = true;
    for (const std::string& line : wrap(displayed(text), columnsAfter(inner.size()))) {
        out << (isFirst ? "" : inner) << line << '\n';
        isFirst = false;
    }
}

std::size_t MessageWriter::columnsAfter(std::size_t used) const {
    return style.width > used + MIN_TEXT_WIDTH ? style.width - used : MIN_TEXT_WIDTH;
}

void MessageWriter::writeBar(std::string_view gutter) {
    out << painted(style, Tone::Faint, std::string(gutter) + "|") << ' ';
}

} // namespace ostrel
