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

# expect_parts KIND FOLDER NAME...: ends the command unless all of them are executables of a folder
# under tools/, and forgets what they counted before.
expect_parts() {
    local kind=$1 folder=$2 name
    for name in "${@:3}"; do
        [ -x "$top/tools/$folder/$name" ] ||
            fail "there is no $kind \"$name\"; there are: $(echo $(ls "$top/tools/$folder"))"
        rm -f "$build/tally-$name" "$build/counts-$name"
    done
    mkdir -p "$build"
}

# play_parts KIND FOLDER NAME...: runs them one after the other, by the command in `launcher` if there
# is one, and keeps the cases that each counts.
launcher=()
play_parts() {
    local kind=$1 folder=$2 name started good bad bad_cases
    for name in "${@:3}"; do
        say "$kind $name"
        started=$SECONDS
        export TOLLVANE_TALLY="$build/tally-$name"
        good=0 bad=0
        before_part "$name"
        "${launcher[@]}" "$top/tools/$folder/$name" || bad=1
        # A part writes its counts last: one that crashed or ran nothing has failed.
        read -r good bad_cases 2>/dev/null <"$TOLLVANE_TALLY" || good=0 bad_cases=1
        [ "$bad_cases" -gt 0 ] || bad_cases=$bad
        [ $((good + bad_cases)) -gt 0 ] || bad_cases=1
        say "$kind $name: $good passed, $bad_cases failed, $((SECONDS - started)) s"
        after_part "$name" "$good" "$bad_cases" "$((SECONDS - started))"
        echo "$good $bad_cases" >"$build/counts-$name"
    done
}

# sum_parts NAME...: ends with the plain line of all of them. One that never ended has failed.
sum_parts() {
    local passed=0 failed=0 name good bad
    for name in "$@"; do
        read -r good bad 2>/dev/null <"$build/counts-$name" || good=0 bad=1
        passed=$((passed + good)) failed=$((failed + bad))
    done
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
}

# run_parts KIND FOLDER NAME...: runs the named executables of a folder under tools/ one after the
# other, adds up the cases that each counts, and ends with the plain line of all of them.
run_parts() {
    expect_parts "$@"
    play_parts "$@"
    sum_parts "${@:3}"
}

# What a command does around each part; ./prove has its own.
before_part() { :; }
after_part() { :; }
