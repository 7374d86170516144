#!/bin/sh
# Builds the benchmarks, runs ours beside the peers and prints the table of ratios.
#
# usage: scripts/benchmark.sh [--quick] [--cpu N] [--only PROGRAM]
#
#   --quick   few repetitions, to see that all runs; the ratios then mean little
#   --cpu N   the processor to run on (the last one that this process may use)
#   --only P  one program, such as liveness_benchmark; may be given again
#
# Ours and its peers stand in one program, whose rows are measured in turn and at random, so that a
# slow moment of the machine falls on all of them. The raw results stay in build/benchmark/results.
set -eu
cd "$(dirname "$0")/.."
repetitions=7
seconds=0.02
cpu=$(taskset -cp $$ | sed 's/.*[-, ]//')
programs=""
while [ $# -gt 0 ]; do
    case $1 in
    --quick) repetitions=1 seconds=0.005 ;;
    --cpu) cpu=$2; shift ;;
    --only) programs="$programs $2"; shift ;;
    *) sed -n '2,9s/^# \{0,1\}//p' "$0"; exit 2 ;;
    esac
    shift
done

build=build/benchmark
results=$build/results
cmake --preset benchmark >/dev/null
cmake --build --preset benchmark >/dev/null
mkdir -p "$results"
if [ -z "$programs" ]; then
    programs=$(cd $build/bin && ls -- *_benchmark *_memory)
    rm -f "$results"/*.json
fi

for program in $programs; do
    echo "$program" >&2
    case $program in
    *_memory) taskset -c "$cpu" "$build/bin/$program" >"$results/$program.json" ;;
    *) taskset -c "$cpu" "$build/bin/$program" --benchmark_out="$results/$program.json" \
        --benchmark_out_format=json --benchmark_repetitions=$repetitions \
        --benchmark_min_time=$seconds --benchmark_enable_random_interleaving=true >/dev/null ;;
    esac
done
python3 benchmarks/summarize.py "$results"
