#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace zt::orvex::testing {

/// A second implementation, which works run by run; the quote character must not be 0.
inline std::u16string plainUnquoted(const std::u16string& text, char16_t quoteChar) {
    const std::u16string opening = u"([{";
    const std::u16string closing = u")]}";
    std::u16string result;
    long open = 0;
    std::size_t i = 0;
    while (i < text.size()) {
        if (text[i] == quoteChar && open <= 0) {
            ++i;
            for (;;) {
                const std::size_t end = std::min(text.find(quoteChar, i), text.size());
                result += text.substr(i, end - i);
                i = std::min(end + 1, text.size());
                if (end + 1 >= text.size() || text[end + 1] != quoteChar) break;
                result += quoteChar;
                i = end + 2;
            }
        } else {
            result += text[i];
            if (opening.find(text[i]) != std::u16string::npos) ++open;
            if (closing.find(text[i]) != std::u16string::npos) --open;
            ++i;
        }
    }
    return result;
}

/// The same for a quote character of 0. Two zeros after the text stand for the terminating one and
/// for the imaginary one after that.
inline std::pair<std::u16string, std::size_t> plainUnquotedByZero(const std::u16string& text) {
    const std::u16string units = text + std::u16string(2, u'\0');
    std::u16string result;
    bool inQuote = false;
    int depth = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (units[i] == u'\0' && !inQuote && depth <= 0) {
            inQuote = true;
        } else if (units[i] == u'\0' && inQuote && units[i + 1] != u'\0') {
            inQuote = false;
        } else {
            if (units[i] == u'\0' && inQuote) ++i;
            result += units[i];
            if (inQuote) continue;
            if (units[i] == u'(') ++depth;
            if (units[i] == u')') --depth;
        }
    }
    return {result, result.size() - 1};
}

} // namespace zt::orvex::testing
