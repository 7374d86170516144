#!/usr/bin/env python3
"""Opens the page of a report in a real browser and uses it as a person would.

usage: browser_test.py ORVEX_REPORT PROGRAMS_FOLDER [SCREENSHOT_FOLDER]

Exit status: 0 if all claims hold, 1 if not, 77 if no browser can be driven here.
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

SKIPPED = 77

try:
    from selenium import webdriver
    from selenium.common.exceptions import WebDriverException
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys
except ImportError:
    print("python3-selenium is not installed")
    sys.exit(SKIPPED)

# What the letter of a role says about the sets in the library's answers.
READ_FIRST = {"C", "R", "U"}
WRITTEN_FIRST = {"T", "O"}

failures = []


def check(holds, claim):
    print(("ok    " if holds else "FAIL  ") + claim)
    if not holds:
        failures.append(claim)


def report(program, form, path):
    return subprocess.run([program, "--format", form, path], stdout=subprocess.PIPE, check=False,
                          text=True).stdout


def open_browser(scheme):
    options = Options()
    for argument in ("--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                     "--disable-background-networking", "--disable-component-update",
                     "--disable-sync", "--window-size=1500,1200"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                            {"features": [{"name": "prefers-color-scheme", "value": scheme}]})
    return browser


def marked(browser):
    return browser.find_elements(By.CSS_SELECTOR, ".marked")


def check_against_json(browser, data, name):
    tables = browser.find_elements(By.CSS_SELECTOR, ".construct")
    check(len(tables) == len(data["constructs"]), f"{name}: a table for each construct")
    for index, (table, construct) in enumerate(zip(tables, data["constructs"])):
        rows = {row.get_attribute("data-name"): row
                for row in table.find_elements(By.CSS_SELECTOR, "tbody tr")}
        # The role of ans follows from a question of its own, not from these sets.
        letters = {name: row.get_attribute("data-role") for name, row in rows.items()
                   if name != "ans"}
        check(set(rows) <= set(construct["universe"]),
              f"{name}: construct {index} names only variables of its universe")
        if construct["kind"] == "parfor":
            live = set(construct["maybeLiveAsTemporary"])
            private = {n for n, letter in letters.items() if letter in WRITTEN_FIRST}
            carried = {n for n, letter in letters.items() if letter == "C"}
            check(not private & live, f"{name}: construct {index}: temporaries are not live")
            check(carried <= live, f"{name}: construct {index}: carried variables are live")
            check(live <= set(rows), f"{name}: construct {index}: every live variable has a row")
        else:
            outputs = {n for n, letter in letters.items() if letter == "O"}
            check(outputs <= set(construct["outputs"]),
                  f"{name}: construct {index}: outputs agree with the library")


def check_places(browser, source, name):
    """Every coloured place is the name of its variable, as a whole word of the source."""
    for span in browser.find_elements(By.CSS_SELECTOR, ".variable"):
        line = int(span.find_element(By.XPATH, "..").get_attribute("id").split("L")[1])
        text = span.text
        if not re.search(r"\b" + re.escape(text) + r"\b", source[line - 1]):
            check(False, f"{name}: {text} is coloured on line {line}, which does not contain it")
            return
    check(True, f"{name}: coloured places match the source")


def check_clicks(browser, name):
    row = browser.find_element(By.CSS_SELECTOR, "tr[data-role='C']")
    key = row.get_attribute("data-keys")
    expected = browser.find_elements(By.CSS_SELECTOR, f"[data-keys~='{key}']")
    row.click()
    check(len(marked(browser)) == len(expected) > 1, f"{name}: a click on a row marks all places")
    check(row.get_attribute("aria-selected") == "true", f"{name}: the row is announced as selected")
    row.click()
    check(not marked(browser), f"{name}: a second click removes the marks")
    span = browser.find_element(By.CSS_SELECTOR, f".variable[data-keys^='{key}']")
    span.click()
    check(len(marked(browser)) == len(expected), f"{name}: a click on a variable marks all places")
    row.send_keys(Keys.ESCAPE)
    check(not marked(browser), f"{name}: Escape removes the marks")
    row.send_keys(Keys.ENTER)
    check(len(marked(browser)) == len(expected), f"{name}: Enter on a row marks all places")
    browser.find_element(By.ID, "letters").click()
    shown = browser.execute_script(
        "return getComputedStyle(document.querySelector('.variable'), '::after').content")
    check(shown not in ("none", "normal", ""), f"{name}: letters can be shown in the source")
    link = browser.find_element(By.CSS_SELECTOR, "tr[data-role='C'] a")
    link.click()
    target = browser.current_url.split("#")[1]
    check(bool(browser.find_elements(By.ID, target)), f"{name}: a place links to its line")


def check_quiet(browser, name):
    log = [entry["message"] for entry in browser.get_log("browser")]
    check(not log, f"{name}: the page loads without messages {log}")


def show(browser, folder, page, scheme):
    browser.get(page.as_uri())
    background = browser.execute_script("return getComputedStyle(document.body).backgroundColor")
    dark = sum(map(int, re.findall(r"\d+", background)[:3])) < 3 * 128
    check(dark == (scheme == "dark"), f"the page follows a {scheme} scheme: {background}")
    if folder:
        browser.save_screenshot(str(pathlib.Path(folder) / f"report-{scheme}.png"))


def main():
    program, programs = sys.argv[1], pathlib.Path(sys.argv[2])
    pictures = sys.argv[3] if len(sys.argv) > 3 else None
    try:
        browser = open_browser("light")
    except WebDriverException as error:
        print("no browser:", error)
        return SKIPPED
    with tempfile.TemporaryDirectory() as scratch:
        page = pathlib.Path(scratch) / "report.html"
        try:
            for path in sorted(programs.glob("*.ost")):
                page.write_text(report(program, "html", path), encoding="utf-8")
                browser.get(page.as_uri())
                data = json.loads(report(program, "json", path))["files"][0]
                check_quiet(browser, path.stem)
                check_against_json(browser, data, path.stem)
                check_places(browser, path.read_text(encoding="utf-8").splitlines(), path.stem)
            hostile = pathlib.Path(scratch) / "<script>document.title='bad'<script>.ost"
            hostile.write_text("x = '</span><script>document.title=\"bad\"</script>'; % <script>\n")
            page.write_text(report(program, "html", hostile), encoding="utf-8")
            browser.get(page.as_uri())
            check(browser.title == "Ostrel report", "markup in a path, a text or a comment is text")
            check_quiet(browser, "markup")
            page.write_text(report(program, "html", programs / "kmeans.ost"), encoding="utf-8")
            show(browser, pictures, page, "light")
            check_clicks(browser, "kmeans")
        finally:
            browser.quit()
        browser = open_browser("dark")
        try:
            show(browser, pictures, page, "dark")
        finally:
            browser.quit()
    print(f"{len(failures)} claims failed")
    return 1 if failures else 0


sys.exit(main())
