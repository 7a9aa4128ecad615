"""The programs that are compared: how each is started on the first picture of a folder, filling the screen."""

import dataclasses
import os
import pathlib
import typing


@dataclasses.dataclass
class Viewer:
    """A program that shows pictures, and its keys (names of keysyms)."""

    name: str
    command: typing.Callable[[pathlib.Path], list]
    """The command that shows a folder."""
    next_key: str
    """Takes it to the next picture."""
    cut_key: typing.Optional[str] = None
    """Makes pictures follow each other without an effect, where that is not so by itself."""


def native_environment(folder):
    """The environment of a viewer whose settings and caches lie in `folder` and nowhere else."""
    home = str(folder / "home")
    os.makedirs(home, exist_ok=True)
    own = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
    return own | {"HOME": home, "XDG_RUNTIME_DIR": os.environ["XDG_RUNTIME_DIR"]}


def panorell(exe, wine):
    """Panorell without effects: the first picture comes without one, and "a" asks for the plain cut from then on."""
    return Viewer("Panorell", lambda pictures: [*wine, exe, windows_path(pictures), "P=60", "M=0", "R=1"], "Right", "a")


def windows_path(path):
    """How a Linux path is called under Wine."""
    return "Z:" + str(path).replace("/", "\\")


def peers():
    """The viewers of Debian, the one that the others are measured by first."""
    return [
        Viewer("feh", lambda pictures: ["feh", "-F", "--sort", "filename", str(pictures)], "Right"),
        # Without -n it would hand the picture to a window that is still open.
        Viewer("geeqie", lambda pictures: ["geeqie", "-n", "-f", str(min(pictures.iterdir()))], "Page_Down"),
        # Told which output to take: looking for a graphics card that is not there would take it most of the time.
        Viewer("mpv", lambda pictures: ["mpv", "--no-config", "--fs", "--vo=x11", "--image-display-duration=inf",
                                        str(pictures)], "Return"),
    ]
