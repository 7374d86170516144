#pragma once

#include <zt_orvex/pragma/PragmaKind.h>
#include <zt_orvex/support/ConvertibleBasicStringView.h>
#include <zt_orvex/support/Export.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace zt::orvex {

/// A pragma comment: `%#`, a directive's word, and free text.
///
/// Owns a copy of the whole text. The views that it gives point into that copy and live as long as
/// the object. A plain value that any thread may read.
///
///   boost::optional<Pragma> pragma = parsePragma(u"%#function a, b", position);
///   pragma->getKind();                  // PragmaKind::function
///   pragma->getPragmaName();            // "function"
///   pragma->getPragmaText();            // "%#function"
///   pragma->getArgumentsText();         // " a, b"
///   pragma->getTrimmedArgumentsText();  // "a, b"
class ZT_ORVEX_EXPORT Pragma {
public:
    /// Stores the four as given, with no check. `parsePragma` makes sense of a comment; offsets
    /// count 16-bit units.
    Pragma(PragmaKind pragmaKind, ConvertibleBasicStringView<char16_t> text,
           unsigned positionOfText, unsigned offsetOfArguments);

    /// Deliberate: moving copies, too, so that the source stays intact and so do the views of it.
    Pragma(const Pragma& other);
    Pragma(Pragma&& other);
    Pragma& operator=(const Pragma&) = delete;
    Pragma& operator=(Pragma&&) = delete;
    ~Pragma();

    PragmaKind getKind() const noexcept;

    /// Whatever the maker passed.
    unsigned getSourcePosition() const noexcept;

    /// The whole text, `%#` included.
    ConvertibleBasicStringView<char16_t> getSourceText() const noexcept;

    /// The directive's word as written, found anew on each call. Empty for a text without a word,
    /// which no pragma from `parsePragma` has.
    ///
    /// Throws std::invalid_argument as `parsePragma` does for a text that is no pragma comment.
    ConvertibleBasicStringView<char16_t> getPragmaName() const;

    /// The text up to the end of the word.
    std::basic_string_view<char16_t> getPragmaText() const noexcept;

    /// The text behind the word, with whatever separates them.
    ///
    /// Throws std::out_of_range if the object was made with an offset behind the end of its text.
    ConvertibleBasicStringView<char16_t> getArgumentsText() const;

    /// The text behind the word without the blanks, tabs and commas in front of it; those behind it
    /// go only as far as described next. Throws as `getArgumentsText` does.
    ///
    /// Deliberate: as many characters as were dropped in front stay behind, if there are that many.
    /// "foo, " gives "foo", but " a  " gives "a ".
    ConvertibleBasicStringView<char16_t> getTrimmedArgumentsText() const;

private:
    PragmaKind kind;
    std::u16string sourceText;
    std::uint32_t sourcePosition;
    std::uint32_t argumentsOffset;
};

/// Makes a pragma of a comment's text: `%#`, tabs and blanks if any, and a word that begins with an
/// ASCII letter and goes on with ASCII letters, digits and `_`.
///
/// Empty if there is no such word. A word that is no directive gives a pragma of the kind
/// `UNRECOGNIZED`. Copies the text and stores `sourcePosition`, which it doesn't interpret.
///
/// Throws std::invalid_argument("Pragmas must be O_COMMENTS that begin with `%#`.") if the text is
/// shorter than two characters or the second isn't `#`.
///
/// Deliberate: the first character is not looked at, and the end of the word is found by a search
/// for the word from the beginning of the text. In `a#a b` that finds the a in front, so that the
/// arguments begin at 1. A text that begins with `%` is safe from it.
ZT_ORVEX_EXPORT boost::optional<Pragma> parsePragma(ConvertibleBasicStringView<char16_t> text,
                                                    unsigned sourcePosition);

/// Writes "Pragma<Pos = 7, Kind = %#function, Text = %#function a>", with the text in UTF-8 and
/// the position under the stream's settings. The kind's word is that of `pragmaKindToString`.
///
/// Throws std::out_of_range("invalid map<K, T> key"), before it writes, for a kind without a word.
ZT_ORVEX_EXPORT std::ostream& operator<<(std::ostream& stream, const Pragma& pragma);

} // namespace zt::orvex
