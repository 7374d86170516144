"""Prepares the Markdown pages of the project for Doxygen.

The pages are written for whoever reads them beside the sources. Their headings get labels, so that
links to a heading work and addresses don't depend on the order of the pages. Links between pages
become references, and so do names of the libraries that are marked as code. A link to a file that
isn't in the reference becomes its text.
"""

import re
import sys
from html import escape
from pathlib import Path

LINK = re.compile(r"\[([^\]]+)\]\(([^)\s]+)\)")
FENCE = re.compile(r"( *)```(\w*)$")
BARS = re.compile(r"`([^`\n]*\\\|[^`\n]*)`")
CODE = re.compile(r"(?<!\[)`((?:\w+::)*(\w+)(?:<[\w:]*>)?(?:\(\))?)`(?!\])")


def slug(heading):
    """The part of an address that names a heading, as forges make it."""
    return re.sub(r"[^\w -]", "", heading.replace("`", "").lower()).strip().replace(" ", "-")


def title_of(path, text):
    title = re.match(r"# (.+)\n", text)
    if title is None:
        sys.exit(f"{path} doesn't begin with a title, such as \"# Limits\"")
    return title[1]


def normal(path):
    """The path without "..": both are relative to the root of the project."""
    kept = []
    for part in path.parts:
        if part == "..":
            kept.pop()
        else:
            kept.append(part)
    return Path(*kept)


class Guides:
    """Prepares pages.

    `labels` names the page of the reference for each file that has one, `titles` the page's title,
    and `names` maps the names of the libraries to what Doxygen calls them.
    """

    def __init__(self, labels, titles, names):
        self.labels, self.titles, self.names = labels, titles, names

    def prepare(self, path, text):
        """The text of a page as Doxygen reads it. Its title is left out."""
        result, prose, in_code, seen = [], [], False, {}

        def end_prose():
            # As one, since a link may begin on one line and end on the next.
            result.extend([self.with_references("\n".join(prose), path)] if prose else [])
            prose.clear()

        for line in text.partition("\n")[2].splitlines():
            fence = FENCE.match(line)
            heading = re.match(r"##+ (.+)$", line)
            if fence:
                in_code = not in_code
                language = {"cpp": "{.cpp}", "": ""}.get(fence[2], "{.unparsed}")
                line = f"{fence[1]}```{language if in_code else ''}"
            elif in_code or line.startswith("    "):
                pass
            elif heading:
                name = slug(heading[1])
                seen[name] = seen.get(name, -1) + 1
                name += f"-{seen[name]}" if seen[name] else ""
                # Doxygen shows the marks of code in a heading.
                line = re.sub(r"`([^`]+)`", "\u2018\\1\u2019", line)
                line += f" {{#{self.labels[path]}-{name}}}"
            else:
                prose.append(line)
                continue
            end_prose()
            result.append(line)
        end_prose()
        return "\n".join(result) + "\n"

    def with_references(self, prose, page):
        # In a table, bars in code are escaped. In backticks, Doxygen would show the backslashes.
        prose = BARS.sub(lambda code: "<code>" + escape(code[1]).replace("--", r"\--") + "</code>", prose)
        prose = CODE.sub(self.reference_to_name, prose)
        return LINK.sub(lambda link: self.reference_to_page(link, page), prose)

    def reference_to_name(self, code):
        name = self.names.get(code[2])
        return f"<code>[{escape(code[1])}](@ref {name})</code>" if name else code[0]

    def reference_to_page(self, link, page):
        words, to = link.groups()
        if to == "@ref" or re.match(r"[a-z]+:", to):
            return link[0]
        file, _, heading = to.partition("#")
        where = normal(page.parent / file) if file else page
        if where not in self.labels:
            return words
        label = self.labels[where]
        # A page is named by its title where the text names its file.
        words = self.titles[label] if words.endswith(".md") else words
        words = " ".join(words.split())
        return f"[{words}](@ref {label}{'-' + heading if heading else ''})"
