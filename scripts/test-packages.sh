#!/usr/bin/env bash
# Makes Debian's packages, checks them with lintian, installs them in a root of their own, builds and
# runs consumers with them, runs the programs, removes the packages and looks that nothing is left.
#
# usage: scripts/test-packages.sh [--chroot]
#
# The root is a folder that has these packages alone; what they depend on is taken from this machine.
# With --chroot it is a small Debian, where apt installs them. That takes root, and some minutes and the
# network the first time, when it is made in build/package/debian.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/lib/packages.sh

work=$PWD/build/package/test
root=$work/root
debian=$PWD/build/package/debian
names=(libzt-orvex1 libzt-orvex-dev libzt-orvex-kit1 libzt-orvex-kit-dev zt-orvex-tools)

# list_files FOLDER: all that is in it, but for what dpkg, apt and ldconfig note for themselves.
list_files() {
    find "$1" -xdev -mindepth 1 -printf '%P\n' |
        grep -Ev '^(proc|sys|dev|tmp|root|run|sources|var/(lib/(dpkg|apt)|cache|log))(/|$)|^etc/ld\.so\.cache$' |
        sort
}

# expect_nothing_left: compares with the list that was made before anything was installed.
expect_nothing_left() {
    list_files "$root" | diff "$work/before" - >"$work/left" || {
        echo "Removing the packages leaves, or takes along:" >&2
        cat "$work/left" >&2
        return 1
    }
    echo "== Nothing is left"
}

in_root() {
    dpkg --root="$root" --log=/dev/null --force-not-root --force-depends --force-script-chrootless "$@"
}

test_in_folder() {
    mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
    touch "$root/var/lib/dpkg/status"
    list_files "$root" >"$work/before"
    in_root --install "${packages[@]}" >"$work/log" 2>&1 || { cat "$work/log"; return 1; }
    scripts/lib/use-packages.sh "$root" "$work/consumers"
    in_root --purge "${names[@]}" >"$work/log" 2>&1 || { cat "$work/log"; return 1; }
    expect_nothing_left
}

# Where apt is set up, it must find all that the packages depend on.
test_dependencies() {
    if ! apt-cache show libboost-dev >"$work/log" 2>&1; then
        echo "== apt knows no packages here, so nothing says whether it finds the dependencies"
        return
    fi
    apt-get install --simulate "${packages[@]}" >"$work/log" 2>&1 || { cat "$work/log"; return 1; }
    echo "== apt finds all that the packages depend on"
}

# leave_proc: debootstrap may leave this mounted, above all if it was interrupted.
leave_proc() {
    as_root umount "$debian/proc" 2>/dev/null || true
}

# make_debian: in $debian, once; it has what the packages and the consumers need, and not the packages.
make_debian() {
    [ ! -e "$debian.complete" ] || return 0
    local mirror suite
    # shellcheck disable=SC2016 # apt fills this in
    read -r mirror suite < <(apt-get indextargets --format '$(REPO_URI) $(CODENAME)' \
        'Created-By: Packages')
    echo "== Making a small Debian ($suite)"
    leave_proc
    as_root rm -rf "$debian"
    as_root debootstrap --variant=minbase --include=g++,cmake,make,pkg-config,ca-certificates \
        "$suite" "$debian" "$mirror" >"$work/log" || { tail "$work/log"; return 1; }
    leave_proc
    as_root rm -f "$debian/etc/apt/sources.list"
    as_root cp -r /etc/apt/. "$debian/etc/apt/"
    as_root cp /etc/resolv.conf "$debian/etc/"
    run_apt "$debian" update
    run_apt "$debian" install libboost-dev libtbb12 libutf8proc2
    touch "$debian.complete"
}

test_in_chroot() {
    make_debian
    as_root cp -a "$debian" "$root"
    as_root mkdir -p "$root/sources"
    cp --parents -r scripts/lib tests/install kit/tests/install examples/programs "$root/sources"
    cp "${packages[@]}" "$root/sources"
    list_files "$root" >"$work/before"
    local copies=("${packages[@]##*/}")
    run_apt "$root" install "${copies[@]/#//sources/}"
    run_in "$root" /sources/scripts/lib/use-packages.sh "" /tmp/consumers
    run_apt "$root" purge "${names[@]}"
    expect_nothing_left
    as_root rm -rf "$root"
}

# run_in ROOT COMMAND...: with none of the environment, which speaks of this machine.
run_in() {
    as_root env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive \
        chroot "$@"
}

run_apt() {
    local place=$1
    shift
    run_in "$place" apt-get --yes --no-install-recommends "$@" >"$work/log" 2>&1 ||
        { cat "$work/log"; return 1; }
}

chroot=false
case ${1-} in
'') ;;
--chroot) chroot=true ;;
*) sed -n '2,9s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac

scripts/package.sh
packages=("$PWD"/build/package/*.deb)
as_root rm -rf "$work"
mkdir -p "$work"
echo "== Checking the packages with lintian"
lintian --fail-on error --suppress-tags initial-upload-closes-no-bugs "${packages[@]}"
if $chroot; then
    ensure_packages "$CHROOT_PACKAGES"
    test_in_chroot
else
    test_dependencies
    test_in_folder
fi
