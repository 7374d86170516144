#pragma once

#include "report/analysis/PathSteps.h"
#include "source/Place.h"

#include <cstddef>
#include <string>

// The names by which the parts of the page refer to each other. Files and constructs are counted
// from 0, as in the report.

namespace ostrel::report {

inline std::string fileId(std::size_t file) { return "f" + std::to_string(file); }

inline std::string lineId(std::size_t file, std::size_t line) {
    return fileId(file) + "L" + std::to_string(line);
}

/// A card with the table of a construct.
inline std::string cardId(std::size_t file, std::size_t construct) {
    return fileId(file) + "c" + std::to_string(construct);
}

/// A remark in its list.
inline std::string remarkId(std::size_t file, std::size_t remark) {
    return fileId(file) + "r" + std::to_string(remark);
}

/// The key of a variable of a construct, which its row and its places in the source have.
inline std::string variableKey(std::size_t construct, std::size_t variable) {
    return std::to_string(construct) + "-" + std::to_string(variable);
}

/// A link to the line of a place. `data-at` tells the script the whole place; `text` is the content
/// of the element.
inline std::string linkTo(std::size_t file, const Place& place, const std::string& text,
                          const char* attributes = "") {
    return "<a href=\"#" + lineId(file, place.line) + "\" data-at=\"" + lineAndColumn(place) + "-" +
           std::to_string(place.endLine) + ":" + std::to_string(place.endColumn) + "\"" +
           attributes + ">" + text + "</a>";
}

inline std::string linkTo(std::size_t file, const Place& place) {
    return linkTo(file, place, lineAndColumn(place));
}

/// Likewise in a grid, where the arrow keys lead to it.
inline std::string linkInGrid(std::size_t file, const Place& place) {
    return linkTo(file, place, lineAndColumn(place), " tabindex=\"-1\"");
}

} // namespace ostrel::report
