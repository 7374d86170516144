// A library with one symbol of every sort that the list of exported symbols keeps or drops.
#include <stdexcept>
#include <string>
#include <vector>

#define SAMPLE_EXPORT __attribute__((visibility("default")))

namespace zt::orvex {

SAMPLE_EXPORT int strongFunction();
int hiddenFunction();

/// Exported as a whole: its inline members are weak and still ours.
struct SAMPLE_EXPORT Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
    ~Failure() override;
};

struct SAMPLE_EXPORT Element {
    int value = 0;
    std::string text;
};

Failure::~Failure() = default;
int hiddenFunction() { return 1; }
int strongFunction() { return hiddenFunction(); }

} // namespace zt::orvex

/// Weak instantiations of a standard template with an exported type as its argument: dropped.
template class std::vector<zt::orvex::Element>;

/// Strong, and outside our namespace: listed, since nobody expects it.
SAMPLE_EXPORT int strayFunction() { return 2; }
