#include "examples/RunProgram.h"

#include "frontend/FilePath.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace ostrel::testing {

ScratchFolder::ScratchFolder() {
    std::random_device number;
    const std::string stem = textOf(pathOf(::testing::TempDir())) + "orvex-";
    std::error_code error;
    do {
        folder = stem + std::to_string(number());
    } while (!std::filesystem::create_directory(pathOf(folder), error) && !error);
    if (error) ADD_FAILURE() << "no folder " << folder << ": " << error.message();
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(pathOf(folder), ignored);
}

std::string ScratchFolder::file(const std::string& name, const std::string& bytes) const {
    std::ofstream(pathOf(path(name)), std::ios::binary) << bytes;
    return path(name);
}

std::string readFile(const std::string& path) {
    std::ifstream file(pathOf(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace ostrel::testing
