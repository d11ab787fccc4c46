"""Cuts a script that shows something down to one that has no line too many."""


def shortest(lines, shows):
    """Of the lines those that are needed for "shows" to be true; it is true of all of them.

    The last line that matters is most often near the end, so ever longer ends are tried first. Then parts are left
    out, ever smaller ones, until no single line can be."""
    length = 50
    while length < len(lines):
        if shows(lines[-length:]):
            lines = lines[-length:]
            break
        length *= 4
    parts = 2
    while len(lines) > 1:
        size = -(-len(lines) // parts)
        for begin in range(0, len(lines), size):
            rest = lines[:begin] + lines[begin + size:]
            if rest and shows(rest):
                lines = rest
                parts = max(2, parts - 1)
                break
        else:
            if size == 1:
                break
            parts = min(len(lines), 2 * parts)
    return lines
