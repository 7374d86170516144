#pragma once

#include "source/SourceText.h"

#include <cstddef>

namespace ostrel {

inline bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }
inline bool isLineEnd(char16_t unit) { return unit == u'\n' || unit == u'\r'; }
inline bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
inline bool isLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
inline bool isNamePart(char16_t unit) { return isLetter(unit) || isDigit(unit) || unit == u'_'; }

/// Whether `at` is the end of a line or of the text.
inline bool isEndOfLine(const SourceText& source, std::size_t at) {
    return at >= source.size() || isLineEnd(source.at(at));
}

/// The end of the line that contains `at`.
inline std::size_t skipToLineEnd(const SourceText& source, std::size_t at) {
    while (!isEndOfLine(source, at))
        ++at;
    return at;
}

/// The offset after the line end at `at`; `at` itself at the end of the text.
inline std::size_t skipLineEnd(const SourceText& source, std::size_t at) {
    if (at >= source.size()) return at;
    return at + (source.at(at) == u'\r' && source.at(at + 1) == u'\n' ? 2U : 1U);
}

inline bool isContinuation(const SourceText& source, std::size_t at) {
    return source.at(at) == u'.' && source.at(at + 1) == u'.' && source.at(at + 2) == u'.';
}

/// The offset after the blanks at `at`; `...` and the rest of its line count as a blank.
inline std::size_t skipBlanks(const SourceText& source, std::size_t at) {
    while (true) {
        if (isBlank(source.at(at))) {
            ++at;
        } else if (isContinuation(source, at)) {
            at = skipLineEnd(source, skipToLineEnd(source, at));
        } else {
            return at;
        }
    }
}

/// Whether a blank or a line end follows a token that ends at `at`.
inline bool isBlankAfter(const SourceText& source, std::size_t at) {
    return isEndOfLine(source, at) || isBlank(source.at(at)) || isContinuation(source, at);
}

/// The offset after the quoted text that begins at `at`, in which a doubled quote stands for one;
/// `npos` if the line ends first.
std::size_t skipQuoted(const SourceText& source, std::size_t at);

} // namespace ostrel
