#include <zt_orvex/pragma/Pragma.h>

#include "pragma/PragmaKindTable.h"
#include "support/AsciiClass.h"
#include "support/Utf16ToUtf8.h"

#include <cstddef>
#include <stdexcept>

namespace zt::orvex {

namespace {

using internal::isAsciiAlnum;
using internal::isAsciiAlpha;

/// The directive's word in the text of a comment, if it has one.
boost::optional<std::u16string_view> extractPragmaName(std::u16string_view text) {
    if (text.size() < 2 || text[1] != u'#')
        throw std::invalid_argument("Pragmas must be O_COMMENTS that begin with `%#`.");
    const std::size_t begin = text.find_first_not_of(u"\t ", 2);
    if (begin == std::u16string_view::npos || !isAsciiAlpha(text[begin])) return boost::none;
    std::size_t end = begin + 1;
    while (end < text.size() && (isAsciiAlnum(text[end]) || text[end] == u'_'))
        ++end;
    return text.substr(begin, end - begin);
}

} // namespace

Pragma::Pragma(PragmaKind pragmaKind, ConvertibleBasicStringView<char16_t> text,
               unsigned positionOfText, unsigned offsetOfArguments)
    : kind(pragmaKind), sourceText(text.data(), text.size()), sourcePosition(positionOfText),
      argumentsOffset(offsetOfArguments) {}

Pragma::Pragma(const Pragma&) = default;
Pragma::Pragma(Pragma&& other) : Pragma(static_cast<const Pragma&>(other)) {}
Pragma::~Pragma() = default;

PragmaKind Pragma::getKind() const noexcept { return kind; }

unsigned Pragma::getSourcePosition() const noexcept { return sourcePosition; }

ConvertibleBasicStringView<char16_t> Pragma::getSourceText() const noexcept { return sourceText; }

ConvertibleBasicStringView<char16_t> Pragma::getPragmaName() const {
    return extractPragmaName(sourceText).value_or(std::u16string_view());
}

std::basic_string_view<char16_t> Pragma::getPragmaText() const noexcept {
    return std::u16string_view(sourceText).substr(0, argumentsOffset);
}

ConvertibleBasicStringView<char16_t> Pragma::getArgumentsText() const {
    return std::u16string_view(sourceText).substr(argumentsOffset);
}

ConvertibleBasicStringView<char16_t> Pragma::getTrimmedArgumentsText() const {
    constexpr std::u16string_view SEPARATORS = u" \t,";
    const std::u16string_view args = getArgumentsText();
    const std::size_t first = args.find_first_not_of(SEPARATORS);
    if (first == std::u16string_view::npos) return {};
    const std::size_t last = args.find_last_not_of(SEPARATORS);
    // Deliberate: not `last - first + 1`.
    return args.substr(first, last + 1);
}

boost::optional<Pragma> parsePragma(ConvertibleBasicStringView<char16_t> text,
                                    unsigned sourcePosition) {
    const std::u16string_view whole = text;
    const auto word = extractPragmaName(whole);
    if (!word) return boost::none;
    // Deliberate: searches from the beginning of the text, where the word may occur, too.
    const std::size_t argumentsOffset = whole.find(*word) + word->size();
    return Pragma(pragmaKindFromString(std::u16string(*word)), text, sourcePosition,
                  static_cast<unsigned>(argumentsOffset));
}

std::ostream& operator<<(std::ostream& stream, const Pragma& pragma) {
    const std::string word = internal::utf16ToUtf8(internal::getPragmaWord(pragma.getKind()));
    const std::string text = internal::utf16ToUtf8(pragma.getSourceText());
    return stream << "Pragma<Pos = " << pragma.getSourcePosition() << ", Kind = %#" << word
                  << ", Text = " << text << ">";
}

} // namespace zt::orvex
