#!/usr/bin/env python3
"""usage: measure_report.py PROGRAM EXAMPLES [--bytes N] [--repetitions N]

Measures orvex-report, writing JSON, on programs like the examples, and prints the figures in the form
of the other benchmarks: the time that a line takes with one job and with two, each the best of the
repetitions, and, where valgrind is installed, its instructions with one job.
"""

import argparse
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

FOLDER = pathlib.Path(__file__).parent


def run(command):
    """The nanoseconds that a command takes, by the clock, since the jobs share its work."""
    begin = time.perf_counter_ns()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return time.perf_counter_ns() - begin


def instructions(command, log):
    subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={log}", *command],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return int(re.search(r"^(?:summary|totals): (\d+)", log.read_text(), re.MULTILINE).group(1))


def measure(options, folder):
    """The figures by name."""
    programs = folder / "programs"
    subprocess.run([sys.executable, FOLDER / "generate_programs.py", options.examples,
                    str(options.bytes), programs], check=True)
    lines = sum(path.read_bytes().count(b"\n") for path in programs.rglob("*.ost"))

    def command(jobs):
        return [options.program, "--format", "json", "--jobs", str(jobs), "--output", "/dev/null",
                str(programs)]

    times = {1: [], 2: []}
    several = len(os.sched_getaffinity(0)) > 1
    for _ in range(options.repetitions):
        for jobs in [1, 2] if several else [1]:
            times[jobs].append(run(command(jobs)))
    figures = {f"report/json/jobs:{jobs}": min(found) / lines
               for jobs, found in times.items() if found}
    if shutil.which("valgrind"):
        figures["report/json/instructions"] = instructions(command(1), folder / "log") / lines
    return figures


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("examples")
    parser.add_argument("--bytes", type=int, default=20_000_000)
    parser.add_argument("--repetitions", type=int, default=5)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        figures = measure(options, pathlib.Path(folder))
    rows = [{"name": name, "run_name": name, "run_type": "iteration", "ns_per_item": figure}
            for name, figure in figures.items()]
    print(json.dumps({"benchmarks": rows}, indent=1))


if __name__ == "__main__":
    main()
