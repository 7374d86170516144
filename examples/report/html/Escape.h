#pragma once

#include <string>
#include <string_view>

namespace ostrel::report {

/// UTF-8 as the content of an element. Nothing in it can become markup. A control character and
/// one that changes the direction of writing become their boxed names, and a byte that isn't UTF-8
/// a boxed U+FFFD. Tabs stay.
std::string escaped(std::string_view utf8);

/// UTF-16 likewise; a lone surrogate becomes U+FFFD.
std::string escaped(std::u16string_view utf16);

/// UTF-8 as the value of a quoted attribute, which can hold no boxes: what `escaped` boxes becomes
/// U+FFFD.
std::string escapedValue(std::string_view utf8);

} // namespace ostrel::report
