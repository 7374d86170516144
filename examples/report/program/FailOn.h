#pragma once

#include "report/model/Report.h"
#include "report/program/Options.h"

#include <optional>
#include <string>
#include <string_view>

namespace ostrel::report {

/// The words that a list may have: `carried, shared, ..., any`.
std::string knownCodes();

/// Adds the codes of a list such as `carried,used-after`, or all of them for `any`. Returns what is
/// wrong with the list, if anything is; it then adds nothing.
std::optional<std::string> addCodes(std::string_view list, RemarkCodes& codes);

/// Whether the file makes the program fail, though it may have no errors.
bool fails(const File& file, const Options& options);

} // namespace ostrel::report
