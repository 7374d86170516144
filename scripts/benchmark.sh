#!/bin/sh
# Builds the benchmarks, runs ours beside the peers and prints the table of ratios.
#
# usage: scripts/benchmark.sh [--quick] [--cpu N] [--only PROGRAM]
#
#   --quick   few repetitions, to see that all runs; the ratios then mean little
#   --cpu N   the processor to run on (the last one that this process may use)
#   --only P  one program, such as liveness_benchmark; may be given again
#
# orvex-report is one of the programs: report_benchmark. It runs on two processors, where there are
# as many, since it tells what the second one is good for.
#
# Ours and its peers stand in one program, whose rows are measured in turn and at random, so that a
# slow moment of the machine falls on all of them. The raw results stay in build/benchmark/results.
set -eu
cd "$(dirname "$0")/.."
repetitions=7
seconds=0.02
bytes=20000000
cpu=$(taskset -cp $$ | sed 's/.*[-, ]//')
programs=""
while [ $# -gt 0 ]; do
    case $1 in
    --quick) repetitions=1 seconds=0.005 bytes=1000000 ;;
    --cpu) cpu=$2; shift ;;
    --only) programs="$programs $2"; shift ;;
    *) sed -n '2,12s/^# \{0,1\}//p' "$0"; exit 2 ;;
    esac
    shift
done

build=build/benchmark
results=$build/results
cmake --preset benchmark >/dev/null
cmake --build --preset benchmark >/dev/null
mkdir -p "$results"
if [ -z "$programs" ]; then
    programs="$(cd $build/bin && ls -- *_benchmark *_memory) report_benchmark"
    rm -f "$results"/*.json
fi

for program in $programs; do
    echo "$program" >&2
    case $program in
    report_benchmark) python3 benchmarks/report/measure_report.py "$build/bin/orvex-report" \
        examples/programs --bytes "$bytes" --repetitions "$repetitions" \
        >"$results/$program.json" ;;
    *_memory) taskset -c "$cpu" "$build/bin/$program" >"$results/$program.json" ;;
    *) taskset -c "$cpu" "$build/bin/$program" --benchmark_out="$results/$program.json" \
        --benchmark_out_format=json --benchmark_repetitions=$repetitions \
        --benchmark_min_time=$seconds --benchmark_enable_random_interleaving=true >/dev/null ;;
    esac
done
python3 benchmarks/summarize.py "$results"
