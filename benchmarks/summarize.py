#!/usr/bin/env python3
"""usage: summarize.py RESULTS_DIR

Prints a Markdown table of the goals and what a run of scripts/benchmark.sh measured, and one of the
rejected variants. A figure is the minimum over the repetitions: other load on the machine can only
add to it.
"""

import json
import os
import re
import sys


class Results:
    """Figures by name: nanoseconds per item, or counts from liveness_memory."""

    def __init__(self, directory):
        self.figures = {}
        self.wrong = []
        for file in sorted(os.listdir(directory)):
            if file.endswith(".json"):
                with open(os.path.join(directory, file)) as opened:
                    for row in json.load(opened)["benchmarks"]:
                        self.add(row)

    def add(self, row):
        if row.get("error_occurred"):
            self.wrong.append((row["name"], row["error_message"]))
        if row["run_type"] != "iteration":
            return
        name = re.sub("/(manual_time|repeats:[0-9]+|min_time:[0-9.]+)", "", row["run_name"])
        for unit in ("ns_per_item", "bytes_per_item", "allocations_per_item"):
            if unit in row:
                key = name if unit == "ns_per_item" else name + "/" + unit
                self.figures[key] = min(row[unit], self.figures.get(key, row[unit]))

    def best(self, names):
        """The minimum of the figures that exist, or None."""
        return min((self.figures[n] for n in names if n in self.figures), default=None)


def number(value):
    if value is None:
        return "-"
    return f"{value:.1f}" if value < 100 else f"{value:,.0f}"


def ratio(value):
    return f"{value:.3f}" if value < 0.1 else f"{value:.2f}"


class Table:
    def __init__(self, results):
        self.results = results
        self.missed = []
        print("| What | Against | Ours | Theirs | Ratio | At most | Reached |")
        print("|---|---|---:|---:|---:|---:|---|")

    def row(self, what, against, ours, theirs, goal):
        mine = self.results.best([ours])
        other = self.results.best(theirs if isinstance(theirs, list) else [theirs])
        measured = mine / other if mine is not None and other is not None else None
        self.line(what, against, number(mine), number(other), measured, goal)

    def absolute(self, what, ours, goal):
        mine = self.results.best([ours])
        self.line(what, "absolute", number(mine), "", mine, goal)

    def line(self, what, against, mine, other, measured, goal):
        if measured is None:
            print(f"| {what} | {against} | {mine} | {other} | - | {goal or ''} | not measured |")
            return
        if goal is None:
            shown = ratio(measured) if other else mine
            print(f"| {what} | {against} | {mine} | {other} | {shown} |  |  |")
            return
        reached = measured <= goal
        if not reached:
            self.missed.append(what)
        shown = ratio(measured) if goal < 100 else number(measured)
        print(f"| {what} | {against} | {mine} | {other} | {shown} | {goal} "
              f"| {'yes' if reached else '**no**'} |")


def analysis_rows(table):
    def whole(shape, variables, peer, against, goal):
        end = f"{shape}/S:1000/V:{variables}"
        table.row(f"whole analysis, {shape}, V {variables}", against,
                  "analysis/ours/" + end, f"analysis/{peer}/" + end, goal)

    clang = "Clang's LiveVariables, with teardown"
    whole("straight", 16, "clang", clang, 0.4)
    whole("nested", 16, "clang", clang, 0.12)
    whole("loops", 16, "clang", clang, 0.3)
    whole("nested", 256, "clang", clang, 0.025)
    whole("nested", 16, "ideal_roundrobin", "ideal_roundrobin", 10)
    whole("nested", 256, "ideal_roundrobin", "ideal_roundrobin", 10)
    for shape, variables in (("straight", 16), ("nested", 16), ("loops", 16), ("nested", 256)):
        end = f"{shape}/S:1000/V:{variables}"
        table.row(f"the same in fresh memory, {shape}, V {variables}", clang,
                  "analysis_in_fresh_memory/ours/" + end,
                  "analysis_in_fresh_memory/clang/" + end, None)
    for variables, goal in ((16, 4), (256, 3.5), (4096, 9)):
        end = f"nested/S:1000/V:{variables}"
        table.row(f"solve alone, nested, V {variables}", "ideal_roundrobin whole",
                  "solve/ours/" + end, "solve/ideal_roundrobin/" + end, goal)
    for shape in ("straight", "nested", "loops"):
        for variables in (16, 256):
            for row, where in (("analysis", ""), ("analysis_in_fresh_memory", "in fresh memory, ")):
                name = f"{row}/ours/{shape}/S:%d/V:{variables}"
                table.row(f"time per statement at S 10,000, {where}{shape}, V {variables}", "at S 1,000",
                          name % 10000, name % 1000, 1.5)
    for variables, goal in ((16, 0.8), (256, 0.5)):
        end = f"nested/S:1000/V:{variables}/bytes_per_item"
        table.row(f"peak heap, bytes per statement, nested, V {variables}", "Clang",
                  "memory/ours/" + end, "memory/clang/" + end, goal)
        table.absolute(f"peak heap, bytes per statement, nested, V {variables}",
                       "memory/ours/" + end, 2048)
    for variables in (16, 256):
        table.absolute(f"heap allocations per statement, nested, V {variables}",
                       f"memory/ours/nested/S:1000/V:{variables}/allocations_per_item", 8)


def bitset_rows(table):
    peers = ("llvm_BitVector", "boost_dynamic_bitset")

    def row(operation, bits, goal):
        table.row(f"BitSet {operation.replace('_', ' ')}, {bits:,} bits", "best of LLVM and Boost",
                  f"bitset/{operation}/ours/bits:{bits}",
                  [f"bitset/{operation}/{peer}/bits:{bits}" for peer in peers], goal)

    for operation in ("union", "intersection", "difference"):
        for bits in (1000, 64000, 1000000):
            row(operation, bits, 1.0)
    row("equality", 64000, 1.05)
    row("subset", 64000, 0.5)
    for density in (1, 10, 100, 500):
        row(f"iteration_{density}_per_mille", 64000, 0.5)


def order_rows(table):
    for nodes in (1000, 10000, 100000, 1000000):
        for graph in ("local", "random"):
            end = f"{graph}/n:{nodes}"
            what = f"reverse post-order with building, {graph}, {nodes:,} nodes"
            table.row(what, "Boost adjacency_list", "rpo/ours/" + end,
                      "rpo/boost_adjacency_list/" + end, 0.5)
            table.row(what, "ideal_csr_with_build", "rpo/ours/" + end, "rpo/ideal_csr/" + end, 5)
    table.row("the same with no edges, 400,000 nodes", "at 10,000 nodes",
              "rpo/ours/no_edges/n:400000", "rpo/ours/no_edges/n:10000", 1.5)


def literal_rows(table):
    for kind in ("hexadecimal", "binary", "double"):
        table.row(f"validating, 8-bit, {kind}", "boost::regex_match alone",
                  f"validate/ours_8/{kind}", f"validate/boost_regex_8/{kind}", 1.05)
    for kind in ("hexadecimal", "binary", "double"):
        table.row(f"validating, 16-bit, {kind}", "PCRE2-16 JIT",
                  f"validate/ours_16/{kind}", f"validate/pcre2_16_jit/{kind}", 0.8)
    for width in ("8", "16"):
        table.row(f"parsing doubles, {width}-bit", "fast_float after one copy",
                  f"parse_double/ours/{width}", f"parse_double/fast_float_from_buffer/{width}",
                  1.2)
    for kind in ("hexadecimal", "binary"):
        for width in ("8", "16"):
            table.row(f"parsing integers, {width}-bit, {kind}", "std::from_chars on the digits",
                      f"parse_integer/ours_{width}/{kind}",
                      f"parse_integer/std_from_chars/{kind}", 1.3)


def look_up_rows(table):
    for count, goal in ((100, 0.4), (10000, 0.6)):
        table.row(f"StringPool look-up, hit, {count:,} names", "std::unordered_map of strings",
                  f"string_pool/ours/n:{count}", f"string_pool/std_unordered_map_string/n:{count}",
                  goal)
    for count in (100, 10000, 1000000):
        table.row(f"OrderedSet look-up by handle, {count:,}", "absl flat_hash_map with FNV-1a",
                  f"ordered_set/ours/n:{count}", f"ordered_set/absl_flat_hash_map/n:{count}", 1.2)


def walk_rows(table):
    table.row("forEachNodeIn, per node", "ideal_array", "walk/ours", "walk/ideal_array", 1.5)
    table.row("forEachNodeIn, per node", "RecursiveASTVisitor", "walk/ours",
              "walk/clang_RecursiveASTVisitor", 0.45)


def kit_rows(table):
    table.row("kit: checkTree, per node", "forEachNodeIn", "check_tree/ours",
              "check_tree/for_each_node_in", 8)
    for shape in ("straight", "nested", "loops"):
        for type_ in ("may", "must"):
            end = f"{shape}/S:1000/V:16/{type_}"
            table.row(f"kit: FlowGraph, {shape}, V 16, {type_}", "an analysis",
                      "reasons/flow_graph/" + end, "reasons/analysis/" + end, 1.6)
            table.row(f"kit: FlowGraph and all reasons, {shape}, V 16, {type_}", "an analysis",
                      "reasons/explain_all/" + end, "reasons/analysis/" + end, 10)


def report_rows(table):
    table.absolute("orvex-report --format json: instructions a line", "report/json/instructions",
                   REPORT_INSTRUCTIONS)
    table.absolute("orvex-report --format json: ns a line", "report/json/jobs:1", None)
    table.row("orvex-report --format json: ns a line, two processors", "one",
              "report/json/jobs:2", "report/json/jobs:1", 0.6)


# That of the version before remarks had paths.
REPORT_INSTRUCTIONS = 34_500


REJECTED = (
    (r"bitset/(equality|subset|iteration_100_per_mille)/(?:ours|plain_loops)/bits:64000",
     "ours", "plain_loops", "plain loops over words and bits"),
    (r"rpo/(?:ours|ours_by_nodes)/(local|random)/n:10000", "ours", "ours_by_nodes",
     "both ends of each edge looked up by hash"),
    (r"ordered_set/(?:ours|std_unordered_map)/(n:\d+)", "ours", "std_unordered_map",
     "chained buckets instead of open addressing"),
    (r"solve/(?:ours|ours_over_terms)/(.*)", "ours", "ours_over_terms",
     "sweeps that call each term instead of compiled steps"),
)


def by_number(item):
    """A sort key that puts n:100 before n:10000."""
    return [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", item[0])]


def print_rejected(results):
    print("\n| Rejected variant | Row | Ours, ns | It, ns | Times as long |\n|---|---|---:|---:|---:|")
    for pattern, winner, rejected, what in REJECTED:
        for name, figure in sorted(results.figures.items(), key=by_number):
            if not re.fullmatch(pattern, name) or f"/{rejected}/" not in name:
                continue
            ours = results.best([name.replace(f"/{rejected}/", f"/{winner}/")])
            if ours is not None:
                print(f"| {what} | {name.replace('/' + rejected, '')} | {number(ours)} "
                      f"| {number(figure)} | {figure / ours:.1f} |")


def main():
    results = Results(sys.argv[1])
    table = Table(results)
    for rows in (analysis_rows, walk_rows, bitset_rows, order_rows, literal_rows, look_up_rows,
                 kit_rows, report_rows):
        rows(table)
    print(f"\nMissed: {', '.join(table.missed) if table.missed else 'none'}.")
    print_rejected(results)
    for name, message in results.wrong:
        print(f"WRONG: {name}: {message}", file=sys.stderr)
    return 1 if results.wrong else 0


if __name__ == "__main__":
    sys.exit(main())
