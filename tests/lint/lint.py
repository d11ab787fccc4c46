#!/usr/bin/python3
"""Rules of the house that a program can check. Each failure names the place and the better choice.

    lint.py CHECK [SOURCE]    one of the checks below; SOURCE is another tree to look at
"""

import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]

CODE = {".cpp", ".h"}

# The rooms that a room may include, beside itself. A name that ends in "/" stands for all below it.
ALLOWED = {
    "src/common": [],
    "src/customwidget": ["src/common"],
    "src/usbtest": ["src/common", "src/customwidget"],
    "src/gps": ["src/common"],
    "src/update": ["src/common"],
    "src/setup": ["src/common"],
    "src/system": ["src/common", "src/customwidget", "src/update"],
    "src/factorydebug": ["src/common", "src/gps", "src/setup", "src/system", "src/usbtest"],
    "hardware/unit": [],
    "hardware/storage": ["hardware/unit"],
    "hardware/memory": ["hardware/unit"],
    "hardware/receiver": ["hardware/unit"],
    "hardware/light": ["hardware/unit"],
    "hardware/radio": ["hardware/unit"],
    "hardware/usb": ["hardware/unit", "hardware/memory"],
    "hardware/shell": ["hardware/unit"],
    "hardware/update": ["hardware/unit"],
}

# Puts the devices together, and includes them all.
WHOLE_UNIT = "hardware/unit/unit.h"

# Where a class that is not named like its file is meant.
OTHER_CLASS_NAMES = {
    "src/factorydebug/factorydebugactivity.h": "FactoryDebugctivity",
    "src/gps/gpscomage.h": "CGpsComPage",
    "src/setup/setuppanel.h": "CSetupPanelForm",
    "benchmarks/measurement.h": "Quiet",
}

# Carried for the platform, which may look for it; no page draws it.
UNUSED_IMAGES = {
    "bg_statusbar.png",
    "pop/sw_popup_676x198.png",
    "pop/sw_popup_blue_dis.png",
}

# Programs that test no class of that name but the whole of something.
WHOLE_TESTS = {"commands", "containment", "headunit", "lrzsz", "pictures", "plugin", "packagetools",
               "resources"}

# The table of the console's commands.
VERBS = pathlib.Path("simulator/console/verbtable.cpp")

# Pages of the docs that tests make, and the one that tells what once was.
MADE_PAGES = {"docs/buttons.md", "docs/effects.md", "docs/console-reference.md"}
HISTORY = "CHANGELOG.md"

LONGEST_SOURCE = 300
LONGEST_TEST = 400


def files(*suffixes):
    """The files that git tracks or could, as paths from the root; outside git all there are."""
    if (ROOT / ".git").exists():
        listed = subprocess.run(
            ["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
            cwd=ROOT, check=True, capture_output=True).stdout.decode()
        paths = [pathlib.Path(name) for name in listed.split("\0") if name]
    else:
        paths = [path.relative_to(ROOT) for path in sorted(ROOT.rglob("*"))]
    return [path for path in paths
            if (not suffixes or path.suffix in suffixes) and (ROOT / path).is_file()]


def text(path):
    return (ROOT / path).read_text(encoding="utf-8")


def room(path):
    return str(path.parent) if path.parts[0] in ("src", "hardware") else path.parts[0]


def included(path):
    """Line numbers and targets of the includes in quotes that lead to another file of the tree."""
    for number, line in enumerate(text(path).splitlines(), 1):
        match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
        if match:
            yield number, match.group(1)


def target_room(path, target):
    """The room that an include leads to; None for what is generated or beside the file."""
    if (ROOT / path.parent / target).is_file() and "/" not in target:
        return None
    for base in ("src", "platform", ""):
        if (ROOT / base / target).is_file():
            return room(pathlib.Path(base) / target)
    return None


def is_sim(target):
    return re.match(r"\w+/sim/", target) is not None


def arrows():
    for path in files(*CODE):
        for number, target in included(path):
            wrong = wrong_arrow(path, target)
            if wrong:
                yield f"{path}:{number}: \"{target}\": {wrong}"


def missing_arrow(here, there):
    if there not in ALLOWED[here]:
        return f"{here} may include {', '.join(ALLOWED[here]) or 'no other room'}"
    return None


def wrong_arrow(path, target):
    """Why the include runs the wrong way, or None."""
    there = target_room(path, target)
    top = path.parts[0]
    if there is None or there == room(path):
        return None
    if top == "src":
        if there == "platform":
            return "a stand-in is no part of what the unit has" if is_sim(target) else None
        if not there.startswith("src/"):
            return "the plug-in sees the closed faces of platform/ and nothing else"
        return missing_arrow(room(path), there)
    if top == "hardware" and there.startswith("hardware/"):
        return None if str(path) == WHOLE_UNIT else missing_arrow(room(path), there)
    forbidden = {
        "platform": ("src/", "gate", "simulator", "panel"),
        "hardware": ("src/", "platform", "gate", "simulator", "panel"),
        "gate": ("src/", "platform", "simulator", "panel"),
        "simulator": ("src/", "panel"),
        "panel": ("src/", "platform", "hardware", "gate", "simulator"),
    }.get(top, ())
    if any(there.startswith(name) for name in forbidden):
        return f"no arrow runs from {top}/ to {there.rstrip('/')}/"
    return None


def format():
    sources = [str(path) for path in files(*CODE)]
    result = subprocess.run(["clang-format", "--dry-run", "-Werror", *sources], cwd=ROOT,
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
        classes = re.findall(r"^class (?:\w+_API )?(\w+)(?: final)?(?:\s*:[^;]*)?$", text(path), re.M)
        expected = OTHER_CLASS_NAMES.get(str(path))
        if expected:
            if expected not in classes:
                yield f"{path}: declares no class {expected}"
        elif classes and path.stem.replace("_p", "") not in [name.lower() for name in classes]:
            yield f"{path}: none of its classes ({', '.join(classes)}) is named like the file"
    for path in files(*CODE):
        if path.stem != path.stem.lower():
            yield f"{path}: file names are in lower case"


def tests():
    """Every tst_<class> has a class or a file of that name to test."""
    stems = {path.stem for path in files(*CODE)}
    headers = "\n".join(text(path) for path in files(".h"))
    for path in files(".cpp"):
        if path.parts[0] == "tests" and path.stem.startswith("tst_"):
            tested = path.stem[len("tst_"):]
            # A part of a class's tests has the topic behind the class: tst_<class>_<topic>.
            subject = tested.split("_")[0]
            if path.parts[1] in ("scenarios", "journals", "lint", "packaging") or subject in WHOLE_TESTS:
                continue
            if subject not in stems and not re.search(rf"^class (\w+_API )?{subject}\b", headers,
                                                      re.I | re.M):
                yield f"{path}: there is no class or file \"{subject}\""


def translations():
    sources = [str(path) for path in files(".cpp", ".h", ".ui") if path.parts[0] == "src"]
    with tempfile.TemporaryDirectory() as folder:
        catalogue = pathlib.Path(folder) / "texts.ts"
        result = subprocess.run(["lupdate", "-silent", *sources, "-ts", catalogue], cwd=ROOT,
                                capture_output=True, text=True)
        found = catalogue.read_text(encoding="utf-8")
    for line in result.stderr.splitlines():
        yield f"{line.strip()}"
    context = None
    for line in found.splitlines():
        match = re.search(r"<name>(.*?)</name>", line)
        context = match.group(1) if match else context
        if "<source>" in line and not context:
            yield f"a text without a context: {line.strip()}"
    if "<source>" not in found:
        yield "lupdate found no text at all"


def images():
    resource = pathlib.Path("src/images/factorydebug.qrc")
    listed = set(re.findall(r"<file[^>]*>([^<]+)</file>", text(resource)))
    sources = "\n".join(text(path) for path in files(".cpp", ".h", ".ui") if path.parts[0] == "src")
    # A "%1" in a name stands for anything.
    patterns = {re.sub(r"%\d", ".*", re.escape(name).replace(r"\%", "%"))
                for name in re.findall(r":/images/([^\")]+?)(?:\.png)?[\")<]", sources)}
    for name in sorted(listed):
        stem = name.rsplit(".", 1)[0]
        is_used = any(re.fullmatch(pattern, stem) for pattern in patterns)
        if not is_used and name not in UNUSED_IMAGES:
            yield f"{resource}: {name} is used by no page"
        if is_used and name in UNUSED_IMAGES:
            yield f"{name} is used: take it from the list of those that are not"
    for path in files(".png"):
        if path.parts[:2] == ("src", "images") and str(path.relative_to("src/images")) not in listed:
            yield f"{path}: not listed in {resource}"


def oddities():
    page = pathlib.Path("docs/oddities.md")
    sources = {path.stem: text(path) for path in files(".cpp") if path.parts[0] == "tests"}
    for oddity in re.findall(r"^- (.*?)(?=^- |\Z)", text(page), re.M | re.S):
        named = re.findall(r"`(tst_\w+)::(\w+)`", oddity)
        first = " ".join(oddity.split())[:60]
        if not named:
            yield f"{page}: \"{first}…\" names no test, as `tst_class::function`"
        for program, function in named:
            if not re.search(rf"void \w+::{function}\(\)", sources.get(program, "")):
                yield f"{page}: \"{first}…\": there is no {program}::{function}"


def written_pages():
    """The pages that people write, of the docs and beside the sources."""
    return [path for path in files(".md") if str(path) not in MADE_PAGES | {HISTORY}]


def verbs():
    docs = "\n".join(text(path) for path in written_pages() if path.parts[0] == "docs")
    names = re.findall(r'^\s*\{"\w+", "([a-z][a-z-]*)", "', text(VERBS), re.M)
    for name in names:
        if not re.search(rf"`{name}[ `]", docs):
            yield f"{VERBS}: the docs do not tell of the command `{name}`"
    if not names:
        yield f"{VERBS}: no command found"


CHECKS = [arrows, format, length, names, tests, translations, images, oddities, verbs]


def main():
    global ROOT
    by_name = {check.__name__: check for check in CHECKS}
    if len(sys.argv) not in (2, 3) or sys.argv[1] not in by_name:
        sys.exit(f"{__doc__}\nChecks: {' '.join(by_name)}")
    if len(sys.argv) == 3:
        ROOT = pathlib.Path(sys.argv[2]).resolve()
    complaints = list(by_name[sys.argv[1]]())
    print("\n".join(complaints))
    sys.exit(1 if complaints else 0)


main()
