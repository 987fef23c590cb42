# Shared by the programs beside it: where things are, how progress is shown, how packages are installed.
# Source it; it changes into the root of the tree.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# Kept outside the tree, so that a second checkout finds what the first has built.
cache=${OSTREL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/ostrel}
windows_toolkit=$cache/windows-toolkit
mkdir -p "$cache"

export CCACHE_DIR=${CCACHE_DIR:-$cache/ccache}
export CCACHE_BASEDIR=$root
# Precompiled headers reach ccache only when time stamps inside them are not looked at.
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
export CCACHE_MAXSIZE=${CCACHE_MAXSIZE:-4G}

started=$SECONDS
say() { printf '[%3ds] %s\n' $((SECONDS - started)) "$*"; }
fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "installing packages needs root: run this as root, or install sudo (wanted: $*)"
    fi
}

# install_packages NAME...: installs what is missing, and asks the network only then.
install_packages() {
    local missing=() name
    for name in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "installing ${missing[*]}"
    as_root apt-get -o DPkg::Lock::Timeout=600 update -q >/dev/null || say 'the package lists could not be brought up to date; going on with what is known'
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=600 "${missing[@]}" >"$cache/install.log" 2>&1 || {
        tail -20 "$cache/install.log" >&2
        fail "packages could not be installed; the whole log is $cache/install.log"
    }
}

# A Wine prefix for these programs alone: quiet, without the parts that would be downloaded.
# OSTREL_WINE_DPI picks one made for that many dots per inch; they can be used at the same time.
OSTREL_PREFIX_VERSION=2
# A Wine system belongs to one screen: programs on two screens would share the clipboard, the focus and the desktop.
wine_environment() {
    local screen=${DISPLAY:-:0}
    screen=${screen#*:}
    export WINEPREFIX=$cache/wine-${OSTREL_WINE_DPI:-96}-${screen%%.*} WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
    export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
    # The plain program: the distribution's wrapper only adds a complaint that 32-bit programs would not run.
    wine=/usr/lib/wine/wine64
    [ -x "$wine" ] || wine=$(command -v wine64 || command -v wine) || fail 'Wine is missing; run tools/setup --windows'
}

# configure PRESET: configures a build once, and again when asked for by ninja itself.
configure() {
    local preset=$1
    [ -f "build/$preset/build.ninja" ] && [ "build/$preset/build.ninja" -nt CMakePresets.json ] && return 0
    local extra=()
    [ "$preset" != windows-release ] || extra=("-DCMAKE_PREFIX_PATH=$(readlink -f "$windows_toolkit/current")")
    say "configuring build/$preset"
    cmake --preset "$preset" "${extra[@]}" >"$cache/configure.log" 2>&1 || {
        tail -40 "$cache/configure.log" >&2
        fail "build/$preset could not be configured"
    }
}

# build_targets PRESET TARGET...: configures and builds, quietly but for what goes wrong.
build_targets() {
    local preset=$1
    shift
    configure "$preset"
    say "building $* in build/$preset"
    cmake --build "build/$preset" --target "$@"
}

# What a run under the sanitizers reports, and what it overlooks: the desktop's own libraries.
sanitizer_environment() {
    export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1}
    export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$root/tests/support/leaks.supp:print_suppressions=0}
    export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
}
