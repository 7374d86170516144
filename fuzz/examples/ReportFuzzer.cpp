// Input: a source text. The analysis of the file and the report in each format; the text's size
// decides on colours and on the width of the terminal.
#include "CheckReport.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ostrel::ParsedFile file = ostrel::parseOstrel("fuzz.ost", text);
    if (!file.isUtf8) return 0; // the report program refuses it
    zt::orvex::fuzz::checkReport(std::move(file), size % 2 == 0, size % 120);
    return 0;
}
