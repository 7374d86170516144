#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

namespace ostrel {

/// The path that a text names, such as an argument of the command line. On Windows texts are UTF-8;
/// the standard library alone would take them for text in an old code page.
std::filesystem::path pathOf(const std::string& text);

/// The text that names a path. On Windows it has slashes and is UTF-8, with U+FFFD for what isn't
/// valid text.
std::string textOf(const std::filesystem::path& path);

/// Opens a file to read its bytes. If it can't be opened, returns a null pointer and sets `errno`.
std::FILE* openToRead(const std::filesystem::path& path);

} // namespace ostrel
