// Eight threads use something at the same time, and for the first time in the process. CTest runs
// each row of the table in a process of its own; if the program is run as a whole, a later row may
// find what an earlier one has made. Built with ThreadSanitizer, a row fails if making the thing
// races.
#include "literals/DecimalToDouble.h"
#include "literals/TrailingZeros.h"
#include "testing/TreeBuilder.h"
#include "threads/RunTogether.h"

#include <zt_orvex/zt_orvex.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace zt::orvex::testing {
namespace {

using flow::AnalysisModeView;
using flow::AnalysisTypeView;

template <class Result>
std::string number(Result result) {
    return std::to_string(static_cast<int>(result));
}

std::string narrowed(const std::u16string& text) { return {text.begin(), text.end()}; }

template <class Value>
std::string printedWide(const Value& value) {
    std::basic_ostringstream<char16_t> stream;
    stream << value;
    return narrowed(stream.str());
}

std::string valueOf(const internal::IntegerLiteralValue& value) {
    std::string text;
    boost::apply_visitor([&text](auto integer) { text = std::to_string(integer); }, value);
    return text;
}

template <class Parse>
std::string messageOf(const Parse& parse) {
    try {
        parse();
        return "nothing thrown";
    } catch (const std::exception& error) {
        return error.what();
    }
}

std::string numberInChar16Locale() {
    std::basic_ostringstream<char16_t> stream;
    stream.imbue(getChar16Locale());
    stream << 1234.5 << u' ' << true;
    return narrowed(stream.str());
}

std::string restrictedExternals() {
    std::string text;
    const auto& names = getRestrictedExternals();
    for (const std::u16string& name : std::set<std::u16string>(names.begin(), names.end()))
        text += narrowed(name) + ' ';
    return text;
}

/// An equation with each term, solved and printed.
std::string equationWithEachTerm() {
    using Lattice = flow::PowerSetLattice<int>;
    const flow::OrderedSet<int> universe({1, 2, 3});
    Lattice lattice(universe);
    const flow::SystemOfEquationsBuilder<Lattice>::NodeNamer namer;
    flow::SystemOfEquationsBuilder<Lattice> builder(lattice, &namer);
    flow::BitSet<int> all(universe);
    for (const int element : universe)
        all.add(element);
    auto family = builder.createVariableFamily("family", false);
    auto* const x = family.at(NodeView{1, nullptr});
    auto* const y = builder.createVariable("y");
    builder.addEquation(y, {builder.createConstant(all)});
    flow::Term<flow::BitSet<int>>* const terms[] = {builder.createJoin(y), builder.createMeet(y),
                                                    builder.createMinus(y)};
    builder.addEquation(x, {y, terms[0], terms[1], terms[2]});
    const auto sweeps = builder.build()->solve();
    std::string text = std::to_string(sweeps) + " " + x->toString();
    for (const auto* const term : terms)
        text += term->toString();
    return text;
}

/// Union and iteration of sets long enough for the registers of four words.
std::string longSets() {
    flow::OrderedSet<int> universe;
    for (int i = 0; i < 5000; ++i)
        universe.add(i);
    flow::BitSet<int> even(universe);
    flow::BitSet<int> third(universe);
    for (int i = 0; i < 5000; i += 2)
        even.add(i);
    for (int i = 0; i < 5000; i += 3)
        third.add(i);
    even.unionWith(third);
    return std::to_string(even.toElementSet().size());
}

/// All questions about one small loop, each with a tree of its own.
std::string analyses() {
    TreeBuilder t;
    const auto loop = t.parforLoop(
        t.id("k"), t.id("n"),
        {t.forLoop(t.id("i"), t.id("n"), {t.assign(t.paren(t.id("a"), {t.id("i")}), t.id("x"))}),
         t.assign(t.id("x"), t.add(t.id("ans"), t.id("b"))), t.unknown(200)});
    flow::OrderedSet<SymbolView> universe;
    for (const char* const name : {"a", "b", "i", "k", "n", "x", "ans"})
        universe.add(t.symbol(name));
    const auto counted = [](const auto& set) { return std::to_string(set.size()) + " "; };
    flow::TransparentLiveVariablesAnalyzerView analyzer(
        universe, loop.getParforBody(), AnalysisTypeView::May, AnalysisModeView::Ans, nullptr);
    return counted(flow::computeLiveAsTemporaryVariables(loop, universe, nullptr)) +
           counted(flow::computeMaybeLiveAsTemporaryVariables(loop, universe, nullptr)) +
           counted(flow::computeNotLiveAsSlicedVariables(loop, universe, nullptr)) +
           counted(analyzer.getVariablesLiveAtEntry()) +
           number(flow::isAnsPossiblyReadBeforeBeingWritten(loop, t.symbol("ans"), nullptr));
}

std::string walked() {
    TreeBuilder t;
    const auto loop = t.whileLoop(t.id("c"), {t.assign(t.id("x"), t.minus(t.number()))});
    std::string kinds;
    forEachNodeIn(loop, [&](const NodeView& node) {
        std::ostringstream stream;
        stream << node.getKind() << ' ';
        kinds += stream.str();
    });
    return kinds;
}

std::string pooled() {
    internal::StringPool pool;
    pool.poolIfShort("idx", u"idx");
    const std::u16string_view text = pool.lookup("idx").value();
    return {text.begin(), text.end()};
}

std::string matcherLog() {
    internal::EquivalenceFullLogger logger;
    logger.beginMatchingRange();
    logger.logRangeIndex(3);
    logger.doneMatching(true);
    return logger.getLog();
}

std::string pragma() {
    const auto parsed = parsePragma(u"%# codegen now", 7);
    return parsed ? narrowed(std::u16string(pragmaKindToString(parsed->getKind()))) : "none";
}

/// Something that is made when it is first used, or while the library loads, and a use of it.
struct Row {
    const char* name;
    std::string (*use)();
    const char* expected;
};

const Row ROWS[] = {
    // A pattern for each function, made by each thread.
    {"BinaryPattern8", [] { return number(internal::validateBinaryLiteral("0b1u8")); }, "0"},
    {"BinaryPattern16", [] { return number(internal::validateBinaryLiteral(u"0b1u8")); }, "0"},
    {"HexPattern8", [] { return number(internal::validateHexLiteral("0x1FFu8")); }, "2"},
    {"HexPattern16", [] { return number(internal::validateHexLiteral(u"0x1FFu8")); }, "2"},
    {"DoublePattern8", [] { return number(internal::validateDoubleLiteral("1.5d3")); }, "0"},
    {"DoublePattern16", [] { return number(internal::validateDoubleLiteral(u"1.5d")); }, "1"},
    {"BinaryGrammar8", [] { return valueOf(internal::parseBinaryLiteral("0b11")); }, "3"},
    {"BinaryGrammar16", [] { return valueOf(internal::parseBinaryLiteral(u"0b11")); }, "3"},
    {"HexGrammar8", [] { return valueOf(internal::parseHexLiteral("0x11s8")); }, "17"},
    {"HexGrammar16", [] { return valueOf(internal::parseHexLiteral(u"0x11s8")); }, "17"},
    // One object for all threads, made by the first of them.
    {"PatternOfTrailingZeros", [] { return internal::dropTrailingZeros("1.500"); }, "1.5"},
    {"MessageOfConversionError",
     [] { return messageOf([] { internal::parseDoubleLiteral(u"x"); }); },
     "Conversion failed converting 'x' Reason: Not Specified"},
    {"Char16Locale", numberInChar16Locale, "1234.5 1"},
    {"RestrictedExternals", restrictedExternals,
     "assignin builtin dbstack eval evalc evalin feval input inputname load nargin narginchk "
     "nargout nargoutchk save varargin who whos "},
    {"PageSize", [] { return std::to_string(internal::getPageSize() % 4096); }, "0"},
    {"NamesAndSymbolsOfTerms", equationWithEachTerm,
     "2 <names omitted in non-asserted builds> U y & y - y"},
    {"Analyses", analyses, "1 5 2 5 1"},
    // Made while the library loads.
    {"NodeKinds", [] { return std::to_string(getAllNodeKinds().size()); }, "66"},
    {"NamesOfNodeKinds", [] { return printedWide(NodeKind::WhileStatement); }, "66"},
    {"BinaryOperators", [] { return toString(BinaryOperator::ElementPower); }, ".^"},
    {"UnaryOperators", [] { return toString(UnaryOperator::Tilde); }, "~"},
    {"WideOperators", [] { return printedWide(BinaryOperator::NotEqual); }, "~="},
    {"PragmaWords", pragma, "codegen"},
    // Neither, and the same from every thread.
    {"NarrowDoubles", [] { return internal::ValueToStringVisitor().visit(0.1); }, "0.1"},
    {"NarrowIntegers", [] { return internal::ValueToStringVisitor().visit(-1); }, "0xFFFFFFFFs32"},
    {"DecimalToDouble", [] { return std::to_string(internal::parseDoubleLiteral("1.5d3")); },
     "1500.000000"},
    {"RegistersForLongSets", longSets, "3333"},
    {"Walk", walked, "66 37 5 37 64 48 "},
    {"StringPool", pooled, "idx"},
    {"Log", matcherLog, "Matching boost::iterator_range - OK\n"},
};

void PrintTo(const Row& row, std::ostream* stream) { *stream << row.name; }

class FirstUse : public ::testing::TestWithParam<Row> {};

TEST_P(FirstUse, FromEightThreadsAtOnceGivesEachTheSame) {
    const Row& row = GetParam();
    const std::vector<std::string> results =
        runTogether(8, [&row](std::size_t) { return row.use(); });
    for (const std::string& result : results)
        EXPECT_EQ(result, row.expected);
}

INSTANTIATE_TEST_SUITE_P(Of, FirstUse, ::testing::ValuesIn(ROWS),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace zt::orvex::testing
