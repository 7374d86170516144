#include <zt_orvex/support/Quote.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zt::orvex {

namespace {

/// Whether a buffer of `length` + 1 characters at `text` fits below the top of the address space.
/// Divides rather than multiplies, because the product could wrap.
bool fitsInAddressSpace(const char16_t* text, std::size_t length) {
    const auto bytesAbove =
        std::numeric_limits<std::uintptr_t>::max() - reinterpret_cast<std::uintptr_t>(text);
    return length < bytesAbove / sizeof(char16_t);
}

/// How `c` changes the number of brackets that are open.
int bracketStep(char16_t c) {
    switch (c) {
    case u'(':
    case u'[':
    case u'{':
        return 1;
    case u')':
    case u']':
    case u'}':
        return -1;
    default:
        return 0;
    }
}

} // namespace

std::u16string quote(boost::basic_string_ref<char16_t> text, char16_t quoteChar) {
    const auto doubled = static_cast<std::size_t>(std::count(text.begin(), text.end(), quoteChar));
    // The text begins as quote characters only; the second one of a pair is stepped over.
    std::u16string quoted(text.size() + doubled + 2, quoteChar);
    std::size_t write = 1;
    for (const char16_t c : text) {
        quoted[write] = c;
        write += c == quoteChar ? 2 : 1;
    }
    return quoted;
}

std::size_t unquote(char16_t* text, std::size_t length, char16_t quoteChar) {
    if (!fitsInAddressSpace(text, length)) return std::numeric_limits<std::size_t>::max();
    bool inQuote = false;
    std::int64_t depth = 0; // with 32 bits, 2^31 brackets would wrap it to the other sign
    std::size_t write = 0;
    // The terminating zero takes part as the last character.
    for (std::size_t read = 0; read <= length; ++read) {
        if (text[read] == quoteChar && (inQuote || depth <= 0)) {
            const char16_t next = read < length ? text[read + 1] : u'\0';
            const bool isDoubled = inQuote && next == quoteChar;
            if (!isDoubled) {
                inQuote = !inQuote;
                continue;
            }
            // Step over the first of the two. If the quote character is 0, the second one may be an
            // imaginary zero beyond the end; then the zero at the end stands for both.
            if (read < length) ++read;
        }
        if (!inQuote) depth += bracketStep(text[read]);
        if (write != read) text[write] = text[read];
        ++write;
    }
    return write - 1;
}

} // namespace zt::orvex
