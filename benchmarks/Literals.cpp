// Literals: validation against the regular expressions of Boost (PCRE2's rows are in
// peers/Pcre2Rows.cpp), and conversion against the functions that it is built on.

#include "support/LiteralRows.h"

#include <zt_orvex/literals/LiteralParsing.h>

#include <boost/regex.hpp>
#include <fast_float/fast_float.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>

namespace zt::orvex::benchmarks {
namespace {

using zt::orvex::internal::IntegerLiteralValue;

template <typename Character>
void validateOurs(benchmark::State& state, LiteralKind kind) {
    using View = std::basic_string_view<Character>;
    // One function per kind, chosen outside the loop.
    switch (kind) {
    case LiteralKind::Hexadecimal:
        return measureValidation<Character>(state, kind, [](View text) {
            return zt::orvex::internal::validateHexLiteral(text) !=
                   zt::orvex::internal::LiteralValidationResult::Malformed;
        });
    case LiteralKind::Binary:
        return measureValidation<Character>(state, kind, [](View text) {
            return zt::orvex::internal::validateBinaryLiteral(text) !=
                   zt::orvex::internal::LiteralValidationResult::Malformed;
        });
    case LiteralKind::Double:
        return measureValidation<Character>(state, kind, [](View text) {
            return zt::orvex::internal::validateDoubleLiteral(text) !=
                   zt::orvex::internal::LiteralValidationResult::Malformed;
        });
    }
}

void validateByBoost(benchmark::State& state, LiteralKind kind) {
    const std::string pattern(patternOf(kind, false));
    const boost::regex expression(pattern, boost::regex::perl | boost::regex::nosubs);
    measureValidation<char>(state, kind, [&](const std::string& text) {
        return boost::regex_match(text.data(), text.data() + text.size(), expression);
    });
}

/// Converts the texts with `convert`; the sum of the results must equal that of `reference`.
template <typename Text, typename Convert, typename Reference>
void measureConversion(benchmark::State& state, const std::vector<Text>& texts, Convert convert,
                       Reference reference) {
    double expected = 0;
    for (const Text& text : texts)
        expected += reference(text);
    double sum = 0;
    for (auto _ : state) {
        sum = 0;
        for (const Text& text : texts)
            sum += convert(text);
        benchmark::DoNotOptimize(sum);
    }
    if (sum != expected) state.SkipWithError("wrong answer");
    reportPerItem(state, static_cast<double>(texts.size()));
}

std::vector<std::string> wellFormed(LiteralKind kind) {
    std::vector<std::string> texts;
    for (const std::string& text : generateLiterals(kind)) {
        if (isWellFormed<char>(text, kind)) texts.push_back(text);
    }
    return texts;
}

template <typename Character>
double parseDoubleOurs(const std::basic_string<Character>& text) {
    return zt::orvex::internal::parseDoubleLiteral(text);
}

/// Only the steps that parsing must take: copy to a buffer, replace d by e, call fast_float.
double parseDoubleFromBuffer(const std::string& text) {
    const std::unique_ptr<char[]> buffer(new char[text.size() + 1]);
    for (std::size_t i = 0; i < text.size(); ++i)
        buffer[i] = (text[i] | 0x20) == 'd' ? 'e' : text[i];
    buffer[text.size()] = 0;
    double value = 0;
    fast_float::from_chars(buffer.get(), buffer.get() + text.size(), value);
    return value;
}
double parseDoubleFromBuffer(const std::u16string& text) {
    const std::unique_ptr<char16_t[]> buffer(new char16_t[text.size() + 1]);
    for (std::size_t i = 0; i < text.size(); ++i)
        buffer[i] = (text[i] | 0x20) == u'd' ? u'e' : text[i];
    buffer[text.size()] = 0;
    char narrow[64];
    for (std::size_t i = 0; i < text.size(); ++i)
        narrow[i] = static_cast<char>(buffer[i]);
    double value = 0;
    fast_float::from_chars(narrow, narrow + text.size(), value);
    return value;
}

/// Only digits: no prefix, no suffix, and one type of result.
struct Digits {
    std::string text;
    int radix;
};

double convertDigits(const Digits& digits) {
    std::uint64_t value = 0;
    std::from_chars(digits.text.data(), digits.text.data() + digits.text.size(), value,
                    digits.radix);
    return static_cast<double>(value);
}

std::vector<Digits> digitsOf(LiteralKind kind) {
    std::vector<Digits> digits;
    for (const std::string& text : wellFormed(kind)) {
        const std::size_t end = std::min(text.size(), text.find_first_of("uUsS"));
        digits.push_back({text.substr(2, end - 2), kind == LiteralKind::Binary ? 2 : 16});
    }
    return digits;
}

/// The bits of the value as an unsigned number.
double numberOf(const IntegerLiteralValue& value) {
    return boost::apply_visitor(
        [](auto number) {
            return static_cast<double>(static_cast<std::make_unsigned_t<decltype(number)>>(number));
        },
        value);
}

template <typename Character>
void parseIntegersOurs(benchmark::State& state, LiteralKind kind) {
    const auto texts = inUnitsOf<Character>(wellFormed(kind));
    const bool isHex = kind == LiteralKind::Hexadecimal;
    const std::vector<Digits> digits = digitsOf(kind);
    std::size_t count = 0;
    std::size_t right = 0;
    for (auto _ : state) {
        count = 0;
        if (isHex) {
            for (const auto& text : texts) {
                const IntegerLiteralValue value = zt::orvex::internal::parseHexLiteral(text);
                benchmark::DoNotOptimize(&value);
                ++count;
            }
        } else {
            for (const auto& text : texts) {
                const IntegerLiteralValue value = zt::orvex::internal::parseBinaryLiteral(text);
                benchmark::DoNotOptimize(&value);
                ++count;
            }
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const IntegerLiteralValue value = isHex ? zt::orvex::internal::parseHexLiteral(texts[i])
                                                : zt::orvex::internal::parseBinaryLiteral(texts[i]);
        right += numberOf(value) == convertDigits(digits[i]) ? 1u : 0u;
    }
    if (count != texts.size() || right != texts.size()) state.SkipWithError("wrong answer");
    reportPerItem(state, static_cast<double>(texts.size()));
}

void parseIntegersByCharconv(benchmark::State& state, LiteralKind kind) {
    const std::vector<Digits> digits = digitsOf(kind);
    for (auto _ : state) {
        for (const Digits& each : digits) {
            std::uint64_t value = 0;
            std::from_chars(each.text.data(), each.text.data() + each.text.size(), value,
                            each.radix);
            benchmark::DoNotOptimize(value);
        }
    }
    reportPerItem(state, static_cast<double>(digits.size()));
}

template <typename Character>
void registerParseDouble(const std::string& width) {
    using Text = std::basic_string<Character>;
    const auto reference = [](const Text& text) { return parseDoubleFromBuffer(text); };
    const auto texts = inUnitsOf<Character>(wellFormed(LiteralKind::Double));
    registerRow("parse_double/ours/" + width, [=](benchmark::State& state) {
        measureConversion(state, texts, parseDoubleOurs<Character>, reference);
    });
    registerRow("parse_double/fast_float_from_buffer/" + width, [=](benchmark::State& state) {
        measureConversion(state, texts, reference, reference);
    });
}

[[maybe_unused]] const bool registered = [] {
    using State = benchmark::State;
    for (const LiteralKind kind : ALL_LITERAL_KINDS) {
        const std::string name = nameOf(kind);
        registerRow("validate/ours_8/" + name, [=](State& s) { validateOurs<char>(s, kind); });
        registerRow("validate/ours_16/" + name, [=](State& s) { validateOurs<char16_t>(s, kind); });
        registerRow("validate/boost_regex_8/" + name, [=](State& s) { validateByBoost(s, kind); });
    }
    registerParseDouble<char>("8");
    registerParseDouble<char16_t>("16");
    for (const LiteralKind kind : {LiteralKind::Hexadecimal, LiteralKind::Binary}) {
        const std::string name = nameOf(kind);
        registerRow("parse_integer/ours_8/" + name,
                    [=](State& s) { parseIntegersOurs<char>(s, kind); });
        registerRow("parse_integer/ours_16/" + name,
                    [=](State& s) { parseIntegersOurs<char16_t>(s, kind); });
        registerRow("parse_integer/std_from_chars/" + name,
                    [=](State& s) { parseIntegersByCharconv(s, kind); });
    }
    return true;
}();

} // namespace
} // namespace zt::orvex::benchmarks
