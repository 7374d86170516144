#pragma once

#include <string>
#include <string_view>

namespace ostrel {

/// A line for standard error, safe for a terminal: `program: message`. What the message quotes of
/// arguments or names of files may hold anything.
std::string complaint(std::string_view program, std::string_view message);

/// The same for a command line that can't be understood, with a line that tells where to read more.
std::string usageComplaint(std::string_view program, std::string_view message);

/// Runs the body of a `main` and returns its exit status. If it throws, writes a complaint to
/// standard error and returns `failure`. Allocates nothing for that when memory has run out.
int guardMain(const char* program, int failure, int (*body)(int count, char** arguments), int count,
              char** arguments);

} // namespace ostrel
