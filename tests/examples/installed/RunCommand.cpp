#include "RunCommand.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <regex>

namespace ostrel::testing {

std::string outputOf(const std::string& command) {
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        ADD_FAILURE() << "cannot run " << command;
        return "";
    }
    std::string output;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, count);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

std::vector<std::string> optionsOf(const std::string& program) {
    const std::string help = outputOf("'" + program + "' --help");
    const std::regex option("(^|\n)  (-h,)?(--[a-z-]+)");
    std::vector<std::string> options;
    for (std::sregex_iterator found(help.begin(), help.end(), option), end; found != end; ++found)
        options.push_back((*found)[3]);
    return options;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace ostrel::testing
