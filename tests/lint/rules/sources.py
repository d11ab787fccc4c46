"""How sources are written, and what they are called."""

import pathlib
import re
import subprocess

from rules import tree
from rules.tree import CODE, declared_classes, files, text

# Where a class that is not named like its file is meant.
OTHER_CLASS_NAMES = {
    "src/factorydebug/factorydebugactivity.h": "FactoryDebugctivity",
    "src/gps/gpscomage.h": "CGpsComPage",
    "src/setup/setuppanel.h": "CSetupPanelForm",
    "benchmarks/measurement.h": "Quiet",
}

LONGEST_SOURCE = 300
LONGEST_TEST = 400


def python():
    """What flake8 says of the programs that are Python."""
    begin = re.compile(r"#!\S+[/ ]python3\b")
    programs = [str(path) for path in files() if path.suffix == ".py"
                or not path.suffix and begin.match((tree.root / path).read_text(errors="replace"))]
    config = pathlib.Path(__file__).resolve().parents[3] / ".flake8"
    result = subprocess.run(["flake8", "--config", config, *programs], cwd=tree.root, check=False, capture_output=True,
                            text=True)
    yield from (result.stdout + result.stderr).splitlines()


def format():
    sources = [str(path) for path in files(*CODE)]
    result = subprocess.run(["clang-format", "--dry-run", "-Werror", *sources], cwd=tree.root,
                            capture_output=True, text=True)
    for line in result.stderr.splitlines():
        if "error:" in line:
            yield f"{line.split(' error:')[0]} run clang-format -i on it"


def length():
    for path in files(*CODE):
        limit = LONGEST_TEST if path.parts[0] == "tests" else LONGEST_SOURCE
        lines = len(text(path).splitlines())
        if lines > limit:
            yield f"{path}: {lines} lines, {limit} at the most: split what does two things"


def names():
    for path in files(".h"):
        if path.parts[0] == "tests":
            continue
        classes = declared_classes(path)
        expected = OTHER_CLASS_NAMES.get(str(path))
        if expected:
            if expected not in classes:
                yield f"{path}: declares no class {expected}"
        elif classes and path.stem.replace("_p", "") not in [name.lower() for name in classes]:
            yield f"{path}: none of its classes ({', '.join(classes)}) is named like the file"
    for path in files(*CODE):
        if path.stem != path.stem.lower():
            yield f"{path}: file names are in lower case"


def constants():
    """No text, list or the like of Qt's is made before main() begins."""
    made = re.compile(r"^(?:static |inline )*const (?:auto|Q\w+) \w+(?: =|\(|\{|$)")
    for path in files(*CODE):
        if path.parts[0] in ("tests", "benchmarks"):
            continue
        for number, line in enumerate(text(path).splitlines(), 1):
            if made.match(line) and not re.match(r"const QLatin1String \w+\(", line):
                yield f"{path}:{number}: is made before main() begins: let it be constexpr, or a QLatin1String"
