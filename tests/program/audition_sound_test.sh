# shellcheck shell=bash
# What is heard of the overview's music list: the title that was double clicked, until a button ends it. Sourced
# by sound_test.sh, whose functions and recording it uses.

# The list's rows and buttons, from the upper left and the right corners of the overview's client area, in pixels
# at 96 dots per inch; see src/overview/form2_layout.cpp.
auditionPlaces() {
    auditionWindow=$(xdotool getactivewindow)
    local WINDOW X Y WIDTH HEIGHT SCREEN
    eval "$(xdotool getwindowgeometry --shell "$auditionWindow")"
    : "$WINDOW $X $Y $SCREEN"
    auditionRowX=$((WIDTH - 180))
    auditionRowY=86
    auditionPaper=$((WIDTH - 128))+$((HEIGHT - 90))
    auditionButtonY=$((HEIGHT - 35))
    auditionOkX=$((WIDTH - 178))
    auditionCancelX=$((WIDTH - 78))
}
auditionPointer() { xdotool mousemove --window "$auditionWindow" "$1" "$2"; }

auditionOverviewIsOpen() { xdotool getactivewindow getwindowname | grep -q 'bersicht'; }
auditionOverviewOpens() {
    auditionOverviewIsOpen || xdotool key alt+b
    sleep 0.5
    auditionOverviewIsOpen
}

# The list's paper is white, the ground of the thumbnails is dark.
auditionListIsShown() {
    local colour
    colour=$(import -silent -window "$auditionWindow" -crop "1x1+$auditionPaper" -depth 8 rgb:- | od -An -tx1)
    [ "${colour// /}" = ffffff ]
}
auditionListIsHidden() { ! auditionListIsShown; }

# By the menu of the first thumbnail, in which the entry is the fourth from below.
auditionListOpens() {
    auditionListIsShown && return
    xdotool key Escape
    sleep 0.3
    xdotool key Home
    sleep 0.3
    xdotool key Menu
    sleep 0.7
    local step
    for step in 1 2 3 4; do
        : "$step"
        xdotool key Up
        sleep 0.1
    done
    xdotool key Return
    sleep 0.7
    auditionListIsShown
}

auditionRow() { auditionPointer "$auditionRowX" $((auditionRowY + 21 * $1)); }
auditionOf() {
    auditionRow "$1"
    xdotool click --repeat 2 --delay 80 1
}
auditionClick() {
    auditionPointer "$1" "$auditionButtonY"
    xdotool click 1
}

auditionDrag() {
    auditionRow "$1"
    xdotool mousedown 1
    auditionRow "$2"
    sleep 0.2
    xdotool mouseup 1
}

auditionIsReordered() { [ -e "$1/01 Anderer.mp3" ] && [ -e "$1/02 Einer.mp3" ] && [ -e "$1/99 Dritter.mp3" ]; }

runAuditionSound() {
    local folder=$soundFolder/audition
    mkdir "$folder"
    convert -size 640x480 "xc:rgb(90,90,120)" "$folder/a.jpg"
    cp "$soundFolder/show/01 Erster.mp3" "$folder/01 Einer.mp3"
    cp "$soundFolder/show/02 Wunsch.mp3" "$folder/02 Anderer.mp3"
    cp "$soundFolder/first.mp3" "$folder/99 Dritter.mp3"
    testbedSpawn "${wineCommand[@]}" build/windows/src/app/Panorell.exe "$(windowsPath "$folder")" P=60
    soundProcess=${testbedPids[-1]}
    heard "the overview opens" 60 auditionOverviewOpens
    auditionPlaces
    heard "the music list opens" 60 auditionListOpens

    auditionOf 1
    heard "a double click plays its title" 30 soundGoesFrom 880 440
    auditionRow 2
    xdotool click 1
    heard "a press elsewhere ends it" 30 below 880 "$soundQuiet"
    auditionOf 0
    heard "another title is heard" 30 soundGoesFrom 440 880
    auditionClick "$auditionCancelX"
    heard "Abbruch silences it" 30 below 440 "$soundQuiet"
    heard "and hides the list" 30 auditionListIsHidden

    heard "the music list opens again" 60 auditionListOpens
    auditionDrag 1 0
    auditionOf 0
    heard "the title that was dragged to the top is heard" 30 soundGoesFrom 880 440
    auditionClick "$auditionOkX"
    heard "OK silences it" 30 below 880 "$soundQuiet"
    heard "and gives the files their order" 30 auditionIsReordered "$folder"
    kill "$soundProcess" 2>/dev/null || true
}
