"""Knows the public names of the libraries, from Doxygen's own list of them."""

import xml.etree.ElementTree as ElementTree

# The class whose operations the guides mention by their bare names.
INTERFACE = "zt::orvex::IAstView"


def declared_names(tag_file):
    """Maps each bare name to what Doxygen calls it. Leaves out those that stand for several things."""
    found = {}

    def add(full):
        found.setdefault(full.rpartition("::")[2], set()).add(full)

    for compound in ElementTree.parse(tag_file).iterfind("compound"):
        name = compound.findtext("name")
        if compound.get("kind") in ("class", "struct") and "<" not in name:
            add(name)
        if compound.get("kind") == "namespace" or name == INTERFACE:
            for member in compound.iterfind("member"):
                bare = member.findtext("name")
                if bare != name.rpartition("::")[2] and not bare.startswith(("operator", "~")):
                    add(f"{name}::{bare}")
    return {name: next(iter(places)) for name, places in found.items() if len(places) == 1}
