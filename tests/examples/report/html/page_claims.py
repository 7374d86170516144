"""What the page does when it is used: its marks, paths, keyboard, tables, index and filter."""

from page_browser import (By, Keys, check, check_quiet, count, is_in_view, one, set_width, texts,
                          two_frames)

SOURCE = "return Array.from(document.querySelectorAll('#f0 .line'), (l) => l.textContent).join('\\n')"


def press(browser, *keys):
    for key in keys:
        browser.switch_to.active_element.send_keys(key)


def row_of(browser, name, part=None):
    """The row of a variable in the first table, or a part of it."""
    row = browser.execute_script(
        "return Array.from(document.querySelectorAll('#f0c0 tbody tr'))"
        ".find((row) => row.cells[0].textContent === arguments[0])", name)
    return row.find_element(By.CSS_SELECTOR, part) if part else row


def focused(browser):
    """What has the focus: the name of its row and the number of its cell, -1 for the row itself."""
    return tuple(browser.execute_script(
        "const at = document.activeElement; const row = at.closest('tr');"
        "return [row ? row.cells[0].textContent : '', at === row ? -1 : at.closest('td').cellIndex]"))


# Marks --------------------------------------------------------------------------------------------

UNDERLINES = """
return Array.from(document.querySelectorAll(".legend u"), function (name) {
  const style = getComputedStyle(name);
  return [style.textDecorationLine, style.textDecorationStyle, style.textDecorationThickness].join(" ");
})"""


def check_marks(browser):
    underlines = browser.execute_script(UNDERLINES)
    check(len(underlines) == len(set(underlines)) == 10,
          f"each role has an underline of its own {underlines}")
    roles = set(texts(browser, "#f0c0 td > b"))
    check(len(roles) == 10, f"the sample has a variable of each role {sorted(roles)}")
    signs = browser.execute_script(
        "return ['.has-error', '.has-remark'].map((line) => getComputedStyle("
        "document.querySelector(line), '::before').content)")
    check("×" in signs[0] and "!" in signs[1],
          f"lines with errors and remarks have signs beside their numbers {signs}")
    check(count(browser, "#f0L13 .at.error") == 1, "an error is marked at its place")
    check(count(browser, "#f0 .below.error") == 1 and count(browser, "#f0 li.error .help") == 1,
          "an error is said below its line, and listed with its help")
    listed = set(texts(browser, "#f0 li.remark .show code"))
    codes = {f"[{code}]" for code in ("carried", "shared", "used-after", "loop-variable-written",
                                      "leaves-parallel", "ans", "restricted", "unknown-pragma")}
    check(listed == codes, f"each remark is listed with its code {listed ^ codes}")
    check(set(texts(browser, "#f0 .below.remark code")) == codes,
          "each remark is said below its line")
    check(count(browser, "#f0 li.remark .help") == 8, "each remark is listed with its help")


def number_of(browser, line):
    """What a reader of the screen is told before the text of a line."""
    element = browser.execute_cdp_cmd("Runtime.evaluate",
                                      {"expression": f"document.getElementById('{line}')"})
    found = browser.execute_cdp_cmd("Accessibility.queryAXTree",
                                    {"objectId": element["result"]["objectId"],
                                     "role": "StaticText"})
    return found["nodes"][0]["name"]["value"]


def check_numbers(browser):
    for line in (2, 30, 64, 120, 128):
        scroll_to(browser, f"f1L{line}")
        number = number_of(browser, f"f1L{line}")
        check(number == str(line), f"line {line} has its number {number!r}")


# Paths --------------------------------------------------------------------------------------------

STEPS = """
return Array.from(document.querySelectorAll(".step-number"), function (chip) {
  const number = chip.textContent;
  const texts = [];
  for (const mark of document.querySelectorAll(`mark[data-step="${number}"]`)) {
    const copy = mark.cloneNode(true);
    for (const other of copy.querySelectorAll(".step-number")) other.remove();
    texts.push(copy.textContent);
  }
  return [number, Number(chip.closest(".line").id.replace(/.*L/, "")), texts.join("")];
}).sort()"""


def check_path(browser):
    before = browser.execute_script(SOURCE)
    button = one(browser, "#f0r1 .show")
    button.click()
    steps = browser.execute_script(STEPS)
    check(steps == [["1", 5, "e = e + a"], ["2", 7, "while g"], ["3", 5, "e + a"]],
          f"a click on a remark marks the steps of its path in the source, with numbers {steps}")
    notes = texts(browser, "#path ol li")
    check(notes == ["e is written", "the loop may run no iteration",
                    "e is read in the next iteration"], f"the notes are a list {notes}")
    check(texts(browser, "#path .path p") == ["how the value leaves its iteration:",
                                              "how another iteration reads it:"],
          "each path says what it shows")
    check(browser.execute_script("return document.querySelectorAll('#path ol')[1].start") == 3,
          "the numbers of the list are those of the marks")
    check(is_in_view(browser, one(browser, ".step-number")), "the first step is in view")
    check(button.get_attribute("aria-pressed") == "true", "the remark is announced as pressed")
    button.send_keys(Keys.ESCAPE)
    check(count(browser, ".step, .step-number") == 0 and not one(browser, "#path").is_displayed(),
          "Escape takes the path away")
    check(browser.execute_script(SOURCE) == before, "the source is as before")
    button.send_keys(Keys.ENTER)
    check(count(browser, ".step-number") == 3, "Enter on a remark shows its path")
    button.send_keys(Keys.ENTER)
    check(count(browser, ".step-number") == 0, "Enter again takes it away")
    below = one(browser, ".below[data-remark=f0r3]")
    below.click()
    check(count(browser, ".step-number") == 2, "a click on a remark below its line shows its path")
    one(browser, "#path-close").click()
    check(count(browser, ".step-number") == 0, "the button of the path takes it away")
    check(browser.execute_script("return document.activeElement === arguments[0]", below),
          "the focus is again where the path was shown")
    below.send_keys(Keys.SPACE)
    check(count(browser, ".step-number") == 2, "so does the space bar")
    press(browser, Keys.ESCAPE)


def check_reasons(browser):
    reason = row_of(browser, "e", ".reason")
    reason.click()
    check(count(browser, ".step-number") == 3,
          "a click on the reason of a variable shows the path of its remark")
    check(one(browser, "#f0r1 .show").get_attribute("aria-pressed") == "true",
          "the remark is pressed with it")
    press(browser, Keys.ESCAPE)
    row = row_of(browser, "a")
    places = [link.text for link in row.find_elements(By.CSS_SELECTOR, "td:nth-child(n+3) a")]
    row.find_element(By.CSS_SELECTOR, ".reason").click()
    steps = [f"{line}" for _, line, _ in browser.execute_script(STEPS)]
    check(steps == [place.split(":")[0] for place in places] != [],
          f"the reason of a variable without remark shows where it is read and written {places}")
    press(browser, Keys.ESCAPE)


def check_boxes(browser):
    browser.execute_script("document.querySelector('#f3r0 .show').click()")
    steps = browser.execute_script(STEPS)
    check(steps == [["1", 2, "w = x"], ["2", 4, ""]],
          f"boxes, characters of two units and places without length have their marks {steps}")
    press(browser, Keys.ESCAPE)


# Keys ---------------------------------------------------------------------------------------------

def check_choice(browser):
    row = row_of(browser, "e")
    row.find_element(By.CSS_SELECTOR, "td").click()
    places = count(browser, "#f0 .variable.marked")
    check(places == 2, "a click on a row marks all places of its variable")
    check(row.get_attribute("aria-selected") == "true", "the row is announced as selected")
    row.find_element(By.CSS_SELECTOR, "td").click()
    check(count(browser, ".marked") == 0, "a second click takes the marks away")
    one(browser, "#f0L5 .variable").click()
    check(count(browser, ".marked") == 2, "a click on a variable in the source marks them")
    press(browser, Keys.ESCAPE)
    check(count(browser, ".marked") == 0, "Escape takes the marks away")
    row.send_keys(Keys.ENTER)
    check(count(browser, ".marked") == 2, "Enter on a row marks them")
    press(browser, Keys.ESCAPE)


def check_grid(browser):
    names = texts(browser, "#f0c0 tbody td:first-child")
    first = one(browser, "#f0c0 tbody tr")
    browser.execute_script("arguments[0].focus()", first)
    press(browser, Keys.ARROW_DOWN, Keys.ARROW_DOWN)
    check(focused(browser) == (names[2], -1), "the down arrow leads to the next row")
    press(browser, Keys.ARROW_UP)
    check(focused(browser) == (names[1], -1), "the up arrow leads to the previous row")
    press(browser, Keys.END, Keys.ARROW_DOWN)
    check(focused(browser) == (names[-1], -1), "End leads to the last row, and not beyond")
    press(browser, Keys.HOME, Keys.ARROW_UP)
    check(focused(browser) == (names[0], -1), "Home leads to the first row, and not beyond")
    browser.execute_script("arguments[0].focus()", row_of(browser, "e"))
    press(browser, Keys.ARROW_RIGHT)
    check(focused(browser) == ("e", 1), "the right arrow leads to the reason")
    press(browser, Keys.ENTER)
    check(count(browser, ".step-number") == 3, "Enter on a reason shows its path")
    press(browser, Keys.ESCAPE, Keys.ARROW_RIGHT, Keys.ARROW_RIGHT)
    check(focused(browser) == ("e", 3), "and on to the places read and written")
    press(browser, Keys.ARROW_LEFT, Keys.ARROW_LEFT, Keys.ARROW_LEFT)
    check(focused(browser) == ("e", -1), "the left arrow leads back")
    stops = browser.execute_script(
        "return Array.from(document.querySelectorAll('[role=grid]'), (grid) => "
        "grid.querySelectorAll('[tabindex=\"0\"]').length)")
    check(set(stops) == {1}, f"each grid is one stop of the tabulator key {stops}")


CONTROLS = {"button", "link", "textbox", "searchbox", "checkbox", "combobox", "grid", "region",
            "complementary", "search", "form"}


def check_names(browser):
    nodes = browser.execute_cdp_cmd("Accessibility.getFullAXTree", {})["nodes"]
    found = [(node["role"]["value"], node.get("name", {}).get("value", ""))
             for node in nodes if "role" in node and not node.get("ignored")]
    roles = {role for role, _ in found}
    nameless = [role for role, name in found if role in CONTROLS and not name.strip()]
    check(not nameless, f"every control and region has a name {nameless}")
    check({"grid", "row", "columnheader", "gridcell", "main", "searchbox"} <= roles,
          f"the parts of the page have their roles {sorted(roles)}")


# Places on the screen -----------------------------------------------------------------------------

def scroll_to(browser, line):
    browser.execute_script(
        "document.getElementById(arguments[0]).scrollIntoView({block: 'center'})", line)
    two_frames(browser)
    two_frames(browser)


def check_tables(browser):
    set_width(browser, 1280)
    for line in ("f1L5", "f1L60", "f1L120"):
        scroll_to(browser, line)
        check(browser.execute_script(
            "const c = document.getElementById('f1c0').getBoundingClientRect();"
            "const l = document.getElementById(arguments[0]).getBoundingClientRect();"
            "return c.left >= l.right - 1 && c.top <= l.top && c.bottom >= l.bottom", line),
              f"the table of a construct is in view beside {line}")
    scroll_to(browser, "f1L64")
    check(is_in_view(browser, one(browser, "#f1c0 h3")) and
          is_in_view(browser, one(browser, "#f1c1 h3")),
          "the tables of a construct and of a nested one share the window beside their lines")
    scroll_to(browser, "f1L30")
    check(is_in_view(browser, one(browser, "#f1c0 h3")) and
          not is_in_view(browser, one(browser, "#f1c1")),
          "a nested table that has no room is away while its lines are")
    scroll_to(browser, "f1L128")
    check(browser.execute_script("return document.querySelector('#f1 .cards')"
                                 ".getBoundingClientRect().bottom <= "
                                 "document.getElementById('f1L128').getBoundingClientRect().top"),
          "the table goes away with its construct")
    set_width(browser, 400)
    two_frames(browser)
    check(browser.execute_script(
        "const c = document.querySelector('#f0 .cards').getBoundingClientRect();"
        "const l = document.querySelector('#f0 .group .lines').getBoundingClientRect();"
        "return c.top >= l.bottom && c.left < 40"),
          "on a narrow screen the tables come after the lines of their construct")
    width = browser.execute_script("return document.documentElement.scrollWidth")
    check(width <= 400, f"a narrow screen need not be scrolled sideways {width}")
    set_width(browser, 1280)


def check_links(browser):
    link = row_of(browser, "e", "td:nth-child(4) a")
    link.click()
    target = browser.current_url.split("#")[1]
    check(is_in_view(browser, one(browser, "#" + target)), "a place links to its line")


# Names, failures and many files -------------------------------------------------------------------

def check_hostile(browser):
    check(browser.title == "Ostrel report" and count(browser, "img") == 0,
          "markup in names, sources, messages and notes is text")
    heading = texts(browser, "#f2 h2")[0]
    check("</script><img" in heading and "U+202E" in heading and "U+001B" in heading
          and "\u202e" not in heading, f"a name shows what it consists of {heading!r}")
    browser.execute_script("document.querySelector('#f2r0 .show').click()")
    check("</script><img" in texts(browser, "#path")[0] and count(browser, "img") == 0,
          "the notes of a path are text when they are shown, too")
    press(browser, Keys.ESCAPE)


def check_index(browser):
    check(texts(browser, "#index .totals") == [
        "5 files, 6 constructs, 2 errors, 10 remarks, 1 file that could not be read"],
          f"the index has totals {texts(browser, '#index .totals')}")
    check("gone.ost could not be read: No such file or directory" in texts(browser, "#files td"),
          "a file that could not be read is in the index with its failure")
    check(browser.execute_script("return document.getElementById('index')"
                                 ".compareDocumentPosition(document.querySelector('main')) & 4"),
          "the index comes before the files")


def check_sample(browser, page):
    browser.get(page.as_uri())
    check_quiet(browser, "sample")
    check_index(browser)
    check_marks(browser)
    check_numbers(browser)
    check_path(browser)
    check_reasons(browser)
    check_boxes(browser)
    check_choice(browser)
    check_grid(browser)
    check_names(browser)
    check_links(browser)
    check_tables(browser)
    check_hostile(browser)


FILTER = """
const [name, word, done] = arguments;
const started = performance.now();
document.getElementById("filter-word").value = word;
const field = document.getElementById("filter-name");
field.value = name;
field.dispatchEvent(new Event("input"));
requestAnimationFrame(() => setTimeout(() => done({
  time: Math.round(performance.now() - started),
  rows: document.querySelectorAll("#files tr:not([hidden])").length,
  files: document.querySelectorAll("section.file:not([hidden])").length,
  text: document.getElementById("filter-count").textContent,
}), 0));
"""


def check_filter(browser, name, word, expected):
    found = browser.execute_async_script(FILTER, name, word)
    check(found["rows"] == found["files"] == expected and found["text"].startswith(str(expected)),
          f"the filter '{name}' '{word}' shows {expected} of 3000 files, in {found['time']} ms")


def check_many(browser, page, programs):
    """`page` has the programs 3000 times; it says how long it takes, which no claim depends on."""
    browser.get(page.as_uri())
    loaded = browser.execute_script(
        "const n = performance.getEntriesByType('navigation')[0];"
        "return [n.domInteractive, n.loadEventEnd].map(Math.round)")
    two_frames(browser)
    elements = browser.execute_script("return document.getElementsByTagName('*').length")
    kept = count(browser, "section.file > script")
    print(f"      3000 files, {page.stat().st_size / 1e6:.0f} MB: interactive after {loaded[0]} ms,"
          f" loaded after {loaded[1]} ms")
    check(elements < 100000 and kept > 2900,
          f"only the first files are elements at first: {elements} elements, {kept} files kept")
    share = {stem: sum(1 for i in range(3000) if programs[i % len(programs)].stem == stem)
             for stem in {path.stem for path in programs}}
    check_filter(browser, "nightly", "", share["nightly"])
    check_filter(browser, "NIGHTLY", "errors", 0)
    check_filter(browser, "", "errors", share["unfinished"])
    check_filter(browser, "/123/", "", 1)
    check_filter(browser, "", "", 3000)
    number = 2500
    browser.execute_script("location.hash = arguments[0]", f"#f{number}L3")
    two_frames(browser)
    check(is_in_view(browser, one(browser, f"#f{number}L3")),
          "a link to a file that is kept as text leads to its line")
    check(count(browser, "section.file > script") > 2900,
          "no other files are opened than those in view")
    browser.execute_script("window.scrollBy(0, 4000)")
    two_frames(browser)
    two_frames(browser)
    empty = browser.execute_script(
        "return Array.from(document.querySelectorAll('section.file:has(> script)'))"
        ".filter((f) => { const r = f.getBoundingClientRect();"
        " return r.bottom > 0 && r.top < innerHeight; }).length")
    check(empty == 0, "files open as they come into view")
