#!/usr/bin/python3
"""Rules of the house that a program can check. Each failure names the place and the better choice.

    lint.py CHECK [SOURCE]    one of the checks below; SOURCE is another tree to look at
"""

import pathlib
import re
import subprocess
import sys
import tempfile
from xml.etree import ElementTree

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

# The programs that a build makes for people.
BUILT_PROGRAMS = {"headunit", "headunit-ctl", "headunit-panel", "headunit-sweep"}

# What else the docs have typed at a shell, and those of its options that they name.
SHELL_PROGRAMS = {"cd", "cmake", "ctest"}
SHELL_OPTIONS = {"--build", "--component", "--install", "--prefix", "--preset", "--target"}

LONGEST_SOURCE = 300
LONGEST_TEST = 400
TOP_FILES = {"CHANGELOG.md", "CMakeLists.txt", "CMakePresets.json", "LICENSE", "README.md", "run", "test"}
LONGEST_README = 40


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


def python():
    """What flake8 says of the programs that are Python."""
    begin = re.compile(r"#!\S+[/ ]python3\b")
    programs = [str(path) for path in files()
                if path.suffix == ".py" or not path.suffix and begin.match((ROOT / path).read_text(errors="replace"))]
    config = pathlib.Path(__file__).resolve().parents[2] / ".flake8"
    result = subprocess.run(["flake8", "--config", config, *programs], cwd=ROOT, check=False, capture_output=True,
                            text=True)
    yield from (result.stdout + result.stderr).splitlines()


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


def translated(path):
    """The translation, None where it is unfinished, by context and text of a catalogue."""
    return {(context.findtext("name"), message.findtext("source")):
            None if message.find("translation").get("type") else message.findtext("translation")
            for context in ElementTree.parse(path).iter("context") for message in context.iter("message")}


def wrong_translation(original, translation):
    """What is wrong with the translation of a text, or None."""
    if not translation:
        return "is not translated"
    before, after = (re.sub(r"\S.*\S|\S", "…", one, flags=re.S) for one in (original, translation))
    return None if before == after else f"begins or ends otherwise than {translation!r}"


def translations():
    sources = [str(path) for path in files(".cpp", ".h", ".ui") if path.parts[0] == "src"]
    with tempfile.TemporaryDirectory() as folder:
        catalogue = pathlib.Path(folder) / "texts.ts"
        result = subprocess.run(["lupdate", "-silent", *sources, "-ts", catalogue], cwd=ROOT,
                                capture_output=True, text=True)
        found = translated(catalogue)
    for line in result.stderr.splitlines():
        yield f"{line.strip()}"
    for context, original in found:
        if not context:
            yield f"a text without a context: {original!r}"
    if not found:
        yield "lupdate found no text at all"
    for path in files(".ts"):
        known = translated(ROOT / path)
        for context, original in sorted(found.keys() ^ known.keys()):
            yield f"{path}: {context}: {original!r} is only in {'src' if (context, original) in found else 'it'}"
        for context, original in sorted(found.keys() & known.keys()):
            wrong = wrong_translation(original, known[context, original])
            if wrong:
                yield f"{path}: {context}: {original!r} {wrong}"


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


def markdown(path):
    """Number, kind and content of each line: "text", "typed" for indented code, "shown" for framed code."""
    kind = before = "text"
    is_blank = True
    for number, line in enumerate(text(path).splitlines(), 1):
        if line.startswith("```"):
            kind = "text" if kind == "shown" else "shown"
            continue
        if kind != "shown":
            is_indented = line.startswith("    ") and (is_blank or before == "typed")
            kind = "typed" if is_indented else "text"
        before = kind if line.strip() else before
        is_blank = not line.strip()
        yield number, kind, line


def headings(path):
    """What links to its headings are called."""
    names = []
    for _, kind, line in markdown(path):
        if kind == "text" and re.match(r"#+ ", line):
            words = re.sub(r"[^\w\- ]", "", line.lstrip("# ").lower())
            names.append(words.strip().replace(" ", "-"))
    return {f"{name}-{names[:index].count(name)}" if name in names[:index] else name
            for index, name in enumerate(names)}


def wrong_link(path, target):
    """Why a link from a page leads nowhere, or None."""
    name, _, heading = target.partition("#")
    there = path.parent / name if name else path
    if not (ROOT / there).exists():
        return f"there is no {name}"
    if heading and (there.suffix != ".md" or heading not in headings(there)):
        return f"{name or path} has no heading \"{heading}\""
    return None


def links():
    for path in files(".md"):
        for number, kind, line in markdown(path):
            prose = re.sub(r"`[^`]*`", "", line) if kind == "text" else ""
            for target in re.findall(r"\]\(([^)\s]+)\)", prose):
                wrong = None if re.match(r"[a-z]+:", target) else wrong_link(path, target)
                if wrong:
                    yield f"{path}:{number}: {wrong}"


def contents():
    """Every page is found from the contents, every top folder tells what it is for, and nothing that a program has made
    lies beside them."""
    for path in files():
        if len(path.parts) == 1 and path.name not in TOP_FILES and not path.name.startswith("."):
            yield f"{path}: is none of the files at the top"
    page = pathlib.Path("docs/README.md")
    for path in files(".md"):
        if path.parent == page.parent and path != page and f"]({path.name})" not in text(page):
            yield f"{page}: does not name {path.name}"
    for folder in sorted({path.parts[0] for path in files() if len(path.parts) > 1}):
        readme = pathlib.Path(folder, "README.md")
        if folder.startswith("."):
            continue
        if not (ROOT / readme).is_file():
            yield f"{readme}: is missing: what lives there, what it may include, what to try, where to read on"
        elif len(text(readme).splitlines()) > LONGEST_README:
            yield f"{readme}: more than a screen of {LONGEST_README} lines"


def verb_names():
    return re.findall(r'^\s*\{"\w+", "([a-z][a-z-]*)", "', text(VERBS), re.M)


def verbs():
    docs = "\n".join(text(path) for path in written_pages() if path.parts[0] == "docs")
    for name in verb_names():
        if not re.search(rf"`{name}[ `]", docs):
            yield f"{VERBS}: the docs do not tell of the command `{name}`"
    if not verb_names():
        yield f"{VERBS}: no command found"


def typed_commands(path):
    """Line number and words of what a page has typed, in indented code and in columns of commands."""
    is_continued = in_commands = False
    for number, kind, line in markdown(path):
        words = line.split()
        if kind == "typed" and words and not is_continued:
            yield number, words
        is_continued = line.endswith("\\")
        cells = line.split("|") if kind == "text" and line.startswith("|") else []
        in_commands = bool(cells) and (in_commands or cells[1].strip() == "command")
        spans = re.findall(r"`([^`]+)`", cells[1] if in_commands else "")
        # Anywhere else a command can be told from a name only where its program stands before it.
        spans += re.findall(r"`(headunit-ctl [^`]+)`", line) if kind == "text" else []
        for span in spans:
            yield number, span.split()


def wrong_command(words, verbs):
    """What is wrong with a line for the console or the shell, or None."""
    program = pathlib.Path(words[0])
    if words[0] in verbs or words[0].startswith("#") or words[0] in SHELL_PROGRAMS:
        return None
    if program.name == "headunit-ctl":
        command = words[3:] if words[1:2] == ["--unit"] else words[1:]
        is_verb = not command or command[0] in verbs or not re.match(r"[a-z]", command[0])
        return None if is_verb else f"there is no command \"{command[0]}\""
    if program.name in BUILT_PROGRAMS or "/" in words[0] and (ROOT / program).is_file():
        return None
    if program.parts[0] == "build" and any(path.stem == program.name for path in files(*CODE)):
        return None
    return f"there is no command \"{words[0]}\"; what is shown and not typed stands between ```"


def commands():
    known = set(verb_names())
    for path in written_pages():
        for number, words in typed_commands(path):
            wrong = wrong_command(words, known)
            if wrong:
                yield f"{path}:{number}: {wrong}"


def own_options():
    """The options that our programs and the console's commands take."""
    found = set(re.findall(r"--[a-z][a-z-]*", text(VERBS)))
    for path in files(".cpp", ".py", ""):
        if path.parts[0] == "tests":
            continue
        source = text(path)
        if "QCommandLineParser" in source:
            names = re.findall(r'(?:\{|Option(?: \w+)?\()(?:\{"\w", )?"([a-z][a-z-]*)"\}?[,)]', source)
            found |= {f"--{name}" for name in names}
        found |= set(re.findall(r'add_argument\((?:"-\w", )?"(--[a-z][a-z-]*)"', source))
        for pattern in re.findall(r"^\s*(-[-a-z=| ]*)\)", source, re.M):
            found |= set(re.findall(r"--[a-z][a-z-]*", pattern))
    return found


def options():
    known = own_options()
    for path in written_pages():
        before = ""
        for number, kind, line in markdown(path):
            # A command may have begun in the line before.
            foreign = SHELL_OPTIONS if re.search(r"\b(cmake|ctest)\b", before + line) else set()
            for option in re.findall(r"(?<![\w-])--[a-z][a-z-]*", line if kind != "shown" else ""):
                if option not in known | foreign:
                    yield f"{path}:{number}: no program of ours has the option {option}"
            before = line + " "


CHECKS = [arrows, python, format, length, names, tests, translations, images, oddities, links, contents, verbs,
          commands, options]


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


if __name__ == "__main__":
    main()
