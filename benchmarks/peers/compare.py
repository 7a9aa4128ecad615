#!/usr/bin/env python3
"""Shows the same photographs by Panorell and by common viewers, in turns, and prints what each takes as a table.

compare.py PHOTOGRAPHS EXE BENCH WINE...: PHOTOGRAPHS is the folder that panorell_bench --photographs wrote, EXE is
Panorell, BENCH is panorell_bench, WINE is the command that runs them. The screen is that of DISPLAY, 1920x1080; Wine's
server has to run.
"""

import contextlib
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

import table
import viewers
from screen import Screen

ROUNDS = 5
STEPS = 19
STEPS_AFTER_REST = 5
# How long somebody looks at a picture; a viewer may use it to decode the next one.
REST_S = 1.0
POLL_S = 0.001
PATIENCE_S = 60
# What a mark's colour loses in a JPEG.
TOLERANCE = 24
SILENT = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
# The colours of the marks as in benchmarks/photographs.h, and places high and low in them: a picture counts once it
# is there as a whole. In the small picture they are in the mark whether it is enlarged or not.
MARKS = (0xFF00FF, 0x00FFFF, 0xFFFF00)
LARGE_PLACES = ((250, 60), (250, 1020))
SMALL_PLACES = ((700, 300), (700, 780))


def is_close(one, other):
    return all(abs((one >> shift & 0xFF) - (other >> shift & 0xFF)) <= TOLERANCE for shift in (0, 8, 16))


class Show:
    """A viewer that shows one folder. Raises RuntimeError when it ends early or never shows what it should."""

    def __init__(self, screen, viewer, pictures, places, environment):
        self._screen = screen
        self._viewer = viewer
        self._places = places
        self._index = 0
        self._process = None
        self._until(lambda: not any(self._shows(mark) for mark in MARKS), "an earlier picture stays on the screen")
        begun = time.perf_counter()
        self._process = subprocess.Popen(viewer.command(pictures), env=environment, **SILENT)
        try:
            self._until_mark()
        except RuntimeError:
            self.close()
            raise
        self.first_ms = 1000 * (time.perf_counter() - begun)
        if viewer.cut_key:
            # A picture may be seen before its window has the keyboard.
            time.sleep(REST_S)
            screen.press(viewer.cut_key)

    def step(self):
        """Goes to the next picture and returns how many ms after the key it is on the screen."""
        self._index += 1
        begun = time.perf_counter()
        self._screen.press(self._viewer.next_key)
        self._until_mark()
        return 1000 * (time.perf_counter() - begun)

    def peak_megabytes(self):
        """The most memory that the process has had so far."""
        status = pathlib.Path(f"/proc/{self._process.pid}/status").read_text()
        kilobytes = next(line.split()[1] for line in status.splitlines() if line.startswith("VmHWM:"))
        return int(kilobytes) * 1024 / 1e6

    def close(self):
        self._process.terminate()
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()

    def _shows(self, mark):
        return all(is_close(self._screen.colour(*place), mark) for place in self._places)

    def _until_mark(self):
        mark = MARKS[self._index % len(MARKS)]
        self._until(lambda: self._shows(mark), f"picture {self._index + 1} is not on the screen")

    def _until(self, condition, otherwise):
        deadline = time.perf_counter() + PATIENCE_S
        while not condition():
            if self._process is not None and self._process.poll() is not None:
                raise RuntimeError(f"{self._viewer.name} ended with {self._process.returncode}")
            if time.perf_counter() > deadline:
                raise RuntimeError(f"{self._viewer.name}: {otherwise}")
            time.sleep(POLL_S)


def measure_viewer(screen, viewer, photographs, environment):
    """One round of one viewer: a dictionary of table.FIGURES."""
    with contextlib.closing(Show(screen, viewer, photographs / "small", SMALL_PLACES, environment)) as show:
        figures = {"first_small": show.first_ms}
    with contextlib.closing(Show(screen, viewer, photographs / "large", LARGE_PLACES, environment)) as show:
        figures["first_large"] = show.first_ms
        rested, hasty = [], []
        for i in range(STEPS):
            if i < STEPS_AFTER_REST:
                time.sleep(REST_S)
            (rested if i < STEPS_AFTER_REST else hasty).append(show.step())
        figures["next_rested"] = statistics.median(rested)
        figures["next_hasty"] = statistics.median(hasty)
        figures["memory"] = show.peak_megabytes()
    return figures


def measure_overview(photographs, bench, wine):
    """Seconds from the button in Panorell's set-up until its overview shows the whole folder."""
    command = [*wine, bench, "--overview", viewers.windows_path(photographs / "large")]
    result = subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)
    return {"thumbnails": float(result.stdout)}


def measure_thumbnails(photographs):
    """Seconds that vipsthumbnail takes for the folder."""
    with tempfile.TemporaryDirectory() as target:
        pictures = sorted(map(str, (photographs / "large").iterdir()))
        begun = time.perf_counter()
        subprocess.run(["vipsthumbnail", "--size", "160x120", "-o", f"{target}/%s.jpg", *pictures], check=True)
        seconds = time.perf_counter() - begun
        made = len(list(pathlib.Path(target).iterdir()))
        if made != len(pictures):
            raise RuntimeError(f"vipsthumbnail made {made} of {len(pictures)} thumbnails")
        return {"thumbnails": seconds}


def measure(photographs, exe, bench, wine, folder):
    """The medians of all rounds, by the programs' names."""
    screen = Screen()
    # The pointer would lie on the places that are looked at, or wake what a viewer shows while it moves.
    screen.move_pointer(1919, 1079)
    environment = viewers.native_environment(folder)
    programs = [viewers.panorell(exe, wine), *viewers.peers()]
    rounds = {program.name: [] for program in programs} | {"vipsthumbnail": []}
    for number in range(ROUNDS + 1):
        print(f"round {number} of {ROUNDS}" + (" (only warms up)" if number == 0 else ""), file=sys.stderr, flush=True)
        for program in programs:
            rounds[program.name].append(measure_viewer(screen, program, photographs, environment))
        rounds["Panorell"][-1] |= measure_overview(photographs, bench, wine)
        rounds["vipsthumbnail"].append(measure_thumbnails(photographs))
    return {name: {figure: statistics.median(one[figure] for one in all_of_it[1:]) for figure in all_of_it[0]}
            for name, all_of_it in rounds.items()}


def main():
    if len(sys.argv) < 5:
        sys.exit(__doc__)
    photographs, exe, bench, *wine = sys.argv[1:]
    load = os.getloadavg()[0]
    # Another program with a window stays open, as where Wine is in use: otherwise Wine's desktop ends with each
    # program, and every start of Panorell would start it again.
    with tempfile.TemporaryDirectory() as folder, subprocess.Popen([*wine, "notepad"], **SILENT) as other:
        try:
            medians = measure(pathlib.Path(photographs), exe, bench, wine, pathlib.Path(folder))
        finally:
            other.terminate()
    print(table.render(medians))
    print(f"load average when it began: {load:.1f}")


if __name__ == "__main__":
    try:
        main()
    except (OSError, RuntimeError, subprocess.CalledProcessError) as error:
        sys.exit(f"compare.py: {error}")
