"""Prepares the public headers for Doxygen.

The headers are written for whoever reads them in an editor. What Doxygen needs beside the comments
follows from the tree: the module of a header is its folder, and what a row of a table is expanded to
is described by the table. Here it is added to a copy.
"""

import re
from collections import namedtuple

# The lines of a prepared header, and for each the number of the line that it comes from.
Prepared = namedtuple("Prepared", "lines origins")

HEADING = re.compile(r" +// (Reserved|Symbols|The tree as a whole|Any node|Range of [\w ]+"
                     r"|[A-Z]\w+( and [A-Z]\w+)*)$")


def module_of(path):
    """The group of a header, by its folder: "flow", or "kit_body" for one of the kit.

    The two long headers of generated classes have groups of their own.
    """
    if path.name in ("TypedViews.h", "RangeViews.h"):
        return "ast_" + path.name[:-7].lower() + "_views"
    library, _, rest = str(path).partition("include/")[2].partition("/")
    folder = rest.rpartition("/")[0]
    if library == "zt_orvex_kit":
        return f"kit_{folder}" if folder else "kit"
    return folder or "zt_orvex"


def without_private_parts(lines):
    """Leaves out what is private, of which Doxygen would make links to nowhere."""
    result, end = [], None
    for line, number in lines:
        private = re.match(r"( *)private:$", line)
        if private:
            end = re.compile(private[1] + r"(};|public:|protected:)")
        elif end and end.match(line):
            end = None
        if end is None:
            result.append((line, number))
    return result


def with_repeated_comments(lines):
    """Repeats the comment of a group of overloads outside of classes before each of them."""
    result, comment, is_open, starts, depth = [], [], False, False, 0
    for line, number in lines:
        if line == "/// @{":
            is_open, starts, comment = True, False, []
        elif line == "/// @}":
            is_open = False
        elif is_open and line.startswith("///"):
            comment, starts = [*comment, (line, number)], True
        elif is_open:
            result += comment if starts and line else []
            result.append((line, number))
            depth += line.count("{") - line.count("}")
            starts = starts and not line or depth == 0 and line.endswith((";", "}"))
        else:
            result.append((line, number))
    return result


def in_module(lines, module):
    """Puts what has a comment outside of classes into the module."""
    result, describes_page = [], False
    for place, (line, number) in enumerate(lines):
        result.append((line, number))
        describes_page = describes_page or re.match("/// @(addtogroup|page)", line)
        if line.startswith("///") and not lines[place + 1][0].startswith("///"):
            if not describes_page:
                result += [("///", number), (f"/// @ingroup {module}", number)]
            describes_page = False
    return result


def with_member_groups(lines):
    """Makes a named group of the declarations below each heading, up to the next blank line."""
    result, is_open = [], False
    for line, number in lines:
        heading = HEADING.match(line)
        if heading:
            result += [(f"    /// @name {heading[1]}", number), ("    /// @{", number)]
            is_open = True
            continue
        if is_open and not line:
            result.append(("    /// @}", number))
            is_open = False
        result.append((line, number))
    return result


def with_separate_groups(lines):
    """Ends the comment that opens a group, so that what follows documents the first member."""
    result = []
    for line, number in lines:
        result.append((line, number))
        if re.match(r" *///? ?@\{$", line):
            result.append(("", number))
    return result


def with_fences(lines):
    """Marks indented C++ in comments as C++, so that it is coloured and its names are links."""
    result, place = [], 0
    while place < len(lines):
        end = place
        while end < len(lines) and re.match(r" *///     +\S", lines[end][0]):
            end += 1
        block = lines[place:end]
        if any(re.search(r";( *//.*)?$", line) for line, _ in block):
            indent = block[0][0].partition("///")[0] + "/// "
            result.append((indent + "```{.cpp}", block[0][1]))
            result += [(line.replace("///     ", "/// ", 1), number) for line, number in block]
            result.append((indent + "```", block[-1][1]))
        else:
            result += block
        if end < len(lines):
            result.append(lines[end])
        place = end + 1
    return result


def with_marks(line):
    """Shows Doxygen and the style sheet what they wouldn't see."""
    if "///" in line:
        # An apostrophe would end the code.
        line = re.sub(r"`([^`]*'[^`]*)`", r"``\1``", line)
    return re.sub(r"(/// )Deliberate:", r'\1<span class="deliberate">Deliberate:</span>', line)


def without_inherited_constructors(line):
    """The base class documents the constructor; each of the 66 views would repeat it."""
    return "" if line.strip() == "using TypedView::TypedView;" else line


def prepare_header(lines, path):
    """Prepares the header `path`, of which these are the numbered lines."""
    lines = in_module(with_repeated_comments(without_private_parts(lines)), module_of(path))
    if path.name in ("IAstView.h", "BasicAstView.h"):
        lines = with_member_groups(lines)
    lines = [(with_marks(without_inherited_constructors(line)), number) for line, number in lines]
    # To Doxygen, what follows a blank line in the comment of an enumerator is code if it is indented.
    lines = [(line.lstrip() if line.lstrip().startswith("///") else line, number)
             for line, number in with_fences(with_separate_groups(lines))]
    return Prepared([line for line, _ in lines], [number for _, number in lines])
