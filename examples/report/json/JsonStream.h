#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

/// Writes a JSON text piece by piece, so that it never has to be in memory as a whole. What is given
/// reaches the stream at the end of the outermost value at the latest.
///
/// The text is indented by two, and looks as if nlohmann::json had written all of it at once. Bytes
/// of a string that aren't UTF-8 become U+FFFD. A string with characters that change the direction
/// of writing has \u escapes for all that isn't ASCII, so that an editor shows it as it is.
///
///     JsonStream json(out);
///     json.beginObject();
///     json.key("names");
///     json.beginArray();
///     json.value("a");
///     json.endArray();
///     json.endObject();
class JsonStream {
public:
    using Json = nlohmann::ordered_json;

    explicit JsonStream(std::ostream& stream) : out(stream) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// The name of the next value of an object: ASCII without quotes and backslashes.
    void key(std::string_view name);

    /// A value that is at hand as a whole.
    void value(const Json& whole);

    /// The same without an object for the value, which is faster.
    void string(std::string_view value);
    void number(std::size_t number);

    /// An identifier of the program as a string. It needs no escapes, and no search for
    /// what needs them.
    void identifier(std::string_view name);

private:
    void begin(char bracket);
    void end(char bracket);
    void beginValue();
    void flush();

    std::ostream& out;
    std::string text;             ///< What isn't written yet.
    std::vector<bool> isEmpty;    ///< Of each open object and array.
    std::string lineBreak = "\n"; ///< With the indentation of the current line.
    bool hasKey = false;          ///< Whether the next value follows its key.
};

} // namespace ostrel::report
