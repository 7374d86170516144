// Writes pages for browser_test.py that no program leads to:
//
//     report_sample_page sample          every role and every remark, errors, hostile names
//     report_sample_page many N FILE...  N files with the contents of the given ones, in turn

#include "frontend/InputFile.h"
#include "frontend/ParsedFile.h"
#include "report/analysis/Analyze.h"
#include "report/html/HtmlReport.h"

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::report {

namespace {

constexpr const char* HOSTILE = "</script><img src=x onerror=\"document.title='bad'\">'<!-- "
                                "\xE2\x80\xAE\x1b[2J";

File fileOf(const std::string& path, std::string_view text) {
    File file = analyze(parseOstrel(path, text));
    file.path = path;
    return file;
}

/// The `n`th appearance of a text in a file.
Place placeOf(const File& file, std::u16string_view text, std::size_t n = 1) {
    std::size_t at = file.source.text().find(text);
    for (std::size_t i = 1; i < n; ++i)
        at = file.source.text().find(text, at + 1);
    return file.source.place(at, text.size());
}

Remark remarkOf(RemarkCode code, const Place& place, const std::string& variable,
                std::vector<Path> paths) {
    Remark remark;
    remark.code = code;
    remark.place = place;
    remark.message = "'" + variable + "' is remarkable";
    remark.help = "write something else than '" + variable + "'";
    if (code != RemarkCode::UnknownPragma) remark.construct = 0;
    remark.variable = variable;
    remark.paths = std::move(paths);
    return remark;
}

constexpr const char* EVERYTHING = R"(b = 1; d = 2; e = 0; g = 1; n = 4; unused = 0;
parfor k = 1:n
    a = b + d; % a comment 'n' 12
    c(k) = 'text';
    e = e + a;
    f(7) = 12;
    while g
        s = "é𝒳"; h = 1;
    end
    load data
end
show(h)
y = (;
%#nothing here
spmd
    h = unused;
end
)";

/// Its first construct has a variable of each role.
File everything() {
    File file = fileOf("everything.ost", EVERYTHING);
    std::vector<Variable>& variables = file.constructs.at(0).variables;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        variables[i].role = static_cast<Role>(i % 10);
        variables[i].by = "+";
    }
    const Place loop = placeOf(file, u"while g");
    const Place read = placeOf(file, u"e + a");
    const Place write = placeOf(file, u"e = e + a");
    const Place last = placeOf(file, u"h = 1");
    file.remarks = {
        remarkOf(RemarkCode::LoopVariableWritten, placeOf(file, u"k"), "k", {}),
        remarkOf(RemarkCode::Carried, read, "e",
                 {{{write, "e is written"}, {loop, "the loop may run no iteration"}},
                  {{read, "e is read in the next iteration"}}}),
        remarkOf(RemarkCode::Shared, placeOf(file, u"f(7)"), "f",
                 {{{placeOf(file, u"f(7)"), "f is written"}}}),
        remarkOf(RemarkCode::UsedAfter, last, "h",
                 {{{last, "h is written"}, {placeOf(file, u"show(h)"), "h is read"}}}),
        remarkOf(RemarkCode::Restricted, placeOf(file, u"load"), "load", {}),
        remarkOf(RemarkCode::LeavesParallel, placeOf(file, u"data"), "data", {}),
        remarkOf(RemarkCode::Ans, file.source.place(placeOf(file, u"end", 2).offset, 3), "ans", {}),
        remarkOf(RemarkCode::UnknownPragma, placeOf(file, u"%#nothing here"), "nothing", {}),
    };
    file.diagnostics.at(0).help = "write an expression";
    return file;
}

/// A construct of two windows with another one in it, for what stays in view.
File longLoop() {
    std::string text = "before = 1;\nparfor i = 1:9\n";
    for (int line = 0; line < 60; ++line)
        text += "    x" + std::to_string(line) + " = i;\n";
    text += "    parfor j = 1:9\n        inner = j;\n    end\n";
    for (int line = 0; line < 60; ++line)
        text += "    y = i;\n";
    return fileOf("long.ost", text + "end\nafter = 2;\n");
}

File hostile() {
    File file = fileOf(std::string(HOSTILE) + "\xFF.ost",
                       "x = '</script><img src=x><!-- \xE2\x80\xAE'; % </script>\n"
                       "parfor k = 1:3, x = k; end\n");
    const Place place = placeOf(file, u"x = k");
    file.constructs.at(0).variables.at(0).name = HOSTILE;
    file.scopes.at(0).name = HOSTILE;
    file.diagnostics.push_back({file.source.place(0, 1), Severity::Error, HOSTILE, HOSTILE});
    file.remarks = {remarkOf(RemarkCode::Carried, place, HOSTILE, {{{place, HOSTILE}}})};
    file.remarks.at(0).message = HOSTILE;
    return file;
}

/// One whose lines have boxes and characters of two units before the places.
File boxes() {
    File file = fileOf("boxes.ost", "parfor k = 1:3\n    x = '\xE2\x80\xAE\xF0\x9D\x92\xB3'; w = "
                                    "x;\nend\n");
    const Place place = placeOf(file, u"w = x");
    file.remarks = {remarkOf(
        RemarkCode::Carried, place, "w",
        {{{place, "after a box"}, {file.source.place(file.source.size(), 0), "the end"}}})};
    return file;
}

File unreadable() {
    File file;
    file.path = "gone.ost";
    file.failure = "No such file or directory";
    return file;
}

void writeSample() {
    writeHtmlReport(std::cout, {{everything(), longLoop(), hostile(), boxes(), unreadable()}});
}

void writeMany(std::size_t count, const std::vector<std::string>& paths) {
    std::vector<File> files;
    for (const std::string& path : paths)
        files.push_back(fileOf(path.substr(path.rfind('/') + 1), readInput(path)));
    const auto writer = makeHtmlWriter(std::cout);
    writer->begin();
    for (std::size_t i = 0; i < count; ++i) {
        File& file = files[i % files.size()];
        const std::string name = file.path;
        file.path = "part" + std::to_string(i % 40) + "/" + std::to_string(i) + "/" + name;
        writer->write(file);
        file.path = name;
    }
    writer->end();
}

} // namespace

} // namespace ostrel::report

int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() == 1 && words[0] == "sample") {
        ostrel::report::writeSample();
    } else if (words.size() > 2 && words[0] == "many") {
        ostrel::report::writeMany(std::stoul(words[1]), {words.begin() + 2, words.end()});
    } else {
        std::cerr << "usage: report_sample_page sample | many N FILE...\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
