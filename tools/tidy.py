#!/usr/bin/env python3
"""Runs clang-tidy over the project's C++ sources, as build/rules and build/windows compile them.

A source that passed is not looked at again until it, a header it includes, its compile command or the
configuration changes: a stamp named after all of these is kept in build/tidy.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
STAMPS = TOP / "build/tidy"
# What the program is made of. The tests' macros would take most of the time and are no part of it.
FOLDERS = ("src",)


def ours(path):
    """Whether a file belongs to the project, told by its folder."""
    path = pathlib.Path(path)
    return path.is_relative_to(TOP) and path.relative_to(TOP).parts[0] in FOLDERS


def dependencies(build):
    """The project's own files that each object was made from, as ninja recorded them."""
    text = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True).stdout
    found = {}
    current = None
    for line in text.splitlines():
        if line and not line[0].isspace():
            current = found.setdefault(line.split(":")[0], [])
        elif line.strip():
            path = (build / line.strip()).resolve()
            if ours(path):
                current.append(path)
    return found


def cross_arguments(compiler):
    """What makes clang see the headers that the cross compiler sees."""
    output = subprocess.run([compiler, "-v", "-E", "-x", "c++", os.devnull], capture_output=True, text=True,
                            check=True).stderr
    listed = output.split("#include <...> search starts here:")[1].split("End of search list.")[0].split()
    arguments = ["--target=x86_64-w64-windows-gnu", "-stdlib++-isystem", listed[0]]
    for folder in listed:
        # The compiler's own intrinsics are replaced by clang's.
        if "/lib/gcc/" not in folder or "c++" in folder:
            arguments += ["-isystem", folder]
    return ["--extra-arg=" + argument for argument in arguments]


def jobs():
    """(source, build folder, arguments, files that decide the result) for each source, the native ones first."""
    seen = set()
    for preset in ("rules", "windows"):
        build = TOP / "build" / preset
        commands = json.loads((build / "compile_commands.json").read_text())
        objects = dependencies(build)
        cross = []
        for command in commands:
            source = pathlib.Path(command["file"])
            if not ours(source) or source in seen or source.suffix != ".cpp":
                continue
            seen.add(source)
            words = shlex.split(command["command"])
            if preset == "windows" and not cross:
                cross = cross_arguments(words[0] if "ccache" not in words[0] else words[1])
            files = objects.get(words[words.index("-o") + 1])
            if files is None:
                sys.exit(f"{source} was not built: build the preset {preset} first")
            yield source, build, cross, sorted(set(files) | {source}), command["command"]


def stamp_of(files, *texts):
    digest = hashlib.sha256()
    for text in texts:
        digest.update(text.encode() + b"\0")
    for path in files:
        digest.update(str(path).encode() + b"\0" + path.read_bytes())
    return STAMPS / digest.hexdigest()


def run(source, build, arguments, stamp):
    """Returns clang-tidy's complaints, empty when there are none."""
    done = subprocess.run(["clang-tidy", "--quiet", "--extra-arg=-Wno-unknown-warning-option", "-p", build,
                           *arguments, source], capture_output=True, text=True,
                          check=False)
    if done.returncode == 0:
        stamp.touch()
        return ""
    return done.stdout + done.stderr


def main():
    STAMPS.mkdir(parents=True, exist_ok=True)
    configuration = (TOP / ".clang-tidy").read_text()
    only = [(TOP / name).resolve() for name in sys.argv[1:]]
    complaints = 0
    checked = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        running = []
        for source, build, arguments, files, command in jobs():
            stamp = stamp_of(files, configuration, command, *arguments)
            if (only and source not in only) or (not only and stamp.exists()):
                continue
            running.append(pool.submit(run, source, build, arguments, stamp))
        for result in concurrent.futures.as_completed(running):
            checked += 1
            if result.result():
                complaints += 1
                print(result.result(), flush=True)
    print(f"clang-tidy: {checked} files looked at, {complaints} with complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
