"""The breaks that no test can notice, each with the reason: paragraphs of `key: value` lines.

    file: src/room/class.cpp
    kind: statement removed
    was: names.reserve(3);
    becomes: …                  (only where the line has several breaks of that kind)
    reason: It only saves memory from being moved.

`was` and `becomes` are the whole changed lines with single spaces, as `break --list` shows them, so that an
entry holds wherever the line moves to."""

import dataclasses

from .onebreak import KINDS


class Wrong(Exception):
    pass


@dataclasses.dataclass(frozen=True)
class Entry:
    file: str
    kind: str
    was: str
    reason: str
    becomes: str = None

    def matches(self, each, source):
        if (self.file, self.kind) != (each.file, each.kind):
            return False
        was, becomes = each.lines(source)
        return was == self.was and self.becomes in (None, becomes)


def read(path):
    entries = []
    fields = {}
    text = path.read_text(encoding="utf-8") if path.exists() else ""
    for number, line in enumerate([*text.splitlines(), ""], 1):
        where = f"{path}:{number}"
        if line.startswith("#"):
            continue
        if not line.strip():
            if fields:
                entries.append(entry(fields, where))
            fields = {}
            continue
        key, colon, value = line.partition(":")
        if not colon or key not in Entry.__dataclass_fields__ or key in fields:
            raise Wrong(f"{where}: \"{line}\" is none of file, kind, was, becomes, reason")
        fields[key] = " ".join(value.split())
    return entries


def entry(fields, where):
    missing = [key for key in ("file", "kind", "was", "reason") if not fields.get(key)]
    if missing:
        raise Wrong(f"{where}: the entry above has no {', '.join(missing)}")
    if fields["kind"] not in KINDS:
        raise Wrong(f"{where}: the kind \"{fields['kind']}\" is none of: {', '.join(KINDS)}")
    return Entry(**fields)
