#!/usr/bin/env python3
"""Finds links of HTML pages that lead nowhere.

usage: scripts/reference/check_links.py FOLDER

Every link, image, script and style sheet must be a file in the folder, with the anchor that the link
names. The scripts of the navigation are read, too: they hold the links of the tree, the menu and the
search. Nothing may be fetched from elsewhere; a link to another site is fine.
"""

import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote

LINKS = {"a": "href", "link": "href", "img": "src", "script": "src", "iframe": "src",
         "area": "href", "source": "src", "object": "data"}


class Page(HTMLParser):
    """The anchors of a page and its links, with their lines."""

    def __init__(self, text):
        super().__init__()
        self.anchors, self.links = set(), []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.anchors.update(value for name, value in attrs if name == "id" or
                            (tag == "a" and name == "name"))
        link = values.get(LINKS.get(tag, ""))
        if link:
            self.links.append((self.getpos()[0], tag, link))


def links_of_script(text):
    """The links in the data of the tree, the menu and the search, as Doxygen writes them."""
    for number, line in enumerate(text.splitlines(), 1):
        for link in re.findall(r"""["']((?:\.\./)?[\w-]+\.html(?:#[\w-]+)?)["']""", line):
            yield number, "script", link


def read_folder(folder):
    pages = {path: Page(path.read_text(encoding="utf-8", errors="replace"))
             for path in sorted(folder.rglob("*.html"))}
    links = [(path, *link) for path, page in pages.items() for link in page.links]
    for path in sorted(folder.rglob("*.js")):
        links += [(path, *link) for link in links_of_script(path.read_text(errors="replace"))]
    return pages, links


def fault(path, tag, link, pages):
    """What is wrong with a link of the page `path`, or None."""
    if re.match(r"(https?:)?//", link):
        return None if tag == "a" else "is fetched from elsewhere"
    if re.match(r"(javascript|mailto|data):", link):
        return None
    file, _, anchor = unquote(link).partition("#")
    to = (path.parent / file).resolve() if file else path
    if not to.exists():
        return "leads to no file"
    if anchor and to in pages and anchor not in pages[to].anchors:
        return "leads to no anchor"
    return None


def check_links(folder):
    """The faults of all links in the folder, a line each."""
    folder = Path(folder).resolve()
    pages, links = read_folder(folder)
    if not pages:
        return [f"{folder} has no pages"]
    faults = []
    for path, line, tag, link in links:
        what = fault(path, tag, link, pages)
        if what:
            faults.append(f"{path.relative_to(folder)}:{line}: {link} {what}")
    return sorted(set(faults))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    found = check_links(sys.argv[1])
    for one in found:
        print(one, file=sys.stderr)
    sys.exit(1 if found else 0)
