#include "platform/Lines.h"

#include "testing/FakeAst.h"

#include <zt_orvex/literals/NumberConversionError.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <iostream>
#include <stdexcept>

namespace zt::orvex::testing {

namespace {

std::string digits(std::uint64_t value, std::size_t count) {
    std::string text(count, '0');
    for (std::size_t place = count; place > 0; value >>= 4)
        text[--place] = "0123456789abcdef"[value & 15];
    return text;
}

template <typename Text>
std::string escaped(const Text& text, const char* prefix, std::size_t digitCount) {
    std::string result = "\"";
    for (const auto unit : text) {
        const auto value = static_cast<std::uint64_t>(unit) & 0xFFFF;
        if (value == '"' || value == '\\') {
            result += '\\';
            result += static_cast<char>(value);
        } else if (value >= 0x20 && value < 0x7F) {
            result += static_cast<char>(value);
        } else {
            result += prefix + digits(value, digitCount);
        }
    }
    return result + '"';
}

} // namespace

void line(const std::string& asked, const std::string& answer) {
    std::cout << asked << ": " << answer << '\n';
}

void lines(const std::string& asked, const std::string& text) {
    std::cout << asked << ":\n";
    std::string rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::cout << "    " << rest.substr(0, end) << '\n';
        rest.erase(0, end + 1);
    }
}

std::string shown(std::string_view text) {
    // A byte above 0x7F may be a negative char.
    const std::u16string bytes = [&] {
        std::u16string units;
        for (const char c : text)
            units += static_cast<char16_t>(static_cast<unsigned char>(c));
        return units;
    }();
    return escaped(bytes, "\\x", 2);
}

std::string shown(std::u16string_view text) { return "u" + escaped(text, "\\u", 4); }

std::string bitsOf(double value) {
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return digits(bits, 16);
}

std::string hex(std::uint64_t value) { return digits(value, 16); }

std::string withoutHandles(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, 2, "0x") != 0) {
            result += text[at++];
            continue;
        }
        at = std::min(text.find_first_not_of("0123456789abcdef", at + 2), text.size());
        result += "0x";
    }
    return result;
}

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : " ") + text;
    return all.empty() ? "-" : all;
}

std::string namesOf(const std::unordered_set<SymbolView>& symbols) {
    std::vector<std::string> names;
    for (const SymbolView& symbol : symbols)
        names.push_back(label(symbol));
    std::sort(names.begin(), names.end());
    return joined(names);
}

std::string describeException() {
    try {
        throw;
    } catch (const internal::NumberConversionError& error) {
        return std::string("throws NumberConversionError: ") + error.what();
    } catch (const std::out_of_range& error) {
        return std::string("throws std::out_of_range: ") + error.what();
    } catch (const std::invalid_argument& error) {
        return std::string("throws std::invalid_argument: ") + error.what();
    } catch (const std::logic_error& error) {
        return std::string("throws std::logic_error: ") + error.what();
    } catch (const std::bad_function_call&) {
        return "throws std::bad_function_call";
    } catch (const std::bad_cast&) {
        return "throws std::bad_cast";
    } catch (...) {
        return "throws something else";
    }
}

} // namespace zt::orvex::testing
