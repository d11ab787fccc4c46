"""One break: a span of a file that becomes another text."""

import dataclasses
import difflib
import random

REMOVED = "statement removed"
NEGATED = "condition negated"
SWAPPED = "statements swapped"
NUMBER = "number changed"
EMPTIED = "text emptied"
SIGNAL = "signal exchanged"
CONNECTION = "connection type changed"
BOOLEAN = "true and false exchanged"
ARGUMENT = "argument replaced"
OPERATOR = "operator changed"
UNTRANSLATED = "text untranslated"

KINDS = [REMOVED, NEGATED, SWAPPED, NUMBER, EMPTIED, SIGNAL, CONNECTION, BOOLEAN, ARGUMENT, OPERATOR,
         UNTRANSLATED]


@dataclasses.dataclass(frozen=True)
class Break:
    """Offsets are in bytes of the file, whose path is relative to the tree."""

    file: str
    kind: str
    start: int
    end: int
    text: bytes

    def applied(self, source):
        """The broken source. It has as many lines as the right one: a trace tells its line."""
        missing = source[self.start:self.end].count(b"\n") - self.text.count(b"\n")
        return source[:self.start] + self.text + b"\n" * missing + source[self.end:]

    def line(self, source):
        return source.count(b"\n", 0, self.start) + 1

    def lines(self, source):
        """The whole lines that change, before and after, each as one text with single spaces."""
        first = source.rfind(b"\n", 0, self.start) + 1
        last = source.find(b"\n", self.end)
        last = len(source) if last < 0 else last
        broken = source[first:self.start] + self.text + source[self.end:last]
        return single_spaced(source[first:last]), single_spaced(broken)

    def diff(self, source):
        lines = difflib.unified_diff(split(source), split(self.applied(source)),
                                     f"a/{self.file}", f"b/{self.file}", n=2)
        return "".join(lines)


def single_spaced(text):
    return " ".join(text.decode("utf-8", "replace").split())


def split(source):
    return source.decode("utf-8", "replace").splitlines(keepends=True)


def in_order(breaks):
    return sorted(breaks, key=lambda each: (each.start, each.end, each.text))


def drawn(breaks, seed, file):
    """The breaks of a file in the order in which they are tried: by turns one of each kind, by chance
    among those of a kind. The same seed gives the same order, whatever other files are broken."""
    chance = random.Random(f"{seed} {file}")
    by_kind = [[each for each in breaks if each.kind == kind] for kind in KINDS]
    by_kind = [group for group in by_kind if group]
    chance.shuffle(by_kind)
    for group in by_kind:
        chance.shuffle(group)
    order = []
    while by_kind:
        order += [group.pop() for group in by_kind]
        by_kind = [group for group in by_kind if group]
    return order
