#!/usr/bin/python3
"""Rules of the house that a program can check. Each failure names the place and the better choice.

    lint.py CHECK [SOURCE]    one of the checks below; SOURCE is another tree to look at
"""

import pathlib
import sys

sys.dont_write_bytecode = True  # The folder belongs to the sources.

from rules import arrows, handbook, resources, sources, suite, tree

CHECKS = [arrows.arrows, sources.python, sources.format, sources.length, sources.names, sources.constants, suite.tests,
          suite.oddities, resources.translations, resources.images, handbook.links, handbook.contents, handbook.verbs,
          handbook.commands, handbook.options]


def main():
    by_name = {check.__name__: check for check in CHECKS}
    if len(sys.argv) not in (2, 3) or sys.argv[1] not in by_name:
        sys.exit(f"{__doc__}\nChecks: {' '.join(by_name)}")
    if len(sys.argv) == 3:
        tree.root = pathlib.Path(sys.argv[2]).resolve()
    complaints = list(by_name[sys.argv[1]]())
    print("\n".join(complaints))
    sys.exit(1 if complaints else 0)


if __name__ == "__main__":
    main()
