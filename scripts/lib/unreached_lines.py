"""Prints the lines that a coverage report in the form of lcov counts as never executed.

usage: unreached_lines.py FOLDER... <report
"""
import collections
import pathlib
import sys


def read_counts(report):
    """The executions of each line by file. A file may occur under several paths; its counts add up."""
    counts = collections.defaultdict(lambda: collections.defaultdict(int))
    path = pathlib.Path()
    for record in report:
        kind, _, value = record.strip().partition(":")
        if kind == "SF":
            path = pathlib.Path(value).resolve()
        elif kind == "DA":
            line, executions = value.split(",")[:2]
            counts[path][int(line)] += int(executions)
    return counts


def main():
    folders = [pathlib.Path(name).resolve() for name in sys.argv[1:]]
    counts = read_counts(sys.stdin)
    total = unreached = 0
    for path in sorted(counts):
        if not any(folder in path.parents for folder in folders):
            continue
        text = path.read_text().splitlines()
        for line, executions in sorted(counts[path].items()):
            total += 1
            if executions == 0:
                unreached += 1
                print(f"{path.relative_to(pathlib.Path.cwd())}:{line}: {text[line - 1].strip()}")
    print(f"{unreached} of {total} lines are never reached.")


if __name__ == "__main__":
    main()
