#!/usr/bin/env python3
"""Writes what TypedViews.h and BasicAstView.h derive from the table of kinds.

usage: scripts/generate-views.py [--check] [FOLDER]

The table is NodeKinds.def; the comments and the reserved operations come from IAstView.h, which must
declare exactly what the table names. In each of the two headers the text between the lines
"// Generated" and "// End of generated text" is replaced; the rest is written by hand.

--check writes nothing and fails if the headers aren't up to date. FOLDER is where the four files are
(include/zt_orvex/ast).
"""

import re
import sys
from collections import namedtuple
from pathlib import Path

COLUMNS = 100  # as in .clang-format

Part = namedtuple("Part", "form accessor type")
Kind = namedtuple("Kind", "name group comment parts")
Operation = namedtuple("Operation", "result name parameters comment group")

RESULTS = {  # of the operation, by the form of the row
    "ONE": "NodeView",
    "MAYBE": "boost::optional<NodeView>",
    "HELD": "boost::optional<NodeView>",
}
BY_HAND = {  # in BasicAstView.h, above or below the generated text
    "isVariableSymbol", "getEntryNode", "getExitNode", "getNodeKind", "getInputParameterKind"}


def read_kinds(text):
    """The kinds with their parts, in the order of NodeKinds.def."""
    kinds, comment = [], []
    for line in text[text.index("// clang-format off"):].splitlines()[1:]:
        row = re.fullmatch(r"ZT_ORVEX_(?:SHARED_)?(\w+?)\((\w+), (\w+)(?:, ([\w:]+))?\)", line)
        if line.startswith("// "):
            comment.append(line[3:])
        elif row and row[1] == "NODE_KIND":
            kinds.append(Kind(row[2], row[3], comment, []))
            comment = []
        elif row:
            form, kind, accessor, detail = row.groups()
            if kind != kinds[-1].name:
                sys.exit(f"NodeKinds.def: {accessor} of {kind} stands below {kinds[-1].name}")
            kinds[-1].parts.append(Part(form, accessor, RESULTS.get(form, detail)))
    return kinds


def read_operations(text):
    """The operations of IAstView by name, in the order of their declaration."""
    declaration = re.compile(
        r"((?:^ +//.*\n)*)^ +virtual ([\w:<>]+)\s+(\w+)\(([^)]*)\)\s+const = 0;", re.MULTILINE)
    operations, group = {}, None
    for comment, result, name, parameters in declaration.findall(text):
        lines = [line.strip() for line in comment.splitlines()]
        group = next((line[3:] for line in lines if not line.startswith("///")), group)
        about = [line for line in lines if line.startswith("///")]
        operations[name] = Operation(result, name, parameters, about, group)
    return operations


def check_agreement(kinds, operations, families):
    """Fails unless IAstView.h declares what the table names, and nothing else."""
    named = {part.accessor: part for kind in kinds for part in kind.parts}
    for part in named.values():
        operation = operations.get(part.accessor)
        if operation is None:
            sys.exit(f"IAstView.h lacks {part.accessor}, which NodeKinds.def names")
        if operation.result != part.type:
            sys.exit(f"{part.accessor} returns {operation.result} in IAstView.h and {part.type} "
                     "by NodeKinds.def")
    for operation in operations.values():
        known = named.keys() | families | BY_HAND
        if operation.name not in known and operation.group != "Reserved":
            sys.exit(f"no row of NodeKinds.def names {operation.name}, which IAstView.h declares")
        if not operation.comment and operation.group != "Reserved":
            sys.exit(f"{operation.name} has no comment in IAstView.h")


def function(head, body):
    """A function of one statement, laid out as clang-format does."""
    line = f"    {head} {{ {body} }}"
    if len(line) <= COLUMNS:
        return [line]
    if len(head) + 6 > COLUMNS:
        result, _, rest = head.partition(" ")
        return [f"    {result}", f"    {rest} {{", f"        {body}", "    }"]
    return [f"    {head} {{", f"        {body}", "    }"]


def typed_views(kinds, operations):
    lines = []
    for kind in kinds:
        lines += [f"/// {line}" for line in kind.comment if not line.startswith("Deliberate:")]
        lines += [f"class {kind.name}View : public TypedView<NodeKind::{kind.name}> {{", "public:",
                  "    using TypedView::TypedView;"]
        for part in kind.parts:
            lines += [""] if part is kind.parts[0] else []
            lines += [f"    {line}" for line in operations[part.accessor].comment]
            lines += function(f"{part.type} {part.accessor}() const",
                              f"return view->{part.accessor}(node);")
        lines += ["};", ""]
    return lines


def defaults(kinds, operations):
    owners = {}
    for kind in kinds:
        for part in kind.parts:
            owners.setdefault(part.accessor, []).append(kind.name)
    lines = []
    for kind in kinds:
        own = [part for part in kind.parts
               if owners[part.accessor][0] == kind.name and part.accessor not in BY_HAND]
        lines += [f"    // {kind.name}"] if own else []
        for part in own:
            bodies = {"MAYBE": "return {};", "HELD": "return {};",
                      "EACH": "return {EMPTY_RANGE, 0, this};"}
            of = " or ".join(owners[part.accessor])
            lines += function(f"{part.type} {part.accessor}(Handle) const override",
                              bodies.get(part.form, f'missing("{part.accessor} of {of}");'))
        lines += [""] if own else []
    lines += ["    // Reserved"]
    for operation in operations.values():
        if operation.group == "Reserved":
            argument = "Handle" if operation.parameters else ""
            lines += function(f"{operation.result} {operation.name}({argument}) const override",
                              "return 0;")
    return lines + [""]


def with_generated(text, lines):
    """`text` with `lines` between its two marks."""
    generated = "".join(line + "\n" for line in lines)
    return re.sub(r"( *// Generated.*\n(?: *//.*\n)*\n)(?:.*\n)*?( *// End of generated text\n)",
                  lambda marks: marks[1] + generated + marks[2], text)


def main(arguments):
    checking = "--check" in arguments
    folders = [argument for argument in arguments if argument != "--check"]
    folder = Path(folders[0] if folders else
                  Path(__file__).resolve().parent.parent / "include/zt_orvex/ast")
    kinds = read_kinds((folder / "NodeKinds.def").read_text())
    operations = read_operations((folder / "IAstView.h").read_text())
    families = set(re.findall(r"\b(get\w+Range(?:Element|Size))\b",
                              (folder / "RangeFamilies.def").read_text()))
    check_agreement(kinds, operations, families)
    for name, lines in [("TypedViews.h", typed_views(kinds, operations)),
                        ("BasicAstView.h", defaults(kinds, operations))]:
        header = folder / name
        old = header.read_text()
        new = with_generated(old, lines)
        if checking and new != old:
            sys.exit(f"{name} isn't up to date; run scripts/generate-views.py")
        if new != old:
            header.write_text(new)


if __name__ == "__main__":
    main(sys.argv[1:])
