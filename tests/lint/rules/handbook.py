"""The docs, and what they tell of."""

import pathlib
import re

from rules import tree
from rules.tree import CODE, files, text

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

# Of the whole tree, and how many lines tell what a folder is for.
TOP_FILES = {"CHANGELOG.md", "CMakeLists.txt", "CMakePresets.json", "LICENSE", "README.md", "run", "test"}
LONGEST_README = 40


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
    if not (tree.root / there).exists():
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
        if not (tree.root / readme).is_file():
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
    if program.name in BUILT_PROGRAMS or "/" in words[0] and (tree.root / program).is_file():
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
