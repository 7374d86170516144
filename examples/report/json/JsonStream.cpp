#include "report/json/JsonStream.h"

#include "terminal/DisplayText.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>

namespace ostrel::report {

namespace {

constexpr std::size_t INDENT = 2;

/// The size in bytes at which gathered text goes to the stream: a call for each word would take
/// longer than the rest of the work.
constexpr std::size_t LARGE = std::size_t{1} << 15;

/// Whether a string is written as it stands, which nearly all are.
bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) {
        return byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\';
    });
}

/// With its quotes and escapes.
std::string dump(std::string_view text) {
    using Json = JsonStream::Json;
    const Json json = text;
    const bool isAscii = hasUnsafeCharacter(text);
    return json.dump(-1, ' ', isAscii, Json::error_handler_t::replace);
}

} // namespace

void JsonStream::key(std::string_view name) {
    beginValue();
    text += '"';
    text.append(name).append("\": ");
    hasKey = true;
}

void JsonStream::value(const Json& whole) {
    if (whole.is_object()) {
        beginObject();
        for (const auto& [name, member] : whole.items()) {
            key(name);
            value(member);
        }
        endObject();
    } else if (whole.is_array()) {
        beginArray();
        for (const Json& element : whole)
            value(element);
        endArray();
    } else if (whole.is_string()) {
        string(whole.get_ref<const std::string&>());
    } else {
        beginValue();
        text += whole.dump();
    }
}

void JsonStream::string(std::string_view value) {
    if (isPlain(value)) {
        identifier(value);
    } else {
        beginValue();
        text += dump(value);
    }
}

void JsonStream::number(std::size_t number) {
    beginValue();
    char digits[20];
    char* const end = std::to_chars(digits, std::end(digits), number).ptr;
    text.append(digits, end);
}

void JsonStream::identifier(std::string_view name) {
    beginValue();
    text += '"';
    text += name;
    text += '"';
}

void JsonStream::begin(char bracket) {
    beginValue();
    text += bracket;
    isEmpty.push_back(true);
    lineBreak.append(INDENT, ' ');
}

void JsonStream::end(char bracket) {
    const bool wasEmpty = isEmpty.back();
    isEmpty.pop_back();
    lineBreak.resize(lineBreak.size() - INDENT);
    if (!wasEmpty) text += lineBreak;
    text += bracket;
    if (isEmpty.empty() || text.size() > LARGE) flush();
}

/// What precedes a value, or the key of one.
void JsonStream::beginValue() {
    const bool isOnOwnLine = !hasKey && !isEmpty.empty();
    hasKey = false;
    if (!isOnOwnLine) return;
    if (!isEmpty.back()) text += ',';
    isEmpty.back() = false;
    text += lineBreak;
}

void JsonStream::flush() {
    out << text;
    text.clear();
}

} // namespace ostrel::report
