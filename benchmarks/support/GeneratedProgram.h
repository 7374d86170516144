#pragma once

#include "support/Random.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace zt::orvex::benchmarks {

// Programs of a given shape and size, as one structured list of instructions. Each contestant gets
// them in its own form: our tree, a C function, a flow graph in arrays.

enum class Shape { Straight, Nested, Loops };

constexpr Shape ALL_SHAPES[] = {Shape::Straight, Shape::Nested, Shape::Loops};

inline const char* nameOf(Shape shape) {
    switch (shape) {
    case Shape::Straight:
        return "straight";
    case Shape::Nested:
        return "nested";
    case Shape::Loops:
        return "loops";
    }
    return "";
}

enum class Op { Assign, While, EndWhile, If, Else, EndIf, Break, Continue };

struct Instruction {
    Op op;
    std::uint32_t target, left, right; ///< target = left + right, or the condition left < right
};

struct GeneratedProgram {
    std::vector<Instruction> code;
    std::uint32_t statements = 0; ///< assignments, heads of loops and ifs, breaks and continues
    std::uint32_t variables = 0;
};

/// At least `statements` statements over `variables` variables, drawn uniformly.
///
/// Nested: loops three deep around an if with both branches. Loops: in sequence, each with a
/// conditional break and a conditional continue.
inline GeneratedProgram generateProgram(Shape shape, std::uint32_t statements,
                                        std::uint32_t variables) {
    GeneratedProgram program;
    program.variables = variables;
    Random random(12345);
    const auto emit = [&](std::initializer_list<Op> ops) {
        for (const Op op : ops) {
            const std::uint32_t target = random.below(variables);
            const std::uint32_t left = random.below(variables);
            const std::uint32_t right = random.below(variables);
            program.code.push_back({op, target, left, right});
            if (op != Op::EndWhile && op != Op::Else && op != Op::EndIf) ++program.statements;
        }
    };
    constexpr Op A = Op::Assign;
    constexpr Op W = Op::While;
    constexpr Op w = Op::EndWhile;
    constexpr Op I = Op::If;
    constexpr Op E = Op::Else;
    constexpr Op i = Op::EndIf;
    constexpr Op B = Op::Break;
    constexpr Op C = Op::Continue;
    while (program.statements < statements) {
        switch (shape) {
        case Shape::Straight:
            emit({A});
            break;
        case Shape::Nested:
            emit({W, A, A, W, A, A, W, A, A, I, A, A, E, A, A, i, A, w, A, w, A, w});
            break;
        case Shape::Loops:
            emit({W, A, A, I, B, i, A, I, C, i, A, w, A});
            break;
        }
    }
    return program;
}

/// The program as a C function whose parameters are the variables.
inline std::string renderAsC(const GeneratedProgram& program) {
    const auto name = [](std::uint32_t variable) { return "v" + std::to_string(variable); };
    std::string text = "void f(";
    for (std::uint32_t v = 0; v < program.variables; ++v)
        text += (v != 0 ? ",int " : "int ") + name(v);
    text += "){\n";
    for (const Instruction& i : program.code) {
        switch (i.op) {
        case Op::Assign:
            text += name(i.target) + "=" + name(i.left) + "+" + name(i.right) + ";\n";
            break;
        case Op::While:
            text += "while(" + name(i.left) + "<" + name(i.right) + "){\n";
            break;
        case Op::If:
            text += "if(" + name(i.left) + "<" + name(i.right) + "){\n";
            break;
        case Op::Else:
            text += "}else{\n";
            break;
        case Op::EndWhile:
        case Op::EndIf:
            text += "}\n";
            break;
        case Op::Break:
            text += "break;\n";
            break;
        case Op::Continue:
            text += "continue;\n";
            break;
        }
    }
    return text + "}\n";
}

} // namespace zt::orvex::benchmarks
