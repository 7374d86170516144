#include "report/text/RemarkWriter.h"

#include <string>
#include <string_view>

namespace ostrel::report {

namespace {

constexpr std::size_t STEP_INDENT = 2;

/// The note of a step, with its place unless the note itself gives it.
std::string textOf(const Step& step) {
    const std::string place =
        std::to_string(step.place.line) + ":" + std::to_string(step.place.column);
    if (step.note.find(place) != std::string::npos) return step.note;
    return step.note + " (" + place + ")";
}

} // namespace

void RemarkWriter::write(const File& file, const Remark& remark) {
    messages.writeHead(file.path, remark.place, Tone::Warning, "remark",
                       remark.message + " [" + std::string(nameOf(remark.code)) + "]");
    messages.writeSnippet(file.source, remark.place, Tone::Warning);
    for (std::size_t i = 0; i < remark.paths.size(); ++i)
        writePath(remark, i);
    if (!remark.help.empty()) messages.writeNote(remark.place, Tone::Help, "help:", remark.help);
}

void RemarkWriter::writePath(const Remark& remark, std::size_t index) {
    const Path& path = remark.paths[index];
    if (path.size() < 2) return;
    std::size_t indent = 0;
    if (remark.paths.size() > 1) {
        messages.writeNote(remark.place, Tone::Plain, "", introductionOf(remark.code, index));
        indent = STEP_INDENT;
    }
    for (std::size_t i = 0; i < path.size(); ++i)
        messages.writeNote(remark.place, Tone::Faint, std::to_string(i + 1) + ":", textOf(path[i]),
                           indent);
}

} // namespace ostrel::report
