// Input: calls of a logger, with their texts. The report is compared with one that is kept as a
// single text, in which a level begins at an offset and is cut off again if it matches.
#include "Require.h"
#include "TextFromBytes.h"
#include "testing/Random.h"

#include <zt_orvex/equivalence/EquivalenceFullLogger.h>
#include <zt_orvex/equivalence/EquivalenceNullLogger.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace zt::orvex;
using fuzz::require;
using testing::Random;

namespace {

class PlainReport {
public:
    void begin(const std::string& head) {
        text += indent() + head;
        starts.push_back(text.size());
        text += "\n";
    }

    void line(const std::string& content) { text += indent() + content + "\n"; }

    void done(bool matched) {
        if (!matched) line("-> NODES DO NOT MATCH < < < < < < < < < < < < < < < < < < < < ");
        const std::size_t start = starts.back();
        starts.pop_back();
        if (matched) text.replace(start, std::string::npos, " - OK\n");
    }

    void clear() {
        text.clear();
        starts.clear();
    }

    std::string getLog() const { return starts.empty() ? text : text.substr(starts.back() + 1); }
    std::size_t getDepth() const { return starts.size(); }

private:
    std::string indent() const { return std::string(4 * starts.size(), ' '); }

    std::string text;
    std::vector<std::size_t> starts;
};

/// Both loggers and the plain report, which get the same calls.
class Game {
public:
    explicit Game(Random& from) : random(from) {}

    void step() {
        const std::size_t call = random.below(24);
        if (call >= 14) {
            const bool matched = call % 2 == 0;
            if (plain.getDepth() == 0) return; // the precondition
            onBoth([&](EquivalenceLogger& logger) { logger.doneMatching(matched); });
            plain.done(matched);
        } else if (call < 7) {
            begin(call);
        } else {
            write(call);
        }
    }

    void check() const {
        require(full.getLog() == plain.getLog(), "equal reports");
        require(null.getLog() == "No AST matcher log available.  See the documentation in "
                                 "AstEquivalence for more information.",
                "no report");
    }

private:
    template <typename Call>
    void onBoth(Call call) {
        call(full);
        call(null);
    }

    void begin(std::size_t call) {
        const std::u16string a = text();
        const std::u16string b = text();
        const std::string first = fuzz::plainUtf8(a);
        const std::string second = fuzz::plainUtf8(b);
        const std::string strings = "Matching strings [" + first + "] and [" + second + "]";
        onBoth([&](EquivalenceLogger& logger) {
            switch (call) {
            case 0:
            case 1:
                return logger.beginMatching(first, second);
            case 2:
                return logger.beginMatchingStrings(std::u16string_view(a), std::u16string_view(b));
            case 3:
                return logger.beginMatchingStrings(boost::basic_string_ref<char16_t>(a),
                                                   boost::basic_string_ref<char16_t>(b));
            case 4:
                return logger.beginMatchingRange();
            case 5:
                return logger.beginMatchingIntroductionNodes();
            default:
                return logger.beginMatchingMemoryAddressesOfIntroductionNodes();
            }
        });
        const std::string heads[] = {"Matching " + first + " against " + second,
                                     "Matching " + first + " against " + second,
                                     strings,
                                     strings,
                                     "Matching boost::iterator_range",
                                     "Matching introduction nodes",
                                     "Matching memory addresses of introduction nodes"};
        plain.begin(heads[call]);
    }

    void write(std::size_t call) {
        const std::string first = fuzz::plainUtf8(text());
        const std::string second = fuzz::plainUtf8(text());
        const auto number = static_cast<unsigned>(random.below(0x10000)) * 0x10001U;
        const auto kind = static_cast<NodeKind>(number % 256);
        switch (call) {
        case 7:
            onBoth([](EquivalenceLogger& logger) { logger.startNewMatch(); });
            break;
        case 8:
            onBoth([&](EquivalenceLogger& logger) { logger.logRangeIndex(number); });
            plain.line("-> Matching nodes at index " + std::to_string(number) +
                       " of boost::iterator_range");
            break;
        case 9:
            onBoth([&](EquivalenceLogger& logger) {
                logger.logMismatchedNodes(first, second, kind, kind, number, number);
            });
            plain.line("-> Node kinds do not match");
            break;
        case 10:
            onBoth([&](EquivalenceLogger& logger) {
                logger.logMismatchedOptionals(number % 2 == 0, first, kind, number);
            });
            plain.line("-> boost::optionals do not match (one is empty, the other is not)");
            break;
        case 11:
            onBoth([&](EquivalenceLogger& logger) {
                logger.logMismatchedIntroductionNodes(first, second, second, first);
            });
            plain.line("Introduction nodes do not match");
            plain.line("    Identifier in first tree:         " + first);
            plain.line("    Introduction node in first tree:  " + second);
            plain.line("    Identifier in second tree:        " + second);
            plain.line("    Introduction node in second tree: " + first);
            break;
        case 12:
            if (!random.oneIn(4)) break;
            full.clear();
            plain.clear();
            break;
        default:
            onBoth([&](EquivalenceLogger& logger) { logger.log(first.c_str()); });
            plain.line("-> " + std::string(first.c_str()));
        }
    }

    std::u16string text() {
        std::u16string units;
        for (std::size_t left = random.below(4); left > 0; --left)
            units.push_back(static_cast<char16_t>(random.oneIn(3) ? random.below(0x10000)
                                                                  : u'a' + random.below(26)));
        return units;
    }

    Random& random;
    internal::EquivalenceFullLogger full;
    internal::EquivalenceNullLogger null;
    PlainReport plain;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Random random(data, size);
    Game game(random);
    game.check();
    while (!random.isUsedUp()) {
        game.step();
        game.check();
    }
    return 0;
}
