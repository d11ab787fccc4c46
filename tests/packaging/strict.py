#!/usr/bin/python3
"""Has a compiler read the plug-in's sources as C++11 and nothing else, in one go, which takes it as long as three of
them: each name outside of a class is there only once.

    strict.py SOURCE BUILD COMPILER OPTION...

The folders and definitions are those that BUILD compiles them with.
"""

import json
import pathlib
import shlex
import subprocess
import sys

STRICT = ["-std=c++11", "-pedantic", "-Wall", "-Wextra", "-Werror", "-fPIC", "-fsyntax-only"]


def compilations(source, build):
    """The build's command for each of the plug-in's sources."""
    entries = json.loads((build / "compile_commands.json").read_text())
    return {pathlib.Path(entry["file"]): entry["command"] for entry in entries
            if "/factorydebug_objects.dir/" in entry["command"] and entry["file"].startswith(f"{source}/src/")}


def visible(command):
    """The folders and definitions of a command."""
    words = iter(shlex.split(command))
    for word in words:
        if word == "-isystem":
            yield from (word, next(words))
        elif word.startswith(("-I", "-D")):
            yield word


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    source, build = map(pathlib.Path, sys.argv[1:3])
    commands = compilations(source, build)
    if set(commands) != set((source / "src").rglob("*.cpp")):
        sys.exit(f"{build} does not compile just the sources of {source / 'src'}")
    text = "".join(f'#include "{path}"\n' for path in sorted(commands))
    reading = [*sys.argv[3:], *visible(next(iter(commands.values()))), *STRICT, "-x", "c++", "-"]
    sys.exit(subprocess.run(reading, input=text, text=True).returncode)


main()
