#include "frontend/WindowsText.h"

#include <windows.h>

namespace ostrel {

std::wstring utf16(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring units(utf8.size(), L'\0'); // no text has more units than bytes
    const int count = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, units.data(), size);
    units.resize(static_cast<std::size_t>(count));
    return units;
}

std::string utf8(std::wstring_view utf16) {
    constexpr std::size_t MOST_BYTES_OF_A_UNIT = 3;
    const int size = static_cast<int>(utf16.size());
    std::string bytes(MOST_BYTES_OF_A_UNIT * utf16.size(), '\0');
    const int count = WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

} // namespace ostrel
