"""Tells which tests can notice that a source is broken."""

import collections
import functools
import os
import pathlib
import re
import shlex
import subprocess


class Owners:
    """Read from ninja's graph. A program that links the plug-in's objects owns a source if its own code leads
    to the source's object, symbol by symbol; one that has the plug-in loaded owns every source."""

    def __init__(self, workshop, sources, tests):
        self.workshop = workshop
        self.prefix = str(workshop.source) + "/"
        self.objects = {}
        for path, (_, _, made) in workshop.commands().items():
            name = path[len(self.prefix):] if path.startswith(self.prefix) else None
            if name in sources:
                self.objects[name] = made
        self.tests = {name: self.inputs(name) for name in tests}
        self.tests = {name: inputs for name, inputs in self.tests.items()
                      if inputs and any(self.prefix + source in inputs for source in self.objects)}
        self.reached = {}

    def inputs(self, target):
        status, output = self.workshop.ninja("-t", "inputs", target)
        return set(shlex.split(output)) if status == 0 else None

    @functools.cached_property
    def users(self):
        """For each file below the copy or the build folder the objects that are compiled from it."""
        _, output = self.workshop.ninja("-t", "deps")
        users = collections.defaultdict(set)
        made = None
        for line in output.splitlines():
            if line and not line.startswith(" "):
                made = line.split(":")[0]
            elif line and not line.startswith("    /usr/"):
                path = os.path.normpath(os.path.join(self.workshop.build, line.strip()))
                if path.startswith(self.prefix):
                    users[path[len(self.prefix):]].add(made)
                elif "/ui_" in path:
                    users[pathlib.PurePath(path).name].add(made)
        return users

    def objects_of(self, file):
        """The objects that change with the file, those of tests included."""
        if file in self.objects:
            return {self.objects[file]}
        path = pathlib.PurePath(file)
        return self.users[f"ui_{path.stem}.h" if path.suffix == ".ui" else file]

    def shipped_objects(self, file):
        """Those of them that the plug-in is made of."""
        return sorted(made for made in self.objects_of(file) if self.is_shipped(made))

    def is_shipped(self, made):
        """Whether it is an object of the plug-in, if only what moc or rcc has written for it."""
        return made.split(".dir/")[0] in self.folders

    @functools.cached_property
    def folders(self):
        return {made.split(".dir/")[0] for made in self.objects.values()}

    def of(self, file):
        """The tests that can notice that the file is broken."""
        changed = self.objects_of(file)
        targets = {match.group(1) for match in
                   (re.search(r"CMakeFiles/([^/]+)\.dir/", made) for made in changed) if match}
        return [name for name in self.tests if name in targets or self.reach(name) & changed]

    def reach(self, test):
        if test not in self.reached:
            self.reached[test] = self.reach_of(test)
        return self.reached[test]

    def reach_of(self, test):
        linked = self.linked(test)
        own = {each for each in linked if not self.is_shipped(each)}
        if own == linked:
            return set(self.objects.values())
        found, waiting = set(), set()
        for each in own:
            waiting |= self.symbols.leads(each)
        while waiting:
            each = waiting.pop()
            if each not in found:
                found.add(each)
                waiting |= self.symbols.leads(each)
        return found

    def linked(self, test):
        """What the test's program is linked of."""
        program = self.program(test)
        _, output = self.workshop.ninja("-t", "query", program)
        names = {line.strip("| ") for line in output.split("outputs:")[0].splitlines()}
        return {name for name in names if name.endswith((".o", ".a"))}

    def program(self, test):
        """The file behind the target's name."""
        _, output = self.workshop.ninja("-t", "query", test)
        inputs = output.split("outputs:")[0].splitlines()[2:]
        return inputs[0].strip() if inputs else test

    @functools.cached_property
    def symbols(self):
        return Symbols(self.workshop.build, set(self.objects.values()))


class Symbols:
    """Which of the plug-in's objects another object names something of."""

    def __init__(self, build, shipped):
        self.build = build
        self.by_symbol = collections.defaultdict(set)
        self.by_class = collections.defaultdict(set)
        self.known = {}
        self.members = {pathlib.PurePath(each).name for each in shipped} | {"mocs_compilation.cpp.o"}
        for each in shipped:
            for symbol in self.named(each, "--defined-only"):
                self.by_symbol[symbol].add(each)
                self.by_class[class_of(symbol)].add(each)
        self.by_class.pop(None, None)

    def named(self, path, which):
        result = subprocess.run(["nm", "--extern-only", "--format=posix", which, path], cwd=self.build,
                                capture_output=True, text=True)
        found, is_own = set(), True
        for line in result.stdout.splitlines():
            name, _, rest = line.partition(" ")
            if not rest:
                # A library may hold the plug-in's objects too.
                member = re.search(r"\[(.*)\]:$", name)
                is_own = not member or member.group(1) not in self.members
            elif is_own and rest[0] not in "vVwW":
                # What is weak comes from a header, and who uses it has its own.
                found.add(name)
        return found

    def leads(self, path):
        if path not in self.known:
            found = set()
            for symbol in self.named(path, "--undefined-only"):
                # What moc makes for a class lies elsewhere, and means the class.
                found |= self.by_symbol.get(symbol) or self.by_class.get(class_of(symbol), set())
            self.known[path] = found
        return self.known[path]


def class_of(symbol):
    match = re.match(r"_Z(?:TV|TI|TS|N)K?(\d+)(\w+)", symbol)
    return match.group(2)[:int(match.group(1))] if match else None
