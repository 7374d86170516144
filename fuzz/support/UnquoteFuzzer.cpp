// Input: units of two bytes each; the first one is the quote character, the others are the text.
#include "Require.h"
#include "support/PlainUnquote.h"

#include <zt_orvex/support/Quote.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

using namespace zt::orvex;
using fuzz::require;

namespace {

/// Unquotes in a buffer of exactly the text and its terminating zero, so that a sanitizer notices
/// any other access.
std::u16string unquoted(const std::u16string& text, char16_t quoteChar) {
    const std::unique_ptr<char16_t[]> buffer(new char16_t[text.size() + 1]);
    std::copy(text.begin(), text.end(), buffer.get());
    buffer[text.size()] = u'\0';
    const std::size_t length = unquote(buffer.get(), text.size(), quoteChar);
    if (quoteChar == u'\0') return {}; // the terminator may be dropped and still be counted
    require(length <= text.size() && buffer[length] == u'\0', "the text is terminated");
    return {buffer.get(), length};
}

std::u16string plainQuoted(const std::u16string& text, char16_t quoteChar) {
    std::u16string result(1, quoteChar);
    for (const char16_t unit : text)
        result.append(unit == quoteChar ? 2 : 1, unit);
    return result + quoteChar;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < sizeof(char16_t)) return 0;
    std::u16string units(size / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    const char16_t quoteChar = units.front();
    const std::u16string text = units.substr(1);

    const std::u16string plain = unquoted(text, quoteChar);
    const bool isBracket = std::u16string(u"()[]{}").find(quoteChar) != std::u16string::npos;
    if (quoteChar != u'\0' && !isBracket)
        require(plain == testing::plainUnquoted(text, quoteChar), "as the plain one");

    const std::u16string quoted = quote(boost::basic_string_ref<char16_t>(text), quoteChar);
    require(quoted == plainQuoted(text, quoteChar), "each quote character is doubled");
    require(quoteChar == u'\0' || unquoted(quoted, quoteChar) == text, "quoting can be undone");
    return 0;
}
