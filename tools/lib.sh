# Shared by ./run and ./test; sourced, never run. Needs `top` set to the repository's folder.

say() { printf '== %s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

build="$top/build"
jobs=$(nproc)

# configure PRESET: only when the preset has no build folder yet; ninja runs cmake again by itself.
configure() {
    local launcher=()
    [ ! -f "$build/$1/build.ninja" ] || return 0
    command -v ccache >/dev/null &&
        launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    quietly "configuring $1" cmake --preset "$1" "${launcher[@]}"
}

# build_targets PRESET TARGET...
build_targets() {
    say "building $1"
    ninja -C "$build/$1" -j "$jobs" --quiet "${@:2}"
}

# stage_program PRESET: gathers the files that ship in build/stage.
stage_program() {
    quietly "gathering what ships" \
        cmake --install "$build/$1" --component shipped --prefix "$build/stage"
}

# quietly WHAT COMMAND...: the command's output is shown only when it fails.
quietly() {
    local log
    log=$(mktemp)
    say "$1"
    if ! "${@:2}" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        fail "$1: failed"
    fi
    rm -f "$log"
}
