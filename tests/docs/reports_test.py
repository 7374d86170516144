#!/usr/bin/env python3
"""What the build of the reference says about a symbol without documentation, and about broken links.

usage: reports_test.py TREE
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SKIPPED = 77
COPIED = ["include", "kit/include", "docs", "scripts/generate-views.py", "examples/README.md",
          "README.md"]

PAGE = """<html><body><h1 id="top">Page</h1>
<a href="#top">fine</a>
<a href="other.html#name">fine</a>
<a href="https://example.org/">fine</a>
<a href="gone.html">no file</a>
<a href="other.html#gone">no anchor</a>
<img src="https://example.org/image.png">
</body></html>
"""
OTHER = '<html><body><p id="name">Name</p></body></html>'
FAULTS = """page.html:5: gone.html leads to no file
page.html:6: other.html#gone leads to no anchor
page.html:7: https://example.org/image.png is fetched from elsewhere
tree.js:1: lost.html#anchor leads to no file
"""


def run(*command):
    return subprocess.run([sys.executable, *map(str, command)], capture_output=True, text=True,
                          check=False)


def expect(what, found, expected):
    if expected not in found:
        sys.exit(f"{what}: expected\n{expected}\nbut found\n{found}")
    print("ok   ", what)


def check_links(tree, folder):
    folder.mkdir()
    (folder / "page.html").write_text(PAGE)
    (folder / "other.html").write_text(OTHER)
    (folder / "tree.js").write_text('var tree = ["other.html#name", "lost.html#anchor"];\n')
    checked = run(tree / "scripts/reference/check_links.py", folder)
    expect("each broken link has a line", checked.stderr, FAULTS)
    expect("broken links fail", str(checked.returncode), "1")


def check_documentation(tree, folder):
    copy = folder / "tree"
    for name in COPIED:
        (copy / name).parent.mkdir(parents=True, exist_ok=True)
        copying = shutil.copytree if (tree / name).is_dir() else shutil.copy
        copying(tree / name, copy / name)
    header = copy / "include/zt_orvex/flow/BitSet.h"
    comment = "    /// Makes every element of the universe a member.\n"
    text = header.read_text()
    if comment not in text:
        sys.exit("BitSet.h has no comment to leave out")
    header.write_text(text.replace(comment, ""))
    line = text[:text.index(comment)].count("\n") + 1
    built = run(tree / "scripts/reference/build.py", folder / "reference", copy)
    if built.returncode == SKIPPED:
        print(built.stdout)
        sys.exit(SKIPPED)
    expect("a symbol without documentation has a line", built.stderr,
           f"include/zt_orvex/flow/BitSet.h:{line}: ")
    expect("the line names the symbol", built.stderr, "addAll() (function) of class")
    expect("one is enough to fail", built.stderr, "The reference has 1 problems.")


def main(arguments):
    tree = Path(arguments[0])
    with tempfile.TemporaryDirectory() as folder:
        check_links(tree, Path(folder) / "pages")
        check_documentation(tree, Path(folder))


if __name__ == "__main__":
    main(sys.argv[1:])
