#pragma once

#include "tree/CheckReport.h"
#include "tree/HandleText.h"
#include "tree/Parts.h"

#include <zt_orvex_kit/tree/KindName.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <exception>
#include <optional>
#include <sstream>
#include <string>

namespace zt::orvex::kit::internal {

// Whether two answers are the same, and how a finding shows an answer, for each type of answer.
// Handles are compared with their views: the second answer may come from another tree.

template <typename T>
bool isSameAnswer(const T& a, const T& b) {
    return a == b;
}
inline bool isSameAnswer(const NodeView& a, const NodeView& b) {
    return a.node == b.node && a.view == b.view;
}
inline bool isSameAnswer(const SymbolView& a, const SymbolView& b) {
    return a.symbol == b.symbol && a.view == b.view;
}
inline bool isSameAnswer(const boost::optional<NodeView>& a, const boost::optional<NodeView>& b) {
    return a.has_value() == b.has_value() && (!a || isSameAnswer(*a, *b));
}

template <typename Number>
std::string showAnswer(const Number& number) {
    std::ostringstream text;
    text << static_cast<std::uint64_t>(number);
    return text.str();
}
inline std::string showAnswer(const bool& answer) { return answer ? "true" : "false"; }
inline std::string showAnswer(const NodeKind& kind) {
    return std::string(kindName(kind)) + " (" + std::to_string(static_cast<int>(kind)) + ")";
}
inline std::string showAnswer(const NodeView& node) { return handleText("node", node.node); }
inline std::string showAnswer(const SymbolView& symbol) {
    return handleText("symbol", symbol.symbol);
}
inline std::string showAnswer(const boost::optional<NodeView>& node) {
    return node ? showAnswer(*node) : "none";
}

/// The exception that is being handled, as a finding.
[[gnu::cold, gnu::noinline]] inline void reportException(CheckReport& report,
                                                         const Question& question) {
    try {
        throw;
    } catch (const std::exception& exception) {
        report.addException(question, exception.what());
    } catch (...) {
        report.addException(question, "something that isn't a std::exception");
    }
}

/// The answer, or none after an exception, which is a finding then.
template <typename Ask>
auto ask(CheckReport& report, const Question& question, const Ask& answer)
    -> std::optional<decltype(answer())> {
    try {
        return answer();
    } catch (...) {
        reportException(report, question);
    }
    return std::nullopt;
}

/// The answer to a question that is asked twice. None if the answers differ or an exception was
/// thrown, which is a finding then.
template <typename Ask>
auto askTwice(CheckReport& report, const Question& question, const Ask& answer)
    -> std::optional<decltype(answer())> {
    try {
        const auto first = answer();
        const auto second = answer();
        if (isSameAnswer(first, second)) return first;
        report.addChange(question, showAnswer(first), showAnswer(second));
    } catch (...) {
        reportException(report, question);
    }
    return std::nullopt;
}

} // namespace zt::orvex::kit::internal
