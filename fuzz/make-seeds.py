#!/usr/bin/env python3
"""Writes the seeds of the fuzzers whose inputs are decisions, not text: a few long random inputs each.

Short inputs decide little, so an engine that begins with nothing takes long to reach anything deep.
The same seeds come out every time. Seeds of text are written by hand and not touched.

usage: fuzz/make-seeds.py
"""
import pathlib
import random

FUZZ = pathlib.Path(__file__).parent
# The fuzzers, and the lengths of their seeds in bytes.
FUZZERS = {
    "analysis/analysis_fuzzer": (40, 120, 300, 300),
    "analysis/hostile_tree_fuzzer": (60, 200, 400, 400),
    "ast/bare_view_fuzzer": (40, 120),
    "ast/walk_fuzzer": (40, 120, 250, 250),
    "equivalence/equivalence_fuzzer": (30, 100, 200),
    "examples/program_fuzzer": (60, 200, 400, 400),
    "flow/bit_set_fuzzer": (60, 150, 200),
    "flow/builder_fuzzer": (60, 150, 300),
    "flow/digraph_fuzzer": (30, 100, 200),
    "flow/equations_fuzzer": (60, 150, 300),
    "flow/evaluator_fuzzer": (60, 150, 300),
    "flow/ordered_set_fuzzer": (40, 100, 200, 200, 200),
    "literals/value_fuzzer": (16, 17, 20),
    "support/allocator_statistics_fuzzer": (30, 100),
    "support/stream_fuzzer": (20, 60),
    "support/string_pool_fuzzer": (60, 150, 300),
}


def main():
    for fuzzer, lengths in FUZZERS.items():
        subsystem, name = fuzzer.split("/")
        folder = FUZZ / subsystem / "seeds" / name
        folder.mkdir(parents=True, exist_ok=True)
        source = random.Random(name)
        for number, length in enumerate(lengths):
            (folder / f"random{number}").write_bytes(source.randbytes(length))


if __name__ == "__main__":
    main()
