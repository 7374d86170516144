# Sourced by the scripts that run programs for Windows: where wine is, and where it keeps its state. That
# is a folder of the build, so that it never touches the user's own.
wine_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
export WINEPREFIX=$wine_root/build/wine
export WINEDEBUG=-all
# It would offer to install packages of others, and write menus of the desktop, which may hang.
export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='
mkdir -p "$WINEPREFIX"

# wine_tool NAME...: the first of the tools that there is. Debian has them outside the PATH.
wine_tool() {
    local name
    for name; do
        command -v "$name" || command -v "/usr/lib/wine/$name" || continue
        return 0
    done
    echo "There is no $1: install Debian's package wine64." >&2
    return 1
}

# Wine's server ends with the last program, and the first one takes seconds to start it. Keeps it running
# until the calling script ends.
keep_wine_running() {
    "$(wine_tool wineserver64 wineserver)" --persistent
    trap '"$(wine_tool wineserver64 wineserver)" --kill' EXIT
}
