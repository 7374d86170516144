# Sourced by the scripts in the parent folder: the packages of Debian 12 that they need.

# The packages that building and testing the library takes: one a line, with its purpose.
BUILD_PACKAGES='
g++                 the compiler
cmake               describes the build
ninja-build         runs it
libboost1.81-dev    Regex, Pool, optional, variant and string_ref, headers only
libfast-float-dev   decimal text to double, headers only
libgtest-dev        the tests
libgmock-dev        the matchers of the tests
libcli11-dev        the command line of the example
libtbb-dev          the threads of the example
nlohmann-json3-dev  the JSON output of the example
libutf8proc-dev     how wide the characters are that the example shows at a terminal
pkg-config          finds libutf8proc, and the test that finds the installed library with it
abigail-tools       the test that compares the binary interface with its description
gdb                 the test of the printers for it
python3             generates two headers from the table of kinds, and prunes that description
'

# What continuous integration needs in addition.
CI_PACKAGES='
clang               a second compiler with warnings of its own
libclang-rt-14-dev  its sanitizers, for the fuzzers
clang-format        the check of the formatting
git                 tells which files belong to the project
chromium            the browser that the page of the example is tried in
man-db              formats the manual pages
chromium-driver     drives it
python3-selenium    tells the driver what to do
qemu-user-static    the tests on processors without AVX2
'

# What the reference needs.
DOCS_PACKAGES='
doxygen             makes pages of the headers and the guides
python3             prepares what it reads, and checks the links
'

# What the check of the SARIF report needs where there is no npm. It isn't in the list above, since a
# Node from elsewhere may have an npm of its own, which excludes Debian's.
NODE_PACKAGES='
nodejs              runs the validator of the SARIF report
npm                 installs it
'

# What making and checking Debian's packages needs in addition.
DEBIAN_PACKAGES='
dpkg-dev            finds what each package depends on
lintian             checks the packages
'

# What trying them in a small Debian of its own needs.
CHROOT_PACKAGES='
debootstrap         makes it
'

package_names() {
    awk 'NF { print $1 }' <<<"$1"
}

# Whether the package is installed. Looking for a tool wouldn't do: a header-only library has none,
# and a tool can come from elsewhere in another version.
is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Runs a command as root, under sudo if necessary.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# Installs the missing packages of a list such as BUILD_PACKAGES. If none is missing, it changes
# nothing and needs neither root nor network.
ensure_packages() {
    local missing=() name
    if ! command -v dpkg-query >/dev/null; then
        echo "This isn't a Debian system. Continuing on the assumption that these are installed:" >&2
        awk 'NF { print "  " $0 }' <<<"$1" >&2
        return 0
    fi
    for name in $(package_names "$1"); do
        is_installed "$name" || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        echo "Packages are missing, and there is neither root nor sudo to install them. As root, run:" >&2
        echo "  apt-get update && apt-get install ${missing[*]}" >&2
        return 1
    fi
    echo "== Installing ${missing[*]}"
    if ! { as_root apt-get update &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install --yes --no-install-recommends "${missing[@]}"; }; then
        echo "Could not install ${missing[*]}, which are part of Debian 12. See the message above." >&2
        return 1
    fi
}
