"use strict";
(function () {
  const byId = (id) => document.getElementById(id);
  const index = byId("index");
  document.querySelector("main").before(index); // it is written last, when the totals are known

  // Files that are kept as text -----------------------------------------------------------------

  function open(file) {
    const kept = file.querySelector(":scope > script");
    if (!kept) return;
    kept.insertAdjacentHTML("afterend", kept.textContent);
    kept.remove();
  }

  document.addEventListener("contentvisibilityautostatechange", function (event) {
    if (!event.skipped && event.target.classList.contains("file")) open(event.target);
  });
  window.addEventListener("beforeprint", function () {
    for (const file of document.querySelectorAll("section.file:not([hidden])")) open(file);
  });

  /** Opens the file that a link leads to, whose line exists only after that. */
  function openTarget() {
    const name = /^#(f\d+)([Lcr]\d+)?$/.exec(location.hash);
    const file = name && byId(name[1]);
    if (!file) return;
    file.hidden = false;
    const isNew = Boolean(file.querySelector(":scope > script"));
    open(file);
    const target = byId(location.hash.slice(1));
    if (isNew && target) target.scrollIntoView();
  }
  window.addEventListener("hashchange", openTarget);
  openTarget();

  // The filter ----------------------------------------------------------------------------------

  let rows = null; // each with its file and what the filter looks at, from the first use on

  function findRows() {
    const files = document.querySelectorAll("section.file");
    return Array.from(byId("files").rows, (row, i) => ({
      row, file: files[i], name: row.cells[0].textContent.toLowerCase(),
      words: row.dataset.has.split(" "),
    }));
  }

  function filter() {
    rows = rows || findRows();
    const name = byId("filter-name").value.toLowerCase();
    const word = byId("filter-word").value;
    let shown = 0;
    for (const each of rows) {
      const isShown = each.name.includes(name) && (word === "" || each.words.includes(word));
      if (each.row.hidden === isShown) each.row.hidden = !isShown;
      if (each.file.hidden === isShown) each.file.hidden = !isShown;
      if (isShown) shown += 1;
    }
    byId("filter-count").textContent =
      (shown === rows.length ? "" : shown + " of ") + rows.length + " files";
  }

  if (byId("filter-name")) {
    byId("filter-name").addEventListener("input", filter);
    byId("filter-word").addEventListener("change", filter);
    index.querySelector("form").addEventListener("submit", (event) => event.preventDefault());
  }

  // Places --------------------------------------------------------------------------------------

  /** The line and columns of a link's `data-at`. A place of several lines ends with its first. */
  function placeOf(link) {
    const [line, column, endLine, endColumn] = link.dataset.at.split(/[-:]/).map(Number);
    const file = link.getAttribute("href").slice(1).replace(/L.*/, "");
    return { line: byId(file + "L" + line), column, end: endLine > line ? Infinity : endColumn };
  }

  /** Calls `visit` with each text and boxed character of a line, its column and its length. */
  function walk(line, visit) {
    const texts = document.createTreeWalker(line, NodeFilter.SHOW_TEXT);
    let column = 1;
    while (texts.nextNode()) {
      const node = texts.currentNode;
      if (node.parentNode.className === "step-number") continue;
      const isBox = node.parentNode.className === "boxed";
      const length = isBox ? 1 : Array.from(node.data).length;
      visit(node, column, length, isBox);
      column += length;
    }
  }

  /** The offset in units of the code point with that number. */
  function unitsOf(text, points) {
    return Array.from(text).slice(0, Math.max(points, 0)).join("").length;
  }

  /** Wraps a place in marks, one for each of its texts, and puts its number before it. */
  function markStep(place, number) {
    const pieces = [];
    walk(place.line, function (node, column, length, isBox) {
      const from = Math.max(place.column - column, 0);
      const to = Math.min(place.end - column, length);
      if (from < to) pieces.push({ node, from, to, isBox });
    });
    const made = pieces.map(function ({ node, from, to, isBox }) {
      const range = document.createRange();
      if (isBox) {
        range.selectNode(node.parentNode);
      } else {
        range.setStart(node, unitsOf(node.data, from));
        range.setEnd(node, unitsOf(node.data, to));
      }
      const mark = document.createElement("mark");
      mark.className = "step";
      mark.dataset.step = number;
      range.surroundContents(mark);
      return mark;
    });
    const chip = document.createElement("span");
    chip.className = "step-number";
    chip.textContent = number;
    if (made.length > 0) made[0].before(chip);
    else place.line.append(chip); // a place without length, at the end of its line
    return chip;
  }

  function unmarkSteps() {
    for (const chip of document.querySelectorAll(".step-number")) chip.remove();
    for (const mark of document.querySelectorAll("mark.step")) {
      const parent = mark.parentNode;
      mark.replaceWith(...mark.childNodes);
      parent.normalize();
    }
  }

  // Paths ---------------------------------------------------------------------------------------

  const panel = byId("path");
  let pressed = null; // what the shown path belongs to

  /** A path of links with their notes. */
  function pathOf(steps) {
    const path = document.createElement("div");
    path.className = "path";
    const list = document.createElement("ol");
    for (const { link, note } of steps) {
      const item = document.createElement("li");
      const copy = link.cloneNode(false);
      copy.textContent = note;
      copy.removeAttribute("tabindex");
      item.append(copy);
      list.append(item);
    }
    path.append(list);
    return path;
  }

  /** The paths of a remark; if it has none, its place. */
  function pathsOfRemark(item) {
    const paths = Array.from(item.querySelectorAll(".path"), (path) => path.cloneNode(true));
    for (const path of paths) path.hidden = false;
    const place = item.querySelector("a");
    return paths.length > 0 ? paths : [pathOf([{ link: place, note: place.textContent }])];
  }

  /** Where the variable of a row is read and written. */
  function pathOfRow(row) {
    const steps = [];
    const [read, written] = [row.cells[2], row.cells[3]];
    const readNote = read.textContent.includes("in part") ? "written in part" : "first read";
    for (const [cell, note] of [[read, readNote], [written, "last written"]]) {
      const link = cell.querySelector("a");
      if (link) steps.push({ link, note: note + " at " + link.textContent });
    }
    return pathOf(steps);
  }

  /** What a button shows: a title, and paths. */
  function contentOf(button) {
    if (button.dataset.remark) {
      const item = byId(button.dataset.remark);
      return { title: item.querySelector(".show").textContent, paths: pathsOfRemark(item) };
    }
    const row = button.closest("tr");
    return { title: nameIn(row) + ": " + button.textContent, paths: [pathOfRow(row)] };
  }

  function hidePath() {
    if (!pressed) return;
    unmarkSteps();
    setPressed(false);
    pressed = null;
    panel.hidden = true;
    document.documentElement.style.removeProperty("--path-height");
  }

  /** All buttons that stand for the same remark are pressed together. */
  function setPressed(isPressed) {
    const name = pressed.dataset.remark;
    const same = name ? pressed.closest(".file").querySelectorAll(`[data-remark="${name}"]`) : [pressed];
    for (const button of same) button.setAttribute("aria-pressed", String(isPressed));
  }

  function showPath(button) {
    const wasShown = button.getAttribute("aria-pressed") === "true";
    hidePath();
    if (wasShown) return;
    const { title, paths } = contentOf(button);
    pressed = button;
    setPressed(true);
    byId("path-title").textContent = title;
    byId("path-steps").replaceChildren(...paths);
    const chips = Array.from(panel.querySelectorAll("li > a"),
      (link, i) => markStep(placeOf(link), i + 1));
    panel.hidden = false;
    document.documentElement.style.setProperty("--path-height", panel.offsetHeight + "px");
    if (chips.length > 0) chips[0].scrollIntoView({ block: "nearest" });
  }

  byId("path-close").addEventListener("click", function () {
    const button = pressed;
    hidePath();
    if (button) button.focus();
  });

  // The places of a variable --------------------------------------------------------------------

  let chosen = null; // its row

  function choose(row) {
    const before = chosen;
    if (before) showPlaces(before, false);
    chosen = row === before ? null : row;
    if (chosen) showPlaces(chosen, true);
  }

  function showPlaces(row, isOn) {
    const key = row.dataset.keys;
    for (const place of row.closest(".file").querySelectorAll(`.variable[data-keys~="${key}"]`))
      place.classList.toggle("marked", isOn);
    row.setAttribute("aria-selected", String(isOn));
  }

  const nameIn = (row) => row.cells[0].textContent;

  /** The row of a variable in the innermost construct that has the place. */
  function rowOf(place) {
    const key = place.dataset.keys.split(" ")[0];
    return place.closest(".group").querySelector(`tr[data-keys="${key}"]`);
  }

  document.addEventListener("mouseover", function (event) {
    const place = event.target.closest(".variable");
    if (!place || place.title) return;
    const row = rowOf(place);
    place.title = nameIn(row) + ": " + row.querySelector("u").textContent;
  });

  document.addEventListener("click", function (event) {
    if (event.target.closest("a, input, label")) return;
    const button = event.target.closest(".reason, .show, .below.remark");
    if (button) return showPath(button);
    const place = event.target.closest(".variable");
    const row = place ? rowOf(place) : event.target.closest("[role=grid] tbody tr");
    if (row) choose(row);
  });

  // The keyboard --------------------------------------------------------------------------------

  /** What the left and right arrow keys reach in a row: itself, its reason, its places. */
  function stopsOf(row) {
    return [row, ...row.querySelectorAll("button, a")];
  }

  function moveFocus(from, to) {
    from.tabIndex = -1;
    to.tabIndex = 0;
    to.focus();
  }

  const KEYS = {
    ArrowDown: (all, row, stop) => stopsOf(all[row + 1] || all[row])[stop] || all[row + 1],
    ArrowUp: (all, row, stop) => stopsOf(all[row - 1] || all[row])[stop] || all[row - 1],
    ArrowRight: (all, row, stop) => stopsOf(all[row])[stop + 1],
    ArrowLeft: (all, row, stop) => stopsOf(all[row])[stop - 1],
    Home: (all) => all[0],
    End: (all) => all[all.length - 1],
  };

  function moveInGrid(event, row) {
    const all = Array.from(row.parentNode.rows);
    const current = event.target;
    const next = KEYS[event.key](all, all.indexOf(row), stopsOf(row).indexOf(current));
    event.preventDefault();
    if (next && next !== current) moveFocus(current, next);
  }

  document.addEventListener("keydown", function (event) {
    if (event.key === "Escape") {
      hidePath();
      if (chosen) choose(chosen);
      return;
    }
    const row = event.target.closest("[role=grid] tbody tr");
    if (!row) return;
    if (Object.hasOwn(KEYS, event.key)) {
      moveInGrid(event, row);
    } else if (event.target === row && (event.key === "Enter" || event.key === " ")) {
      event.preventDefault();
      choose(row);
    }
  });

  /** A click with the mouse moves the one tab stop of a grid, too. */
  document.addEventListener("focusin", function (event) {
    const row = event.target.closest("[role=grid] tbody tr");
    if (!row || event.target.tabIndex === 0) return;
    const stop = row.parentNode.querySelector("[tabindex='0']");
    if (stop) stop.tabIndex = -1;
    event.target.tabIndex = 0;
  });

  byId("letters").addEventListener("change", function (event) {
    document.body.classList.toggle("letters", event.target.checked);
  });

  // Cards that don't fit into the window together -----------------------------------------------

  /** Whether one of the lines of a card's construct is in the window. */
  function isInView(card) {
    const lines = card.id.replace(/c.*/, "L");
    const first = byId(lines + card.dataset.first).getBoundingClientRect();
    const last = byId(lines + card.dataset.last).getBoundingClientRect();
    return first.top < window.innerHeight && last.bottom > 0;
  }

  /** If the cards of a group don't fit, those of the constructs in view share the room. */
  function share(group) {
    const cards = group.querySelector(".cards");
    if (cards.scrollHeight > cards.clientHeight + 1) cards.classList.add("crowded");
    if (!cards.classList.contains("crowded")) return;
    for (const card of cards.children)
      card.classList.toggle("away", !isInView(card) && !card.contains(document.activeElement));
  }

  /** Cards that don't fit are as high as the window, so three points find all their groups. */
  function shareAll() {
    const left = document.querySelector("main").getBoundingClientRect().left + 40;
    const groups = [0.05, 0.5, 0.95].map(function (part) {
      const at = document.elementFromPoint(left, window.innerHeight * part);
      return at && at.closest(".group");
    });
    for (const group of new Set(groups)) {
      if (group) share(group);
    }
  }

  let isDue = false;
  function shareSoon() {
    if (isDue) return;
    isDue = true;
    requestAnimationFrame(function () {
      isDue = false;
      shareAll();
    });
  }
  window.addEventListener("scroll", shareSoon, { passive: true });
  window.addEventListener("resize", function () {
    for (const cards of document.querySelectorAll(".crowded")) cards.classList.remove("crowded");
    for (const card of document.querySelectorAll(".away")) card.classList.remove("away");
    shareSoon();
  });
  shareSoon();
})();
