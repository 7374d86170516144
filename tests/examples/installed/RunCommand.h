#pragma once

#include <string>
#include <vector>

namespace ostrel::testing {

/// What a command of the shell writes to standard output. Fails the test if it can't be run or its
/// status isn't 0.
std::string outputOf(const std::string& command);

/// The options that a program's --help lists, without `-h`: `--format` and so on.
std::vector<std::string> optionsOf(const std::string& program);

std::string contentOf(const std::string& path);

} // namespace ostrel::testing
