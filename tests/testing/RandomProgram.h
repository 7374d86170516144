#pragma once

#include "testing/Random.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zt::orvex::testing {

/// Writes random Ostrel programs without errors that use every construct of the language.
///
/// Variables are `a` to `f`, functions `g1` and so on. A program never assigns to a name that it
/// uses as a command, or that stands alone in a statement without being a variable.
///
///     Random random;
///     const std::string source = RandomProgram(random).script();
class RandomProgram {
public:
    explicit RandomProgram(Random& source) : random(source) {}

    /// A script, often followed by functions.
    std::string script() {
        std::string text = statements(0, 8);
        for (std::size_t i = random.below(3); i > 0; --i)
            text += function(0);
        return text;
    }

    /// A class with all sorts of blocks.
    std::string classFile() {
        std::string text =
            "class " + attributes() + "Thing" + (random.oneIn(2) ? " < Base & Other" : "") + "\n";
        for (std::size_t i = random.below(5); i > 0; --i)
            text += classBlock();
        return text + "end\n";
    }

    std::string program() { return random.oneIn(5) ? classFile() : script(); }

    std::string statements(std::size_t depth, std::size_t most) {
        std::string text;
        for (std::size_t i = random.below(most + 1); i > 0; --i)
            text += statement(depth);
        return text;
    }

    std::string expression(std::size_t depth = 0) {
        if (depth > 4) return operand();
        const auto sub = [&] { return expression(depth + 1); };
        switch (random.below(16)) {
        case 0:
        case 1:
            return sub() +
                   pick({" + ", "-", " .* ", "/", " \\ ", "^", " .^ ", " & ", "|", "&&", " || ",
                         "<", " >= ", "==", "~="}) +
                   sub();
        case 2:
            return pick({"-", "~", "+"}) + sub();
        case 3:
            return "(" + sub() + ")";
        case 4:
            return postfixed(depth) + pick({"'", ".'", "''"});
        case 5:
            return "(" + sub() + "):" + sub();
        case 6:
            return sub() + ":" + sub() + ":" + sub();
        case 7:
            return matrix(depth, "[", "]");
        case 8:
            return matrix(depth, "{", "}");
        case 9:
            return "@(" + pick({"", "p", "p, ~", "a, b"}) + ") " + sub();
        case 10:
            return pick({"@sin", "?Thing", "a@b(1)"});
        default:
            return postfixed(depth);
        }
    }

private:
    std::string pick(const std::vector<std::string>& choices) { return random.pick(choices); }
    std::string variable() { return pick({"a", "b", "c", "d", "e", "f"}); }
    std::string ending() {
        return pick({";\n", "\n", ";", ", ", " ...\n\n", " % comment\n", "\r\n"});
    }
    std::string headEnding() { return pick({"\n", ", ", ";", " % why\n"}); }

    std::string operand() {
        return pick({"a", "b", "c", "d", "1", "2.5", ".5e3", "3d-2", "0x1Fu8", "0b101", "4i", "'t'",
                     "'it''s'", "\"s\"", "\"a \"\"b\"\"\"", "sin", "ans"});
    }

    std::string postfixed(std::size_t depth) {
        std::string text = variable();
        for (std::size_t i = random.below(3); i > 0; --i) {
            switch (random.below(5)) {
            case 0:
                text += "(" + arguments(depth) + ")";
                break;
            case 1:
                text += "{" + expression(depth + 1) + "}";
                break;
            case 2:
                text += ".field";
                break;
            case 3:
                text += ".(" + expression(depth + 1) + ")";
                break;
            default:
                text += pick({"(:)", "(end)", "(end - 1, :)", "{:}", "()"});
            }
        }
        return text;
    }

    std::string arguments(std::size_t depth) {
        std::string text = expression(depth + 1);
        if (random.oneIn(3)) text += ", " + expression(depth + 1);
        if (random.oneIn(6)) text += ", option = " + expression(depth + 1);
        return text;
    }

    std::string matrix(std::size_t depth, const std::string& open, const std::string& close) {
        std::string text = open;
        for (std::size_t i = random.below(4); i > 0; --i) {
            text += random.oneIn(2) ? expression(depth + 1) : operand();
            if (i > 1) text += pick({", ", " ", "; ", "\n", " ...\n", ","});
        }
        return text + close;
    }

    std::string target() {
        return variable() +
               pick({"", "", "", "(1)", "{2}", ".field", "(a).x{b}", ".(c)", "(end, :)"});
    }

    std::string statement(std::size_t depth) {
        if (depth < 4 && random.oneIn(3)) return block(depth);
        switch (random.below(14)) {
        case 0:
            return "[" + target() + pick({", ", " "}) + pick({"~", "b", "c(1)"}) +
                   "] = " + expression() + ending();
        case 1:
            return expression() + ending();
        case 2:
            return variable() + ending();
        case 3:
            return pick({"turn on", "say 'a b' c", "print -long", "show {x} [y", "go ...\n on"}) +
                   pick({"\n", ";\n", ", "});
        case 4:
            return pick({"ring", "refresh"}) + pick({"\n", ";", ", "});
        case 5:
            return pick({"!copy -a", "!run 'it'"}) + pick({"\n", ";"});
        case 6:
            return pick({";", ",", "\n", "% comment\n", "%# codegen\n",
                         "\n%{\nanything ( [ '\n%{\n%}\n%}\n"});
        case 7:
            return pick({"break", "continue", "return"}) + pick({"\n", ";", ", "});
        case 8:
            return pick({"global a b", "persistent c"}) + pick({"\n", ";"});
        default:
            return target() + pick({" = ", "=", " ...\n= "}) + expression() + ending();
        }
    }

    std::string block(std::size_t depth) {
        const auto body = [&] { return statements(depth + 1, 3); };
        const std::string end = "\nend" + pick({"\n", ";", ", "});
        switch (random.below(8)) {
        case 0: {
            std::string text = "if " + expression() + headEnding() + body();
            if (random.oneIn(2)) text += "\nelseif " + expression() + headEnding() + body();
            if (random.oneIn(2)) text += "\nelse " + body();
            return text + end;
        }
        case 1:
            return "for " + variable() + " = " + expression() + headEnding() + body() + end;
        case 2:
            return "for (" + variable() + " = " + expression() + ")" + pick({" ", "\n", ","}) +
                   body() + end;
        case 3:
            return "while " + expression() + headEnding() + body() + end;
        case 4: {
            std::string text = "switch " + expression() + headEnding();
            for (std::size_t i = random.below(3); i > 0; --i)
                text += "\ncase " + expression() + headEnding() + body();
            if (random.oneIn(2)) text += "\notherwise " + body();
            return text + end;
        }
        case 5:
            return "try " + body() +
                   (random.oneIn(3) ? "" : "\ncatch" + pick({"", " a", " b"}) + "\n" + body()) +
                   end;
        case 6:
            return "parfor " +
                   (random.oneIn(2)
                        ? variable() + " = " + expression() + headEnding()
                        : "(" + variable() + " = " + expression() + ", " + expression() + ")\n") +
                   body() + end;
        default:
            return "spmd" + pick({"\n", ", ", " (2)\n", "(a, 3), "}) + body() + end;
        }
    }

    std::string function(std::size_t depth) {
        return "function " + pick({"", "c = ", "[a, d] = ", "[a b] = "}) + pick({"g1", "g2"}) +
               pick({"", "()", "(b)", "(b, ~, e)"}) + "\n" +
               (random.oneIn(3) ? argumentsBlock() : "") + statements(depth, 6) + "\nend\n";
    }

    std::string argumentsBlock() {
        std::string text = "arguments" + pick({"", " (Input)", " (Repeating, Kind = 3)"}) + "\n";
        for (std::size_t i = random.below(3); i > 0; --i)
            text += variable() + declaration() + "\n";
        return text + "end\n";
    }

    std::string declaration() {
        return pick({"", " (1,:)", " (2, 3)"}) + pick({"", " number", " pkg.Type"}) +
               pick({"", " {atLeast(a), check}"}) + (random.oneIn(3) ? " = " + expression() : "");
    }

    std::string attributes() { return pick({"", "(Sealed) ", "(Access = 1, Hidden) "}); }

    std::string classBlock() {
        std::string text;
        switch (random.below(4)) {
        case 0:
            text = "properties " + attributes() + "\n";
            for (std::size_t i = random.below(3); i > 0; --i)
                text += "p" + std::to_string(i) + declaration() + pick({"\n", ";\n"});
            break;
        case 1:
            text = "methods " + attributes() + "\n";
            for (std::size_t i = random.below(3); i > 0; --i) {
                text += random.oneIn(3)
                            ? pick({"m1", "x = m2(a)", "[x, y] = m3(a, ~)", "m4(a)"}) + "\n"
                            : function(1);
            }
            break;
        case 2:
            text = "events " + attributes() + "\n" + pick({"", "Changed\n", "Changed, Gone\n"});
            break;
        default:
            text = "enumeration " + attributes() + "\n" +
                   pick({"", "Red\n", "Red(1, 'x'), Blue (2)\n"});
        }
        return text + "end\n";
    }

    Random& random;
};

} // namespace zt::orvex::testing
