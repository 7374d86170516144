// Input: one byte for each call of a logger. The report is compared with one that is kept as a
// single text, in which a level begins at an offset and is cut off again if it matches.
#include <zt_orvex/equivalence/EquivalenceFullLogger.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

class PlainReport {
public:
    void beginMatching() {
        text += indent() + "Matching A against B";
        starts.push_back(text.size());
        text += "\n";
    }

    void log() { text += indent() + "-> x\n"; }

    void doneMatching(bool matched) {
        if (!matched)
            text += indent() + "-> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < \n";
        const std::size_t start = starts.back();
        starts.pop_back();
        if (matched) text.replace(start, std::string::npos, " - OK\n");
    }

    std::string getLog() const { return starts.empty() ? text : text.substr(starts.back() + 1); }
    std::size_t getDepth() const { return starts.size(); }

private:
    std::string indent() const { return std::string(4 * starts.size(), ' '); }

    std::string text;
    std::vector<std::size_t> starts;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zt::orvex::internal::EquivalenceFullLogger logger;
    PlainReport plain;
    for (std::size_t i = 0; i < size; ++i) {
        const bool matched = data[i] % 2 == 0;
        if (data[i] % 3 == 0) {
            logger.beginMatching("A", "B");
            plain.beginMatching();
        } else if (data[i] % 3 == 1 && plain.getDepth() > 0) {
            logger.doneMatching(matched);
            plain.doneMatching(matched);
        } else {
            logger.log("x");
            plain.log();
        }
        require(logger.getLog() == plain.getLog());
    }
    return 0;
}
