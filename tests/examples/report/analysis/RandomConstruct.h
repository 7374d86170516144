#pragma once

#include "testing/Random.h"

#include <array>
#include <cstddef>
#include <string>

namespace ostrel::report::testing {

/// Writes programs with one parallel construct whose body has all kinds of statements over a few
/// variables, so that reads and writes meet.
class RandomConstruct {
public:
    explicit RandomConstruct(zt::orvex::testing::Random& numbers) : random(numbers) {}

    std::string next() {
        text = "a = 1; b = a; c = b; d = c; k = d; j = k; ans = j;\n";
        text += random.oneIn(3) ? "spmd\n" : "parfor k = 1:a\n";
        statements(3);
        text += "end\n";
        return text;
    }

private:
    const char* name() {
        static constexpr std::array<const char*, 7> NAMES{"a", "b", "c", "d", "j", "k", "ans"};
        return random.pick(NAMES);
    }

    std::string value() {
        switch (random.below(8)) {
        case 0:
            return "1";
        case 1:
            return std::string(name()) + "(" + name() + ")";
        case 2:
            return std::string("@(a) a + ") + name();
        case 3:
            return std::string(name()) + " && " + name();
        case 4:
            return std::string("s.") + name();
        default:
            return name();
        }
    }

    std::string target() {
        switch (random.below(6)) {
        case 0:
            return std::string(name()) + "(" + name() + ")";
        case 1:
            return std::string(name()) + ".f";
        case 2:
            return std::string(name()) + "{" + name() + "}(2)";
        default:
            return name();
        }
    }

    void statements(std::size_t depth) {
        for (std::size_t count = random.below(4); count > 0; --count)
            statement(depth);
    }

    void statement(std::size_t depth) {
        if (depth == 0 || random.oneIn(2)) {
            simple();
        } else {
            block(depth - 1);
        }
    }

    void simple() {
        switch (random.below(12)) {
        case 0:
            text += "break\n";
            break;
        case 1:
            text += "continue\n";
            break;
        case 2:
            text += "return\n";
            break;
        case 3:
            text += value() + ";\n";
            break;
        case 4:
            text += "[" + target() + ", ~, " + target() + "] = f(" + value() + ");\n";
            break;
        case 5:
            text += random.oneIn(2) ? "!copy here\n" : "turn on\n";
            break;
        case 6:
            text += target() + " = " + value() + "\n";
            break;
        default:
            text += target() + " = " + value() + ";\n";
            break;
        }
    }

    void block(std::size_t depth) {
        switch (random.below(7)) {
        case 0:
            text += "if " + value() + "\n";
            statements(depth);
            if (random.oneIn(2)) part("elseif " + value(), depth);
            if (random.oneIn(2)) part("else", depth);
            break;
        case 1:
            text += std::string("for ") + name() + " = " + value() + "\n";
            statements(depth);
            break;
        case 2:
            text += "while " + value() + "\n";
            statements(depth);
            break;
        case 3:
            text += "switch " + value() + "\n";
            part("case " + value(), depth);
            if (random.oneIn(2)) part("case " + value(), depth);
            if (random.oneIn(2)) part("otherwise", depth);
            break;
        case 4:
            text += "try\n";
            statements(depth);
            if (random.oneIn(3))
                part("catch", depth);
            else if (random.oneIn(2))
                part(std::string("catch ") + name(), depth);
            break;
        case 5:
            text += std::string("parfor ") + name() + " = " + value() + "\n";
            statements(depth);
            break;
        default:
            text += "spmd\n";
            statements(depth);
            break;
        }
        text += "end\n";
    }

    void part(const std::string& head, std::size_t depth) {
        text += head + "\n";
        statements(depth);
    }

    zt::orvex::testing::Random& random;
    std::string text;
};

} // namespace ostrel::report::testing
