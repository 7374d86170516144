#include "lying/CheckTreeFixture.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Answers that change, that are exceptions, or that are absurd: what the check finds, and what an
// analysis answers without it.
namespace zt::orvex::kit {
namespace {

class CheckTreeAnswer : public CheckTreeFixture {
protected:
    /// Whether the call is the second, fourth, ... of its operation with its arguments.
    bool isSecondAsking(const Call& asked) {
        const std::pair<Operation, std::uint64_t> question(asked.operation, asked.arguments[0]);
        return ++askings[question] % 2 == 0;
    }

private:
    std::map<std::pair<Operation, std::uint64_t>, int> askings;
};

TEST_F(CheckTreeAnswer, KindThatChangesIsFound) {
    lying.onKind = [&](const Call& asked, NodeKind& kind) {
        if (asked.arguments[0] == sum.node && isSecondAsking(asked)) kind = NodeKind::Colon;
    };
    const Finding finding = onlyFinding();
    EXPECT_EQ(finding.code, FindingCode::AnswerChanged);
    EXPECT_EQ(finding.place, "ParforStatement.getParforBody[0] > "
                             "AssignmentStatement.getAssignmentRhs");
    EXPECT_EQ(finding.node->node, sum.node);
    EXPECT_EQ(finding.advice, "getNodeKind answered BinaryOperation (8) and then Colon (16). Give "
                              "the same answer each time, as long as the tree is in use.");
}

TEST_F(CheckTreeAnswer, ChildThatChangesIsFound) {
    lying.onNode = [&, other = lying.view(id("r"))](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getIfCondition && isSecondAsking(asked)) node = other;
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfCondition");
}

TEST_F(CheckTreeAnswer, OptionalChildThatIsAbsentTheSecondTimeIsFound) {
    const auto clause = elseClause({});
    lying.onMaybe = [&](const Call& asked, boost::optional<NodeView>& node) {
        if (asked.operation != Operation::getIfElseClause) return;
        if (!isSecondAsking(asked)) node = lying.view(clause);
    };
    const Finding finding = onlyFinding();
    EXPECT_EQ(finding.code, FindingCode::AnswerChanged);
    EXPECT_EQ(finding.place, "ParforStatement.getParforBody[1] > IfStatement.getIfElseClause");
}

TEST_F(CheckTreeAnswer, SizeThatChangesIsFound) {
    lying.onSize = [&](const Call& asked, std::uint64_t& size) {
        if (size == 3 && isSecondAsking(asked)) size = 2;
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[0]");
}

TEST_F(CheckTreeAnswer, SizeThatShrinksOnTheWayIsFound) {
    lying.onSize = [&, askings = 0](const Call&, std::uint64_t& size) mutable {
        if (size == 3 && ++askings > 3) size = 2;
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[2]");
    EXPECT_EQ(readFirst(), "a b c x");
}

TEST_F(CheckTreeAnswer, ElementThatChangesIsFound) {
    lying.onNode = [&, other = lying.view(breakStatement())](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getStatementRangeElement && node == second &&
            isSecondAsking(asked)) {
            node = other;
        }
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0]");
}

TEST_F(CheckTreeAnswer, NameThatChangesIsFound) {
    lying.onName = [&](const Call& asked, std::u16string_view& name) {
        if (asked.arguments[0] == x.node && isSecondAsking(asked)) name = u"y";
    };
    const Finding finding = onlyFinding();
    EXPECT_EQ(finding.code, FindingCode::AnswerChanged);
    EXPECT_EQ(finding.place, "ParforStatement.getParforBody[1] > IfStatement.getIfBody[0] > "
                             "AssignmentStatement.getAssignmentRhs > "
                             "Identifier.getIdentifierName");
    EXPECT_EQ(finding.advice.substr(0, 41), "getIdentifierName answered `x` and then `");
}

TEST_F(CheckTreeAnswer, NameThatIsComposedEachTimeIsFine) {
    lying.onName = [copies = std::vector<std::u16string>()](const Call&,
                                                            std::u16string_view& name) mutable {
        copies.reserve(1000);
        name = copies.emplace_back(name);
    };
    EXPECT_EQ(findings(), "");
}

TEST_F(CheckTreeAnswer, SymbolThatChangesIsFound) {
    lying.onSymbol = [&](const Call& asked, SymbolView& answer) {
        if (asked.arguments[0] == x.node && isSecondAsking(asked)) ++answer.symbol;
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0] > AssignmentStatement.getAssignmentRhs > "
                          "Identifier.getIdentifierSymbol");
}

TEST_F(CheckTreeAnswer, OperatorThatChangesIsFound) {
    lying.onOperator = [&](const Call& asked, std::uint32_t& op) {
        if (isSecondAsking(asked)) ++op;
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentRhs > "
                          "BinaryOperation.getBinaryOperator");
}

TEST_F(CheckTreeAnswer, VariableThatIsNoneTheNextTimeIsFound) {
    lying.onVariable = [&](const Call& asked, bool& isVariable) {
        if (asked.arguments[0] == symbol("a").symbol && isSecondAsking(asked)) isVariable = false;
    };
    EXPECT_EQ(findings(), "answer-changed at ParforStatement.getParforBody[0] > "
                          "AssignmentStatement.getAssignmentRhs > BinaryOperation.getBinaryLhs > "
                          "Identifier.isVariableSymbol");
}

TEST_F(CheckTreeAnswer, VariableThatIsNoneAtAnotherIdentifierIsFound) {
    lying.onVariable = [&, askings = 0](const Call& asked, bool& isVariable) mutable {
        if (asked.arguments[0] == symbol("t").symbol && ++askings > 2) isVariable = false;
    };
    EXPECT_EQ(findings().substr(0, 57),
              "answer-changed at ParforStatement.getParforBody[1] > IfSt");
}

TEST_F(CheckTreeAnswer, PseudoNodeThatChangesIsFound) {
    lying.onNode = [&](const Call& asked, NodeView& node) {
        if (asked.operation == Operation::getEntryNode && isSecondAsking(asked)) ++node.node;
    };
    EXPECT_EQ(findings(), "answer-changed at root");
}

TEST_F(CheckTreeAnswer, ParameterKindThatChangesIsFound) {
    lying.onKind = [&](const Call& asked, NodeKind& kind) {
        if (asked.operation == Operation::getInputParameterKind && isSecondAsking(asked)) {
            kind = NodeKind::IgnoredArgument;
        }
    };
    EXPECT_EQ(findings(lying.view(inputParameter(id("p")))),
              "answer-changed at InputParameter.getInputParameterKind");
}

TEST_F(CheckTreeAnswer, RangeWithOtherWordsForTheSameElementsIsFine) {
    // A tree may make a new range at each asking. Its words are its own affair.
    class RenamingTree : public testing::LyingAst {
    public:
        using LyingAst::LyingAst;
        StatementRangeView getParforBody(std::uint64_t node) const override {
            const StatementRangeView range = LyingAst::getParforBody(node);
            return {range.first, range.second + (++askings << 32), this};
        }
        std::uint64_t getStatementRangeSize(std::uint64_t first,
                                            std::uint64_t second) const override {
            return LyingAst::getStatementRangeSize(first, second & 0xFFFFFFFF);
        }
        NodeView getStatementRangeElement(std::uint64_t index, std::uint64_t first,
                                          std::uint64_t second) const override {
            return LyingAst::getStatementRangeElement(index, first, second & 0xFFFFFFFF);
        }
        mutable std::uint64_t askings = 0;
    };
    const RenamingTree tree(ast);
    EXPECT_EQ(findings(tree.view(loop)), "");
    EXPECT_EQ(tree.askings, 2u);
}

TEST_F(CheckTreeAnswer, ExceptionIsAFindingWithTheOperation) {
    lying.onNode = [&](const Call& asked, NodeView&) {
        if (asked.operation == Operation::getIfCondition) throw std::runtime_error("no condition");
    };
    const Finding finding = onlyFinding();
    EXPECT_EQ(finding.code, FindingCode::AnswerThrew);
    EXPECT_EQ(finding.place, "ParforStatement.getParforBody[1] > IfStatement.getIfCondition");
    EXPECT_EQ(
        finding.advice,
        "getIfCondition threw \"no condition\". Answer every question that the kind of a node "
        "allows: the exception would end the analysis.");
    EXPECT_EQ(readFirst(), "threw no condition");
}

TEST_F(CheckTreeAnswer, ExceptionOfAnyTypeIsSurvived) {
    lying.onSize = [&](const Call&, std::uint64_t& size) {
        if (size == 3) throw 17;
    };
    EXPECT_EQ(findings(), "answer-threw at ParforStatement.getParforBody");
    EXPECT_EQ(onlyFinding().advice.substr(0, 68),
              "getStatementRangeSize threw \"something that isn't a std::exception\".");
}

TEST_F(CheckTreeAnswer, CheckGoesOnAfterAnException) {
    lying.onKind = [&](const Call& asked, NodeKind& kind) {
        if (asked.arguments[0] == first.node) throw std::runtime_error("no kind");
        if (asked.arguments[0] == last.node) kind = NodeKind::Invalid;
    };
    EXPECT_EQ(findings(), "answer-threw at ParforStatement.getParforBody[0]\n"
                          "kind-unknown at ParforStatement.getParforBody[2]");
}

TEST_F(CheckTreeAnswer, ElementThatThrowsIsLeftOut) {
    lying.onNode = [&](const Call& asked, NodeView& node) {
        if (asked.operation != Operation::getStatementRangeElement) return;
        if (node == first || node == last) throw std::out_of_range("no element");
    };
    EXPECT_EQ(findings(), "answer-threw at ParforStatement.getParforBody[0]\n"
                          "answer-threw at ParforStatement.getParforBody[2]");
}

TEST_F(CheckTreeAnswer, LongTextOfAnExceptionIsCut) {
    lying.onKind = [&](const Call&, NodeKind&) {
        throw std::runtime_error(std::string(1'000'000, 'x'));
    };
    EXPECT_LT(onlyFinding().advice.size(), 400u);
}

TEST_F(CheckTreeAnswer, SizeBeyondTheLimitIsFound) {
    lying.onSize = [&](const Call&, std::uint64_t& size) {
        if (size == 3) size = 0x7f12'3456'7890;
    };
    const Finding finding = onlyFinding();
    EXPECT_EQ(finding.code, FindingCode::RangeTooLong);
    EXPECT_EQ(finding.place, "ParforStatement.getParforBody");
    EXPECT_EQ(readFirst(), "threw FakeAst: getStatementRangeElement was asked for element 3 of 3");
}

TEST_F(CheckTreeAnswer, SizeAtTheLimitIsFine) {
    options.maxRangeSize = 3;
    EXPECT_EQ(findings(), "");
    options.maxRangeSize = 2;
    EXPECT_EQ(findings(), "range-too-long at ParforStatement.getParforBody");
}

// A range is a begin and an end, as two pointers are, and the size is their difference.
TEST_F(CheckTreeAnswer, RangeOfAWrongWordIsFound) {
    class PointerTree : public testing::LyingAst {
    public:
        using LyingAst::LyingAst;
        StatementRangeView getParforBody(std::uint64_t) const override {
            return {0x5555'0000'0020, 0x5555'0000'0000, this}; // The words swapped.
        }
        std::uint64_t getStatementRangeSize(std::uint64_t first,
                                            std::uint64_t second) const override {
            return (second - first) / sizeof(NodeView);
        }
    };
    const PointerTree tree(ast);
    EXPECT_EQ(findings(tree.view(loop)), "range-too-long at ParforStatement.getParforBody");
}

TEST_F(CheckTreeAnswer, NameAtANullPointerIsFound) {
    lying.onName = [&](const Call& asked, std::u16string_view& name) {
        if (asked.arguments[0] == x.node) name = {static_cast<const char16_t*>(nullptr), 3};
    };
    EXPECT_EQ(onlyFinding().code, FindingCode::NameUnreadable);
}

TEST_F(CheckTreeAnswer, NameOfAnAbsurdLengthIsNotRead) {
    lying.onName = [&](const Call& asked, std::u16string_view& name) {
        if (asked.arguments[0] == x.node) name = {name.data(), std::size_t{1} << 40};
    };
    EXPECT_EQ(findings(), "name-unreadable at ParforStatement.getParforBody[1] > "
                          "IfStatement.getIfBody[0] > AssignmentStatement.getAssignmentRhs > "
                          "Identifier.getIdentifierName");
}

} // namespace
} // namespace zt::orvex::kit
