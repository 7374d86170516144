#include "report/html/HtmlPage.h"

namespace ostrel::report {

const char* const HTML_HEAD = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>Ostrel report</title>
<link rel="icon" href="data:,">
<style>
:root {
  --page: #ffffff; --ink: #1c1e21; --faint: #6a7079; --rule: #d5d9df; --panel: #f6f7f9;
  --mark: #ffe58a; --construct: #eef3fb;
  --keyword: #7a2d8c; --number: #0b5c8a; --text: #5c6b00; --comment: #6a7079; --error: #b3001b;
  --loop: #0b5c8a; --temporary: #12702f; --sliced: #006e6e; --output: #6b2fa3;
  --outside: #4a4f57; --carried: #b3001b; --updated: #a34700; --unused: #6a7079;
}
@media (prefers-color-scheme: dark) {
  :root {
    --page: #16181c; --ink: #e4e6ea; --faint: #9aa1ac; --rule: #3a3f47; --panel: #1f2227;
    --mark: #6b5a00; --construct: #1c2431;
    --keyword: #d9a0ea; --number: #7cc4ee; --text: #c9d36a; --comment: #9aa1ac; --error: #ff8a94;
    --loop: #7cc4ee; --temporary: #7fd99a; --sliced: #6fd6d6; --output: #c9a3f5;
    --outside: #c3c8d0; --carried: #ff8a94; --updated: #ffb070; --unused: #9aa1ac;
  }
}
* { box-sizing: border-box; }
body { margin: 0; background: var(--page); color: var(--ink);
  font: 15px/1.45 system-ui, sans-serif; }
header, section.file { padding: 1rem 1.5rem; }
h1 { font-size: 1.25rem; margin: 0 0 .5rem; }
h2 { font-size: 1.1rem; margin: 0 0 .75rem; overflow-wrap: anywhere; }
h3 { font-size: 1rem; margin: 0 0 .5rem; }
a { color: inherit; }
.legend { display: flex; flex-wrap: wrap; gap: .25rem 1.25rem; margin: 0; padding: 0;
  list-style: none; }
.columns { display: grid; grid-template-columns: minmax(0, 3fr) minmax(22rem, 2fr); gap: 1.5rem; }
@media (max-width: 70rem) { .columns { grid-template-columns: minmax(0, 1fr); } }
.source { margin: 0; padding: .5rem 0; overflow-x: auto; background: var(--panel);
  border: 1px solid var(--rule); border-radius: 4px; tab-size: 4;
  font: 13px/1.5 ui-monospace, monospace; }
.line { display: block; padding-right: 1rem; min-height: 1.5em; white-space: pre; }
.line.inside { background: var(--construct); }
.line:target { outline: 2px solid var(--faint); outline-offset: -2px; }
.number { display: inline-block; width: 4.5em; padding-right: 1em; text-align: right;
  color: var(--faint); user-select: none; text-decoration: none; }
.keyword { color: var(--keyword); } .number-literal { color: var(--number); }
.text { color: var(--text); } .comment { color: var(--comment); font-style: italic; }
.tables { display: flex; flex-direction: column; gap: 1rem; }
.construct { padding: .75rem 1rem; border: 1px solid var(--rule); border-radius: 4px; }
table { width: 100%; border-collapse: collapse; }
th, td { padding: .25rem .5rem .25rem 0; text-align: left; vertical-align: top;
  border-top: 1px solid var(--rule); }
th { border-top: 0; font-weight: 600; }
tbody tr { cursor: pointer; }
tbody tr:focus-visible { outline: 2px solid var(--ink); outline-offset: -2px; }
.note, .help { color: var(--faint); }
.messages { margin: 0 0 1rem; padding: 0; list-style: none; }
.messages li, .warnings li { margin: .25rem 0; }
.error { color: var(--error); }
.warnings { margin: .75rem 0 0; padding-left: 1.25rem; }
.variable { cursor: pointer; font-weight: 600; text-decoration-line: underline;
  text-decoration-thickness: 2px; text-underline-offset: 3px; text-decoration-skip-ink: none; }
.letter { display: inline-block; min-width: 1.4em; margin-right: .35em; padding: 0 .25em;
  border: 1px solid currentColor; border-radius: 3px; text-align: center; font-weight: 600; }
body.letters .variable::after { content: attr(data-letter); font-size: 70%; vertical-align: super; }
.role-loop { color: var(--loop); text-decoration-style: double; }
.role-temporary { color: var(--temporary); text-decoration-style: solid; }
.role-sliced { color: var(--sliced); text-decoration-style: dashed; }
.role-output { color: var(--output); text-decoration-style: solid; }
.role-outside { color: var(--outside); text-decoration-style: dotted; }
.role-carried { color: var(--carried); text-decoration-style: wavy; }
.role-updated { color: var(--updated); text-decoration-style: wavy; }
.role-unused { color: var(--unused); text-decoration-line: none; }
.marked { background: var(--mark); box-shadow: 0 0 0 2px var(--mark); border-radius: 2px; }
tr.marked { box-shadow: none; }
@media print { .variable::after { content: attr(data-letter); font-size: 70%;
  vertical-align: super; } }
</style>
</head>
<body>
)html";

const char* const HTML_LEGEND = R"html(<ul class="legend" aria-label="What the marks mean">
<li><span class="letter role-loop">L</span><span class="role-loop">loop variable</span></li>
<li><span class="letter role-temporary">T</span><span class="role-temporary">temporary</span></li>
<li><span class="letter role-sliced">S</span><span class="role-sliced">sliced</span></li>
<li><span class="letter role-output">O</span><span class="role-output">output</span></li>
<li><span class="letter role-outside">R</span><span class="role-outside">read from outside</span></li>
<li><span class="letter role-carried">C</span><span class="role-carried">carried</span></li>
<li><span class="letter role-updated">U</span><span class="role-updated">read, then written</span></li>
<li><span class="letter role-unused">N</span><span class="role-unused">not used</span></li>
<li><label><input type="checkbox" id="letters"> letters in the source</label></li>
</ul>
)html";

const char* const HTML_FOOT = R"html(<script>
"use strict";
(function () {
  let current = null;
  const places = new Map();
  for (const element of document.querySelectorAll("[data-keys]")) {
    for (const key of element.dataset.keys.split(" ")) {
      if (!places.has(key)) places.set(key, []);
      places.get(key).push(element);
    }
  }
  function show(key, isOn) {
    for (const element of places.get(key) || []) {
      element.classList.toggle("marked", isOn);
      if (element.tagName === "TR") element.setAttribute("aria-selected", String(isOn));
    }
  }
  function choose(key) {
    const before = current;
    if (before !== null) show(before, false);
    current = key === before ? null : key;
    if (current !== null) show(current, true);
  }
  document.addEventListener("click", function (event) {
    if (event.target.closest("a, input, label")) return;
    const element = event.target.closest("[data-keys]");
    if (element) choose(element.dataset.keys.split(" ")[0]);
  });
  document.addEventListener("keydown", function (event) {
    if (event.key === "Escape" && current !== null) choose(current);
    const row = event.target.closest ? event.target.closest("tr[data-keys]") : null;
    if (!row || event.target !== row) return;
    if (event.key === "Enter" || event.key === " ") {
      event.preventDefault();
      choose(row.dataset.keys);
    }
  });
  document.getElementById("letters").addEventListener("change", function (event) {
    document.body.classList.toggle("letters", event.target.checked);
  });
})();
</script>
</body>
</html>
)html";

} // namespace ostrel::report
