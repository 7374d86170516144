#include "ReportOf.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

// A second, plain implementation of the roles that knows nothing of trees and graphs. It generates
// random programs of a few forms, keeps their structure beside their text, and works on that. It
// takes what is live from the report, which has it from the library.

namespace ostrel::report::testing {

namespace {

using zt::orvex::testing::Random;

/// An expression: a number, a name, `name(parts)`, `[parts]`, `[first; rest]` or `first op second`.
struct Expression {
    enum Kind { Number, Name, Indexed, RowOf, ColumnOf, Operation } kind = Number;
    std::string name; ///< Or the operator.
    std::vector<Expression> parts;

    std::string text() const {
        std::string list;
        for (const Expression& part : parts)
            list += (list.empty() ? "" : kind == ColumnOf ? "; " : ", ") + part.text();
        switch (kind) {
        case Number:
            return "1";
        case Name:
            return name;
        case Indexed:
            return name + "(" + list + ")";
        case RowOf:
        case ColumnOf:
            return "[" + list + "]";
        case Operation:
            return parts[0].text() + " " + name + " " + parts[1].text();
        }
        return "";
    }
};

struct Statement {
    enum Kind { Assign, If, For, While, Break, Continue, Return } kind = Assign;
    Expression target; ///< Of an assignment; of a `for`, its variable.
    Expression value;  ///< Or the condition, or the range.
    std::vector<Statement> body;
    std::vector<Statement> otherwise;

    std::string text() const {
        const auto all = [](const std::vector<Statement>& statements) {
            std::string lines;
            for (const Statement& statement : statements)
                lines += statement.text();
            return lines;
        };
        switch (kind) {
        case Assign:
            return target.text() + " = " + value.text() + ";\n";
        case If:
            return "if " + value.text() + "\n" + all(body) + "else\n" + all(otherwise) + "end\n";
        case For:
            return "for " + target.text() + " = " + value.text() + "\n" + all(body) + "end\n";
        case While:
            return "while " + value.text() + "\n" + all(body) + "end\n";
        case Break:
            return "break;\n";
        case Continue:
            return "continue;\n";
        case Return:
            return "return;\n";
        }
        return "";
    }
};

const std::array<std::string, 6> VARIABLES{"a", "b", "c", "d", "j", "k"};

class ProgramMaker {
public:
    explicit ProgramMaker(Random& numbers) : random(numbers) {}

    std::vector<Statement> body(std::size_t depth) {
        std::vector<Statement> statements;
        for (std::size_t count = 1 + random.below(3); count > 0; --count)
            statements.push_back(statement(depth));
        return statements;
    }

private:
    std::string variable() { return random.pick(VARIABLES); }

    Expression name(const std::string& of) { return {Expression::Name, of, {}}; }

    Expression subscript() {
        switch (random.below(4)) {
        case 0:
            return {};
        case 1:
            return name(variable());
        default:
            return name("k");
        }
    }

    Expression element(const std::string& of) {
        Expression indexed{Expression::Indexed, of, {subscript()}};
        if (random.oneIn(3)) indexed.parts.push_back(subscript());
        return indexed;
    }

    Expression operand() {
        switch (random.below(4)) {
        case 0:
            return name(variable());
        case 1:
            return element(variable());
        default:
            return {};
        }
    }

    /// Often a combination of `with` and something.
    Expression value(const std::string& with) {
        static const std::array<std::string, 5> OPERATORS{"+", "*", "-", "/", ".*"};
        static const std::array<std::string, 2> FUNCTIONS{"max", "min"};
        switch (random.below(8)) {
        case 0:
        case 1:
            return {Expression::Operation,
                    random.oneIn(3) ? random.pick(OPERATORS) : "+",
                    {name(with), operand()}};
        case 2:
            return {Expression::Operation, random.pick(OPERATORS), {operand(), name(with)}};
        case 3:
            return {Expression::Indexed, random.pick(FUNCTIONS), {name(with), operand()}};
        case 4:
            return {random.oneIn(2) ? Expression::RowOf : Expression::ColumnOf,
                    "",
                    {name(with), operand()}};
        default:
            return operand();
        }
    }

    Statement statement(std::size_t depth) {
        Statement made;
        const std::size_t choice = random.below(depth == 0 ? 5 : 9);
        switch (choice) {
        case 4:
            made.kind = random.oneIn(3) ? Statement::Continue : Statement::Assign;
            break;
        case 5:
            made.kind = Statement::If;
            break;
        case 6:
            made.kind = Statement::For;
            break;
        case 7:
            made.kind = Statement::While;
            break;
        case 8:
            made.kind = random.oneIn(2) ? Statement::Break : Statement::Return;
            break;
        default:
            break;
        }
        const std::string target = random.oneIn(8) ? "k" : variable();
        made.target = name(target);
        if (made.kind == Statement::Assign && random.oneIn(2)) made.target = element(target);
        made.value = made.kind == Statement::Assign ? value(target) : operand();
        const bool hasBody = made.kind == Statement::If || made.kind == Statement::For ||
                             made.kind == Statement::While;
        if (hasBody) made.body = body(depth - 1);
        if (made.kind == Statement::If) made.otherwise = body(depth - 1);
        return made;
    }

    Random& random;
};

/// What a plain look at a body finds out.
class PlainFacts {
public:
    explicit PlainFacts(const std::vector<Statement>& body) { run(body); }

    std::set<std::string> written; ///< Where control comes.
    std::set<std::string> named;

    /// Whether the loop variable stands at one and the same place of every index.
    bool hasOwnElements(const std::string& variable) const {
        if (written.count("k") != 0 || indices.count(variable) == 0) return false;
        const auto& all = indices.at(variable);
        for (std::size_t place = 0; place < 3; ++place) {
            const bool isOwn = std::all_of(all.begin(), all.end(), [&](const auto& index) {
                return index.size() == all.front().size() && place < index.size() &&
                       index[place] == "k";
            });
            if (isOwn) return true;
        }
        return false;
    }

    std::optional<std::string> reduction(const std::string& variable) const {
        std::optional<std::string> by;
        for (const Statement* statement : heads) {
            if (!names(*statement, variable)) continue;
            const auto here = combination(*statement, variable);
            if (!here || (by && *by != *here)) return {};
            by = here;
        }
        return by;
    }

private:
    static bool names(const Expression& expression, const std::string& variable) {
        const bool isName =
            expression.kind == Expression::Name || expression.kind == Expression::Indexed;
        return (isName && expression.name == variable) ||
               std::any_of(expression.parts.begin(), expression.parts.end(),
                           [&](const Expression& part) { return names(part, variable); });
    }
    static bool hasTarget(const Statement& statement) {
        return statement.kind == Statement::Assign || statement.kind == Statement::For;
    }
    static bool hasValue(const Statement& statement) {
        return statement.kind != Statement::Break && statement.kind != Statement::Continue &&
               statement.kind != Statement::Return;
    }
    static bool names(const Statement& statement, const std::string& variable) {
        return (hasTarget(statement) && names(statement.target, variable)) ||
               (hasValue(statement) && names(statement.value, variable));
    }

    static bool isBare(const Expression& expression, const std::string& variable) {
        return expression.kind == Expression::Name && expression.name == variable;
    }

    static std::optional<std::string> combination(const Statement& statement,
                                                  const std::string& variable) {
        const Expression& value = statement.value;
        if (statement.kind != Statement::Assign || !isBare(statement.target, variable) ||
            value.parts.size() != 2)
            return {};
        const bool isFirst = isBare(value.parts[0], variable) && !names(value.parts[1], variable);
        const bool isLast = isBare(value.parts[1], variable) && !names(value.parts[0], variable);
        switch (value.kind) {
        case Expression::Operation:
            if (value.name == "/" || !(isFirst || (isLast && value.name != "-"))) return {};
            return value.name;
        case Expression::Indexed:
            if (!isFirst || (value.name != "max" && value.name != "min")) return {};
            return value.name;
        case Expression::RowOf:
            return isFirst ? std::optional<std::string>("[,]") : std::nullopt;
        case Expression::ColumnOf:
            return isFirst ? std::optional<std::string>("[;]") : std::nullopt;
        default:
            return {};
        }
    }

    void note(const Expression& expression) {
        if (expression.kind == Expression::Name) indices[expression.name].push_back({});
        if (expression.kind == Expression::Name || expression.kind == Expression::Indexed)
            named.insert(expression.name);
        if (expression.kind == Expression::Indexed) {
            std::vector<std::string> index;
            for (const Expression& part : expression.parts)
                index.push_back(part.kind == Expression::Name ? part.name : "");
            indices[expression.name].push_back(index);
        }
        for (const Expression& part : expression.parts)
            note(part);
    }

    /// Notes what the statements do; returns whether control may come to their end.
    bool run(const std::vector<Statement>& statements, bool isReached = true) {
        for (const Statement& statement : statements)
            isReached = run(statement, isReached);
        return isReached;
    }

    bool run(const Statement& statement, bool isReached) {
        heads.push_back(&statement);
        if (hasTarget(statement)) note(statement.target);
        if (hasValue(statement)) note(statement.value);
        if (hasTarget(statement) && isReached) written.insert(statement.target.name);
        switch (statement.kind) {
        case Statement::Assign:
            return isReached;
        case Statement::If: {
            const bool then = run(statement.body, isReached);
            const bool otherwise = run(statement.otherwise, isReached);
            return then || otherwise;
        }
        case Statement::For:
        case Statement::While:
            run(statement.body, isReached);
            return isReached; // it may run no iteration
        default:
            return false;
        }
    }

    std::vector<const Statement*> heads;
    std::map<std::string, std::vector<std::vector<std::string>>> indices;
};

bool isIn(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string plainRole(const PlainFacts& facts, const Construct& construct,
                      const std::string& name) {
    const bool isParfor = construct.kind == ConstructKind::Parfor;
    const bool isWritten = facts.written.count(name) != 0;
    const bool isLive =
        isParfor ? isIn(construct.maybeLiveAsTemporary, name) : isIn(construct.notOutputs, name);
    if (isParfor && name == "k") return "loopVariable";
    if (!isWritten) return isLive || (isParfor && name == "a") ? "readFromOutside" : "notUsed";
    if (!isLive) return isParfor ? "temporary" : "output";
    if (!isParfor) return "updated";
    if (facts.hasOwnElements(name)) return "sliced";
    if (!isIn(construct.liveAsSliced, name)) return "shared";
    if (const auto by = facts.reduction(name)) return "reduction by " + *by;
    return "carried";
}

TEST(RolesRandom, AreThoseOfAPlainProgram) {
    Random random;
    SCOPED_TRACE(random.describe());
    ProgramMaker maker(random);
    std::map<std::string, int> found;
    for (std::size_t i = zt::orvex::testing::rounds(2000); i > 0; --i) {
        const std::vector<Statement> body = maker.body(3);
        std::string text = "a = 1; b = 1; c = 1; d = 1; j = 1; k = 1;\n";
        text += random.oneIn(5) ? "spmd\n" : "parfor k = 1:a\n";
        for (const Statement& statement : body)
            text += statement.text();
        text += "end\n";
        const File file = reportOf(text);
        ASSERT_FALSE(file.hasErrors()) << file.diagnostics.front().message << '\n' << text;
        const Construct& construct = file.constructs.at(0);
        const PlainFacts facts(body);
        std::set<std::string> named;
        for (const Variable& variable : construct.variables) {
            std::string role(identifierOf(variable.role));
            if (variable.role == Role::Reduction) role += " by " + variable.by;
            ASSERT_EQ(role, plainRole(facts, construct, variable.name)) << variable.name << " in\n"
                                                                        << text;
            ++found[std::string(identifierOf(variable.role))];
            named.insert(variable.name);
        }
        for (const std::string& name : facts.named)
            ASSERT_TRUE(named.count(name) == 1 || name == "max" || name == "min") << name;
    }
    EXPECT_EQ(found.size(), 10U);
}

} // namespace

} // namespace ostrel::report::testing
