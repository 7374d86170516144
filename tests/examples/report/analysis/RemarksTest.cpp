#include "ReportOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ostrel::report::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The remarks of a program with a code, each as `line:column message; help`.
std::vector<std::string> remarksIn(const std::string& text, RemarkCode code) {
    const File file = reportOf(text);
    EXPECT_FALSE(file.hasErrors()) << file.diagnostics.front().message;
    std::vector<std::string> found;
    for (const Remark& remark : file.remarks) {
        if (remark.code != code) continue;
        found.push_back(lineAndColumn(remark.place) + " " + remark.message + "; " + remark.help);
    }
    return found;
}

std::vector<std::string> placesOf(const std::string& text, RemarkCode code) {
    std::vector<std::string> found;
    for (const Remark& remark : reportOf(text).remarks) {
        if (remark.code == code) found.push_back(lineAndColumn(remark.place));
    }
    return found;
}

/// The notes of a path of the only remark with the code.
std::vector<std::string> pathIn(const std::string& text, RemarkCode code, std::size_t path) {
    std::vector<std::string> notes;
    for (const Remark& remark : reportOf(text).remarks) {
        if (remark.code != code) continue;
        for (const Step& step : remark.paths.at(path))
            notes.push_back(step.note);
    }
    return notes;
}

TEST(CarriedRemark, NamesTheReadThatMeetsAnotherIteration) {
    EXPECT_THAT(
        remarksIn("u = 1;\nparfor i = 2:9\n u(i) = u(i) + u(i-1);\nend", RemarkCode::Carried),
        ElementsAre("3:16 this reads 'u', which another iteration may have written at 3:2; "
                    "compute 'u' without the other iterations, or use 'for' instead of "
                    "'parfor'"));
}

TEST(CarriedRemark, OffersAReductionForAVariableWrittenWhole) {
    EXPECT_THAT(
        remarksIn("s = 0;\nparfor i = 1:9\n s = s + i; s = s * 2;\nend", RemarkCode::Carried),
        ElementsAre("3:6 this reads 's', which another iteration may have written at 3:13; "
                    "compute 's' without the other iterations, only combine it by one "
                    "operation, as in 's = s + e' or 's = max(s, e)', or use 'for' instead "
                    "of 'parfor'"));
}

TEST(CarriedRemark, IsNoneForAReduction) {
    EXPECT_THAT(remarksIn("s = 0;\nparfor i = 1:9, s = s + i; end", RemarkCode::Carried),
                IsEmpty());
}

TEST(CarriedRemark, LoopThatMayRunNoIterationIsInPathAndHelp) {
    const std::string text = "parfor i = 1:9\n while true\n  gap = i;\n  if gap > 3, break, end\n"
                             " end\n y(i) = gap;\nend";
    EXPECT_THAT(remarksIn(text, RemarkCode::Carried),
                ElementsAre("6:9 this reads 'gap', which another iteration may have written at 3:3;"
                            " assign 'gap' before the loop at 2:2, which may run no iteration"));
    EXPECT_THAT(pathIn(text, RemarkCode::Carried, 1),
                ElementsAre("the loop at 2:2 may run no iteration", "'gap' is read at 6:9"));
}

TEST(CarriedRemark, HelpNamesWhatDoesNotAssignOnEveryPath) {
    const auto helpOf = [](const std::string& body) {
        const File file = reportOf("c = 1;\nparfor i = 1:9\n" + body + "\n y(i) = x;\nend");
        for (const Remark& remark : file.remarks) {
            if (remark.code == RemarkCode::Carried) return remark.help;
        }
        return std::string();
    };
    EXPECT_EQ(helpOf(" if c, x = 1; end"),
              "assign 'x' before the if at 3:2, which doesn't assign it on every path");
    EXPECT_EQ(helpOf(" switch c, case 1, x = 1; end"),
              "assign 'x' before the switch at 3:2, which doesn't assign it in every case");
    EXPECT_EQ(helpOf(" try, x = f(1); catch e, end"),
              "assign 'x' before the try at 3:2, which an error may leave before it has");
    EXPECT_EQ(helpOf(" for j = 1:c, x = 1; end"),
              "assign 'x' before the loop at 3:2, which may run no iteration");
    EXPECT_EQ(helpOf(" parfor j = 1:c, x = 1; end"),
              "assign 'x' before the parfor at 3:2, which may run no iteration");
}

TEST(CarriedRemark, HelpNamesALoopThatReadsBeforeItWrites) {
    EXPECT_THAT(remarksIn("parfor i = 1:9\n for j = 1:3\n  s = s / j;\n end\n y(i) = s;\nend",
                          RemarkCode::Carried),
                ElementsAre("3:7 this reads 's', which another iteration may have written at 3:3; "
                            "assign 's' before the loop at 2:2, which reads it first"));
}

TEST(CarriedRemark, ConditionThatReadsWhatItsBlockWritesNeedsAnotherHelp) {
    const File file = reportOf("b = 0;\nparfor i = 1:9\n if i > b\n  b = i;\n end\nend");
    EXPECT_EQ(lineAndColumn(file.remarks.at(0).place), "3:9");
    EXPECT_EQ(file.remarks.at(0).help.substr(0, 11), "compute 'b'");
}

TEST(CarriedRemark, PartialWriteKeepsTheRest) {
    EXPECT_THAT(
        remarksIn("c = 1;\nparfor i = 1:9\n for j = 1:3\n  c(j) = i;\n end\nend",
                  RemarkCode::Carried),
        ElementsAre("4:3 this write keeps the rest of 'c', which another iteration may have written"
                    " at 4:3; assign all of 'c' at the beginning of the body, or index it by 'i' "
                    "alone"));
}

TEST(CarriedRemark, ReadOfAVariableWrittenInPartsWantsAllOfItAssigned) {
    EXPECT_THAT(
        remarksIn("c = 1;\nparfor i = 1:9\n for j = 1:3, c(j) = i; end\n y(i) = c(1);\nend",
                  RemarkCode::Carried),
        ElementsAre("4:9 this reads 'c', which another iteration may have written at 3:15; assign "
                    "all of 'c' at the beginning of the body, or index it by 'i' alone"));
}

TEST(CarriedRemark, HasThePathOfTheWriteFirst) {
    const std::string text =
        "x = 1; c = 1;\nparfor i = 1:9\n y(i) = x;\n if c\n  x = i;\n end\n if c, c = 2; end\nend";
    EXPECT_THAT(pathIn(text, RemarkCode::Carried, 0), ::testing::Contains("'x' is written at 5:3"));
    const File file = reportOf(text);
    ASSERT_EQ(file.remarks.at(0).paths.size(), 2U);
    EXPECT_THAT(file.remarks.at(0).paths[0].front().note, "'x' is written at 5:3");
    EXPECT_THAT(file.remarks.at(0).paths[1].back().note, "'x' is read at 3:9");
}

TEST(CarriedRemark, SeveralOutputsOfACallAreNoReduction) {
    EXPECT_THAT(placesOf("s = 0; t = 0;\nparfor i = 1:9, [s, t] = f(s); end", RemarkCode::Carried),
                ElementsAre("2:28"));
}

TEST(SharedRemark, NamesTheWrite) {
    const std::string help = "; let each iteration write its own element, such as 'x(i)', and "
                             "combine them after the loop";
    EXPECT_THAT(remarksIn("x = 1;\nparfor i = 1:9\n x(7) = i;\nend", RemarkCode::Shared),
                ElementsAre("3:2 two iterations may write the same part of 'x'" + help));
    EXPECT_THAT(remarksIn("parfor i = 1:9\n x.f = i;\nend", RemarkCode::Shared),
                ElementsAre("2:2 two iterations may write the same part of 'x'" + help));
}

TEST(SharedRemark, PassesOverWritesIndexedByTheLoopVariable) {
    EXPECT_THAT(placesOf("x = 1;\nparfor i = 1:9\n x(i) = 1;\n x(2) = 1;\nend", RemarkCode::Shared),
                ElementsAre("4:2"));
    EXPECT_THAT(
        placesOf("x = 1;\nparfor i = 1:9\n x(i) = 1;\n x(i, 1) = 1;\nend", RemarkCode::Shared),
        ElementsAre("3:2"));
}

TEST(SharedRemark, BlamesAWriteOfTheLoopVariable) {
    EXPECT_THAT(
        remarksIn("x = 1;\nparfor i = 1:9\n x(i) = 1;\n i = 2;\nend", RemarkCode::Shared),
        ElementsAre("3:2 two iterations may write the same part of 'x'; leave 'i' as it is, "
                    "so that each iteration can have an element of its own"));
}

TEST(UsedAfterRemark, NamesTheWriteAndTheRead) {
    const std::string text = "best = 0;\nparfor i = 1:8, best = i; end\nshow(best)";
    EXPECT_THAT(remarksIn(text, RemarkCode::UsedAfter),
                ElementsAre("2:17 'best' loses its value at the end of the parfor, and may be read "
                            "at 3:6; let each iteration write its own element, such as 'best(i)', "
                            "and choose among them after the loop"));
    EXPECT_THAT(pathIn(text, RemarkCode::UsedAfter, 0),
                ElementsAre("'best' is written at 2:17", "'best' is read at 3:6"));
}

TEST(UsedAfterRemark, OutputOfAFunctionIsUsedByItsCaller) {
    const std::string text =
        "function best = f\n best = 0;\n parfor i = 1:8\n  best = i;\n end\nend";
    EXPECT_THAT(remarksIn(text, RemarkCode::UsedAfter),
                ElementsAre("4:3 'best' loses its value at the end of the parfor, and is an output "
                            "of 'f'; let each iteration write its own element, such as 'best(i)', "
                            "and choose among them after the loop"));
    EXPECT_THAT(pathIn(text, RemarkCode::UsedAfter, 0),
                ElementsAre("'best' is written at 4:3", "the function returns 'best'"));
}

TEST(UsedAfterRemark, LoopVariableIsWrittenByTheHead) {
    EXPECT_THAT(remarksIn("parfor i = 1:8, x(i) = i; end\nshow(i)", RemarkCode::UsedAfter),
                ElementsAre("1:8 'i' loses its value at the end of the parfor, and may be read at "
                            "2:6; assign what you need after the loop to another variable there"));
}

TEST(UsedAfterRemark, IsNoneIfTheVariableIsWrittenAgainFirst) {
    EXPECT_THAT(
        placesOf("parfor i = 1:8, t = i; end\nt = 1; i = 2;\nshow(t, i)", RemarkCode::UsedAfter),
        IsEmpty());
    EXPECT_THAT(placesOf("parfor i = 1:8, t = i; end\nparfor i = 1:8, t = i; x(i) = t; end",
                         RemarkCode::UsedAfter),
                IsEmpty());
    EXPECT_THAT(
        placesOf("function r = f\nparfor i = 1:8, r = i; end\nr = 2;\nend", RemarkCode::UsedAfter),
        IsEmpty());
}

TEST(UsedAfterRemark, LoopAroundReadsWhatTheRoundBeforeWrote) {
    EXPECT_THAT(
        placesOf("for k = 1:3\n y = t;\n parfor i = 1:8, t = i; end\nend", RemarkCode::UsedAfter),
        ElementsAre("3:18"));
}

TEST(UsedAfterRemark, ReadInTheSameBlockOfTheBodyAroundIsFound) {
    EXPECT_THAT(
        placesOf("c = 1;\nif c\n parfor i = 1:8, t = i; end\n y = t;\nend", RemarkCode::UsedAfter),
        ElementsAre("3:18"));
}

TEST(UsedAfterRemark, ReadOnOneOfTwoPathsIsEnough) {
    const std::string text = "c = 1;\nparfor i = 1:8, t = i; end\nif c, t = 1; end\ny = t;";
    EXPECT_THAT(pathIn(text, RemarkCode::UsedAfter, 0),
                ElementsAre("'t' is written at 2:17", "the condition at 3:4 may be false",
                            "'t' is read at 4:5"));
}

TEST(UsedAfterRemark, ReturnHandsOutAnOutputBeforeItIsWrittenAgain) {
    EXPECT_THAT(placesOf("function r = f(c)\nr = 0;\nparfor i = 1:8, r = i; end\n"
                         "if c, return, end\nr = 2;\nend",
                         RemarkCode::UsedAfter),
                ElementsAre("3:17"));
    EXPECT_THAT(placesOf("function r = f(c)\nr = 0;\nparfor i = 1:8, r = i; return, end\n"
                         "r = 2;\nend",
                         RemarkCode::UsedAfter),
                ElementsAre("3:17"));
}

TEST(UsedAfterRemark, IsNoneWhereControlCannotCome) {
    EXPECT_THAT(placesOf("function f\nreturn\nparfor i = 1:8, t = i; end\nshow(t)\nend",
                         RemarkCode::UsedAfter),
                IsEmpty());
}

TEST(UsedAfterRemark, NothingIsReadAfterAReturn) {
    EXPECT_THAT(placesOf("function f\nparfor i = 1:8, t = i; end\nreturn\nshow(t)\nend",
                         RemarkCode::UsedAfter),
                IsEmpty());
}

TEST(UsedAfterRemark, NestedConstructLosesItsValueInTheBodyAround) {
    EXPECT_THAT(placesOf("parfor k = 1:3\n parfor i = 1:8, t = i; end\n x(k) = t;\nend\n",
                         RemarkCode::UsedAfter),
                ElementsAre("2:18"));
    EXPECT_THAT(placesOf("parfor k = 1:3\n parfor i = 1:8, t = i; end\nend\nshow(t)",
                         RemarkCode::UsedAfter),
                ElementsAre("2:18"));
}

TEST(UsedAfterRemark, OtherScopesDoNotReadIt) {
    EXPECT_THAT(placesOf("parfor i = 1:8, t = i; end\nfunction f\n show(t)\n t = 1;\nend",
                         RemarkCode::UsedAfter),
                IsEmpty());
}

TEST(UsedAfterRemark, ResultsOfAnSpmdAreKept) {
    EXPECT_THAT(placesOf("spmd, t = 1; end\nshow(t)", RemarkCode::UsedAfter), IsEmpty());
}

TEST(UsedAfterRemark, SlicedAndReducedVariablesAreKept) {
    EXPECT_THAT(placesOf("s = 0; x = 1;\nparfor i = 1:8, s = s + i; x(i) = i; end\nshow(s, x)",
                         RemarkCode::UsedAfter),
                IsEmpty());
}

TEST(LoopVariableRemark, NamesTheFirstWrite) {
    EXPECT_THAT(remarksIn("parfor i = 1:8\n x = 1;\n i = 3;\n i = 4;\nend",
                          RemarkCode::LoopVariableWritten),
                ElementsAre("3:2 the body writes 'i', the variable of its own parfor; use another "
                            "variable; each iteration gets 'i' from the parfor"));
    EXPECT_THAT(placesOf("parfor i = 1:8\n for i = 1:3, end\nend", RemarkCode::LoopVariableWritten),
                ElementsAre("2:6"));
    EXPECT_THAT(
        placesOf("parfor i = 1:8\n continue\n i = 1;\nend", RemarkCode::LoopVariableWritten),
        IsEmpty());
}

TEST(LeavesParallelRemark, NamesBreakAndReturn) {
    const std::string help = "; skip the rest of the iteration by 'continue' or 'if', or use 'for' "
                             "instead of 'parfor'";
    EXPECT_THAT(remarksIn("c = 1;\nparfor i = 1:8\n if c, break, end\n if c, return, end\nend",
                          RemarkCode::LeavesParallel),
                ElementsAre("3:8 a break cannot leave a parfor body" + help,
                            "4:8 a return cannot leave a parfor body" + help));
    EXPECT_THAT(remarksIn("spmd\n return\nend", RemarkCode::LeavesParallel),
                ElementsAre("2:2 a return cannot leave an spmd body; skip the rest of the block by "
                            "'if', and return after it"));
}

TEST(LeavesParallelRemark, IsAboutTheInnermostConstructThatIsLeft) {
    const auto constructs = [](const std::string& text) {
        std::vector<std::size_t> found;
        for (const Remark& remark : reportOf(text).remarks) {
            if (remark.code == RemarkCode::LeavesParallel) found.push_back(*remark.construct);
        }
        return found;
    };
    EXPECT_THAT(constructs("parfor i = 1:3\n parfor j = 1:3\n  break\n end\nend"), ElementsAre(1));
    EXPECT_THAT(constructs("parfor i = 1:3\n spmd\n  break\n end\nend"), ElementsAre(0));
    EXPECT_THAT(constructs("parfor i = 1:3\n spmd\n  return\n end\nend"), ElementsAre(1));
    EXPECT_THAT(constructs("parfor i = 1:3\n for j = 1:3\n  return\n end\nend"), ElementsAre(0));
}

TEST(LeavesParallelRemark, JumpThatStaysInsideGetsNone) {
    EXPECT_THAT(placesOf("parfor i = 1:3\n for j = 1:3, break, end\n while 1, break, end\n "
                         "continue\nend",
                         RemarkCode::LeavesParallel),
                IsEmpty());
    EXPECT_THAT(placesOf("for i = 1:3\n spmd\n  break\n end\nend\nfunction f\nreturn\nend",
                         RemarkCode::LeavesParallel),
                IsEmpty());
}

TEST(PathNotes, TellEachDecision) {
    const auto notesOf = [](const std::string& body) {
        return pathIn("c = 1; x = 1;\nparfor i = 1:9\n" + body + "\n x = i;\nend",
                      RemarkCode::Carried, 1);
    };
    EXPECT_THAT(notesOf(" if c, x = 1; elseif c + 1, x = 2; end\n y = x;"),
                ElementsAre("the condition at 3:5 may be false",
                            "the condition at 3:22 may be false", "'x' is read at 4:6"));
    EXPECT_THAT(notesOf(" if c, y = x; end\n"),
                ElementsAre("the condition at 3:5 may be true", "'x' is read at 3:12"));
    EXPECT_THAT(notesOf(" switch c, case 1, x = 1; case 2, y = x; end\n"),
                ElementsAre("the case at 3:12 may not match", "the case at 3:27 may match",
                            "'x' is read at 3:39"));
    EXPECT_THAT(notesOf(" for j = 1:3, y = x; end\n"),
                ElementsAre("the loop at 3:2 runs an iteration", "'x' is read at 3:19"));
    EXPECT_THAT(notesOf(" parfor j = 1:3, x = 1; end\n y = x;"),
                ElementsAre("the parfor at 3:2 may run no iteration", "'x' is read at 4:6"));
    EXPECT_THAT(notesOf(" try, x = f(1); catch e, y = x; end\n"),
                ElementsAre("an error at 3:2 is caught", "'x' is read at 3:30"));
    EXPECT_THAT(
        notesOf(" try, f(c); x = 2; g(c); end\n y = x;"),
        ElementsAre("an error after the statement at 3:2 may end the try", "'x' is read at 4:6"));
}

TEST(PathNotes, FollowJumps) {
    const auto notesOf = [](const std::string& body) {
        return pathIn("c = 1; x = 1;\nparfor i = 1:9\n y = x;\n" + body + "\nend",
                      RemarkCode::Carried, 0);
    };
    EXPECT_THAT(notesOf(" x = i;\n while c\n  if c, break, end\n end"),
                ElementsAre("'x' is written at 4:2", "the loop at 5:2 may run no iteration"));
    EXPECT_THAT(notesOf(" x = i;\n continue"),
                ElementsAre("'x' is written at 4:2", "the continue at 5:2 ends the iteration"));
    EXPECT_THAT(notesOf(" x = i;\n return"),
                ElementsAre("'x' is written at 4:2", "the return at 5:2 is reached"));
    EXPECT_THAT(notesOf(" for j = 1:3\n  x = i;\n  break\n end"),
                ElementsAre("'x' is written at 5:3", "the break at 6:3 leaves the loop"));
    EXPECT_THAT(notesOf(" for j = 1:3\n  x = i;\n end"),
                ElementsAre("'x' is written at 5:3", "the loop at 4:2 ends"));
}

} // namespace

} // namespace ostrel::report::testing
