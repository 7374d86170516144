#!/usr/bin/env bash
# list-exported-symbols.sh LIBRARY: prints every symbol that a shared library exports, demangled and
# sorted, below the version that it carries.
#
# The several symbols of one constructor or destructor are one line. Where the runtime has two formats of
# `long double`, facets of numbers are in an inline namespace, which isn't printed: the list is the same
# for each processor.
set -euo pipefail
export LC_ALL=C

nm --dynamic --defined-only --with-symbol-versions "$1" | awk '
    $2 == "A" { next }  # a version itself
    $3 ~ /^(__bss_start|_edata|_end)$/ { next }  # the ends of sections, where the linker exports them
    {
        at = index($3, "@")
        version = at ? substr($3, at) : "no version"
        sub(/^@+/, "", version)
        print version, at ? substr($3, 1, at - 1) : $3
    }
' | c++filt | sed 's/std::__gnu_cxx_ldbl128::/std::/g' | sort --unique | awk '
    {
        version = substr($0, 1, index($0, " ") - 1)
        if (/^no version /) version = "no version"
        if (version != previous) print version ":"
        previous = version
        print substr($0, length(version) + 2)
    }
'
