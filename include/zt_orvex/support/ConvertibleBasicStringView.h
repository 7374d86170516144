#pragma once

#include <zt_orvex/support/internal/Requirements.h>

#include <boost/utility/string_ref.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

/// A non-owning view of characters: a pointer and a length.
///
/// The text must outlive the view. Every common type of text converts to it, so callers pass what
/// they have; it converts only to `std::basic_string_view`, since a second target would make calls
/// of overloaded functions ambiguous. A literal, like any pointer, ends at its first zero; pass a
/// pointer and a length for a text with a zero inside.
///
///     void print(ConvertibleBasicStringView<char16_t> text);
///     print(u"x");  print(std::u16string(u"x"));  print(std::u16string_view(u"x"));
///     std::u16string_view text = ConvertibleBasicStringView<char16_t>(u"x");
template <class CharT>
class ConvertibleBasicStringView {
    static_assert(std::is_same_v<CharT, char> || std::is_same_v<CharT, char16_t>,
                  "text is UTF-8 in char or UTF-16 in char16_t");

    /// Text of another type that converts to this one.
    template <class T>
    using EnableIfOtherText =
        std::enable_if_t<std::is_convertible_v<const T&, ConvertibleBasicStringView> &&
                         !std::is_same_v<T, ConvertibleBasicStringView>>;

public:
    using value_type = CharT;            ///< The type of a character.
    using size_type = std::size_t;       ///< The type of a length.
    using const_iterator = const CharT*; ///< Gives the characters in order.
    using iterator = const_iterator;     ///< The same: a view changes nothing.

    /// An empty text, whose `data()` is null.
    constexpr ConvertibleBasicStringView() noexcept = default;

    /// The `count` characters from `text` on, zeros among them.
    constexpr ConvertibleBasicStringView(const CharT* text, std::size_t count) noexcept
        : start(text), length(count) {}

    /// A literal, or any zero-terminated text. `text` must not be null.
    constexpr ConvertibleBasicStringView(const CharT* text)
        : start(text), length(std::char_traits<CharT>::length(text)) {}

    /// The characters of a string, which must outlive the view and stay unchanged meanwhile.
    template <class Traits, class Allocator>
    ConvertibleBasicStringView(const std::basic_string<CharT, Traits, Allocator>& text) noexcept
        : start(text.data()), length(text.size()) {}

    /// The characters that another view names.
    template <class Traits>
    constexpr ConvertibleBasicStringView(std::basic_string_view<CharT, Traits> text) noexcept
        : start(text.data()), length(text.size()) {}

    /// The characters that a view of Boost names.
    template <class Traits>
    constexpr ConvertibleBasicStringView(boost::basic_string_ref<CharT, Traits> text) noexcept
        : start(text.data()), length(text.size()) {}

    /// The same characters as a view of the standard library.
    constexpr operator std::basic_string_view<CharT>() const noexcept { return {start, length}; }

    /// The first character. No zero need follow the last.
    constexpr const CharT* data() const noexcept { return start; }
    /// The number of characters: bytes, or 16-bit units.
    constexpr std::size_t size() const noexcept { return length; }
    /// Whether the text is empty.
    constexpr bool empty() const noexcept { return length == 0; }
    /// At the first character.
    constexpr const_iterator begin() const noexcept { return start; }
    /// After the last character.
    constexpr const_iterator end() const noexcept { return start + length; }

    /// The character at `index`, which must be below `size()`; that isn't checked.
    constexpr const CharT& operator[](std::size_t index) const { return start[index]; }

    /// @{
    /// Compares the characters; either side may be any text that converts.
    friend constexpr bool operator==(ConvertibleBasicStringView a, ConvertibleBasicStringView b) {
        return std::basic_string_view<CharT>(a) == std::basic_string_view<CharT>(b);
    }
    friend constexpr bool operator!=(ConvertibleBasicStringView a, ConvertibleBasicStringView b) {
        return !(a == b);
    }

    // Exact in both arguments, so the comparisons of std::basic_string_view don't compete.
    template <class T, class = EnableIfOtherText<T>>
    friend constexpr bool operator==(ConvertibleBasicStringView a, const T& b) {
        return a == ConvertibleBasicStringView(b);
    }
    template <class T, class = EnableIfOtherText<T>>
    friend constexpr bool operator==(const T& a, ConvertibleBasicStringView b) {
        return ConvertibleBasicStringView(a) == b;
    }
    template <class T, class = EnableIfOtherText<T>>
    friend constexpr bool operator!=(ConvertibleBasicStringView a, const T& b) {
        return !(a == b);
    }
    template <class T, class = EnableIfOtherText<T>>
    friend constexpr bool operator!=(const T& a, ConvertibleBasicStringView b) {
        return !(a == b);
    }
    /// @}

private:
    const CharT* start = nullptr;
    std::size_t length = 0;
};

static_assert(std::is_trivially_copyable_v<ConvertibleBasicStringView<char>> &&
              std::is_trivially_copyable_v<ConvertibleBasicStringView<char16_t>>);
