#!/usr/bin/env bash
# use-packages.sh ROOT WORK: uses Debian's packages as their users do. ROOT is the folder that they are
# installed in, empty for the system itself.
#
# Builds the consumers of the tests with find_package and with pkg-config, runs them, and runs the
# programs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$1
work=$2
consumer=tests/install/consumer
libraries=$(echo "$root"/usr/lib/*/libzt_orvex.so)
libraries=${libraries%/*}
if [ -n "$root" ]; then
    # Nothing else says where the libraries are: packages have no rpath.
    export LD_LIBRARY_PATH=$libraries PKG_CONFIG_PATH=$libraries/pkgconfig
fi

# expect TEXT COMMAND...: fails unless the command succeeds and prints the text.
expect() {
    local text=$1 output
    shift
    output=$("$@")
    if [[ $output != *"$text"* ]]; then
        printf '%s printed, instead of "%s":\n%s\n' "$*" "$text" "$output" >&2
        return 1
    fi
}

# build_with_cmake SOURCE OPTION...: in $work/SOURCE.
build_with_cmake() {
    local source=$1
    shift
    cmake -S "$source" -B "$work/$source" -D "CMAKE_PREFIX_PATH=$root/usr" \
        -D CMAKE_BUILD_TYPE=Debug "$@" >"$work/log" || { cat "$work/log"; return 1; }
    cmake --build "$work/$source" >"$work/log" || { cat "$work/log"; return 1; }
}

mkdir -p "$work"
build_with_cmake $consumer
expect "consumer: all as expected" "$work/$consumer/consumer"
build_with_cmake kit/$consumer -D "LOOP_TREE_DIR=$PWD/$consumer"
expect "kit consumer: all as expected" "$work/kit/$consumer/consumer"

for package in zt_orvex zt_orvex_kit; do
    source=$consumer
    [ $package = zt_orvex ] || source=kit/$consumer
    # shellcheck disable=SC2046 # the flags are words
    g++ -std=c++17 -I $consumer $source/main.cpp -o "$work/$package" \
        $(pkg-config --cflags --libs $package)
    expect "consumer: all as expected" "$work/$package"
done

program=examples/programs/sieve.ost
expect "spmd" "$root/usr/bin/orvex-report" $program
expect "" "$root/usr/bin/orvex-match" $program $program
printers=$root/usr/share/gdb/auto-load${libraries#"$root"}/$(basename "$(readlink -f "$libraries/libzt_orvex.so")")-gdb.py
[ -f "$printers" ] || { echo "missing: $printers" >&2; exit 1; }
echo "== The consumers and programs run with the packages"
