#include "tree/CheckReport.h"

#include <string_view>
#include <utility>

namespace zt::orvex::kit::internal {

namespace {

/// Of the text of an exception, which may be of any length, the first so many bytes are shown.
constexpr std::size_t MOST_OF_A_TEXT = 200;

} // namespace

void CheckReport::add(FindingCode code, const Question& question, std::string advice,
                      std::optional<SymbolView> symbol) {
    Place place = path.placeOfChild();
    if (question.kind != NodeKind::Invalid) {
        place.push_back({question.kind, {question.operation}});
    }
    append({code, toText(place), std::move(advice), question.node, symbol});
}

void CheckReport::addAtRoot(FindingCode code, std::optional<NodeView> node, std::string advice,
                            std::optional<SymbolView> symbol) {
    append({code, toText(Place()), std::move(advice), node, symbol});
}

void CheckReport::addException(const Question& question, const char* what) {
    add(FindingCode::AnswerThrew, question,
        std::string(question.operation) + " threw \"" +
            std::string(std::string_view(what).substr(0, MOST_OF_A_TEXT)) +
            "\". Answer every question that the kind of a node allows: the exception would end the "
            "analysis.");
}

void CheckReport::addChange(const Question& question, const std::string& first,
                            const std::string& second) {
    add(FindingCode::AnswerChanged, question,
        std::string(question.operation) + " answered " + first + " and then " + second +
            ". Give the same answer each time, as long as the tree is in use.");
}

void CheckReport::append(Finding finding) {
    if (findings.size() < limit) {
        findings.push_back(std::move(finding));
    } else if (!isBeyondLimit) {
        isBeyondLimit = true;
        findings.push_back({FindingCode::TooManyFindings, toText(Place()),
                            "The check ended here. Correct what it found and check again, or raise "
                            "maxFindings.",
                            std::nullopt, std::nullopt});
    }
}

} // namespace zt::orvex::kit::internal
