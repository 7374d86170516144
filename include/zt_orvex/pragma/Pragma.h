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
/// Owns a copy of the whole text; the views that it returns point into that copy and live as long
/// as the object. A plain value: any thread may read it.
///
///     boost::optional<Pragma> pragma = parsePragma(u"%#function a, b", position);
///     pragma->getKind();                  // PragmaKind::function
///     pragma->getPragmaName();            // "function"
///     pragma->getPragmaText();            // "%#function"
///     pragma->getArgumentsText();         // " a, b"
///     pragma->getTrimmedArgumentsText();  // "a, b"
class ZT_ORVEX_EXPORT Pragma {
public:
    /// Stores its arguments unchecked; `parsePragma` derives them from a comment. Offsets count
    /// 16-bit units.
    Pragma(PragmaKind pragmaKind, ConvertibleBasicStringView<char16_t> text,
           unsigned positionOfText, unsigned offsetOfArguments);

    /// @{
    /// Copies the text.
    ///
    /// Deliberate: moving copies, too, so the source and the views of it stay intact.
    Pragma(const Pragma& other);
    Pragma(Pragma&& other);
    /// @}
    Pragma& operator=(const Pragma&) = delete;
    Pragma& operator=(Pragma&&) = delete;
    ~Pragma();

    /// What it directs: `PragmaKind::UNRECOGNIZED` if the word isn't a directive.
    PragmaKind getKind() const noexcept;

    /// The position that was passed to the constructor.
    unsigned getSourcePosition() const noexcept;

    /// The whole text, `%#` included.
    ConvertibleBasicStringView<char16_t> getSourceText() const noexcept;

    /// The directive's word as written; each call searches the text for it. Empty for a text
    /// without a word, which no pragma from `parsePragma` has.
    ///
    /// Throws std::invalid_argument, as `parsePragma` does, if the text isn't a pragma comment.
    ConvertibleBasicStringView<char16_t> getPragmaName() const;

    /// The text up to the end of the word.
    std::basic_string_view<char16_t> getPragmaText() const noexcept;

    /// The text after the word, separators included.
    ///
    /// Throws std::out_of_range if the object was made with an offset beyond the end of its text.
    ConvertibleBasicStringView<char16_t> getArgumentsText() const;

    /// The text after the word without the blanks, tabs and commas at its beginning, and without
    /// some of those at its end. Throws as `getArgumentsText` does.
    ///
    /// Deliberate: of the characters at the end, as many stay as were dropped at the beginning.
    /// "foo, " gives "foo", but " a  " gives "a ".
    ConvertibleBasicStringView<char16_t> getTrimmedArgumentsText() const;

private:
    PragmaKind kind;
    std::u16string sourceText;
    std::uint32_t sourcePosition;
    std::uint32_t argumentsOffset;
};

/// Makes a pragma of a comment's text: `%#`, optional tabs and blanks, and a word that begins with
/// an ASCII letter and continues with ASCII letters, digits and `_`.
///
/// Returns an empty optional if there is no such word. A word that isn't a directive gives a pragma
/// of the kind `UNRECOGNIZED`. Copies the text, and stores `sourcePosition` without interpreting
/// it.
///
/// Throws std::invalid_argument("Pragmas must be O_COMMENTS that begin with `%#`.") if the text is
/// shorter than two characters or the second isn't `#`.
///
/// Deliberate: the first character isn't checked, and the end of the word is found by searching for
/// the word from the beginning of the text. In `a#a b` the search finds the first a, so the
/// arguments begin at 1. It can't happen in a text that begins with `%`.
ZT_ORVEX_EXPORT boost::optional<Pragma> parsePragma(ConvertibleBasicStringView<char16_t> text,
                                                    unsigned sourcePosition);

/// Writes `Pragma<Pos = 7, Kind = %#function, Text = %#function a>`, with the text in UTF-8 and
/// the position under the stream's settings. The kind's word is that of `pragmaKindToString`.
///
/// Throws std::out_of_range("invalid map<K, T> key") for a kind without a word, before writing.
ZT_ORVEX_EXPORT std::ostream& operator<<(std::ostream& stream, const Pragma& pragma);

} // namespace zt::orvex
