"""Finds what can be broken in a form of Qt Designer."""

import re

from .onebreak import BOOLEAN, EMPTIED, NUMBER, Break

NUMBERS = re.compile(rb"<(number|x|y|width|height|pointsize|double|red|green|blue)>(-?\d+)(\.\d+)?</")
TEXTS = re.compile(rb"<(?:string|pixmap|normaloff)\b[^>]*>([^<]+)</")
BOOLEANS = re.compile(rb"<bool>(true|false)</bool>")


def find(file, source):
    breaks = []
    for match in NUMBERS.finditer(source):
        for step in (1, -1):
            number = b"%d" % (int(match.group(2)) + step)
            breaks.append(Break(file, NUMBER, *match.span(2), number))
    for match in TEXTS.finditer(source):
        breaks.append(Break(file, EMPTIED, *match.span(1), b""))
    for match in BOOLEANS.finditer(source):
        other = b"false" if match.group(1) == b"true" else b"true"
        breaks.append(Break(file, BOOLEAN, *match.span(1), other))
    return breaks
