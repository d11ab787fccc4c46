"""Which room may include which."""

import pathlib
import re

from rules import tree
from rules.tree import CODE, files, text

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
    if (tree.root / path.parent / target).is_file() and "/" not in target:
        return None
    for base in ("src", "platform", ""):
        if (tree.root / base / target).is_file():
            return room(pathlib.Path(base) / target)
    return None


def is_sim(target):
    return re.match(r"\w+/sim/", target) is not None


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


def arrows():
    for path in files(*CODE):
        for number, target in included(path):
            wrong = wrong_arrow(path, target)
            if wrong:
                yield f"{path}:{number}: \"{target}\": {wrong}"
