#pragma once

#include <string>
#include <string_view>

namespace ostrel {

// Text as the interface of Windows has it, and as these programs have it. Only built for Windows.
// What isn't valid becomes U+FFFD.

std::wstring utf16(std::string_view utf8);
std::string utf8(std::wstring_view utf16);

} // namespace ostrel
