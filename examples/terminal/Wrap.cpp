#include "terminal/Wrap.h"

#include "terminal/DisplayText.h"

#include <algorithm>

namespace ostrel {

std::vector<std::string> wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    std::size_t used = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const std::size_t wordWidth = displayText(word).width;
        if (!lines.back().empty() && used + 1 + wordWidth > width) {
            lines.emplace_back();
            used = 0;
        }
        if (!lines.back().empty()) {
            lines.back() += ' ';
            ++used;
        }
        lines.back() += word;
        used += wordWidth;
    }
    return lines;
}

} // namespace ostrel
