"""Prints the lines that a coverage report in the form of lcov counts as never executed.

usage: unreached_lines.py ROOT <report
"""
import pathlib
import sys


def read_counts(report):
    """The executions of each line by file; a line that occurs in several programs is summed up."""
    counts = {}
    lines = {}
    for record in report:
        kind, _, value = record.strip().partition(":")
        if kind == "SF":
            lines = counts.setdefault(value, {})
        elif kind == "DA":
            line, executions = value.split(",")[:2]
            lines[int(line)] = lines.get(int(line), 0) + int(executions)
    return counts


def main():
    root = pathlib.Path(sys.argv[1])
    counts = read_counts(sys.stdin)
    unreached = 0
    for name in sorted(counts):
        path = pathlib.Path(name)
        text = path.read_text().splitlines()
        for line in sorted(line for line, executions in counts[name].items() if executions == 0):
            print(f"{path.relative_to(root)}:{line}: {text[line - 1].strip()}")
            unreached += 1
    total = sum(len(lines) for lines in counts.values())
    print(f"{unreached} of {total} lines are never reached.")


if __name__ == "__main__":
    main()
