#pragma once

#include "report/model/Remark.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string_view>

namespace ostrel::report {

/// The rules of the log: those of the remarks, in the order of `RemarkCode`, then that of errors.
nlohmann::ordered_json sarifRules();

/// The place of a rule in that list.
std::size_t sarifRuleIndexOf(RemarkCode code);
std::size_t sarifRuleIndexOfErrors();

/// The identifier of the rule of errors.
constexpr std::string_view SARIF_ERROR_RULE = "syntax-error";

} // namespace ostrel::report
