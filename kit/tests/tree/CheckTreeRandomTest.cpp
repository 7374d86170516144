#include "lying/CorrectTree.h"
#include "lying/LyingAst.h"
#include "testing/FakeAst.h"
#include "testing/Random.h"

#include <zt_orvex/flow/OrderedSet.h>
#include <zt_orvex_kit/tree/CheckTree.h>
#include <zt_orvex_kit/tree/Traversal.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Random trees of all kinds, each with one mistake at a random place, which must be found there.
namespace zt::orvex::kit {
namespace {

using testing::Call;
using testing::FakeAst;
using testing::LyingAst;
using testing::Operation;
using testing::Random;

std::string toText(const std::vector<Finding>& findings) {
    std::ostringstream text;
    for (const Finding& finding : findings)
        text << finding << '\n';
    return text.str();
}

/// What must be found.
struct Mistake {
    FindingCode code;
    std::string place; ///< Empty where any place will do.
};

class MistakenTree {
public:
    explicit MistakenTree(Random& from) : random(from), lying(ast) {
        testing::CorrectTree grower(ast, random);
        do {
            ast.clear();
            root = grower.program(5);
        } while (ast.size() < 20);
        traverse(lying.view(root), {[&](const Visit& visit) {
                                        slots.push_back({visit.node(), visit.kind(), visit.role(),
                                                         visit.place(), visit.ancestor()});
                                        return Next::Descend;
                                    },
                                    {}});
        for (const Slot& slot : slots)
            if (isOf(slot, NodeKind::Identifier)) universe.add(symbolOf(slot));
        options.universe = &universe;
    }

    std::vector<Finding> check() const { return checkTree(lying.view(root), options); }

    /// Makes a mistake; false if the tree has no place for it.
    bool plant(Mistake& mistake) {
        switch (random.below(25)) {
        case 0:
            return wrongKind(mistake);
        case 1:
            return otherAnswer(FindingCode::ViewNull, {anyChild().node.node, nullptr}, mistake);
        case 2:
            return otherAnswer(FindingCode::ViewForeign, {anyChild().node.node, &ast}, mistake);
        case 3:
            return sharedNode(mistake);
        case 4:
            return otherAnswer(FindingCode::NodeCycle, *anyChild().parent, mistake);
        case 5:
            return misplacedKind(mistake);
        case 6:
            return changingKind(mistake);
        case 7:
            return changingChild(mistake);
        case 8:
            return changingSize(mistake);
        case 9:
            return absurdSize(mistake);
        case 10:
            return throwingKind(mistake);
        case 11:
            return throwingChild(mistake);
        case 12:
            return wrongSymbol(mistake, FindingCode::SymbolViewNull, nullptr);
        case 13:
            return wrongSymbol(mistake, FindingCode::SymbolViewForeign, &ast);
        case 14:
            return changingName(mistake);
        case 15:
            return unknownOperator(mistake);
        case 16:
            return realPseudoNode(mistake);
        case 17:
            return equalPseudoNodes(mistake);
        case 18:
            return unclearParameter(mistake);
        case 19:
            return unreadableName(mistake);
        case 20:
            return writeOfNoVariable(mistake);
        case 21:
            return smallUniverse(mistake);
        case 22:
            return largeUniverse(mistake);
        case 23:
            return misnamedAns(mistake);
        default:
            return ambiguousName(mistake);
        }
    }

private:
    struct Slot {
        NodeView node;
        NodeKind kind;
        ChildRole role;
        Place place;
        std::optional<NodeView> parent;
    };

    Slot& anyChild() {
        if (chosen == nullptr) chosen = &slots[random.between(1, slots.size() - 1)];
        return *chosen;
    }
    /// A node that the predicate holds of, or null.
    Slot* pickSlot(const std::function<bool(const Slot&)>& isFit) {
        std::vector<Slot*> fit;
        for (Slot& slot : slots)
            if (isFit(slot)) fit.push_back(&slot);
        return fit.empty() ? nullptr : random.pick(fit);
    }
    static bool isOf(const Slot& slot, NodeKind kind) { return slot.kind == kind; }

    static bool expect(Mistake& mistake, FindingCode code, const Slot& slot,
                       const char* operation = nullptr) {
        Place place = slot.place;
        if (operation != nullptr) place.push_back({slot.kind, {operation}});
        mistake = {code, kit::toText(place)};
        return true;
    }

    bool isSecondAsking(const Call& asked) {
        std::vector<std::uint64_t> question = {static_cast<std::uint64_t>(asked.operation)};
        question.insert(question.end(), std::begin(asked.arguments), std::end(asked.arguments));
        return ++askings[question] % 2 == 0;
    }

    /// Where `node` is the answer, `lie` changes it.
    void lieAbout(const NodeView& node, const std::function<void(const Call&, NodeView&)>& lie) {
        lying.onNode = [=](const Call& asked, NodeView& answer) {
            if (answer == node) lie(asked, answer);
        };
        lying.onMaybe = [=](const Call& asked, boost::optional<NodeView>& answer) {
            if (answer && *answer == node) lie(asked, *answer);
        };
    }

    bool otherAnswer(FindingCode code, const NodeView& answer, Mistake& mistake) {
        lieAbout(anyChild().node, [=](const Call&, NodeView& node) { node = answer; });
        return expect(mistake, code, anyChild());
    }

    bool sharedNode(Mistake& mistake) {
        // A node before it in the walk that isn't above it.
        const auto own = static_cast<std::size_t>(&anyChild() - slots.data());
        for (std::size_t other = own; other-- > 1;) {
            const Place& place = slots[other].place;
            const bool isAbove =
                place.size() < anyChild().place.size() &&
                std::equal(place.begin(), place.end(), anyChild().place.begin(),
                           [](const PlaceStep& a, const PlaceStep& b) { return a.role == b.role; });
            if (!isAbove) return otherAnswer(FindingCode::NodeShared, slots[other].node, mistake);
        }
        return false;
    }

    bool wrongKind(Mistake& mistake) {
        const auto kind = static_cast<NodeKind>(random.oneIn(2) ? 0 : random.between(67, 255));
        lying.onKind = [=, target = anyChild().node.node](const Call& asked, NodeKind& answer) {
            if (asked.operation == Operation::getNodeKind && asked.arguments[0] == target) {
                answer = kind;
            }
        };
        return expect(mistake, FindingCode::KindUnknown, anyChild());
    }

    bool misplacedKind(Mistake& mistake) {
        static const std::set<std::string_view> CHOOSY = {
            "getAssignmentLhs", "getBinaryRhs",     "getIfBody",      "getIfCondition",
            "getForVariable",   "getMatrixRows",    "getSwitchCases", "getTryCatch",
            "getForBody",       "getWhileBody",     "getCatchBody",   "getGlobalIdentifiers",
            "getParenBase",     "getFunctionInputs"};
        Slot* slot =
            pickSlot([](const Slot& each) { return CHOOSY.count(each.role.accessor) != 0; });
        if (slot == nullptr) return false;
        chosen = slot;
        return otherAnswer(FindingCode::KindMisplaced,
                           lying.view(ast.add(NodeKind::OtherwiseClause,
                                              {testing::Part(Operation::getOtherwiseBody,
                                                             std::vector<NodeView>())})),
                           mistake);
    }

    bool changingKind(Mistake& mistake) {
        lying.onKind = [this, target = anyChild().node.node](const Call& asked, NodeKind& answer) {
            if (asked.operation == Operation::getNodeKind && asked.arguments[0] == target &&
                isSecondAsking(asked)) {
                answer = answer == NodeKind::Colon ? NodeKind::End : NodeKind::Colon;
            }
        };
        return expect(mistake, FindingCode::AnswerChanged, anyChild());
    }

    bool changingChild(Mistake& mistake) {
        const NodeView other = lying.view(ast.add(NodeKind::Colon, {}));
        lieAbout(anyChild().node, [this, other](const Call& asked, NodeView& node) {
            if (isSecondAsking(asked)) node = other;
        });
        return expect(mistake, FindingCode::AnswerChanged, anyChild());
    }

    /// The first element of a range.
    Slot* pickFirstElement() {
        return pickSlot(
            [](const Slot& each) { return each.role.isRangeElement && each.role.index == 0; });
    }
    /// Lies about the sizes of the ranges of `slot`'s parent.
    void lieAboutSize(const Slot& slot,
                      const std::function<void(const Call&, std::uint64_t&)>& lie) {
        const std::uint64_t owner = slot.parent->node;
        const auto part = std::make_shared<std::uint64_t>();
        lying.onRange = [=](const Call& asked, LyingAst::Words& words) {
            if (asked.arguments[0] == owner && nameOf(asked.operation) == slot.role.accessor) {
                *part = words.second;
            }
        };
        lying.onSize = [=](const Call& asked, std::uint64_t& size) {
            if (asked.arguments[0] == owner && asked.arguments[1] == *part) lie(asked, size);
        };
    }

    bool changingSize(Mistake& mistake) {
        Slot* slot = pickFirstElement();
        if (slot == nullptr) return false;
        lieAboutSize(*slot, [this](const Call& asked, std::uint64_t& size) {
            if (isSecondAsking(asked)) --size;
        });
        return expect(mistake, FindingCode::AnswerChanged, *slot);
    }

    bool absurdSize(Mistake& mistake) {
        Slot* slot = pickFirstElement();
        if (slot == nullptr) return false;
        lieAboutSize(*slot,
                     [this](const Call&, std::uint64_t& size) { size = random.next() | 1 << 30; });
        Slot range = *slot;
        range.place.back().role = {range.role.accessor};
        return expect(mistake, FindingCode::RangeTooLong, range);
    }

    bool throwingKind(Mistake& mistake) {
        lying.onKind = [=, target = anyChild().node.node](const Call& asked, NodeKind&) {
            if (asked.operation == Operation::getNodeKind && asked.arguments[0] == target) {
                throw std::runtime_error("no kind");
            }
        };
        return expect(mistake, FindingCode::AnswerThrew, anyChild());
    }

    bool throwingChild(Mistake& mistake) {
        lieAbout(anyChild().node,
                 [](const Call&, NodeView&) { throw std::runtime_error("no child"); });
        return expect(mistake, FindingCode::AnswerThrew, anyChild());
    }

    Slot* pickIdentifier() {
        return pickSlot([](const Slot& slot) { return isOf(slot, NodeKind::Identifier); });
    }

    bool wrongSymbol(Mistake& mistake, FindingCode code, const IAstView* view) {
        Slot* slot = pickIdentifier();
        if (slot == nullptr) return false;
        lying.onSymbol = [=](const Call& asked, SymbolView& symbol) {
            if (asked.arguments[0] == slot->node.node) symbol.view = view;
        };
        return expect(mistake, code, *slot, "getIdentifierSymbol");
    }

    bool changingName(Mistake& mistake) {
        Slot* slot = pickIdentifier();
        if (slot == nullptr) return false;
        lying.onName = [this, slot](const Call& asked, std::u16string_view& name) {
            if (asked.arguments[0] == slot->node.node && isSecondAsking(asked)) name = u"other";
        };
        return expect(mistake, FindingCode::AnswerChanged, *slot, "getIdentifierName");
    }

    bool unknownOperator(Mistake& mistake) {
        const bool isBinary = random.oneIn(2);
        const NodeKind kind = isBinary ? NodeKind::BinaryOperation : NodeKind::UnaryOperation;
        Slot* slot = pickSlot([=](const Slot& each) { return isOf(each, kind); });
        if (slot == nullptr) return false;
        lying.onOperator = [=](const Call& asked, std::uint32_t& op) {
            if (asked.arguments[0] == slot->node.node) op = 0xFFFF;
        };
        return expect(mistake, FindingCode::OperatorUnknown, *slot,
                      isBinary ? "getBinaryOperator" : "getUnaryOperator");
    }

    bool realPseudoNode(Mistake& mistake) {
        const bool isEntry = random.oneIn(2);
        lying.onNode = [=, target = anyChild().node](const Call& asked, NodeView& node) {
            if (asked.operation == (isEntry ? Operation::getEntryNode : Operation::getExitNode)) {
                node = target;
            }
        };
        return expect(mistake, FindingCode::PseudoNodeReal, anyChild());
    }

    bool equalPseudoNodes(Mistake& mistake) {
        lying.onNode = [this](const Call& asked, NodeView& node) {
            if (asked.operation == Operation::getExitNode) node = lying.getEntryNode();
        };
        mistake = {FindingCode::PseudoNodesEqual, "root"};
        return true;
    }

    bool unclearParameter(Mistake& mistake) {
        Slot* slot =
            pickSlot([](const Slot& each) { return isOf(each, NodeKind::InputParameter); });
        if (slot == nullptr) return false;
        lying.onKind = [=](const Call& asked, NodeKind& kind) {
            if (asked.operation == Operation::getInputParameterKind &&
                asked.arguments[0] == slot->node.node) {
                kind = NodeKind::Matrix;
            }
        };
        return expect(mistake, FindingCode::ParameterUnclear, *slot, "getInputParameterKind");
    }

    bool unreadableName(Mistake& mistake) {
        Slot* slot = pickIdentifier();
        if (slot == nullptr) return false;
        lying.onName = [=](const Call& asked, std::u16string_view& name) {
            if (asked.arguments[0] != slot->node.node) return;
            name = {static_cast<const char16_t*>(nullptr), 1};
        };
        return expect(mistake, FindingCode::NameUnreadable, *slot, "getIdentifierName");
    }

    bool writeOfNoVariable(Mistake& mistake) {
        static const std::set<std::string_view> WRITTEN = {"getForVariable", "getParforVariable",
                                                           "getAssignmentLhs"};
        Slot* slot = pickSlot([](const Slot& each) {
            return isOf(each, NodeKind::Identifier) && WRITTEN.count(each.role.accessor) != 0 &&
                   isPlain(each);
        });
        if (slot == nullptr) return false;
        lying.onVariable = [=, target = symbolOf(*slot)](const Call& asked, bool& isVariable) {
            if (asked.arguments[0] == target.symbol) isVariable = false;
        };
        mistake = {FindingCode::WriteNotVariable, ""};
        return true;
    }

    bool smallUniverse(Mistake& mistake) {
        Slot* slot = pickSlot(
            [](const Slot& each) { return isOf(each, NodeKind::Identifier) && isPlainRead(each); });
        if (slot == nullptr) return false;
        flow::OrderedSet<SymbolView> others;
        for (const SymbolView& each : universe)
            if (each != symbolOf(*slot)) others.add(each);
        universe = others;
        mistake = {FindingCode::UniverseLacks, ""};
        return true;
    }

    bool largeUniverse(Mistake& mistake) {
        universe.add({ast.symbol(u"in no tree").symbol, &lying});
        mistake = {FindingCode::UniverseUnused, "root"};
        return true;
    }

    bool misnamedAns(Mistake& mistake) {
        Slot* slot = pickSlot([this](const Slot& each) {
            return isOf(each, NodeKind::Identifier) &&
                   ast.getIdentifierName(each.node.node) != u"ans";
        });
        if (slot == nullptr) return false;
        options.ans = symbolOf(*slot);
        mistake = {FindingCode::AnsMisnamed, ""};
        return true;
    }

    SymbolView symbolOf(const Slot& identifier) const {
        return lying.getIdentifierSymbol(identifier.node.node);
    }

    /// Two conditions or right sides, one after the other in the walk, with the same name outside of
    /// any function.
    bool ambiguousName(Mistake& mistake) {
        std::map<std::u16string, const Slot*> known;
        for (const Slot& slot : slots) {
            if (!isOf(slot, NodeKind::Identifier) || !isPlainRead(slot)) continue;
            const std::u16string name(ast.getIdentifierName(slot.node.node));
            const Slot*& first = known[name];
            if (first != nullptr) {
                lying.onSymbol = [=, target = slot.node.node](const Call& asked,
                                                              SymbolView& symbol) {
                    if (asked.arguments[0] == target) ++symbol.symbol;
                };
                ast.symbol(u"one more"); // So that the next symbol is one, too.
                return expect(mistake, FindingCode::NameAmbiguous, slot, "getIdentifierSymbol");
            }
            first = &slot;
        }
        return false;
    }
    static bool isPlainRead(const Slot& slot) {
        static const std::set<std::string_view> PLAIN = {
            "getAssignmentRhs", "getIfCondition",   "getWhileCondition", "getForExpression",
            "getBinaryLhs",     "getBinaryRhs",     "getSwitchSubject",  "getCaseExpression",
            "getForVariable",   "getAssignmentLhs", "getParforVariable", "getParforExpression"};
        return PLAIN.count(slot.role.accessor) != 0 && isPlain(slot);
    }
    /// Whether a node is in the scope of the root, and not among what is only walked.
    static bool isPlain(const Slot& slot) {
        static const std::set<NodeKind> SCOPES = {
            NodeKind::AnonymousFunction, NodeKind::FunctionDefinition, NodeKind::MethodDefinition,
            NodeKind::MethodDeclaration};
        return std::none_of(slot.place.begin(), slot.place.end(), [](const PlaceStep& step) {
            return SCOPES.count(step.kind) != 0 || isLabel(step.role.accessor);
        });
    }
    /// Whether what stands there is only walked.
    static bool isLabel(std::string_view accessor) {
        return accessor.find("Name") != std::string_view::npos ||
               accessor.find("Part") != std::string_view::npos ||
               accessor.find("Validation") != std::string_view::npos ||
               accessor == "getAttributeValue" || accessor == "getDotField" ||
               accessor == "getEnumerationMemberArguments";
    }

    Random& random;
    FakeAst ast;
    LyingAst lying;
    NodeView root = {};
    std::vector<Slot> slots; ///< All nodes, in the order of a walk.
    Slot* chosen = nullptr;
    flow::OrderedSet<SymbolView> universe;
    CheckTreeOptions options;
    std::map<std::vector<std::uint64_t>, int> askings;
};

TEST(CheckTreeRandom, CorrectTreeHasNoFindingAndOneMistakeIsFoundWhereItIs) {
    Random random;
    SCOPED_TRACE(random.describe());
    std::map<FindingCode, int> found;
    for (std::size_t round = 0; round < testing::rounds(5000); ++round) {
        MistakenTree tree(random);
        ASSERT_EQ(toText(tree.check()), "") << "round " << round;
        Mistake mistake;
        if (!tree.plant(mistake)) continue;
        const std::vector<Finding> findings = tree.check();
        ASSERT_TRUE(std::any_of(findings.begin(), findings.end(),
                                [&](const Finding& finding) {
                                    return finding.code == mistake.code &&
                                           (mistake.place.empty() ||
                                            finding.place == mistake.place);
                                }))
            << "round " << round << ": " << codeText(mistake.code) << " at " << mistake.place
            << " is not among\n"
            << toText(findings);
        ++found[mistake.code];
    }
    if (ZT_ORVEX_TEST_SANITIZED != 0) return; // Too few rounds to meet them all.
    EXPECT_EQ(found.size(), 21u) << "not all of the codes but those of the limits were met";
}

} // namespace
} // namespace zt::orvex::kit
