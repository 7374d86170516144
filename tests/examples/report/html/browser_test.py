#!/usr/bin/env python3
"""Opens the page of a report in a real browser and uses it as a person would.

usage: browser_test.py ORVEX_REPORT REPORT_SAMPLE_PAGE PROGRAMS_FOLDER

Exit status: 0 if all claims hold, 1 if not, 77 if no browser can be driven here.
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

from page_browser import (SKIPPED, WebDriverException, check, check_quiet, count, failures,
                          open_browser, set_scheme)
from page_claims import check_many, check_sample
from page_contrast import check_contrast

# What the letter of a role says about the sets in the library's answers.
WRITTEN_FIRST = {"T", "O"}

CARDS = """
return Array.from(document.querySelectorAll(".card"), (card) => Array.from(
  card.querySelectorAll("tbody tr"), (row) => ({
    name: row.cells[0].textContent, letter: row.querySelector("b").textContent,
    read: row.cells[2].textContent, written: row.cells[3].textContent,
    reason: row.querySelector(".reason") ? row.querySelector(".reason").textContent : "",
  })))"""

REMARKS = """
return Array.from(document.querySelectorAll("li.remark"), (item) => ({
  place: item.querySelector("a").textContent,
  message: item.querySelector(".show").textContent,
  help: item.querySelector(".help") ? item.querySelector(".help").textContent : "",
  steps: item.querySelectorAll(".path li").length,
}))"""

PLACES = """
return Array.from(document.querySelectorAll(".variable"), (place) =>
  [Number(place.closest(".line").id.replace(/.*L/, "")), place.textContent])"""

PLACE = re.compile(r"\d+:\d+")


def output_of(*arguments):
    return subprocess.run(arguments, stdout=subprocess.PIPE, check=False).stdout


def place_text(place):
    return f"{place['line']}:{place['column']}"


def check_answers(rows, construct, name):
    """The roles agree with the library's sets. That of `ans` follows from a question of its own."""
    letters = {row["name"]: row["letter"] for row in rows if row["name"] != "ans"}
    check({row["name"] for row in rows} <= set(construct["universe"]),
          f"{name} names only variables of its universe")
    if construct["kind"] == "parfor":
        live = set(construct["maybeLiveAsTemporary"])
        check(not {n for n, letter in letters.items() if letter in WRITTEN_FIRST} & live,
              f"{name}: temporaries are not live")
        check({n for n, letter in letters.items() if letter == "C"} <= live,
              f"{name}: carried variables are live")
        check(live <= {row["name"] for row in rows}, f"{name}: every live variable has a row")
    else:
        check({n for n, letter in letters.items() if letter == "O"} <= set(construct["outputs"]),
              f"{name}: outputs agree with the library")


def check_columns(rows, construct, name):
    """The columns, the notes and the JSON name the same places."""
    wrong = [row for row in rows
             if not set(PLACE.findall(row["reason"])) <=
             set(PLACE.findall(row["read"] + " " + row["written"]))]
    check(not wrong, f"{name}: the columns have the places of the notes {wrong}")
    wrong = [row for row in rows
             for word, column in (("read at ", "read"), ("in part at ", "read"),
                                  ("last written at ", "written"))
             for place in re.findall(word + r"(\d+:\d+)", row["reason"])
             if not row[column].startswith(place)
             or (word == "in part at ") != ("in part" in row[column])]
    check(not wrong, f"{name}: the columns say the same of a place as the notes {wrong}")
    for row, variable in zip(rows, construct.get("variables", [])):
        found = {word: PLACE.findall(row[word]) for word in ("read", "written")}
        told = {word: [place_text(variable[word])] if word in variable else [] for word in found}
        if row["name"] != variable["name"] or found != told:
            check(False, f"{name}: the row of {row['name']} has the places of the JSON: {told}")
            return


def check_remarks(found, data, name):
    remarks = data.get("remarks", [])
    told = sorted((place_text(r), r["help"], f"[{r['code']}]", r["message"]) for r in remarks)
    shown = sorted((r["place"], r["help"].replace("help: ", "", 1)) for r in found)
    check([(place, text) for place, text, _, _ in told] == shown,
          f"{name}: each remark is listed at its place, with its help")
    messages = " ".join(r["message"] for r in found)
    check(all(code in messages and message in messages for _, _, code, message in told),
          f"{name}: each remark has its message and its code")


def check_places(browser, source, name):
    """Every coloured place is the name of its variable, as a whole word of the source."""
    wrong = [(line, text) for line, text in browser.execute_script(PLACES)
             if not re.search(r"\b" + re.escape(text) + r"\b", source[line - 1])]
    check(not wrong, f"{name}: coloured places match the source {wrong}")


def check_program(browser, program, path, page):
    page.write_bytes(output_of(program, "--format", "html", path))
    data = json.loads(output_of(program, "--format", "json", path))["files"][0]
    browser.get(page.as_uri())
    check_quiet(browser, path.stem)
    cards = browser.execute_script(CARDS)
    check(len(cards) == len(data["constructs"]), f"{path.stem}: a table for each construct")
    for index, (rows, construct) in enumerate(zip(cards, data["constructs"])):
        check_answers(rows, construct, f"{path.stem}, construct {index}")
        check_columns(rows, construct, f"{path.stem}, construct {index}")
    check_remarks(browser.execute_script(REMARKS), data, path.stem)
    check(count(browser, "li.error") == count(browser, ".below.error") == len(data["diagnostics"]),
          f"{path.stem}: each error is listed, and said below its line")
    check_places(browser, path.read_text(encoding="utf-8").splitlines(), path.stem)


def check_scheme(browser, page, scheme):
    set_scheme(browser, scheme)
    browser.get(page.as_uri())
    background = browser.execute_script("return getComputedStyle(document.body).backgroundColor")
    dark = sum(map(int, re.findall(r"\d+", background)[:3])) < 3 * 128
    check(dark == (scheme == "dark"), f"the page follows a {scheme} scheme: {background}")


def use(browser, program, sample, programs, folder):
    page = folder / "report.html"
    for path in programs + sorted(programs[0].parent.glob("remarks/*.ost")):
        check_program(browser, program, path, page)
    page.write_bytes(output_of(sample, "sample"))
    check_scheme(browser, page, "dark")
    check_scheme(browser, page, "light")
    check_sample(browser, page)
    check_contrast(browser, page)
    page.write_bytes(output_of(sample, "many", "3000", *programs))
    check_many(browser, page, programs)


def main():
    program, sample = sys.argv[1], sys.argv[2]
    programs = sorted(pathlib.Path(sys.argv[3]).glob("*.ost"))
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        try:
            browser = open_browser(folder)
        except WebDriverException as error:
            print("no browser:", error)
            return SKIPPED
        try:
            use(browser, program, sample, programs, folder)
        finally:
            browser.quit()
    print(f"{len(failures)} claims failed")
    return 1 if failures else 0


sys.exit(main())
