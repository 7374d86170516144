# Sourced by scripts/platform.sh: brings what a build for another platform needs into folders of its
# own. Nothing is installed, and apt's own state stays as it is.

# run_private_apt FOLDER ARCHITECTURE COMMAND...: runs a command of apt that also knows the packages of
# another architecture and all sources. Its state is in FOLDER.
run_private_apt() {
    local folder=$1 architecture=$2
    shift 2
    mkdir -p "$folder/state/lists/partial" "$folder/cache/archives/partial" "$folder/sources"
    local file
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -e "$file" ] || sed 's/^Types: deb$/Types: deb deb-src/' "$file" \
            >"$folder/sources/$(basename "$file")"
    done
    if [ -s /etc/apt/sources.list ]; then
        sed -n 's/^deb \(.*\)/deb \1\ndeb-src \1/p' /etc/apt/sources.list >"$folder/sources/all.list"
    fi
    cat >"$folder/apt.conf" <<EOF
APT::Architectures { "$(dpkg --print-architecture)"; "$architecture"; };
APT::Sandbox::User "";
Dir::State "$folder/state";
Dir::State::status "/var/lib/dpkg/status";
Dir::Cache "$folder/cache";
Dir::Etc::sourcelist "/dev/null";
Dir::Etc::sourceparts "$folder/sources";
EOF
    APT_CONFIG=$folder/apt.conf "$@"
}

# unpack_packages FOLDER ARCHITECTURE PACKAGE...: unpacks packages of another architecture into FOLDER,
# which then has usr/include and usr/lib.
unpack_packages() {
    local folder=$1 architecture=$2 apt=$1.apt package
    shift 2
    [ ! -e "$folder.complete" ] || return 0
    echo "== Fetching $* for $architecture"
    run_private_apt "$apt" "$architecture" apt-get update --quiet=2
    for package; do
        (cd "$apt" && run_private_apt "$apt" "$architecture" \
            apt-get download --quiet=2 "$package:$architecture")
    done
    for package in "$apt"/*.deb; do
        dpkg -x "$package" "$folder"
    done
    touch "$folder.complete"
}

# unpack_source FOLDER PACKAGE: unpacks the source of a Debian package into FOLDER.
unpack_source() {
    local folder=$1 package=$2 apt=$1.apt
    [ ! -d "$folder" ] || return 0
    echo "== Fetching the source of $package"
    run_private_apt "$apt" "$(dpkg --print-architecture)" apt-get update --quiet=2
    (cd "$apt" && run_private_apt "$apt" "$(dpkg --print-architecture)" \
        apt-get source --quiet=2 --download-only "$package")
    dpkg-source --no-check --extract "$apt/$package"_*.dsc "$folder"
}

# copy_headers FOLDER: the libraries that are headers only, in FOLDER/include, and what CMake finds them
# by. A compiler for another platform must not search /usr/include, where the headers of this machine's
# C library are, too.
copy_headers() {
    local name
    mkdir -p "$1/include" "$1/share/cmake"
    for name in boost fast_float CLI nlohmann; do
        [ -e "$1/include/$name" ] || cp -r "/usr/include/$name" "$1/include/"
    done
    # These name the headers by the way from their own folder. CMake needs none to find Boost's.
    for name in /usr/lib/cmake/FastFloat /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json; do
        [ -e "$1/share/cmake/$(basename "$name")" ] || cp -r "$name" "$1/share/cmake/"
    done
}

# build_googletest FOLDER OPTION...: builds Debian's GoogleTest from its sources with the options of the
# platform and installs it into FOLDER.
build_googletest() {
    local folder=$1
    shift
    [ ! -e "$folder/include/gmock/gmock.h" ] || return 0
    echo "== Building GoogleTest"
    cmake -S /usr/src/googletest -B "$folder.googletest" -G Ninja -D CMAKE_BUILD_TYPE=Release \
        -D CMAKE_CXX_STANDARD=17 -D CMAKE_INSTALL_LIBDIR=lib "$@"
    cmake --build "$folder.googletest" --parallel "$(job_count)"
    cmake --install "$folder.googletest" --prefix "$folder"
}
