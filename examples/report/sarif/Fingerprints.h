#pragma once

#include "report/model/Report.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace ostrel::report {

/// Recognises the remarks of a file after it has been edited.
///
/// A fingerprint is made of what is said, of what is said of, and of the text of the line, blanks
/// aside, but neither of the line's number nor of the file's name. Alike ones are numbered in the
/// order of the calls, so no two of a file are equal.
///
/// Cost of a call: linear in the line, unless the call before was for the same line.
class Fingerprints {
public:
    explicit Fingerprints(const File& reported) : file(reported) {}

    /// `what` and `about` say what is wrong with what: a code and the name of a variable.
    std::string next(std::string_view what, std::string_view about, std::string_view scope,
                     const Place& place);

private:
    const std::string& digestOf(std::size_t line);

    const File& file;
    std::size_t digestedLine = 0; ///< None: lines count from 1.
    std::string lineDigest;
    std::map<std::string, std::size_t> occurrences;
};

} // namespace ostrel::report
