#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// What is wrong with a number, and which part of its text.
struct NumberMistake {
    std::size_t begin;
    std::size_t end;
    std::string message;
    bool isOpenExponent = false; ///< Whether the text ends in an exponent without digits.
};

/// What is wrong with a token that begins like a number; nothing if it is one.
std::optional<NumberMistake> checkNumber(std::u16string_view text);

} // namespace ostrel
