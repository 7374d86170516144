#include "Shapes.h"

#include <utility>

namespace ostrel::testing {

namespace {

// The bytes of the shorter run of a token, and of the shorter run of a longer piece.
constexpr std::size_t TOKEN_BYTES = 512;
constexpr std::size_t BYTES = 2048;

/// Each construct is analysed with all constructs in it, and they nest up to a limit.
constexpr std::size_t NESTED_CONSTRUCTS = 16;

std::string repeat(const std::string& piece, std::size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

/// `piece` for 0, 1, 2 and so on, with the number for each `#`.
std::string number(const std::string& piece, std::size_t count, std::size_t first = 0) {
    std::string text;
    for (std::size_t i = first; i < first + count; ++i) {
        for (const char each : piece)
            text += each == '#' ? std::to_string(i) : std::string(1, each);
    }
    return text;
}

std::string shown(const std::string& text) {
    std::string visible;
    for (const char each : text) {
        if (each == '\n') visible += "\\n";
        if (each == '\r') visible += "\\r";
        if (each == '\t') visible += "\\t";
        if (each >= ' ') visible += each;
    }
    return visible;
}

Shape run(const std::string& before, const std::string& piece, const std::string& after,
          std::size_t bytes = BYTES) {
    return {shown(before) + " [" + shown(piece) + "]* " + shown(after),
            [=](std::size_t size) { return before + repeat(piece, size) + after; },
            bytes / piece.size()};
}

Shape nested(const std::string& open, const std::string& middle, const std::string& close,
             std::size_t depth) {
    return {shown(open) + " ... " + shown(close),
            [=](std::size_t size) { return repeat(open, size) + middle + repeat(close, size); },
            depth};
}

} // namespace

std::vector<Shape> runsOfTokens(const std::string& place) {
    const std::size_t at = place.find('@');
    const std::string before = place.substr(0, at);
    const std::string after = place.substr(at + 1);
    std::vector<Shape> shapes;
    for (const char* token : {"a",
                              "1",
                              "1.5e3",
                              "0x1F",
                              "2i",
                              "'t'",
                              "\"t\"",
                              "'",
                              "\"",
                              "#",
                              "(",
                              ")",
                              "[",
                              "]",
                              "{",
                              "}",
                              "()",
                              "=",
                              ".",
                              ":",
                              "@",
                              "?",
                              "!",
                              "~",
                              "+",
                              "-",
                              "*",
                              "/",
                              "\\",
                              "^",
                              ".*",
                              "./",
                              ".\\",
                              ".^",
                              ".'",
                              "<",
                              "<=",
                              ">",
                              ">=",
                              "==",
                              "~=",
                              "&",
                              "&&",
                              "|",
                              "||",
                              "...",
                              "%",
                              "%#ok",
                              "%{",
                              "%}",
                              "break",
                              "case",
                              "catch",
                              "class",
                              "continue",
                              "else",
                              "elseif",
                              "end",
                              "for",
                              "function",
                              "global",
                              "if",
                              "otherwise",
                              "parfor",
                              "persistent",
                              "return",
                              "spmd",
                              "switch",
                              "try",
                              "while",
                              "arguments",
                              "events",
                              "enumeration",
                              "methods",
                              "properties",
                              "ans",
                              "eval",
                              "\xE2\x80\xAE",
                              "\xF0\x9F\x99\x82"}) {
        const bool isConstruct = token == std::string("spmd");
        for (const char* separator : {"", " ", ",", ";", "\n", " ...\n"}) {
            shapes.push_back(run(before, token + std::string(separator), after,
                                 isConstruct ? TOKEN_BYTES / 4 : TOKEN_BYTES));
            if (isConstruct) shapes.back().analysisGrowth = NESTED_CONSTRUCTS;
        }
    }
    return shapes;
}

std::vector<Shape> runsOfPieces() {
    std::vector<Shape> shapes;
    for (const char* piece :
         {"\n", "\r", "\r\n", " ", "\t", "\n\n\n \n", "% comment\n", "  % comment\n",
          "%{\ncomment\n%}\n", "%#ok\n", "%#unknown word\n", "x = 1; % comment\n",
          "x = 1 ...\n + 2;\n", "parfor k = 1:3, x = k; end, ", "parfor k = 1:3, x = k; end\n",
          "spmd, y = ans; end; ", "spmd\neval('x')\nend\n", "x = x + 1; ", "hold on, ",
          "!run a b c\n", "f(a, b = 1).c{2}'\n", "[a, b] = f(c); ", "x = [1 -2 +3\n4 5 6];\n",
          "f = @(a, b) a + b + c; ", "if a, b = 1; elseif c, d = 2; else, e = 3; end\n",
          "switch a, case 1, b = 1; otherwise, c = 2; end\n", "try, a = 1; catch e, b = e; end\n",
          "for k = 1:3, break, end\n", "while a, continue, end\n", "global a b c\n", "return\n",
          "x = '\xF0\x9F\x99\x82'; parfor k = 1:x, end, ",
          // What can't be parsed.
          "x = [1, 2\n", "[* * 2\n", "x = (1 + [2\n", "x = [1, 2\nf(1)\n", "x = 'a\n", "a -b\n",
          "parfor k = 1:3, x = ; end, ", "),", "(];[(", "[a b] = ", "x(a, x (b, ", "if 1\n",
          "i++\n", "x += 1, ", "x += if ", "x(1) *= [", "if x = 3\n", "1e+;", "0x12G4, ", "a != b;",
          "fro k = 1\n", "fro k = 1\nend\n", "whlie x, ", "else if a\n", "  if a\nend\n",
          "    end\n", "switch x\ny\n", "parfor\nend\n", "hold (\nend\n", "hold a(, end\n",
          "class A\n", "function f\nend\nend\n", "function f\nend\nx = 1;\n"})
        shapes.push_back(run("", piece, ""));
    for (const char* piece : {"end\n",
                              "end, ",
                              "end\nx = 1;\n",
                              "end\nif a, end\n",
                              "end\nif a\n",
                              "hold end\n",
                              "hold if\nend\n",
                              "hold a(, end\n",
                              "end\nevents\n",
                              "end\nmethods\nend\n",
                              "if a\n",
                              "i++\n",
                              "whlie x\n",
                              "whlie x\nend\n",
                              "if a\nelse if b\nend\n",
                              "  if a\nend\n",
                              "%{\n",
                              "case 1\n",
                              "arguments\na\nend\n",
                              "class\n",
                              "\n\n"}) {
        shapes.push_back(run("function f\n", piece, ""));
        shapes.push_back(run("class A\nmethods\nfunction f\n", piece, ""));
        shapes.push_back(run("class A\nmethods\n", piece, ""));
        shapes.push_back(run("class A\n", piece, ""));
    }
    for (const char* piece :
         {"function f\nend\n", "function f\n", "function r = f(a)\nr = a;\nend\n", "g(a)\n",
          "r = g(a)\n", "x y z\n"}) {
        shapes.push_back(run("", piece, ""));
        shapes.push_back(run("class A\nmethods\n", piece, "end\nend\n"));
    }
    for (const char* piece :
         {"properties\nend\n", "properties\na (1,:) t {c} = 1\nend\n", "events\na\nend\n",
          "a = 1\n", "methods\nfunction f\nend\nend\n", "other\nx\nend\n", "x (a, x (\n"})
        shapes.push_back(run("class A\n", piece, "end\n"));
    return shapes;
}

std::vector<Shape> nestings() {
    std::vector<Shape> shapes;
    for (const auto& [open, close] :
         std::vector<std::pair<std::string, std::string>>{{"if a\n", "end\n"},
                                                          {"if a, else\n", "end\n"},
                                                          {"for k = 1:a\n", "end\n"},
                                                          {"while a\n", "end\n"},
                                                          {"switch a, case b\n", "end\n"},
                                                          {"try\n", "end\n"},
                                                          {"try, catch e\n", "end\n"}}) {
        shapes.push_back(nested(open, "a = 1;\n", close, 100));
        shapes.push_back(nested("spmd\n" + open, "a = 1;\n", close + "end\n", 50));
        shapes.back().analysisGrowth = NESTED_CONSTRUCTS;
        shapes.push_back(run("spmd\n" + repeat(open, 20), "a = b;\n", repeat(close, 20) + "end\n"));
        shapes.push_back(run("spmd\n", open + "a = b;\n" + close, "end\n"));
    }
    shapes.push_back(nested("parfor k = 1:3\n", "a = 1;\n", "end\n", 100));
    shapes.back().analysisGrowth = NESTED_CONSTRUCTS;
    shapes.push_back(run(repeat("parfor k = 1:3\n", 10), "a = b;\n", repeat("end\n", 10)));
    for (const auto& [open, close] :
         std::vector<std::pair<std::string, std::string>>{{"(", ")"},
                                                          {"[", "]"},
                                                          {"{", "}"},
                                                          {"f(", ")"},
                                                          {"f{", "}"},
                                                          {"f.(", ")"},
                                                          {"@(a) ", ""},
                                                          {"@(a) (", ")"},
                                                          {"-", ""},
                                                          {"a + ", ""},
                                                          {"a:", ""},
                                                          {"a^-", ""},
                                                          {"a@", ""},
                                                          {"f(a = ", ")"},
                                                          {"(a + ", ")"},
                                                          {"[a, ", "]"}}) {
        Shape deep = nested(open, "b", close, 400);
        shapes.push_back({"x = " + deep.name,
                          [deep](std::size_t size) { return "x = " + deep.program(size) + ";\n"; },
                          deep.size});
        shapes.push_back(run("spmd\n", "x = " + repeat(open, 50) + "b" + repeat(close, 50) + ";\n",
                             "end\n", 4 * BYTES));
        shapes.push_back(run("", open, ""));
        shapes.push_back(run("x = ", open, "\n"));
    }
    shapes.push_back(nested("%{\n", "", "%}\n", 1000));
    return shapes;
}

std::vector<Shape> products() {
    const auto shape = [](const char* name, std::size_t size, auto program) {
        return Shape{name, program, size};
    };
    std::vector<Shape> shapes{
        shape("variables x constructs", 250,
              [](std::size_t n) {
                  return number("v# = 1;\n", n) + number("parfor k = 1:3, a = v#; end\n", n);
              }),
        shape("variables x constructs that write one each", 250,
              [](std::size_t n) { return number("parfor k = 1:3, v# = k; end\n", n); }),
        shape("variables x spmd statements on one line", 250,
              [](std::size_t n) {
                  return number("v# = 1;", n) + number("spmd, w = v#; v# = w; end;", n);
              }),
        shape("blank lines x constructs", 500,
              [](std::size_t n) {
                  return repeat("parfor k = 1:3, x = k; end\n", n) + repeat("\n", 4 * n);
              }),
        shape("lines x functions", 250,
              [](std::size_t n) {
                  return number("v# = 1;\n", n) +
                         number("function f#\nparfor k = 1:3, x = k; end\nend\n", n);
              }),
        shape("variables x functions", 250,
              [](std::size_t n) {
                  return number("function r = f#(a)\nr = a + v#;\nv# = r;\nend\n", n);
              }),
        shape("names of commands x later writes", 500,
              [](std::size_t n) { return number("a# -b\n", n) + number("a# = 1;\n", n); }),
        shape("errors x constructs", 250,
              [](std::size_t n) { return repeat("x = ;\nparfor k = 1:3, x = k; end\n", n); }),
        shape("pragmas x constructs", 250,
              [](std::size_t n) { return repeat("%#ok\nparfor k = 1:3, x = k; end\n", n); }),
        shape("remarks x constructs", 250,
              [](std::size_t n) { return repeat("parfor k = 1:3, eval(x), y = ans; end\n", n); }),
        shape("remarks x constructs on one line", 250,
              [](std::size_t n) { return repeat("parfor k = 1:3, eval(x), y = ans; end;", n); }),
        shape("values used after their constructs", 250,
              [](std::size_t n) { return number("parfor k = 1:3, v# = k; end\nshow(v#)\n", n); }),
        shape("one value used after each construct", 250,
              [](std::size_t n) { return repeat("parfor k = 1:3, x = k; end\nshow(x)\n", n); }),
        shape("values overwritten far after their constructs", 250,
              [](std::size_t n) {
                  return number("parfor k = 1:3, v# = k; end\n", n) + number("v# = 1;\n", n);
              }),
        shape("constructs in one loop", 250,
              [](std::size_t n) {
                  return "for j = 1:3\n" + repeat("parfor k = 1:3, x = k; end\n", n) + "end\n";
              }),
        shape("constructs x returns in one function", 250,
              [](std::size_t n) {
                  return "function r = f(c)\n" +
                         repeat("parfor k = 1:3, x = k; end\nif c, return, end\n", n) + "end\n";
              }),
        shape("carried values x loops", 250,
              [](std::size_t n) {
                  return repeat("parfor k = 1:3, y = x; for j = y, x = k; end, end\n", n);
              }),
        shape("loops in one construct", 250,
              [](std::size_t n) {
                  return "spmd\n" + repeat("for j = 1:3, a = b; if a, break, end, end\n", n) +
                         "end\n";
              }),
        shape("uses of one variable in one construct", 500,
              [](std::size_t n) {
                  return "parfor k = 1:3\n" + repeat("x(k) = x(k) + y(j, k);\n", n) + "end\n";
              }),
        shape("subscripts x uses", 100,
              [](std::size_t n) {
                  return "parfor k = 1:3\nx(" + repeat("k, ", 4 * n) + "k) = 1;\n" +
                         repeat("x(k) = x(k);\n", n) + "end\n";
              }),
        shape("parameters x anonymous functions", 250,
              [](std::size_t n) {
                  return "f = @(" + number("p#, ", n) + "q) " + number("p# + ", 400) + "q;\n" +
                         number("g = @(p#) p#;\n", n);
              }),
        shape("one call with many arguments", 1000,
              [](std::size_t n) { return "spmd, f(" + number("a#, ", n) + "b), end\n"; }),
        shape("one long name", 8192,
              [](std::size_t n) {
                  return "spmd, " + repeat("a", n) + " = 1; " + repeat("a", n) + " end\n";
              }),
        shape("one long number", 8192,
              [](std::size_t n) { return "x = " + repeat("1", n) + ";\n"; }),
        shape("one long text", 8192,
              [](std::size_t n) { return "x = '" + repeat("''", n) + "';\n"; }),
        shape("combining marks x errors on one line", 1000,
              [](std::size_t n) {
                  return "'" + repeat("\xCC\x81", n) + "'; " + repeat("x = ; ", n);
              }),
    };
    // The sets of variables at each statement are as long as the construct names variables.
    Shape statements{
        "variables x statements in one construct",
        [](std::size_t n) { return "parfor k = 1:3\n" + number("v# = k;\n", n) + "end\n"; }, 500,
        16};
    shapes.push_back(std::move(statements));
    return shapes;
}

} // namespace ostrel::testing
