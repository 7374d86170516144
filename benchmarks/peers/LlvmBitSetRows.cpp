// LLVM's bit vector in the rows of BitSet.cpp.

#include "support/SetRows.h"

#include <llvm/ADT/BitVector.h>

namespace zt::orvex::benchmarks {
namespace {

class Llvm {
public:
    explicit Llvm(std::size_t bits) : set(static_cast<unsigned>(bits)) {}

    void insert(std::size_t bit) { set.set(static_cast<unsigned>(bit)); }
    void unite(const Llvm& other) { set |= other.set; }
    void intersect(const Llvm& other) { set &= other.set; }
    void subtract(const Llvm& other) { set.reset(other.set); }
    bool equals(const Llvm& other) const { return set == other.set; }
    bool isSubsetOf(const Llvm& other) const { return !set.test(other.set); }
    std::uint64_t sum() const {
        std::uint64_t indices = 0;
        for (const unsigned bit : set.set_bits())
            indices += bit;
        return indices;
    }

private:
    llvm::BitVector set;
};

[[maybe_unused]] const bool registered = (registerSetRows<Llvm>("llvm_BitVector"), true);

} // namespace
} // namespace zt::orvex::benchmarks
