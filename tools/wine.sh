# How this project uses Wine; sourced, never run. Needs `top` set to the repository's folder.

export WINEARCH=win64
export WINEDEBUG=-all
# No browser engine and no .NET to ask for, no entries in the user's own menus, and no debugger
# that would wait for someone to close it after a crash.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d;winedbg.exe=d'

program_folder='drive_c/Program Files/Norrow Programs/Tollvane'

# stop_wine PREFIX: ends the prefix's own server and everything that runs under it.
stop_wine() { WINEPREFIX=$1 wineserver -k 2>/dev/null || true; }

# make_prefix PREFIX: a fresh prefix with our settings, unless it is already there and current.
make_prefix() {
    local prefix=$1 settings="$top/tools/prefix.reg" stamp="$1/.tollvane"
    cmp -s "$settings" "$stamp" && return
    [ ! -d "$prefix" ] || stop_wine "$prefix"
    rm -rf "$prefix"
    mkdir -p "$(dirname "$prefix")"
    WINEPREFIX=$prefix DISPLAY='' wineboot -i >/dev/null 2>&1
    WINEPREFIX=$prefix DISPLAY='' wine regedit /S "$(windows_path "$settings")" >/dev/null 2>&1
    WINEPREFIX=$prefix wineserver -w
    cp "$settings" "$stamp"
}

# windows_path FILE: how Wine names a file of this machine.
windows_path() { printf 'Z:%s' "$(realpath "$1" | tr / '\\')"; }

# install_program PREFIX STAGE: copies the staged files into the prefix and registers the
# components, when they differ from what is there.
install_program() {
    local prefix=$1 stage=$2
    local target="$prefix/$program_folder"
    local stamp="$target/.installed" now
    now=$(cd "$stage" && find . -type f -printf '%P %s %T@\n' | sort)
    [ "$(cat "$stamp" 2>/dev/null)" != "$now" ] || return 0
    mkdir -p "$target"
    cp -p "$stage"/* "$target"/
    (cd "$target" && WINEPREFIX=$prefix DISPLAY='' register_components)
    printf '%s\n' "$now" >"$stamp"
}

# register_components: everything in the current folder that registers itself.
register_components() {
    local file
    for file in *.dll; do
        wine regsvr32 /s "$file" >/dev/null 2>&1 || fail "$file does not register"
    done
    for file in dcZenda32.exe; do
        wine "$file" /regserver >/dev/null 2>&1 || fail "$file does not register"
    done
    set_default_state
}

# set_default_state: the company information dialog wants a state of its list; a shop that has none
# yet starts with the first one.
set_default_state() {
    local key='HKLM\Software\Norrow Programs\Tollvane\Company Information'
    wine reg query "$key" /v State >/dev/null 2>&1 ||
        wine reg add "$key" /v State /t REG_SZ /d AL >/dev/null 2>&1 ||
        fail "the default state cannot be stored"
}
