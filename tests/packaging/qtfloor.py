#!/usr/bin/python3
"""That the unit's Qt has all that the plug-in asks of Qt.

    qtfloor.py NM PLUGIN TABLE EXCEPTIONS

NM is the binutils' nm, TABLE is made by tools/qt-since. EXCEPTIONS names symbols of the table that the plug-in
asks for only because it was built with a newer Qt: below each, indented, the reason why 5.3 does without it. With
"sometimes" behind it the symbol is asked for on some processors only.
"""

import pathlib
import re
import subprocess
import sys

# What the types in braces are in a symbol: on 64 bits, on 32 bits.
HOST_TYPES = {"size_t": "mj", "ssize_t": "li", "qptrdiff": "xi", "quintptr": "yj", "uint64_t": "my"}


def expanded(symbol):
    """The symbol on 64 and on 32 bits."""
    return {re.sub(r"{(\w+)}", lambda match: HOST_TYPES[match[1]][bits], symbol) for bits in (0, 1)}


def read_table(path):
    lines = [line.split() for line in path.read_text().splitlines() if not line.startswith("#")]
    return {name: since for symbol, since in lines for name in expanded(symbol)}


def read_exceptions(path):
    """The reasons, by symbol as the file has it, and the symbols that need not be asked for."""
    reasons = {}
    sometimes = set()
    symbol = None
    for line in path.read_text().splitlines():
        if line.startswith(" "):
            reasons[symbol] += line.strip()
        elif line and not line.startswith("#"):
            symbol, _, when = line.partition(" ")
            reasons[symbol] = ""
            if when == "sometimes":
                sometimes.add(symbol)
    return reasons, sometimes


def imports(nm, plugin):
    """The version that the library gave it, and its readable name, by symbol that is asked of Qt."""
    def names(*options):
        result = subprocess.run([nm, "--dynamic", "--undefined-only", "--no-sort", *options, plugin],
                                check=True, capture_output=True, text=True)
        return [line.strip().split(" ", 1)[1] for line in result.stdout.splitlines()]

    found = {}
    for symbol, readable in zip(names(), names("--demangle")):
        name, _, version = symbol.partition("@")
        if version.startswith("Qt_"):
            found[name] = version, readable.partition("@")[0]
    return found


def complaints(asked, table, reasons, sometimes):
    excepted = {name for symbol in reasons for name in expanded(symbol)}
    if not asked:
        yield "The plug-in asks nothing of Qt"
    for name, (version, readable) in sorted(asked.items()):
        if "PRIVATE" in version:
            yield f"The plug-in asks for {readable}, which is private to Qt ({name})"
        elif name in table and name not in excepted:
            yield f"The plug-in asks for {readable}, which Qt has since {table[name]} ({name})"
    for symbol, reason in reasons.items():
        if symbol not in sometimes and not any(name in asked and name in table for name in expanded(symbol)):
            yield f"The plug-in asks no longer for {symbol}: it is no exception"
        if not reason:
            yield f"{symbol} is an exception without a reason"


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    nm, plugin = sys.argv[1:3]
    table, exceptions = map(pathlib.Path, sys.argv[3:])
    found = list(complaints(imports(nm, plugin), read_table(table), *read_exceptions(exceptions)))
    print("\n".join(found))
    sys.exit(1 if found else 0)


main()
