// Input: units of two bytes each; the first one is the quote character, the others are the text.
#include <zt_orvex/support/Quote.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

/// Unquotes in a buffer of exactly the text and its terminating zero, so that a sanitizer notices
/// any other access.
std::u16string unquoted(const std::u16string& text, char16_t quoteChar) {
    const std::unique_ptr<char16_t[]> buffer(new char16_t[text.size() + 1]);
    std::copy(text.begin(), text.end(), buffer.get());
    buffer[text.size()] = u'\0';
    const std::size_t length = zt::orvex::unquote(buffer.get(), text.size(), quoteChar);
    if (quoteChar == u'\0') return {}; // the terminator may be dropped and still be counted
    require(length <= text.size() && buffer[length] == u'\0');
    return {buffer.get(), length};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < sizeof(char16_t)) return 0;
    std::u16string units(size / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    const char16_t quoteChar = units.front();
    const std::u16string text = units.substr(1);

    const std::u16string plain = unquoted(text, quoteChar);
    require(quoteChar == u'\0' || text.find(quoteChar) != std::u16string::npos || plain == text);

    const std::u16string quoted =
        zt::orvex::quote(boost::basic_string_ref<char16_t>(text), quoteChar);
    require(quoted.size() >= text.size() + 2);
    const std::u16string back = unquoted(quoted, quoteChar);
    require(quoteChar == u'\0' || back == text);
    return 0;
}
