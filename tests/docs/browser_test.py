#!/usr/bin/env python3
"""Reads the reference in a real browser: in both colour schemes, in a wide and in a narrow window.

usage: browser_test.py FOLDER TREE
"""

import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(sys.argv[2]) / "tests/examples/report/html"))

# pylint: disable=wrong-import-position
from page_browser import (SKIPPED, WebDriverException, check, failures, one, open_browser, set_scheme,
                          set_width, two_frames)
from page_contrast import check_state

PAGES = ["index.html", "guides.html", "guide_dataflow.html", "guide_limits.html", "node_kinds.html",
         "modules.html", "group__ast.html", "group__analysis.html", "group__literals.html",
         "classzt_1_1orvex_1_1IAstView.html", "classzt_1_1orvex_1_1flow_1_1BitSet.html",
         "classzt_1_1orvex_1_1kit_1_1FlowGraph.html", "classzt_1_1orvex_1_1IfStatementView.html",
         "annotated.html", "matcher_report.html"]
WIDE, NARROW = 1280, 400


def check_page(browser, name):
    log = [entry["message"] for entry in browser.get_log("browser")]
    check(not log, f"{name}: no messages {log}")
    foreign = browser.execute_script(
        "return performance.getEntriesByType('resource').map((e) => e.name)"
        ".filter((name) => !name.startsWith('file:'))")
    check(not foreign, f"{name}: nothing is fetched from elsewhere {foreign}")
    excess = browser.execute_script(
        "return document.documentElement.scrollWidth - document.documentElement.clientWidth")
    check(excess <= 0, f"{name}: nothing lies beyond the window's edge ({excess})")
    check_state(browser, name)


def check_navigation(browser, width, name):
    tree, button = (browser.execute_script(
        "const element = document.querySelector(arguments[0]), box = element.getBoundingClientRect();"
        "return element.checkVisibility() && box.width > 0 && box.bottom > 0",
        selector) for selector in ("#nav-tree", ".main-menu-btn"))
    check(tree == (width == WIDE), f"{name}: the tree is shown only where there is room")
    check(button == (width == NARROW), f"{name}: the menu has a button only where there is none")


def first_true(browser, expression):
    """The first value of the expression that counts as true, among those of the next 600 frames."""
    return browser.execute_async_script(
        "const done = arguments[0]; const look = (left) => {"
        f"const value = {expression};"
        "if (value || left === 0) done(value); else requestAnimationFrame(() => look(left - 1)); };"
        "look(600);")


def check_search(browser, folder):
    browser.get((folder / "index.html").as_uri())
    two_frames(browser)
    one(browser, "#MSearchField").send_keys("computeSpmd")
    first_true(browser, "document.querySelector('#MSearchResults').src.includes('search/')")
    browser.switch_to.frame(one(browser, "#MSearchResults"))
    found = first_true(browser, "[...document.querySelectorAll('.SRSymbol')]"
                                ".filter((e) => e.checkVisibility()).map((e) => e.textContent).join()")
    check(found == "computeSpmdOutputVariables", f"the search finds a function ({found})")


def main(folder):
    with tempfile.TemporaryDirectory() as profile:
        try:
            browser = open_browser(profile)
        except WebDriverException as error:
            print(f"no browser can be driven: {error}")
            sys.exit(SKIPPED)
        try:
            for scheme in ("light", "dark"):
                set_scheme(browser, scheme)
                for width in (WIDE, NARROW):
                    set_width(browser, width)
                    for page in PAGES:
                        browser.get((folder / page).as_uri())
                        two_frames(browser)
                        name = f"{page}, {scheme}, {width}"
                        check_page(browser, name)
                        check_navigation(browser, width, name)
            set_width(browser, WIDE)
            check_search(browser, folder)
        finally:
            browser.quit()
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main(Path(sys.argv[1]).resolve())
