#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace ostrel::testing {

/// A family of programs, one for each size. Four times the size is about four times the text.
struct Shape {
    std::string name;
    std::function<std::string(std::size_t size)> program;
    std::size_t size; ///< The smaller of the two sizes to try.

    /// How much the analysis is due to grow when the size grows by 4.
    std::size_t analysisGrowth = 4;
};

/// Runs of one token, for each kind of token and each way to separate tokens. `place` is the text
/// around the run, with `@` where it stands.
std::vector<Shape> runsOfTokens(const std::string& place);

/// Runs of lines, comments and statements, right and wrong ones.
std::vector<Shape> runsOfPieces();

/// Everything that nests: deeper and deeper up to the limit, and often at a fixed depth.
std::vector<Shape> nestings();

/// Two counts that grow together.
std::vector<Shape> products();

} // namespace ostrel::testing
