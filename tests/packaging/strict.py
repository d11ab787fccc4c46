#!/usr/bin/python3
"""Has a compiler read the plug-in's sources as C++11 and nothing else, in one go, which takes it as long as three of
them: each name outside of a class is there only once.

    strict.py [--other-sdk FOLDER] SOURCE BUILD COMPILER OPTION...

The folders and definitions are those that BUILD compiles them with; with --other-sdk, an SDK is made in FOLDER and
takes the place of the platform's faces.
"""

import argparse
import json
import pathlib
import shlex
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True  # The folder belongs to the sources.
import othersdk

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


def reading(source, build, compiler, other_sdk=None):
    """The command that has the compiler read what stands on standard input."""
    command = next(iter(compilations(source, build).values()))
    words = list(visible(command))
    if other_sdk:
        shutil.rmtree(other_sdk, ignore_errors=True)
        othersdk.write(source / "platform", other_sdk)
        words = [f"-I{other_sdk}", *(word for word in words if not word.startswith(f"-I{build}/platform/"))]
    return [*compiler, *words, *STRICT, "-x", "c++", "-"]


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--other-sdk", type=pathlib.Path)
    parser.add_argument("source", type=pathlib.Path)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("compiler", nargs=argparse.REMAINDER)
    arguments = parser.parse_args()
    source, build = arguments.source, arguments.build
    sources = compilations(source, build)
    if set(sources) != set((source / "src").rglob("*.cpp")):
        sys.exit(f"{build} does not compile just the sources of {source / 'src'}")
    text = "".join(f'#include "{path}"\n' for path in sorted(sources))
    command = reading(source, build, arguments.compiler, arguments.other_sdk)
    sys.exit(subprocess.run(command, input=text, text=True).returncode)


if __name__ == "__main__":
    main()
