#!/usr/bin/env bash
# list-exported-symbols.sh LIBRARY: prints, sorted, what a shared library offers to the dynamic
# linker, as far as that is the library's own doing.
#
# Every strong symbol is listed: the linker would take it for a definition of ours, whatever its
# name. That covers the members of std::ctype<char16_t> and std::numpunct<char16_t>, which the
# library defines on purpose because libstdc++ does not.
#
# Of the weak symbols only two sorts are listed: those whose own name (not that of an argument or
# of a template's parameter) lies in zt:: or begins with ConvertibleBasicStringView, and the
# identities of the locale facets for char16_t. The others are instantiations of std and boost
# templates: the compiler gives them default visibility and emits or inlines them as it sees fit, so
# that they come and go with its version and options. No consumer depends on them: whoever uses such
# a template instantiates it, too.
#
# The several symbols of one constructor or destructor are one line.
set -euo pipefail
export LC_ALL=C

nm --dynamic --defined-only "$1" | awk '
    function isListed(type, name) {
        if (type ~ /^[A-TX-Z]$/) return 1  # strong
        if (name ~ /^_Z(T[VTISCc]|Th[0-9n]+_|GV|GR|Z)?N[KVrRO]*(2zt|26ConvertibleBasicStringView)/)
            return 1
        return type ~ /^[VW]$/ && name ~ /^_Z(GV)?NSt.*IDs.*E2idE$/
    }
    { sub(/@.*/, "", $3) }
    isListed($2, $3) { print $3 }
' | c++filt | sort --unique
