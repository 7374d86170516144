#!/usr/bin/env bash
# Builds the fuzzers, runs each with clang's engine and prints a table.
#
# usage: scripts/fuzz.sh [--total] [SECONDS] [FUZZER...]
#
#   SECONDS   for each fuzzer (60)
#   FUZZER    such as literal_fuzzer; all if none is named
#   --total   runs nothing, and prints the processor time that each fuzzer has had so far
#
# A fuzzer begins with its seeds, fuzz/*/seeds/FUZZER or kit/fuzz/seeds/FUZZER, and with what earlier
# runs have found worth keeping, build/fuzz/corpus/FUZZER. Two run at a time; ZT_ORVEX_FUZZ_JOBS sets
# another number. The exit status is 1 if one of them found something: its input stays in
# build/fuzz/findings, and build/fuzz/bin/FUZZER with that file as its argument shows what happened.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/build.sh

BUILD=build/fuzz
HISTORY=$BUILD/processor-seconds # a line for each run: day, time, fuzzer, seconds, inputs tried

print_totals() {
    awk '{ seconds[$3] += $4; runs[$3] += $5; times[$3]++ }
        END {
            for (name in seconds)
                printf "%-28s %4d runs %12d inputs %8.1f min of processor time\n",
                    name, times[name], runs[name], seconds[name] / 60
        }' "$HISTORY" | sort
}

all_fuzzers() {
    sed -n 's/^ *zt_orvex_add_fuzzer(\([a-z_]*_fuzzer\).*/\1/p' \
        fuzz/*/CMakeLists.txt kit/fuzz/CMakeLists.txt
}

# run_fuzzer FUZZER SECONDS: leaves the engine's output in $BUILD/logs/FUZZER.
run_fuzzer() {
    local name=$1 seconds=$2 seeds words log=$BUILD/logs/$1 options=(-max_len=600)
    seeds=$(find fuzz kit/fuzz -path "*/seeds/$name")
    words=${seeds%/seeds/*}/words.dict
    if [ -f "$words" ]; then options=(-max_len=4000 -dict="$words"); fi
    mkdir -p "$BUILD/corpus/$name"
    rm -f "$log"

    # Time and memory limits are far above what an input needs on a busy machine.
    local TIMEFORMAT='processor %U %S' status=0
    { time "$BUILD/bin/$name" -max_total_time="$seconds" "${options[@]}" -timeout=60 \
        -rss_limit_mb=2560 -print_final_stats=1 -verbosity=1 \
        -artifact_prefix="$BUILD/findings/$name-" \
        "$BUILD/corpus/$name" "$seeds" >"$log" 2>&1 || status=$?; } 2>"$log.time"
    echo "status $status" >>"$log"
    cat "$log.time" >>"$log"
    rm "$log.time"
    awk -v name="$name" -v now="$(date -u '+%F %T')" '
        /^processor/ { seconds = $2 + $3 }
        /^#[0-9]/ { runs = substr($1, 2) }
        END { print now, name, seconds, runs + 0 }' "$log" >>"$HISTORY"
}

print_row() {
    awk -v name="$1" '
        /^#[0-9]+/ {
            runs = substr($1, 2)
            for (i = 2; i < NF; ++i) value[$i] = $(i + 1)
        }
        /^stat::new_units_added/ { added = $2 }
        /^processor/ { seconds = $2 + $3 }
        /^status/ { findings = $2 != 0 }
        END {
            printf "%-28s %10d %8d %7d %8d %6d %9.0f %8d\n", name, runs, value["exec/s:"],
                value["cov:"], value["ft:"], added, seconds, findings
        }' "$BUILD/logs/$1"
}

seconds=60
case ${1-} in
--total) print_totals; exit ;;
-*) sed -n '2,14s/^# \{0,1\}//p' "$0"; exit 2 ;;
[0-9]*) seconds=$1; shift ;;
esac
if [ $# -eq 0 ]; then mapfile -t fuzzers < <(all_fuzzers); else fuzzers=("$@"); fi

build_preset fuzz "${fuzzers[@]}"
mkdir -p "$BUILD/findings" "$BUILD/logs"
echo "== Running ${#fuzzers[@]} fuzzers, $seconds s each"
for name in "${fuzzers[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "${ZT_ORVEX_FUZZ_JOBS:-2}" ]; do wait -n; done
    run_fuzzer "$name" "$seconds" &
done
wait

printf '%-28s %10s %8s %7s %8s %6s %9s %8s\n' \
    fuzzer runs runs/s edges features new 'proc. s' findings
for name in "${fuzzers[@]}"; do print_row "$name"; done
if grep -L '^status 0$' "${fuzzers[@]/#/$BUILD/logs/}" | grep .; then
    echo "Findings: the output is in the files above, the inputs are in $BUILD/findings." >&2
    ls -t "$BUILD/findings" >&2
    exit 1
fi
