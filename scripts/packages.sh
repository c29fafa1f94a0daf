#!/usr/bin/env bash
# Installs what is missing from Debian's packages, and builds presets quietly. Sourced by run.sh and test.sh.

# need_packages PACKAGE ...   Says nothing where all is there.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Please run as root, or install sudo: need ${missing[*]}" >&2; return 1; }
        root=(sudo)
    fi
    echo "Installing ${missing[*]} ..." >&2
    local log
    log=$(mktemp)
    if ! { "${root[@]}" apt-get update && "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
               apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# What the programs are built from, what their tests need besides (a screen and a window manager, small ones, and keys
# for them), and what pictures of the desktop need. qt6-base-dev brings the platforms of Qt (xcb and offscreen) and a font.
# shellcheck disable=SC2034  # used by those who source this file
kProgramPackages=(g++ cmake ninja-build libsqlite3-dev nlohmann-json3-dev libcli11-dev qt6-base-dev)
# shellcheck disable=SC2034
kTestPackages=(libgtest-dev libgmock-dev libbenchmark-dev fonts-dejavu-core clang-format git pmccabe
               xvfb jwm libxtst-dev)
# shellcheck disable=SC2034
kPicturePackages=(xvfb xauth jwm)

# has_tests PRESET   True where the build folder is there and holds the tests.
has_tests() { grep -qs '^TALLMAR_TESTS:[A-Z]*=ON' "build/$1/CMakeCache.txt"; }

# build_preset PRESET [TARGET ...]   Configures where needed and builds; the compiler's words only when the build fails.
# What kConfigure holds goes to the first configuration; without it a folder made for the programs alone gets its tests.
kConfigure=()
build_preset() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if { [ ! -f "build/$preset/build.ninja" ] || { [ ${#kConfigure[@]} -eq 0 ] && ! has_tests "$preset"; }; } &&
        ! cmake --preset "$preset" "${kConfigure[@]}" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    if ! cmake --build "build/$preset" ${1:+--target "$@"} >"$log" 2>&1; then
        grep -v '^\[[0-9]*/[0-9]*\] Building' "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
