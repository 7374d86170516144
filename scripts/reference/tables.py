"""Writes what the headers make of the rows of a table, with a comment on each row.

A header defines a macro and includes the table, so that each row becomes a declaration. Doxygen drops
the comments in a macro, and one comment for all rows wouldn't say what each is.
"""

import re

TABLE = re.compile(r"((?:^ *//(?!/).*\n)*)"
                   r" *#define (ZT_ORVEX_\w+)\(([\w, ]+)\)((?:.*\\\n)*.*\n)"
                   r" *#include <\w+/[\w/]+\.def>\n", re.MULTILINE)


def rows_of(table, macro):
    """The values of each row, and the lines of the comment directly above it."""
    rows, comment = [], []
    for line in table.splitlines():
        row = re.fullmatch(macro + r"\((.+)\)", line)
        if row:
            values = re.findall(r'"[^"]*"|[^\s,][^,]*', row[1])
            rows.append((values, comment))
        if not line.startswith("//"):
            comment = []
        elif re.match(r"// (?!clang-format|Deliberate:)", line):
            comment = [*comment, line[3:]]
    return rows


def with_values(line, values):
    """A line of the macro for one row."""
    line = line.removesuffix("\\").rstrip()
    if "/**" in line:
        return line
    return re.sub(r"\w+", lambda word: values.get(word[0], word[0]), line)


def numbered(text, first=1):
    return [(line, number) for number, line in enumerate(text.splitlines(), first)]


def expanded(text, table, describe):
    """The lines of `text`, numbered, with the rows in place of the macro and the #include of `table`.

    `describe` makes the comment of a row from its values, the lines above it in the table, and the
    lines of the comment above the macro.
    """
    found = TABLE.search(text)
    above, macro, parameters, body = found.groups()
    shared = [line.strip()[3:] for line in above.splitlines()]
    lines = []
    for values, comment in rows_of(table, macro):
        named = dict(zip(parameters.split(", "), values))
        code = [with_values(line, named) for line in body.splitlines() if line.strip(" \\")]
        # An enumerator stands on the line of the macro, which isn't indented.
        indent = " " * 4 if body.strip().endswith(",") else ""
        lines += [f"{indent}/// {line}".rstrip() for line in describe(values, comment, shared)]
        lines += [indent + code[0].strip(), *code[1:], ""]
    at, after = (text.count("\n", 0, place) + 1 for place in found.span())
    return (numbered(text[:found.start()]) + [(line, at) for line in lines]
            + numbered(text[found.end():], after))


def kind(values, comment, shared):
    return [*comment, f"Its typed view is `{values[0]}View`."]


def finding(values, comment, shared):
    return [f"`{values[1][1:-1]}`: {values[2][1:-1]}"]


def inherited(values, comment, shared):
    return []


def range_view(interface):
    """Says what a range holds, by the heading and the comment of its operation in IAstView.h."""
    def describe(values, comment, shared):
        heading, element = re.search(
            r"// Range of ([\w ]+)\n +/// (.+): element `index`\.\n[^;]*\b" + values[1],
            interface).groups()
        what = f"`{heading}` nodes" if heading[0].isupper() else heading
        return [f"A range of {what}. Each element is {element[0].lower() + element[1:]}.", *shared[1:]]
    return describe


def expand_tables(path, read):
    """The numbered lines of the header `path`, with its table expanded.

    `read` returns the text of a file.
    """
    text = read(path)
    folder = path.parent
    if path.name == "NodeKind.h":
        return expanded(text, read(folder / "NodeKinds.def"), kind)
    if path.name == "Finding.h":
        return expanded(text, read(folder / "FindingCodes.def"), finding)
    if path.name == "BasicAstView.h":
        return expanded(text, read(folder / "RangeFamilies.def"), inherited)
    if path.name == "RangeViews.h":
        return expanded(text, read(folder / "RangeFamilies.def"),
                        range_view(read(folder / "IAstView.h")))
    return numbered(text)
