// Input: the decisions from which a program without errors is written. Parsing, printing, and the
// report in each format.
#include "CheckParsedFile.h"
#include "CheckReport.h"
#include "testing/RandomProgram.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::orvex::testing::Random random(data, size);
    const std::string text = zt::orvex::testing::RandomProgram(random).program();
    ostrel::ParsedFile file = ostrel::parseOstrel("fuzz.ost", text);
    zt::orvex::fuzz::require(!file.hasErrors(), text.c_str());
    zt::orvex::fuzz::checkParsedFile(file);
    zt::orvex::fuzz::checkReport(std::move(file), size % 2 == 0, size % 120);
    return 0;
}
