# shellcheck shell=bash
# A show on a screen that gets another size while it runs. Sourced by ./test inside a running test bed; uses its
# functions and adds to passed and failed.
#
# Wine asks the X server for its sizes when its desktop comes up, and follows none where there is only one: so a
# second one is made and Wine begun anew. It comes last for that.

# pixelIs X Y COLOUR: what the screen shows there, but for what a picture file loses.
pixelIs() {
    local colour
    colour=$(import -silent -window root -crop "1x1+$1+$2" +repage -depth 8 rgb:- | od -An -tu1 |
        awk '{print ($1 > 128) "" ($2 > 128) "" ($3 > 128)}')
    case $3 in
    red) [ "$colour" = 100 ] ;;
    green) [ "$colour" = 010 ] ;;
    blue) [ "$colour" = 001 ] ;;
    yellow) [ "$colour" = 110 ] ;;
    *) false ;;
    esac
}

# fillsScreen WIDTH HEIGHT: the picture of four colours stands in the middle of a screen of that size.
fillsScreen() {
    local left=$(($1 / 2 - 20)) right=$(($1 / 2 + 20)) bottom=$(($2 - 5))
    pixelIs "$left" 5 red && pixelIs "$right" 5 green && pixelIs "$left" "$bottom" blue &&
        pixelIs "$right" "$bottom" yellow
}

screenProgramIsGone() { ! kill -0 "$screenProcess" 2>/dev/null; }

runScreenSizeTests() {
    echo "== screen size"
    local before=$failed output folder first
    folder=$(mktemp -d "${TMPDIR:-/tmp}/panorell.screen.XXXXXX")
    convert -size 400x300 xc:red xc:lime +append \( -size 400x300 xc:blue xc:yellow +append \) -append "$folder/a.jpg"
    output=$(xrandr | awk '/ connected/ {print $1; exit}')
    first=$(xrandr | awk '/\*/ {print $1; exit}')
    wineserver -k 9>&- || true
    wineserver -w
    xrandr --newmode small 40 800 832 872 1000 600 602 606 640
    xrandr --addmode "$output" small
    wineserver -p 9>&- >/dev/null 2>&1 || true
    testbedSpawn "${wineCommand[@]}" build/windows/src/app/Panorell.exe "$(windowsPath "$folder")" P=60 R=1
    screenProcess=${testbedPids[-1]}
    comes "screen size: the show fills the screen" 60 fillsScreen "${first%x*}" "${first#*x}"
    xrandr --output "$output" --mode small
    comes "screen size: and a smaller one" 30 fillsScreen 800 600
    xrandr --output "$output" --mode "$first"
    comes "screen size: and the former one" 30 fillsScreen "${first%x*}" "${first#*x}"
    xdotool key Escape
    comes "screen size: the program ends" 30 screenProgramIsGone
    kill "$screenProcess" 2>/dev/null || true
    rm -rf "$folder"
    echo "screen size: $((failed - before)) failed"
}
