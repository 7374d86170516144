#pragma once

#include <zt_orvex/ast/SymbolView.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zt::orvex::testing {

/// Prints a line: what was asked, and the answer.
void line(const std::string& asked, const std::string& answer);

/// Prints each line of `text` below a line with what was asked.
void lines(const std::string& asked, const std::string& text);

/// The text in quotes. What isn't a printable ASCII character is written as a number, so that the
/// line is the same in every encoding.
std::string shown(std::string_view text);
std::string shown(std::u16string_view text);
inline std::string shown(bool value) { return value ? "yes" : "no"; }

/// The bits of a number, which tell apart what prints alike.
std::string bitsOf(double value);
std::string hex(std::uint64_t value);

/// The text without the digits of handles such as 0x1003: the order in which a compiler evaluates
/// arguments decides those.
std::string withoutHandles(const std::string& text);

/// The elements with blanks between them; "-" if there are none.
std::string joined(const std::vector<std::string>& texts);

/// The names of symbols of a FakeAst, sorted.
std::string namesOf(const std::unordered_set<SymbolView>& symbols);

/// What is known of the exception that is being handled: its class, and its text if the library
/// chose it.
std::string describeException();

/// The text that `call` returns, or the exception that it throws.
template <typename Call>
std::string outcome(Call call) {
    try {
        return call();
    } catch (...) {
        return describeException();
    }
}

} // namespace zt::orvex::testing
