#!/usr/bin/env python3
"""Builds the reference of both libraries with Doxygen and checks it.

usage: scripts/reference/build.py FOLDER [TREE]

TREE is the project, if not the one that this file belongs to. Writes FOLDER/html/index.html, and what
Doxygen reads in FOLDER/input. Fails if Doxygen warns, which it does where a public symbol has no
documentation, and if a link of the pages leads nowhere. Ends with status 77 where there is no Doxygen.
"""

import re
import shutil
import subprocess
import sys
from pathlib import Path

from check_links import check_links
from names import declared_names
from stage import stage_headers, stage_pages
from tidy import tidy

SKIPPED = 77
# What these hold comes first on the pages of their modules; the others follow by name.
FIRST_HEADERS = ["include/zt_orvex/flow/OrderedSet.h",
                 "include/zt_orvex/literals/LiteralValidation.h",
                 "kit/include/zt_orvex_kit/reasons/Explain.h"]


def at_its_origin(warning, origins):
    """The warning with the file and line of the project in place of those of the copy."""
    place = re.match(r"(/\S+?):(\d+): ", warning)
    if place is None or Path(place[1]) not in origins:
        return warning
    path, lines = origins[Path(place[1])]
    line = lines[min(int(place[2]), len(lines)) - 1]
    return f"{path}:{line}: {warning[place.end():]}"


def run_doxygen(root, folder, options):
    """Returns the warnings."""
    includes = " ".join(f'"{folder / "input" / name}"' for name in ("include", "kit/include"))
    first = " ".join(f'"{folder / "input" / header}"' for header in FIRST_HEADERS)
    settings = (root / "docs/reference/Doxyfile").read_text() + f"""
INPUT = {first} "{folder / 'input'}"
STRIP_FROM_PATH = {includes} "{folder / 'input'}"
STRIP_FROM_INC_PATH = {includes}
INCLUDE_PATH = {includes}
USE_MDFILE_AS_MAINPAGE = "{folder / 'input/index.md'}"
OUTPUT_DIRECTORY = "{folder}"
{options}
"""
    run = subprocess.run(["doxygen", "-"], input=settings, capture_output=True, text=True,
                         cwd=root, check=False)
    if run.returncode != 0 and not run.stderr:
        return [f"doxygen ended with status {run.returncode}"]
    return [line for line in run.stderr.splitlines() if line]


def build(root, folder):
    """Returns what is wrong, a line each."""
    shutil.rmtree(folder / "html", ignore_errors=True)
    tags = folder / "names.tag"
    origins = stage_headers(root, folder / "input")
    problems = run_doxygen(root, folder, f'GENERATE_HTML = NO\nGENERATE_TAGFILE = "{tags}"')
    if not problems:
        stage_pages(root, folder / "input", declared_names(tags))
        problems = run_doxygen(root, folder, "")
        tidy(folder / "html", (root / "docs/reference/search.css").read_text())
        problems += check_links(folder / "html")
    return [at_its_origin(problem, origins) for problem in problems]


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit(__doc__)
    if shutil.which("doxygen") is None:
        print("Skipped: there is no doxygen, which scripts/docs.sh installs.")
        sys.exit(SKIPPED)
    own = Path(__file__).parents[2]
    folder, root = (Path(path).resolve() for path in [*arguments, own][:2])
    problems = build(root, folder)
    for problem in problems:
        print(problem, file=sys.stderr)
    if problems:
        sys.exit(f"The reference has {len(problems)} problems.")


if __name__ == "__main__":
    main(sys.argv[1:])
