"""Drives a real browser for browser_test.py, and keeps the claims that did not hold."""

import sys

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

failures = []


def check(holds, claim):
    print(("ok    " if holds else "FAIL  ") + claim)
    if not holds:
        failures.append(claim)


def open_browser(folder):
    options = Options()
    for argument in ("--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                     "--disable-background-networking", "--disable-component-update",
                     "--disable-sync", "--window-size=1280,900",
                     f"--user-data-dir={folder}/profile"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def set_scheme(browser, scheme):
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                            {"features": [{"name": "prefers-color-scheme", "value": scheme}]})


def set_width(browser, width, height=900):
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                            {"width": width, "height": height, "deviceScaleFactor": 1,
                             "mobile": False})


def one(browser, selector):
    return browser.find_element(By.CSS_SELECTOR, selector)


def count(browser, selector):
    return browser.execute_script("return document.querySelectorAll(arguments[0]).length", selector)


def texts(browser, selector):
    return browser.execute_script(
        "return Array.from(document.querySelectorAll(arguments[0]), (e) => e.textContent)", selector)


def is_in_view(browser, element):
    return browser.execute_script(
        "const r = arguments[0].getBoundingClientRect();"
        "return r.height > 0 && r.top >= -1 && r.bottom <= innerHeight + 1", element)


def two_frames(browser):
    """Waits until the page has been laid out and its observers have run."""
    browser.execute_async_script("const done = arguments[0];"
                                 "requestAnimationFrame(() => requestAnimationFrame(() => done()))")


def check_quiet(browser, name):
    log = [entry["message"] for entry in browser.get_log("browser")]
    check(not log, f"{name}: the page loads without messages {log}")
    loaded = browser.execute_script("return performance.getEntriesByType('resource').length")
    check(loaded == 0, f"{name}: the page loads nothing else")
