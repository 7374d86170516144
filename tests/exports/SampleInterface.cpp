// A small interface, and the changes to it that a list of symbols doesn't show: each macro makes one.
#include <cstdint>

#define SAMPLE_EXPORT __attribute__((visibility("default")))

namespace zt::sample {

#if defined(RENUMBERED)
enum class Kind : std::uint8_t { First = 0, Second = 2 };
#elif defined(NEW_KIND)
enum class Kind : std::uint8_t { First = 0, Second = 1, Third = 2 };
#else
enum class Kind : std::uint8_t { First = 0, Second = 1 };
#endif

struct Handle {
#if defined(SWAPPED)
    std::uint32_t kind;
    std::uint32_t index;
#else
    std::uint32_t index;
    std::uint32_t kind;
#endif
#if defined(GROWN)
    std::uint64_t owner;
#endif
};

class SAMPLE_EXPORT Tree {
public:
    virtual ~Tree();
#if defined(MOVED)
    virtual std::uint64_t size(Handle handle) const = 0;
    virtual Kind kind(Handle handle) const = 0;
#else
    virtual Kind kind(Handle handle) const = 0;
    virtual std::uint64_t size(Handle handle) const = 0;
#endif
};

Tree::~Tree() = default;

SAMPLE_EXPORT std::uint64_t count(const Tree& tree, Handle root);
std::uint64_t count(const Tree& tree, Handle root) { return tree.size(root); }

#if defined(NEW_FUNCTION)
SAMPLE_EXPORT std::uint64_t countTwice(const Tree& tree, Handle root);
std::uint64_t countTwice(const Tree& tree, Handle root) { return 2 * tree.size(root); }
#endif

} // namespace zt::sample
