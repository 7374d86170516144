#!/usr/bin/env python3
"""Prunes a description of a binary interface, as abidw writes it, to what is ours.

usage: prune_description.py NAMESPACE... <description >pruned

abidw describes every type that it reaches, down to the innards of the standard library: a megabyte
that changes with the compiler. What is pruned:

- A class outside the given namespaces, or below such a class, keeps its name and its size.
- A class of ours keeps its bases, fields and virtual functions, and of the others those that are
  exported.
- Types that nothing of this refers to any longer go.

The rest is sorted, and types are identified by their names instead of numbers, so that a difference
can be read, and that the order of source files makes none.
"""
import sys
import xml.etree.ElementTree as ElementTree

CLASSES = ("class-decl", "union-decl")


def is_exported(function):
    return "elf-symbol-id" in function.attrib


def is_definition(element):
    return element.get("is-declaration-only") != "yes"


def is_kept_member(member):
    """Whether a child of a class of ours is part of the interface."""
    if member.tag in ("base-class", "data-member"):
        return member.get("static") != "yes"
    if member.tag == "member-function":
        return "vtable-offset" in member.attrib or is_exported(member.find("function-decl"))
    return False


class Description:
    """What a description holds, by the identifiers of types; pruned while it is read."""

    def __init__(self, corpus, namespaces):
        self.ours = namespaces
        self.types = {}  # identifier -> (path of namespaces, element)
        self.roots = []  # (path of namespaces, element)
        for unit in corpus.iter("abi-instr"):
            self.read_scope(unit, ())

    def is_ours(self, path, name):
        return (path[0] if path else name.split("<")[0]) in self.ours

    def read_scope(self, scope, path):
        for element in scope:
            if element.tag == "namespace-decl":
                self.read_scope(element, path + (element.get("name"),))
            elif element.tag in ("function-decl", "var-decl"):
                if is_exported(element):
                    self.roots.append((path, element))
            else:
                self.read_type(element, path)

    def read_type(self, element, path, prefix=""):
        identifier = element.get("id")
        name = prefix + element.get("name", "")
        if element.tag in CLASSES:
            nested = [member[0] for member in element.findall("member-type") if len(member)]
            for inner in nested:
                self.read_type(inner, path, name + "::")
            element = self.prune_class(element, self.is_ours(path, name))
        if prefix:
            element.set("name", name)
        known = self.types.get(identifier)
        if known is None or is_definition(element) > is_definition(known[1]):
            self.types[identifier] = (path, element)

    @staticmethod
    def prune_class(element, is_ours):
        pruned = ElementTree.Element(element.tag, element.attrib)
        if is_ours:
            pruned.extend(member for member in element if is_kept_member(member))
        return pruned

    def reachable(self):
        """The roots, the classes with exported or virtual functions, and what those refer to."""
        kept = {}
        waiting = [element for _, element in self.roots]
        for identifier, (_, element) in self.types.items():
            if element.find("member-function") is not None:
                waiting.append(element)
                kept[identifier] = self.types[identifier]
        while waiting:
            for element in waiting.pop().iter():
                element.attrib.pop("naming-typedef-id", None)
                identifier = element.get("type-id")
                if identifier and identifier not in kept and identifier in self.types:
                    kept[identifier] = self.types[identifier]
                    waiting.append(kept[identifier][1])
        contents = self.roots + list(kept.values())
        names = Names(self.types)
        for _, element in contents:
            names.replace_in(element)
        return contents


class Names:
    """Identifies types by their names, which abidw identifies by numbers."""

    def __init__(self, types):
        self.types = types
        self.by_identifier = {}

    def of(self, identifier):
        if identifier not in self.by_identifier:
            # void is the only type without a description.
            path, element = self.types.get(identifier, ((), None))
            self.by_identifier[identifier] = self.make(path, element)
        return self.by_identifier[identifier]

    def make(self, path, element):
        if element is None:
            return "void"
        if element.tag == "function-type":
            parts = [self.of(part.get("type-id")) for part in element]
            return f"{parts[-1]}({', '.join(parts[:-1])})"
        base = self.of(element.get("type-id")) if element.tag != "typedef-decl" else None
        if element.tag == "pointer-type-def":
            return base + "*"
        if element.tag == "reference-type-def":
            return base + ("&" if element.get("kind") == "lvalue" else "&&")
        if element.tag == "qualified-type-def":
            qualifiers = [word for word in ("const", "volatile") if element.get(word) == "yes"]
            return f"{base} {' '.join(qualifiers)}"
        if element.tag == "array-type-def":
            return f"{base}[{element.get('dimensions')}:{element.get('size-in-bits')}]"
        return "::".join(path + (element.get("name"),))

    def replace_in(self, element):
        for part in element.iter():
            for attribute in ("id", "type-id"):
                if attribute in part.attrib and part.tag != "subrange":
                    part.set(attribute, self.of(part.get(attribute)))


def sort_key(element):
    return (element.tag, element.get("name", ""), element.get("mangled-name", ""),
            element.get("id", ""), not is_definition(element))


def scope_for(scopes, path):
    if path not in scopes:
        parent = scope_for(scopes, path[:-1])
        scopes[path] = ElementTree.SubElement(parent, "namespace-decl", name=path[-1])
    return scopes[path]


def write(corpus, contents):
    result = ElementTree.Element(corpus.tag, corpus.attrib)
    for symbols in corpus:
        if symbols.tag in ("elf-function-symbols", "elf-variable-symbols"):
            symbols[:] = sorted(symbols, key=sort_key)
            result.append(symbols)
    unit = ElementTree.SubElement(result, "abi-instr", {
        "address-size": "64", "path": "zt_orvex", "language": "LANG_C_plus_plus_14"})
    scopes = {(): unit}
    written = set()
    for path, element in sorted(contents, key=lambda item: (item[0], sort_key(item[1]))):
        identifier = element.get("id")
        if identifier is None or identifier not in written:
            scope_for(scopes, path).append(element)
            written.add(identifier)
    ElementTree.indent(result)
    print(ElementTree.tostring(result, encoding="unicode"))


def main():
    corpus = ElementTree.parse(sys.stdin).getroot()
    write(corpus, Description(corpus, sys.argv[1:]).reachable())


main()
