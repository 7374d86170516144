"""Runs a page of the documentation: python3 page_test.py PAGE ORVEX_REPORT SOURCES

Takes the fenced blocks of the page in order, in an empty git repository:

- A block of `ostrel` or `sh` is a file, whose path stands in a comment on its first or second line.
- A block of `console` is a session of the shell. What it prints must be what the page shows.

Ends with 77, which CTest takes for skipped, if there is no git.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77


def blocks(page):
    """The kind and the text of each fenced block."""
    return re.findall(r"^```(\w+)\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)


def write_file(folder, text):
    path = re.search(r"^[%#] (\S+)$", text, re.MULTILINE)
    if not path:
        sys.exit(f"no path in the block:\n{text}")
    file = folder / path.group(1)
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(text)


def commands(session):
    """The commands of a session, each with the lines that continue it."""
    return [re.sub(r"^> ", "", command, flags=re.MULTILINE)
            for command in re.findall(r"^\$ (.*(?:\n> .*)*)", session, re.MULTILINE)]


def prompt(command):
    return "$ " + command.replace("\n", "\n> ")


def script_of(session):
    """Prints each command before it runs, and keeps the status of the one before for `$?`."""
    lines = []
    for command in commands(session):
        shown = prompt(command).replace("'", "'\\''")
        lines.append(f"status=$?; printf '%s\\n' '{shown}'; (exit $status)")
        lines.append(command)
    return "\n".join(lines) + "\n"


def run_session(folder, environment, session):
    outcome = subprocess.run(["sh", "-c", script_of(session)], cwd=folder, env=environment,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                             check=False)
    if outcome.stdout != session:
        sys.exit(f"The page shows\n{session}\nbut the commands print\n{outcome.stdout}")


def environment_for(folder, program, sources):
    bin_folder = folder / "bin"
    bin_folder.mkdir()
    (bin_folder / "orvex-report").symlink_to(program)
    kept = {name: value for name, value in os.environ.items()
            if not name.startswith("GIT_") and name not in ("FORCE_COLOR", "CLICOLOR_FORCE")}
    who = {"GIT_AUTHOR_NAME": "A", "GIT_AUTHOR_EMAIL": "a@example.org",
           "GIT_COMMITTER_NAME": "A", "GIT_COMMITTER_EMAIL": "a@example.org"}
    return {**kept, **who, "GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_SYSTEM": os.devnull,
            "PATH": f"{bin_folder}:{os.environ['PATH']}", "ORVEX_SOURCES": sources}


def main():
    page, program, sources = (str(pathlib.Path(each).resolve()) for each in sys.argv[1:])
    if shutil.which("git") is None:
        print("there is no git")
        sys.exit(SKIPPED)
    with tempfile.TemporaryDirectory() as scratch:
        environment = environment_for(pathlib.Path(scratch), program, sources)
        repository = pathlib.Path(scratch) / "repository"
        for command in (["git", "init", "--quiet", "--initial-branch", "main", repository],
                        ["git", "-C", repository, "commit", "--quiet", "--allow-empty",
                         "--message", "Begin"]):
            subprocess.run(command, env=environment, check=True)
        sessions = 0
        for kind, text in blocks(pathlib.Path(page).read_text()):
            if kind in ("ostrel", "sh"):
                write_file(repository, text)
            elif kind == "console":
                run_session(repository, environment, text)
                sessions += 1
    if sessions == 0:
        sys.exit("the page has no session")
    print(f"{sessions} sessions are as the page shows them")


main()
