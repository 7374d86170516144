// Input: kinds of nodes, operations and handles. A tree that overrides nothing but the kinds answers
// each operation as its base class documents, also to a walk and to an analysis.
#include "Require.h"
#include "testing/Random.h"

#include <zt_orvex/analysis/TransparentLiveVariablesAnalyzerView.h>
#include <zt_orvex/ast/BasicAstView.h>
#include <zt_orvex/ast/ForEachNodeIn.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

using namespace zt::orvex;
using fuzz::require;
using testing::Random;

namespace {

class BareView final : public BasicAstView {
public:
    explicit BareView(Random& from) : random(from) {}

    NodeKind getNodeKind(std::uint64_t) const override {
        return static_cast<NodeKind>(random.below(80));
    }

private:
    Random& random;
};

/// A range of which nobody keeps the words that make it empty.
struct Words {
    std::uint64_t first;
    std::uint64_t second;
};

/// What an operation does, in short.
std::string outcomeOf(const NodeView&) { return "a node"; }
std::string outcomeOf(const boost::optional<NodeView>& node) { return node ? "a node" : "none"; }
std::string outcomeOf(std::uint64_t number) { return std::to_string(number); }
template <typename Range>
std::string outcomeOf(const Range& range) {
    return std::to_string(range.size()) + " elements";
}

template <typename Call>
std::string attempt(Call call) {
    try {
        return outcomeOf(call());
    } catch (const std::logic_error& error) {
        return error.what();
    }
}

struct Question {
    std::string (*ask)(const IAstView& view, Words words);
    std::string_view expected; // how the outcome begins
    bool isSize;
};

constexpr Question QUESTIONS[] = {
#define ZT_ORVEX_TEST_ONE(name)                                                                    \
    {[](const IAstView& view, Words words) {                                                       \
         return attempt([&] { return view.name(words.first); });                                   \
     },                                                                                            \
     #name " of ", false},
#define ZT_ORVEX_TEST_MAYBE(name)                                                                  \
    {[](const IAstView& view, Words words) {                                                       \
         return attempt([&] { return view.name(words.first); });                                   \
     },                                                                                            \
     "none", false},
#define ZT_ORVEX_TEST_RANGE(name, View)                                                            \
    {[](const IAstView& view, Words words) {                                                       \
         return attempt([&] { return view.name(words.first); });                                   \
     },                                                                                            \
     "0 elements", false},
#define ZT_ORVEX_TEST_ELEMENT(name, View)                                                          \
    {[](const IAstView& view, Words words) {                                                       \
         return attempt([&] { return view.name(0, words.first, words.second); });                  \
     },                                                                                            \
     "rangeElement was asked", false},
#define ZT_ORVEX_TEST_SIZE(name, View)                                                             \
    {[](const IAstView& view, Words words) {                                                       \
         return attempt([&] { return view.name(words.first, words.second); });                     \
     },                                                                                            \
     "rangeSize was asked", true},
#define ZT_ORVEX_TEST_NODE words.first
#define ZT_ORVEX_TEST_NO_ARGUMENT
#define ZT_ORVEX_TEST_UNSETTLED(name, arguments)                                                   \
    {[](const IAstView& view, [[maybe_unused]] Words words) {                                      \
         return attempt([&] { return view.name(ZT_ORVEX_TEST_##arguments); });                     \
     },                                                                                            \
     "0", false},
#include "testing/IAstViewOperations.def"
#undef ZT_ORVEX_TEST_NODE
#undef ZT_ORVEX_TEST_NO_ARGUMENT
};

void checkOther(const IAstView& view, std::uint64_t handle) {
    require(view.isVariableSymbol(handle), "every symbol is a variable");
    require(view.getEntryNode() != view.getExitNode(), "entry and exit differ");
    require(view.getInputParameterKind(handle) == NodeKind::IgnoredArgument, "no identifier");
    for (const bool isName : {false, true}) {
        try {
            if (isName) {
                view.getIdentifierName(handle);
            } else {
                view.getIdentifierSymbol(handle);
            }
            require(false, "an identifier has to be overridden");
        } catch (const std::logic_error&) {
            // As documented.
        }
    }
}

bool isDocumented(std::string_view message) {
    return message.find(" was asked and is not overridden") != std::string_view::npos ||
           message.find(" type is expected in the downcast argument.") != std::string_view::npos;
}

void walkAndAnalyze(const IAstView& view, std::uint64_t handle, Random& random) {
    try {
        forEachNodeIn(NodeView{handle, &view}, [](const NodeView&) {});
        const flow::OrderedSet<SymbolView> universe({SymbolView{1, &view}});
        const auto mode = static_cast<flow::AnalysisModeView>(random.below(3));
        flow::TransparentLiveVariablesAnalyzerView analyzer(
            universe, view.getForBody(handle), flow::AnalysisTypeView::May, mode, nullptr);
        require(analyzer.getVariablesLiveAtEntry().empty(), "nothing is read");
    } catch (const std::logic_error& error) {
        require(isDocumented(error.what()), error.what());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    const BareView view(random);
    const BareView copy(view);
    while (!random.isUsedUp()) {
        const Question& question = random.pick(QUESTIONS);
        const std::uint64_t first = random.oneIn(2) ? ~std::uint64_t{0} : random.below(256);
        const std::string outcome = question.ask(copy, {first, random.below(256)});
        // A base class's range is empty by its first word.
        const bool isEmpty = question.isSize && first == ~std::uint64_t{0};
        require(isEmpty ? outcome == "0" : outcome.rfind(question.expected, 0) == 0,
                outcome.c_str());
        checkOther(copy, first);
        walkAndAnalyze(view, first, random);
    }
    return 0;
}
