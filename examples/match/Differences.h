#pragma once

#include "tree/Tree.h"

#include <vector>

namespace ostrel {

/// How two programs differ at one place.
enum class DifferenceKind {
    Kind,     ///< Nodes of different kinds.
    Printing, ///< The same statement prints its result in one program only.
    Name,
    Number,
    Operator,
    Text,
    OnlyInFirst, ///< A part, or an element of a list, that the other program lacks.
    OnlyInSecond,
};

/// Where the program that lacks a node would have it: after an element of the list, before one, or
/// anywhere in a node.
enum class Whereabouts { After, Before, In };

/// One difference between two programs.
struct Difference {
    DifferenceKind kind;
    NodeId first;  ///< For OnlyInSecond, the node that `whereabouts` refers to.
    NodeId second; ///< Likewise for OnlyInFirst.
    Whereabouts whereabouts = Whereabouts::In;
};

/// All differences between two programs, in the order of the trees: none exactly if they're
/// equivalent (see TreeMatcher). What differs is reported at the highest node that differs by
/// itself, and not what is below it. Lists are aligned, so that an inserted statement is one
/// difference, and the statements after it are compared with their counterparts.
///
/// Recurses as deep as the trees. Cost: linear in the trees but for sorting (see Alignment.h).
std::vector<Difference> findDifferences(const Tree& first, const Tree& second);

} // namespace ostrel
