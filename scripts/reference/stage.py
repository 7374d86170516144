"""Gathers what Doxygen reads in one folder: headers, guides and modules, prepared."""

import importlib.util
import re
import shutil
from pathlib import Path

from guides import Guides, title_of
from headers import prepare_header
from tables import expand_tables

INCLUDES = ["include", "kit/include"]
INDEX = Path("docs/reference/index.md")
KINDS = Path("include/zt_orvex/ast/NodeKinds.def")
# Files that are pages under another name.
PAGES = {KINDS: "node_kinds", Path("include/zt_orvex/equivalence/AstEquivalence.h"): "matcher_report"}
# What a reader wants first; all others follow by name.
FIRST_GUIDES = ["README.md", "docs/architecture.md", "docs/dataflow.md", "docs/kit.md",
                "docs/rules-that-surprise.md", "docs/limits.md", "docs/stability.md", "SECURITY.md",
                "docs/performance.md", "docs/idioms.md"]
FIRST_MODULES = ["ast", "ast_typed_views", "ast_range_views", "analysis", "flow", "literals",
                 "pragma", "support", "equivalence", "kit", "kit_tree", "kit_body", "kit_reasons"]
TITLES = {"guide_readme": "Overview"} # where the page's own doesn't tell it from others


def in_order(paths, first):
    return ([path for path in first if path in paths]
            + sorted(path for path in paths if path not in first))


def guide_paths(root):
    """The Markdown pages of the project, relative to its root."""
    found = [*root.glob("*.md"), *root.glob("docs/*.md"), root / "examples/README.md"]
    return in_order([path.relative_to(root) for path in found], [Path(name) for name in FIRST_GUIDES])


def module_paths(root):
    found = [path.relative_to(root) for path in root.glob("docs/modules/*.md")]
    return in_order(found, [Path(f"docs/modules/{name}.md") for name in FIRST_MODULES])


def label_of(path):
    """The name of a page: "guide_limits" for docs/limits.md, "ast" for docs/modules/ast.md."""
    if path.parent == Path("docs/modules"):
        return path.stem
    stem = path.parent.name if path == Path("examples/README.md") else path.stem
    return "guide_" + stem.lower().replace("-", "_")


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)


def stage_headers(root, into):
    """Writes the prepared headers. Returns the origin of each line, by the path of the copy."""
    shutil.rmtree(into, ignore_errors=True)
    origins = {}
    for folder in INCLUDES:
        for path in sorted((root / folder).rglob("*.h")):
            relative = path.relative_to(root)
            prepared = prepare_header(expand_tables(path, Path.read_text), relative)
            write(into / relative, "\n".join(prepared.lines) + "\n")
            origins[into / relative] = (relative, prepared.origins)
    shutil.copy(root / "docs/reference/namespaces.dox", into)
    return origins


def read_kinds(root):
    script = root / "scripts/generate-views.py"
    spec = importlib.util.spec_from_file_location("generate_views", script)
    views = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(views)
    return views.read_kinds((root / KINDS).read_text())


def kinds_page(kinds):
    """A table of the kinds with their numbers, classes, source forms and parts."""
    lines = ["# The kinds of nodes {#node_kinds}", "",
             "Each kind has a typed view with an accessor for each of its parts. A walk visits the "
             "parts in this order. The number is the value of the enumerator.", "",
             "| Number | Kind and class | Stands for | Parts |", "|---:|---|---|---|"]
    for number, kind in enumerate(kinds, 1):
        about = " ".join(line for line in kind.comment if not line.startswith("Deliberate:"))
        parts = "<br>".join(f"`{part.accessor}`" for part in kind.parts)
        lines.append(f"| {number} | [{kind.name}](@ref zt::orvex::{kind.name}View)"
                     f"<br>{kind.group.lower()} | {about} | {parts} |")
    return "\n".join(lines) + "\n"


def module_table(names, titles, summaries):
    """A table of modules for the first page."""
    rows = [f"| [{titles[name]}](@ref {name}) | {summaries[name]} |" for name in names]
    return "\n".join(["| Module | Holds |", "|---|---|", *rows])


def index_page(text, titles, summaries):
    """The first page, with its tables of modules."""
    text = re.sub(r"<!-- modules: (.*) -->",
                  lambda names: module_table(names[1].split(), titles, summaries), text)
    # As HTML, headings aren't entries of the tree.
    return re.sub(r"^## (.+?) \{#.*", r"<h2>\1</h2>", text, flags=re.MULTILINE)


def stage_pages(root, into, names):
    """Writes the prepared guides and modules, with links to the `names` of the libraries."""
    paths = [*guide_paths(root), *module_paths(root)]
    texts = {path: (root / path).read_text() for path in [INDEX, *paths]}
    labels = {**{path: label_of(path) for path in paths}, **PAGES, INDEX: "index"}
    titles = {labels[path]: title_of(path, text) for path, text in texts.items()} | TITLES
    guides = Guides(labels, titles, names)
    modules, summaries = [], {}
    for number, path in enumerate(paths):
        label, text = labels[path], guides.prepare(path, texts[path])
        if path.parent == Path("docs/modules"):
            summaries[label] = text.split("\n\n")[0].strip()
            parent = label.partition("_")[0]
            nesting = f"@ingroup {parent}\n" if parent != label else ""
            modules.append(f"/** @defgroup {label} {titles[label]}\n{nesting}{text}*/\n")
        else:
            write(into / f"guides/{number:02}_{label}.md", f"# {titles[label]} {{#{label}}}\n{text}")
    write(into / "modules.dox", "\n".join(modules))
    write(into / "guides/node_kinds.md", kinds_page(read_kinds(root)))
    listed = [labels[path] for path in guide_paths(root)] + list(PAGES.values())
    write(into / "guides.md", "# Guides {#guides}\n\n"
          + "".join(f"- @subpage {label}\n" for label in listed))
    index = index_page(guides.prepare(INDEX, texts[INDEX]), titles, summaries)
    write(into / "index.md", f"# {titles['index']} {{#mainpage}}\n{index}")
