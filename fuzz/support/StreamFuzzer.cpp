// Input: the settings of a stream, values to insert into it, and text. What a stream of 16-bit
// characters holds is compared with what an 8-bit stream does with the same text; its facets are
// compared with the classic ones.
#include "Require.h"
#include "TextFromBytes.h"
#include "support/AsciiClass.h"
#include "support/Utf16ToUtf8.h"
#include "testing/Random.h"

#include <zt_orvex/ast/NodeKind.h>
#include <zt_orvex/ast/Operators.h>
#include <zt_orvex/support/Char16Locale.h>
#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/RestrictedExternals.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace zt::orvex;
using fuzz::require;
using testing::Random;

namespace {

using WideStream = std::basic_ostringstream<char16_t>;

constexpr std::string_view BINARY[] = {"+",  "-",   "*",  "/",  "\\", "^",  ".*",
                                       "./", ".\\", ".^", "<=", "<",  ">=", ">",
                                       "==", "~=",  "&&", "&",  "||", "|",  "@"};
constexpr std::string_view UNARY[] = {"+", "-", "'", ".'", "~", "?", "@"};

std::u16string widened(std::string_view text) { return {text.begin(), text.end()}; }

struct Settings {
    explicit Settings(Random& random)
        : flags(random.below(0x10000)), width(random.below(24)), isImbued(random.oneIn(2)) {}

    template <typename Stream>
    void applyTo(Stream& stream) const {
        constexpr std::ios_base::fmtflags FLAGS[] = {
            std::ios_base::left, std::ios_base::right,    std::ios_base::internal,
            std::ios_base::hex,  std::ios_base::showpos,  std::ios_base::showbase,
            std::ios_base::oct,  std::ios_base::uppercase};
        for (std::size_t i = 0; i < std::size(FLAGS); ++i) {
            if ((flags >> i & 1) != 0) stream.setf(FLAGS[i]);
        }
        stream.width(static_cast<std::streamsize>(width));
    }

    std::size_t flags;
    std::size_t width;
    bool isImbued;
};

/// What a stream with the settings makes of a text.
std::string plainly(std::string_view text, const Settings& settings) {
    std::ostringstream stream;
    settings.applyTo(stream);
    stream << text;
    return stream.str();
}

template <typename Value>
std::u16string inserted(const Value& value, const Settings& settings) {
    WideStream stream;
    if (settings.isImbued) stream.imbue(getChar16Locale());
    settings.applyTo(stream);
    stream << value;
    require(stream.good() && stream.width() == 0, "the stream is usable");
    return stream.str();
}

template <typename Operator, std::size_t COUNT>
void checkOperator(std::uint32_t number, const std::string_view (&spellings)[COUNT],
                   const Settings& settings) {
    const auto op = static_cast<Operator>(number);
    try {
        require(toString(op) == spellings[std::min<std::size_t>(number, COUNT - 1)], "spelling");
        require(number < COUNT, "the operator exists");
        require(inserted(op, settings) == widened(plainly(spellings[number], settings)),
                "the spelling under the stream's settings");
    } catch (const std::out_of_range&) {
        require(number >= COUNT, "only such an operator is refused");
    }
}

void checkKind(std::uint8_t number, const Settings& settings) {
    const auto kind = static_cast<NodeKind>(number);
    require(inserted(kind, settings) == widened(plainly(std::to_string(number), settings)),
            "a kind is a number as text");
    std::ostringstream narrow;
    settings.applyTo(narrow);
    narrow << kind;
    std::ostringstream plain;
    settings.applyTo(plain);
    plain << static_cast<int>(number);
    require(narrow.str() == plain.str(), "a kind is an int");
    require((getAllNodeKinds().count(kind) != 0) == (number >= 1 && number <= 66), "all kinds");
}

/// Numbers on an imbued stream.
template <typename Number>
void checkNumber(Number number, const Settings& settings) {
    WideStream wide;
    wide.imbue(getChar16Locale());
    settings.applyTo(wide);
    wide << number << 'c' << true;
    std::ostringstream narrow;
    settings.applyTo(narrow);
    narrow << number << 'c' << true;
    require(wide.str() == widened(narrow.str()), "numbers look as in the classic locale");
}

/// One unit at a time and all at once.
void checkFacet(const std::u16string& units) {
    const auto& wide = std::use_facet<std::ctype<char16_t>>(getChar16Locale());
    const auto& narrow = std::use_facet<std::ctype<char>>(std::locale::classic());
    std::u16string upper = units;
    std::u16string lower = units;
    std::string narrowed(units.size(), '\0');
    std::u16string rewidened(units.size(), u'\0');
    std::vector<std::ctype_base::mask> masks(units.size());
    wide.toupper(upper.data(), upper.data() + upper.size());
    wide.tolower(lower.data(), lower.data() + lower.size());
    wide.narrow(units.data(), units.data() + units.size(), '?', narrowed.data());
    wide.widen(narrowed.data(), narrowed.data() + narrowed.size(), rewidened.data());
    wide.is(units.data(), units.data() + units.size(), masks.data());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool isAscii = units[i] < 0x80;
        const char c = isAscii ? static_cast<char>(units[i]) : '?';
        const auto plainUnit = [&](char changed) {
            return isAscii ? static_cast<char16_t>(changed) : units[i];
        };
        require(upper[i] == plainUnit(narrow.toupper(c)) && upper[i] == wide.toupper(units[i]),
                "upper case");
        require(lower[i] == plainUnit(narrow.tolower(c)) && lower[i] == wide.tolower(units[i]),
                "lower case");
        require(narrowed[i] == c && wide.narrow(units[i], '?') == c, "the narrow form");
        require(rewidened[i] == static_cast<char16_t>(c) && wide.widen(c) == rewidened[i],
                "the wide form");
        for (const auto mask : {std::ctype_base::space, std::ctype_base::alpha,
                                std::ctype_base::digit, std::ctype_base::punct}) {
            const bool expected = isAscii && narrow.is(mask, c);
            require(wide.is(mask, units[i]) == expected && ((masks[i] & mask) != 0) == expected,
                    "the classes");
        }
        require(internal::isAsciiAlpha(units[i]) == (isAscii && narrow.is(narrow.alpha, c)),
                "a letter");
        require(internal::isAsciiAlnum(units[i]) == (isAscii && narrow.is(narrow.alnum, c)),
                "a letter or digit");
    }
    const char16_t* const end = units.data() + units.size();
    require(wide.scan_is(wide.alpha, units.data(), end) ==
                std::find_if(units.data(), end, internal::isAsciiAlpha),
            "the first letter");
    require(wide.scan_not(wide.alpha, units.data(), end) ==
                std::find_if_not(units.data(), end, internal::isAsciiAlpha),
            "the first that is none");
}

void checkText(const std::u16string& units) {
    require(internal::utf16ToUtf8(units) == fuzz::plainUtf8(units), "UTF-8");
    checkFacet(units);
    const ConvertibleBasicStringView<char16_t> view(units);
    require(view == units && units == view && !(view != units), "a view is equal to its text");
    const std::u16string_view half = std::u16string_view(units).substr(0, units.size() / 2);
    require((view == half) == units.empty() && view.empty() == units.empty(),
            "and not to a part of it");
    require(std::equal(view.begin(), view.end(), units.begin(), units.end()), "equal elements");
    require(getRestrictedExternals().count(units) <= 1, "a name is restricted or not");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    const Settings settings(random);
    const auto number =
        static_cast<std::uint32_t>(random.oneIn(8) ? random.next() : random.below(32));
    checkOperator<BinaryOperator>(number, BINARY, settings);
    checkOperator<UnaryOperator>(number, UNARY, settings);
    checkKind(static_cast<std::uint8_t>(random.below(256)), settings);
    checkNumber(number, settings);
    checkNumber(static_cast<double>(number) / 7, settings);
    checkNumber(-static_cast<long long>(number), settings);
    checkText(fuzz::unitsFrom(data, size));
    return 0;
}
