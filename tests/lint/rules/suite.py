"""What has a test."""

import pathlib
import re

from rules import tree
from rules.tree import CODE, declared_classes, files, text

# Programs that test no class of that name but the whole of something.
WHOLE_TESTS = {"commands", "containment", "headunit", "lrzsz", "pictures", "plugin", "packagetools",
               "resources"}

# The classes that a test of another class tests, since they do nothing without it: "<source> <test>" in each line.
TESTED_WITH = pathlib.Path("tests/lint/tested-with.txt")

# The class of a shorter source does nothing but hold others together.
SHORTEST_TESTED = 25


def tested_with():
    """The test of each source that has none of its own, by the source without its suffix."""
    lines = text(TESTED_WITH).splitlines() if (tree.root / TESTED_WITH).is_file() else []
    return dict(line.split() for line in lines if line and not line.startswith("#"))


def untested():
    """What is wrong with the tests of the classes that do something."""
    programs = {path.stem for path in files(".cpp", ".py") if path.stem.startswith("tst_")}
    subjects = {program.split("_")[1] for program in programs}
    elsewhere = tested_with()
    for path in files(".cpp"):
        header = path.with_suffix(".h")
        if path.parts[0] in ("tests", "benchmarks", "tools") or not (tree.root / header).is_file():
            continue
        source = str(path.with_suffix(""))
        classes = {name.lower() for name in declared_classes(header)}
        has_own = bool(subjects & (classes | {path.stem}))
        other = elsewhere.pop(source, None)
        if other and has_own:
            yield f"{TESTED_WITH}: {source} has a test of its own"
        elif other and other not in programs:
            yield f"{TESTED_WITH}: there is no test {other} of {source}"
        elif classes and not (has_own or other) and len(text(path).splitlines()) >= SHORTEST_TESTED:
            yield f"{path}: there is no tst_{path.stem}, and {TESTED_WITH} names no other test"
    for source in elsewhere:
        yield f"{TESTED_WITH}: there is no class {source}"


def tests():
    """Every class that does something has a test, and every tst_<class> a class or a file of that name to test."""
    yield from untested()
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
