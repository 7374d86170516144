#include "report/sarif/FileUri.h"

#include <algorithm>

namespace ostrel::report {

namespace {

#if defined(_WIN32)
constexpr bool HAS_DRIVES = true;
#else
constexpr bool HAS_DRIVES = false;
#endif

bool mayStandInUri(char byte) {
    constexpr std::string_view PUNCTUATION = "-._~/";
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || PUNCTUATION.find(byte) != std::string_view::npos;
}

void appendEncoded(std::string& uri, char byte) {
    constexpr std::string_view DIGITS = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    uri += '%';
    uri += DIGITS[value >> 4];
    uri += DIGITS[value & 0xF];
}

/// A service that compares references with the names in a repository takes them as they stand.
std::string_view withoutLeadingDots(std::string_view path) {
    while (path.size() > 2 && path.substr(0, 2) == "./") {
        path.remove_prefix(2);
        while (path.size() > 1 && path.front() == '/')
            path.remove_prefix(1);
    }
    return path;
}

/// Whether a path begins with a drive, such as C:/, which only Windows has.
bool hasDrive(std::string_view path) {
    return HAS_DRIVES && path.size() > 2 && path[1] == ':' && path[2] == '/';
}

} // namespace

std::string fileUri(std::string_view name) {
    std::string text(name);
    if (HAS_DRIVES) std::replace(text.begin(), text.end(), '\\', '/');
    std::string_view path = withoutLeadingDots(text);
    std::string uri;
    if (hasDrive(path)) {
        uri = "file:///" + text.substr(0, 2);
        path.remove_prefix(2);
    } else if (path.substr(0, 1) == "/") {
        uri = "file://";
    }
    for (const char byte : path) {
        if (mayStandInUri(byte)) {
            uri += byte;
        } else {
            appendEncoded(uri, byte);
        }
    }
    return uri;
}

} // namespace ostrel::report
