# shellcheck shell=bash
# Sourced from the repository's top folder. The Wine installation and the prefixes under build/wine.

export WINEDEBUG=${WINEDEBUG:--all}
# No menu entries in the user's desktop, no download of Mono or Gecko.
export WINEDLLOVERRIDES="winemenubuilder.exe=d;mscoree=;mshtml="

wineCommand=()

# The 64-bit loader itself: the `wine` command prefers a 32-bit one, with which a 64-bit program may print
# nothing and yet return 0.
wine64Program() {
    local candidate
    for candidate in /usr/lib/wine/wine64 "$(command -v wine64 || true)" "$(command -v wine || true)"; do
        if [ -n "$candidate" ] && [ -x "$candidate" ]; then
            echo "$candidate"
            return
        fi
    done
    echo "wine64 is not installed" >&2
    return 1
}

# German formats, and file names in UTF-8: both need a real locale, so one is made when the system has none.
germanLocale() {
    if ! locale -a 2>/dev/null | grep -qix 'de_DE\.utf-\?8'; then
        if [ ! -f build/locale/de_DE.UTF-8/LC_CTYPE ]; then
            mkdir -p build/locale
            localedef -i de_DE -f UTF-8 build/locale/de_DE.UTF-8 || return
        fi
        echo "LOCPATH=$PWD/build/locale"
    fi
    echo "LC_ALL=de_DE.UTF-8"
}

# Debian's loader lies just below the page at 0x7FFE0000 that every program shares with the system, and the kernel
# puts its heap at random within the gigabyte above it: one start in some 7,000 finds that page taken and dies without
# a word. Without randomness the heap lies right behind the loader. Prints nothing where that is not permitted.
fixedAddresses() {
    ! setarch -R true 2>/dev/null || printf '%s\n' setarch -R
}

# useWine NAME: makes build/wine/NAME the prefix of all later calls and wineCommand what runs a Windows program
# in it, in German. Nothing is started yet.
useWine() {
    local program settings fixed
    program=$(wine64Program) || return
    settings=$(germanLocale) || return
    mapfile -t wineCommand <<<"$settings"
    mapfile -t fixed < <(fixedAddresses)
    wineCommand=(env "${wineCommand[@]}" "${fixed[@]}" "$program")
    export WINEPREFIX=$PWD/build/wine/$1
    mkdir -p "$WINEPREFIX"
}

# quietWine SECONDS ARGUMENT...: a Windows program with a time limit, its output dropped.
quietWine() {
    local seconds=$1
    shift
    timeout -k 5 "$seconds" "${wineCommand[@]}" "$@" 9>&- </dev/null >/dev/null 2>&1
}

wineAnswers() {
    local status=0
    quietWine 60 cmd /c exit 7 || status=$?
    [ "$status" -eq 7 ]
}

# preparePrefix [REGFILE...]: makes the prefix, once, with tools/wine.reg and the given settings; a prefix that is
# broken or of another version is made anew.
preparePrefix() {
    local stamp=$WINEPREFIX/prepared settings=(tools/wine.reg "$@") want file
    want="$(wineserver --version 2>&1) $(cat "${settings[@]}" | cksum)"
    if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$want" ] && wineAnswers; then
        return
    fi
    echo "Making a Wine prefix in $WINEPREFIX"
    wineserver -k 9>&- 2>/dev/null || true
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    quietWine 180 wineboot -i || true
    for file in "${settings[@]}"; do
        quietWine 60 regedit "$file" || true
    done
    if ! wineAnswers; then
        echo "Wine does not start a program in its new prefix" >&2
        return 1
    fi
    # The server writes the registry when it ends; only then the prefix is complete.
    wineserver -k 9>&- || true
    timeout 30 wineserver -w 9>&- || true
    echo "$want" >"$stamp"
}

# windowsPath PATH: how a Linux path is called under Wine.
windowsPath() {
    local full
    full=$(realpath -m -- "$1")
    echo "Z:${full//\//\\}"
}
