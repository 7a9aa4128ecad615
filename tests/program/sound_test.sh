# shellcheck shell=bash
# The sound of a show as it comes out of the machine. Sourced by ./test inside a running test bed; uses its
# functions and adds to passed and failed.
#
# A recorder writes what the sound server's silent device would play; the loudness of one pitch in the newest
# part of it is polled while keys drive a show. Every title and the film have a pitch of their own.

soundRate=8000
soundQuiet=0.0015  # of full scale; tones at the volumes of a show lie above 0.02

# loudness HZ: RMS amplitude of the pitch over the newest 0.4 s.
loudness() {
    local low=$(($1 - 60)) high=$(($1 + 60))
    tail -c $((soundRate * 2 * 4 / 10)) "$soundFolder/recorded" >"$soundFolder/newest" 2>/dev/null
    sox -t raw -r $soundRate -e signed -b 16 -c 1 "$soundFolder/newest" -n sinc "$low-$high" stat 2>&1 |
        awk '/RMS.*amplitude/ {print $3}'
}

above() { awk -v a="$(loudness "$1")" -v b="$2" 'BEGIN {exit !(a > b)}'; }
below() { awk -v a="$(loudness "$1")" -v b="$2" 'BEGIN {exit !(a < b)}'; }
soundGoesFrom() { above "$1" 0.01 && below "$2" "$soundQuiet"; }

# heard NAME SECONDS CONDITION...: one test of what the recorder writes; tells the loudness when it fails.
heard() {
    local before=$failed
    comes "sound: $1" "${@:2}"
    [ "$failed" -eq "$before" ] || echo "440 Hz $(loudness 440), 660 Hz $(loudness 660), 880 Hz $(loudness 880)"
}

# Silence that lasts: loud at no look for some seconds.
staysSilent() {
    local until=$((SECONDS + $1))
    while [ "$SECONDS" -lt "$until" ]; do
        if above 440 "$soundQuiet" || above 880 "$soundQuiet"; then
            return 1
        fi
    done
}

soundPictures() {
    local name
    for name in "$@"; do
        convert -size 640x480 "xc:rgb($((RANDOM % 200)),90,120)" "$soundFolder/show/$name.jpg"
    done
}

soundProgram() {
    testbedSpawn "${wineCommand[@]}" build/windows/src/app/Panorell.exe "$(windowsPath "$soundFolder/show")" \
        P=60 E=0 V=1 "M=$1" R=1
    soundProcess=${testbedPids[-1]}
    if ! testbedWait 60 xdotool search --onlyvisible --class panorell; then
        echo "sound: the program does not appear"
        failed=$((failed + 1))
    fi
}

near() { [ "$1" -gt $(($2 - 40)) ] && [ "$1" -lt $(($2 + 40)) ]; }

# pixelNear R G B: the colour of the screen beside its middle.
pixelNear() {
    local red green blue
    read -r red green blue < <(import -silent -window root -crop 1x1+300+300 -depth 8 rgb:- | od -An -tu1)
    near "$red" "$1" && near "$green" "$2" && near "$blue" "$3"
}

noSoundIsPlayed() { [ -z "$(pactl list short sink-inputs)" ]; }

# A show with music, a film with sound and a damaged film, on a machine without a sound device.
soundlessShow() {
    local folder=$soundFolder/soundless
    mkdir "$folder"
    convert -size 640x480 "xc:rgb(200,20,20)" "$folder/a.jpg"
    ffmpeg -v error -f lavfi -i "color=c=0x14C814:size=352x288:rate=25" -f lavfi \
        -i sine=frequency=660:sample_rate=44100 -t 2 -c:v mpeg1video -c:a mp2 -f mpeg "$folder/b.mpg"
    cp tests/data/media/damaged.mpg "$folder/c.mpg"
    convert -size 640x480 "xc:rgb(20,20,200)" "$folder/d.jpg"
    cp tests/data/media/tone440.mp3 "$folder/01 Lied.mp3"
    testbedSpawn env PULSE_SERVER=unix:/nonexistent ALSA_CONFIG_PATH=/nonexistent "${wineCommand[@]}" \
        build/windows/src/app/Panorell.exe "$(windowsPath "$folder")" P=1 E=0 V=1 M=1 R=1
    soundProcess=${testbedPids[-1]}
    heard "without a sound device the show begins" 30 pixelNear 200 20 20
    heard "without a sound device a film plays" 20 pixelNear 20 200 20
    heard "without a sound device nothing reaches the sound server" 1 noSoundIsPlayed
    heard "without a sound device the show goes on" 20 pixelNear 20 20 200
    xdotool key Escape
    heard "without a sound device the program ends" 20 soundProgramIsGone
    kill "$soundProcess" 2>/dev/null || true
}

soundProgramEnd() {
    xdotool key Escape
    if ! testbedWait 20 soundProgramIsGone; then
        kill "$soundProcess" 2>/dev/null || true
    fi
}
soundProgramIsGone() { ! kill -0 "$soundProcess" 2>/dev/null; }

runSoundTests() {
    echo "== sound"
    local before=$failed
    soundFolder=$(mktemp -d "${TMPDIR:-/tmp}/panorell.sound.XXXXXX")
    mkdir "$soundFolder/show"
    soundPictures a b d
    ffmpeg -v error -f lavfi -i testsrc2=size=352x288:rate=25 -f lavfi -i sine=frequency=660:sample_rate=44100 -t 9 \
        -c:v mpeg1video -b:v 600k -c:a mp2 -f mpeg "$soundFolder/show/c.mpg"
    cp tests/data/media/tone440.mp3 "$soundFolder/first.mp3"
    ffmpeg -v error -f lavfi -i sine=frequency=440:sample_rate=44100 -t 120 -b:a 64k "$soundFolder/show/01 Erster.mp3"
    ffmpeg -v error -f lavfi -i sine=frequency=880:sample_rate=44100 -t 120 -b:a 64k "$soundFolder/show/02 Wunsch.mp3"
    printf 'b *M=Wunsch\r\nd *M=<\r\n' >"$soundFolder/show/Panorell.txt"
    testbedSpawn parec -d null.monitor --format=s16le "--rate=$soundRate" --channels=1 --latency-msec=50 \
        --raw "$soundFolder/recorded"

    soundProgram 1
    heard "music plays" 30 above 440 0.01
    xdotool key period
    heard "the full stop silences it" 10 below 440 "$soundQuiet"
    xdotool key plus
    heard "plus brings it back" 10 above 440 0.01
    soundVolumeSteps
    xdotool key Right
    heard "the title asked for is heard" 60 soundGoesFrom 880 440
    xdotool key Right
    heard "the film sounds and the music has fallen" 30 soundGoesFrom 660 880
    # The film ends by itself, and the item after it asks for silence.
    heard "the music is back after the film" 30 soundGoesFrom 880 660
    heard "the stop mark fades the music out" 40 below 880 "$soundQuiet"
    soundProgramEnd

    soundProgram 0
    heard "without music there is silence" 15 staysSilent 5
    soundProgramEnd
    soundProbe
    # shellcheck source=tests/program/audition_sound_test.sh
    . tests/program/audition_sound_test.sh
    runAuditionSound
    soundlessShow
    rm -rf "$soundFolder"
    echo "sound: $((failed - before)) failed"
}

# probe COMMAND: one media command to the program's own back-end.
probe() { echo "$1" >>"$soundFolder/commands"; }

soundProbe() {
    local mp3=$soundFolder/two.mp3 film=$soundFolder/show/c.mpg
    # Three seconds of one pitch, then a minute of another.
    ffmpeg -v error -f lavfi -i "sine=frequency=440:sample_rate=44100:duration=3" \
        -f lavfi -i "sine=frequency=880:sample_rate=44100:duration=60" -filter_complex "[0][1]concat=n=2:v=0:a=1" \
        -b:a 64k "$mp3"
    : >"$soundFolder/commands"
    testbedSpawn "${wineCommand[@]}" build/windows/tests/program/media_probe.exe "$(windowsPath "$soundFolder/commands")"
    soundProcess=${testbedPids[-1]}
    probe "open $(windowsPath "$mp3") alias AUDIO"
    probe "play AUDIO"
    heard "an MP3 plays to its second part" 30 soundGoesFrom 880 440
    probe "play AUDIO from 0"
    heard "played from 0 it begins anew" 10 soundGoesFrom 440 880
    probe "close AUDIO"
    probe "open $(windowsPath "$film") alias VIDEO"
    probe "play VIDEO"
    heard "a film sounds" 30 above 660 0.01
    probe "set VIDEO audio all off"
    heard "with its audio off it is silent" 10 below 660 "$soundQuiet"
    heard "and stays so" 5 below 660 "$soundQuiet"
    probe "set VIDEO audio all on"
    heard "with its audio on it sounds again" 10 above 660 0.01
    probe "close VIDEO"
    probe "end"
    heard "the probe ends" 10 soundProgramIsGone
    kill "$soundProcess" 2>/dev/null || true
}

# Four steps up are 80 units more: 300 against 220, measured with the same tone.
soundVolumeSteps() {
    local quiet
    sleep 0.6
    quiet=$(loudness 440)
    xdotool key plus plus plus plus
    heard "four steps of plus are heard" 10 above 440 "$(awk -v q="$quiet" 'BEGIN {print q * 1.25}')"
    xdotool key minus minus minus minus
    heard "four steps of minus are heard" 10 below 440 "$(awk -v q="$quiet" 'BEGIN {print q * 1.1}')"
}
