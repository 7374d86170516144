#include "frontend/FilePath.h"

#if defined(_WIN32)
#include "frontend/WindowsText.h"
#endif

namespace ostrel {

#if defined(_WIN32)

std::filesystem::path pathOf(const std::string& text) { return utf16(text); }

std::string textOf(const std::filesystem::path& path) { return utf8(path.generic_wstring()); }

std::FILE* openToRead(const std::filesystem::path& path) { return _wfopen(path.c_str(), L"rb"); }

#else

std::filesystem::path pathOf(const std::string& text) { return text; }

std::string textOf(const std::filesystem::path& path) { return path.string(); }

std::FILE* openToRead(const std::filesystem::path& path) { return std::fopen(path.c_str(), "rb"); }

#endif

} // namespace ostrel
