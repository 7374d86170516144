#pragma once

#include <string>
#include <string_view>

namespace ostrel::report {

/// The URI of a file: a relative reference for a relative path, without a leading `./`, and a `file:`
/// URI for an absolute one. All bytes but letters, digits and `-._~/` are percent-encoded, whether or
/// not the path is UTF-8, so the path can be had back from it.
std::string fileUri(std::string_view name);

} // namespace ostrel::report
