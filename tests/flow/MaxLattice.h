#pragma once

#include <zt_orvex/flow/Lattice.h>

#include <algorithm>

namespace zt::orvex::flow {

/// A value of the plainest kind. It offers nothing but copying and `!=`, which is all that the
/// solver may ask of a value.
struct Level {
    int height = 0;

    friend bool operator!=(const Level& a, const Level& b) { return a.height != b.height; }
};

/// Numbers from 0 upward: join is the greater, meet the lesser, minus the difference down to 0.
class MaxLattice final : public Lattice<Level> {
public:
    bool isLessOrEqual(const Level& a, const Level& b) const override {
        return a.height <= b.height;
    }
    Level bottom() const override { return {0}; }
    void setToBottom(Level& value) const override { value.height = 0; }
    void assign(Level& target, const Level& source) const override { target = source; }
    void joinInto(Level& target, const Level& other) const override {
        target.height = std::max(target.height, other.height);
    }
    void meetInto(Level& target, const Level& other) const override {
        target.height = std::min(target.height, other.height);
    }
    void minusInto(Level& target, const Level& other) const override {
        target.height = std::max(0, target.height - other.height);
    }
};

} // namespace zt::orvex::flow
