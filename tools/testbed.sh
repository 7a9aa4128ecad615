# shellcheck shell=bash
# Sourced from the repository's top folder, after tools/wine.sh. A screen, a window manager, a sound server and a
# running Wine of our own; all of it ends with the shell that started it.

testbedPids=()
testbedFolder=
testbedServer=

# Background work must not hold the lock on the test bed (descriptor 9) longer than its shell does.
testbedSpawn() {
    "$@" 9>&- </dev/null >>"$testbedFolder/log" 2>&1 &
    testbedPids+=($!)
}

# testbedWait SECONDS COMMAND...: polls until COMMAND succeeds.
testbedWait() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        if [ "$SECONDS" -ge "$deadline" ]; then
            echo "no success within the time: $*" >&2
            tail -n 20 "$testbedFolder/log" >&2 || true
            return 1
        fi
        sleep 0.05
    done
}

testbedStop() {
    trap '' INT TERM
    [ -z "$testbedServer" ] || wineserver -k 2>/dev/null || true
    local i
    for ((i = ${#testbedPids[@]} - 1; i >= 0; i--)); do
        kill "${testbedPids[i]}" 2>/dev/null || true
    done
    wait 2>/dev/null || true
    [ -z "$testbedFolder" ] || rm -rf "$testbedFolder"
}

# testbedStart NAME [WIDTHxHEIGHT]: brings everything up with the prefix build/wine/NAME and sets the
# environment. A second caller of the same NAME waits until the first has ended.
testbedStart() {
    local name=$1 size=${2:-1920x1080}
    mkdir -p build/wine
    exec 9>"build/wine/$name.lock"
    if ! flock -n 9; then
        echo "Waiting: another command uses the test bed $name"
        flock 9
    fi
    testbedFolder=$(mktemp -d "${TMPDIR:-/tmp}/panorell.XXXXXX")
    chmod 700 "$testbedFolder"
    : >"$testbedFolder/log"
    trap testbedStop EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM

    testbedScreen "$size" || return
    testbedSound || return
    useWine "$name" || return
    preparePrefix tools/testbed.reg || return
    # What is deleted goes to a trash of the test bed's own.
    export XDG_DATA_HOME=$WINEPREFIX/data
    mkdir -p "$XDG_DATA_HOME"
    testbedServer=1
    manyFiles
    wineserver -p 9>&- >/dev/null 2>&1 || true
}

# A folder with thousands of files for the tests that need one: made by Wine it would take half a minute.
manyFiles() {
    mkdir "$testbedFolder/many"
    (cd "$testbedFolder/many" && { seq -f 'Bild%.0f.jpg' 0 9999; seq -f 'Titel%.0f.mp3' 0 99; } | xargs touch)
    PANORELL_MANY_FILES=$(windowsPath "$testbedFolder/many")
    export PANORELL_MANY_FILES
}

testbedScreen() {
    # The X server takes the first free display number and reports it.
    mkfifo "$testbedFolder/display"
    testbedSpawn Xvfb -displayfd 3 -screen 0 "${1}x24" -dpi 96 -nolisten tcp -noreset 3<>"$testbedFolder/display"
    local number
    exec 8<>"$testbedFolder/display"
    if ! read -r -t 30 -u 8 number; then
        echo "the X server did not start" >&2
        tail -n 20 "$testbedFolder/log" >&2
        return 1
    fi
    exec 8>&-
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY XAUTHORITY
    # A fresh configuration folder: the user's own key bindings would catch keys of the tests.
    testbedSpawn env XDG_CONFIG_HOME="$testbedFolder" openbox --sm-disable
    testbedWait 30 xdotool get_num_desktops
}

testbedSound() {
    export XDG_RUNTIME_DIR=$testbedFolder
    unset PULSE_SERVER
    testbedSpawn env XDG_CONFIG_HOME="$testbedFolder" pulseaudio -n --daemonize=no --exit-idle-time=-1 \
        --load="module-null-sink sink_name=null" --load="module-native-protocol-unix"
    testbedWait 30 pactl info
}

# limited SECONDS COMMAND...: runs COMMAND and ends it when it takes longer (status 124 or 137). Other than a
# plain `timeout` it can be interrupted, and ends then with the test bed.
limited() {
    local seconds=$1 status=0
    shift
    timeout -k 10 "$seconds" "$@" 9>&- </dev/null &
    local pid=$!
    testbedPids+=("$pid")
    wait "$pid" || status=$?
    unset 'testbedPids[-1]'
    return "$status"
}
