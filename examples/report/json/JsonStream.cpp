#include "report/json/JsonStream.h"

#include "terminal/DisplayText.h"

#include <string>

namespace ostrel::report {

namespace {

constexpr std::size_t INDENT = 2;

std::string dump(const JsonStream::Json& json) {
    const auto dumped = [&](bool isAscii) {
        return json.dump(static_cast<int>(INDENT), ' ', isAscii,
                         JsonStream::Json::error_handler_t::replace);
    };
    std::string text = dumped(false);
    return hasUnsafeCharacter(text) ? dumped(true) : text;
}

} // namespace

void JsonStream::key(std::string_view name) {
    beginValue();
    out << '"' << name << "\": ";
    hasKey = true;
}

void JsonStream::value(const Json& whole) {
    beginValue();
    const std::string text = dump(whole);
    std::string_view rest = text;
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
        out << rest.substr(0, end) << lineBreak;
        rest.remove_prefix(end + 1);
    }
    out << rest;
}

void JsonStream::identifier(std::string_view name) {
    beginValue();
    out << '"' << name << '"';
}

void JsonStream::begin(char bracket) {
    beginValue();
    out << bracket;
    isEmpty.push_back(true);
    lineBreak.append(INDENT, ' ');
}

void JsonStream::end(char bracket) {
    const bool wasEmpty = isEmpty.back();
    isEmpty.pop_back();
    lineBreak.resize(lineBreak.size() - INDENT);
    if (!wasEmpty) out << lineBreak;
    out << bracket;
}

/// What precedes a value, or the key of one.
void JsonStream::beginValue() {
    const bool isOnOwnLine = !hasKey && !isEmpty.empty();
    hasKey = false;
    if (!isOnOwnLine) return;
    if (!isEmpty.back()) out << ',';
    isEmpty.back() = false;
    out << lineBreak;
}

} // namespace ostrel::report
