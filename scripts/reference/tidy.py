"""Takes from Doxygen's pages what would mislead or tire a reader."""

import re

CHANGES = [
    # Each member's name is a link to the same place.
    (re.compile(r' *<a href="[^"]*">More\.\.\.</a>'), ""),
    # Lines of the prepared copy, which nobody sees.
    (re.compile(r'<div class="ttdef">.*?</div>'), ""),
    # How a function is compiled is no promise, and that an enumeration is scoped stands beside it.
    (re.compile(r'<span class="mlabel">(inline|strong)</span>'), ""),
    (re.compile(r'<html xmlns="http://www.w3.org/1999/xhtml">'),
     '<html xmlns="http://www.w3.org/1999/xhtml" lang="en">'),
]


MOST_NAMES = 10


def without_long_list(paragraph):
    return "" if paragraph[0].count("<a ") > MOST_NAMES else paragraph[0]


def tidy(html, search_style):
    """Changes the pages in the folder `html`, and adds the style of the search's results."""
    for path in html.rglob("*.html"):
        old = path.read_text()
        new = old
        for pattern, text in CHANGES:
            new = pattern.sub(text, new)
        # Of the typed views, which the module lists.
        new = re.sub(r"<p ?>Inherited by .*?</p>\n?", without_long_list, new)
        if new != old:
            path.write_text(new)
    with open(html / "search/search.css", "a") as style:
        style.write(search_style)
