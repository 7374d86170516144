#include "limits/LimitTables.h"

#include "limits/Nestings.h"
#include "limits/StackProbe.h"
#include "support/HeapCounter.h"
#include "support/ProgramTree.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/pragma/Pragma.h>
#include <zt_orvex/support/Quote.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace zt::orvex::testing {

namespace {

using benchmarks::HeapCounter;
using benchmarks::ProgramTree;
using benchmarks::Shape;
using flow::AnalysisModeView;
using flow::AnalysisTypeView;

constexpr std::size_t MOST_LEVELS = 400'000;

/// The number without its digits after the third, which no two compilers have in common.
std::size_t roundedDown(std::size_t number) {
    std::size_t unit = 1;
    while (number / unit >= 1000)
        unit *= 10;
    return number / unit * unit;
}

// Memory

/// The peak of an analysis.
std::int64_t peakBytes(const ProgramTree& tree) {
    const HeapCounter counter;
    flow::TransparentLiveVariablesAnalyzerView analyzer(tree.universe(), tree.statements(),
                                                        AnalysisTypeView::May,
                                                        AnalysisModeView::Plain, nullptr);
    return counter.peakBytes();
}

struct Range {
    double least = std::numeric_limits<double>::infinity();
    double most = 0;
};

/// The bytes a statement. Pools double, so they depend on how many statements there are: these
/// numbers have about the most and the least, and others in between.
Range bytesPerStatement(Shape shape, std::uint32_t variables) {
    Range range;
    for (const std::uint32_t statements :
         {1000u, 1300u, 1700u, 2200u, 2800u, 3600u, 4700u, 6000u}) {
        const auto program = benchmarks::generateProgram(shape, statements, variables);
        const auto peak = static_cast<double>(peakBytes(ProgramTree(program)));
        range.least = std::min(range.least, peak / program.statements);
        range.most = std::max(range.most, peak / program.statements);
    }
    return range;
}

std::string rounded(double number) {
    return grouped(static_cast<std::size_t>(std::llround(number)));
}

constexpr std::uint32_t FEW_VARIABLES = 16;
constexpr std::uint32_t SOME_VARIABLES = 256;
constexpr std::uint32_t MANY_VARIABLES = 4096;

/// The line as a + s * V / 8: a variable is a bit in s sets.
std::string lineThrough(double some, double many) {
    const double sets = (many - some) * 8 / (MANY_VARIABLES - SOME_VARIABLES);
    const double fixed = some - sets * SOME_VARIABLES / 8;
    char text[32];
    std::snprintf(text, sizeof text, " + %.1f · V/8", sets);
    return rounded(fixed) + text;
}

std::string linesThrough(Shape shape) {
    const Range some = bytesPerStatement(shape, SOME_VARIABLES);
    const Range many = bytesPerStatement(shape, MANY_VARIABLES);
    return lineThrough(some.least, many.least) + " to " + lineThrough(some.most, many.most);
}

LimitTable::Row memoryRow(Shape shape, const char* label) {
    LimitTable::Row row{label, {}};
    for (const std::uint32_t variables : {FEW_VARIABLES, SOME_VARIABLES, MANY_VARIABLES}) {
        row.cells.push_back([=] {
            const Range range = bytesPerStatement(shape, variables);
            return rounded(range.least) + " to " + rounded(range.most);
        });
    }
    row.cells.push_back([=] { return linesThrough(shape); });
    return row;
}

std::string mebibytes(std::int64_t bytes) {
    return grouped(static_cast<std::size_t>(std::llround(static_cast<double>(bytes) / MIB))) +
           " MiB";
}

LimitTable::Row productRow(std::uint32_t statements, std::uint32_t variables) {
    const auto cell = [=] {
        const auto program = benchmarks::generateProgram(Shape::Straight, statements, variables);
        return mebibytes(peakBytes(ProgramTree(program)));
    };
    return {grouped(statements) + " assignments, " + grouped(variables) + " variables", {cell}};
}

LimitTable::Row universeRow(std::uint64_t symbols) {
    const auto cell = [=] {
        const HeapCounter counter;
        flow::OrderedSet<SymbolView> universe;
        for (std::uint64_t symbol = 0; symbol < symbols; ++symbol)
            universe.add({symbol, nullptr});
        return mebibytes(counter.peakBytes());
    };
    return {"a universe of " + grouped(symbols) + " symbols", {cell}};
}

// Depth

LimitTable::Row depthRow(const Nesting& nesting) {
    const auto cell = [&nesting](std::size_t stackBytes) {
        return [&nesting, stackBytes] {
            return grouped(roundedDown(largestThat(
                [&](std::size_t depth) { return isAnswered(nesting, depth, stackBytes); },
                MOST_LEVELS, 1)));
        };
    };
    return {nesting.name, {cell(8 * MIB), cell(MIB)}};
}

// Long texts

constexpr std::size_t LONG_TEXT = 16 * MIB;

template <typename Char, typename Work>
LimitTable::Cell leastStack(std::basic_string<Char> (*makeText)(), Work work) {
    return [=] {
        const std::basic_string<Char> text = makeText();
        std::size_t bytes = 16 * KIB;
        while (!fitsInStack(bytes, [&] { work(text); }))
            bytes *= 2;
        return grouped(bytes / KIB) + " KiB";
    };
}

template <typename Char>
std::basic_string<Char> digits() {
    return std::basic_string<Char>(LONG_TEXT, Char{'1'});
}
template <typename Char>
std::basic_string<Char> binaryDigits() {
    return std::basic_string<Char>{Char{'0'}, Char{'b'}} + digits<Char>();
}
std::u16string brackets() { return std::u16string(LONG_TEXT, u'('); }
std::u16string pragmaText() { return u"%#function " + std::u16string(LONG_TEXT, u'a'); }

std::vector<LimitTable::Row> textRows() {
    const auto validateDouble = [](const auto& text) { internal::validateDoubleLiteral(text); };
    const auto parseDouble = [](const auto& text) { internal::parseDoubleLiteral(text); };
    const auto validateBinary = [](const auto& text) { internal::validateBinaryLiteral(text); };
    return {
        {"`validateDoubleLiteral`, 8 bits", {leastStack<char>(digits<char>, validateDouble)}},
        {"`validateDoubleLiteral`, 16 bits",
         {leastStack<char16_t>(digits<char16_t>, validateDouble)}},
        {"`validateBinaryLiteral`, 8 bits", {leastStack<char>(binaryDigits<char>, validateBinary)}},
        {"`validateBinaryLiteral`, 16 bits",
         {leastStack<char16_t>(binaryDigits<char16_t>, validateBinary)}},
        {"`parseDoubleLiteral`, 8 bits", {leastStack<char>(digits<char>, parseDouble)}},
        {"`parseDoubleLiteral`, 16 bits", {leastStack<char16_t>(digits<char16_t>, parseDouble)}},
        {"`unquote` of open brackets",
         {leastStack<char16_t>(
             brackets, [](std::u16string text) { unquote(text.data(), text.size(), u'\''); })}},
        {"`parsePragma`",
         {leastStack<char16_t>(pragmaText, [](const auto& text) { parsePragma(text, 0); })}},
    };
}

// Sweeps

/// Whether an analysis settles: whether it throws nothing.
bool settles(const std::function<NodeView(TreeBuilder&, std::size_t)>& build, std::size_t count,
             AnalysisTypeView type) {
    TreeBuilder t;
    const NodeView root = build(t, count);
    const flow::OrderedSet<SymbolView> universe({t.symbol("x")});
    try {
        flow::TransparentLiveVariablesAnalyzerView(universe, t.block({root}), type,
                                                   AnalysisModeView::Plain, nullptr);
        return true;
    } catch (const std::logic_error&) {
        return false;
    }
}

/// Loops nested in one another; only the head of the outermost reads `x`, which the innermost body
/// learns last. Each level has a statement before the inner loop and one after it.
NodeView whilesAroundEachOther(TreeBuilder& t, std::size_t depth) {
    NodeView node = t.emptyStatement();
    for (std::size_t level = 1; level < depth; ++level)
        node = t.whileLoop(t.number(), {t.emptyStatement(), node, t.emptyStatement()});
    return t.whileLoop(t.id("x"), {node});
}

/// The same with a way out of each loop.
NodeView loopsWithBreaks(TreeBuilder& t, std::size_t depth) {
    NodeView node = t.emptyStatement();
    for (std::size_t level = 1; level < depth; ++level) {
        const NodeView exit = t.ifStatement(t.number(), {t.breakStatement()});
        node = t.forLoop(t.id("k"), t.number(), {exit, node, t.emptyStatement()});
    }
    return t.whileLoop(t.id("x"), {node});
}

LimitTable::Row sweepsRow(const char* label, NodeView (*build)(TreeBuilder&, std::size_t)) {
    const auto cell = [build](AnalysisTypeView type) {
        return [build, type] {
            constexpr std::size_t MOST = 2000;
            const std::size_t most = largestThat(
                [=](std::size_t depth) { return settles(build, depth, type); }, MOST, 0);
            if (most == MOST) return "more than " + grouped(MOST);
            return grouped(most);
        };
    };
    return {label, {cell(AnalysisTypeView::May), cell(AnalysisTypeView::Must)}};
}

} // namespace

std::string grouped(std::size_t number) {
    std::string text = std::to_string(number);
    for (std::size_t end = text.size(); end > 3; end -= 3)
        text.insert(end - 3, 1, ',');
    return text;
}

std::vector<LimitTable> allLimitTables() {
    std::vector<LimitTable::Row> depths;
    for (const Nesting& nesting : allNestings())
        depths.push_back(depthRow(nesting));
    return {
        {"Memory of an analysis",
         "Bytes of heap for each statement at the peak of one analysis, with V variables in the\n"
         "universe: the least and the most of eight programs of 1,000 to 6,000 statements. They "
         "differ\n"
         "because pools double. The last column has the lines through the figures for V 256 and\n"
         "V 4,096.",
         {"Program", "V 16", "V 256", "V 4,096", "Bytes a statement"},
         {memoryRow(Shape::Straight, "assignments in a row"),
          memoryRow(Shape::Nested, "loops three deep, with branches"),
          memoryRow(Shape::Loops, "loops in a row, with `break` and `continue`")}},
        {"Statements times variables",
         "The product of the two is what fills memory, however few variables each statement names.",
         {"Input", "Heap at the peak"},
         {productRow(16'000, 16), productRow(16'000, 1'000), productRow(16'000, 16'000),
          universeRow(1'000'000)}},
        {DEPTH_HEADING,
         "The most levels that are answered on a stack of that size, rounded down to three digits.",
         {"Question", "8 MiB", "1 MiB"},
         depths},
        {"Depth of loops",
         "The most loops nested in one another for which the solver settles within its limit, if "
         "the\n"
         "innermost body learns last what the head of the outermost reads.",
         {"Loops", "`May`", "`Must`"},
         {sweepsRow("`while`", whilesAroundEachOther),
          sweepsRow("`for` with `break`", loopsWithBreaks)}},
        {"Long texts",
         "The stack that suffices for a text of 16 Mi characters, as a power of two from 16 KiB, "
         "the\n"
         "least that a thread can have.",
         {"Operation", "Stack"},
         textRows()},
    };
}

void writeLimitTables(std::ostream& out, Cells cells) {
    for (const LimitTable& table : allLimitTables()) {
        out << "\n### " << table.heading << "\n\n" << table.explanation << "\n\n";
        for (const std::string& column : table.columns)
            out << "| " << column << ' ';
        out << "|\n|---|";
        for (std::size_t i = 1; i < table.columns.size(); ++i)
            out << "---:|";
        out << '\n';
        for (const LimitTable::Row& row : table.rows) {
            out << "| " << row.label << " |";
            for (const LimitTable::Cell& cell : row.cells)
                out << ' ' << (cells == Cells::Measured ? cell() : "#") << " |";
            out << '\n';
        }
    }
}

} // namespace zt::orvex::testing
