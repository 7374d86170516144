"""The contrast of every text of a page with its background."""

from page_browser import By, check, one, set_scheme

ENOUGH = 4.5

MEASURE = r"""
function channels(color) {
  const numbers = color.match(/[\d.]+/g).map(Number);
  return { rgb: numbers.slice(0, 3), alpha: numbers.length > 3 ? numbers[3] : 1 };
}
function luminance(rgb) {
  const [r, g, b] = rgb.map((c) => c / 255)
    .map((c) => (c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4));
  return 0.2126 * r + 0.7152 * g + 0.0722 * b;
}
function ratio(a, b) {
  const [low, high] = [luminance(a), luminance(b)].sort((x, y) => x - y);
  return (high + 0.05) / (low + 0.05);
}
// The first background, from the element outwards; all of them must be opaque or absent.
function backgroundOf(element, pseudo) {
  if (pseudo) {
    const own = channels(getComputedStyle(element, pseudo).backgroundColor);
    if (own.alpha > 0) return own;
  }
  for (let at = element; at; at = at.parentElement) {
    const own = channels(getComputedStyle(at).backgroundColor);
    if (own.alpha > 0) return own;
  }
  return { rgb: [255, 255, 255], alpha: 1 };
}
const measured = [];
function measure(element, pseudo) {
  const style = getComputedStyle(element, pseudo);
  const ground = backgroundOf(element, pseudo);
  const ink = channels(style.color);
  const isPlain = ink.alpha === 1 && ground.alpha === 1 && style.opacity === "1";
  const what = element.tagName.toLowerCase() + "." + element.className + (pseudo || "");
  measured.push({ what, ratio: isPlain ? ratio(ink.rgb, ground.rgb) : 0,
                  colors: style.color + " on rgb(" + ground.rgb.join(", ") + ")" });
}
const isText = (node) => node.nodeType === Node.TEXT_NODE && node.data.trim() !== "";
for (const element of document.body.querySelectorAll("*")) {
  if (!element.checkVisibility() || ["SCRIPT", "NOSCRIPT"].includes(element.tagName)) continue;
  const isControl = ["INPUT", "SELECT", "BUTTON"].includes(element.tagName);
  if (isControl || Array.from(element.childNodes).some(isText)) measure(element, null);
  for (const pseudo of ["::before", "::after"]) {
    if (!["none", "normal"].includes(getComputedStyle(element, pseudo).content))
      measure(element, pseudo);
  }
}
const pairs = new Map();
for (const each of measured) {
  if (!pairs.has(each.colors) || each.ratio < pairs.get(each.colors).ratio)
    pairs.set(each.colors, each);
}
return { texts: measured.length, pairs: Array.from(pairs.values()) };
"""

# States that take a click each, forced upon all elements that can have them.
ALL_CHOSEN = """
for (const place of document.querySelectorAll(".variable")) place.classList.add("marked");
for (const row of document.querySelectorAll("[role=grid] tbody tr"))
  row.setAttribute("aria-selected", "true");
for (const button of document.querySelectorAll("button[aria-pressed]"))
  button.setAttribute("aria-pressed", "true");
"""


def check_state(browser, state):
    found = browser.execute_script(MEASURE)
    poor = [pair for pair in found["pairs"] if pair["ratio"] < ENOUGH]
    least = min(pair["ratio"] for pair in found["pairs"])
    check(not poor, f"{state}: {found['texts']} texts have a contrast of at least {ENOUGH} to 1"
                    f" (least {least:.2f}, {len(found['pairs'])} pairs) {poor}")


def check_contrast(browser, page):
    """All roles, remarks and errors are on the page, in each of its states."""
    for scheme in ("light", "dark"):
        set_scheme(browser, scheme)
        browser.get(page.as_uri())
        check_state(browser, scheme)
        one(browser, "#letters").click()
        check_state(browser, f"{scheme}, with letters")
        for index, button in enumerate(browser.find_elements(By.CSS_SELECTOR, ".show")):
            if not button.is_displayed():
                continue
            browser.execute_script("arguments[0].click()", button)
            check_state(browser, f"{scheme}, path {index} shown")
        browser.execute_script(ALL_CHOSEN)
        check_state(browser, f"{scheme}, everything chosen")
    set_scheme(browser, "light")
