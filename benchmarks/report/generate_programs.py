#!/usr/bin/env python3
"""usage: generate_programs.py EXAMPLES BYTES FOLDER

Fills a folder with Ostrel programs like the examples, as many as it takes for that many bytes. Each
is one of the examples with names and numbers of its own, so that no two are equal. The same
arguments always give the same programs.
"""

import pathlib
import random
import re
import sys

FILES_PER_FOLDER = 100
ASSIGNED = re.compile(r"^\s*([A-Za-z]\w*)\s*(?:=[^=]|\()", re.MULTILINE)
KEYWORDS = set("""break case catch class continue else elseif end for function global if otherwise
    parfor persistent return spmd switch try while arguments enumeration events methods
    properties""".split())


def variation(text, rng):
    """The program with other names for what it assigns, and other decimal numbers."""
    names = sorted(set(ASSIGNED.findall(text)) - KEYWORDS)
    new = {name: f"{name}{rng.randrange(100)}" for name in names}
    text = re.sub(r"(?<![\w.'])[A-Za-z]\w*", lambda m: new.get(m.group(), m.group()), text)
    return re.sub(r"(?<![\w.])\d{2,}(?![\w.])", lambda m: str(rng.randrange(10, 1000)), text)


def main():
    examples, size, folder = pathlib.Path(sys.argv[1]), int(sys.argv[2]), pathlib.Path(sys.argv[3])
    # The one with errors isn't like a program that somebody runs.
    texts = [path.read_text() for path in sorted(examples.glob("*.ost"))
             if path.stem != "unfinished"]
    rng = random.Random(1)
    written = number = 0
    while written < size:
        text = variation(texts[number % len(texts)], rng).encode()
        place = folder / f"part{number // FILES_PER_FOLDER:03}"
        place.mkdir(parents=True, exist_ok=True)
        (place / f"program{number:05}.ost").write_bytes(text)
        written += len(text)
        number += 1


if __name__ == "__main__":
    main()
