#!/usr/bin/python3
"""That qtfloor.py notices what it is for, by a list of symbols in nm's place, and what tools/qt-since takes over."""

import io
import pathlib
import subprocess
import sys
import tarfile
import tempfile
import unittest

CHECK = pathlib.Path(__file__).with_name("qtfloor.py")
QT_SINCE = pathlib.Path(__file__).resolve().parents[2] / "tools" / "qt-since"

# Each symbol is its own readable name here.
NM = """#!/bin/sh
while [ $# -gt 1 ]; do shift; done
sed 's/^/                 U /' "$1"
"""

TABLE = "# Of a source\n_ZNew 5.10\n_ZInline 5.4\n_ZSized{size_t}{qptrdiff} 5.5\n"

EXCEPTIONS = "# Why\n_ZInline\n    Inline\n    in 5.3.\n\n_ZSized{size_t}{qptrdiff}\n    Also.\n"


def complaints(*asked, exceptions=EXCEPTIONS):
    """What the check says of a plug-in that asks for these symbols."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        paths = [folder / "nm", folder / "plugin", folder / "table", folder / "exceptions"]
        for path, content in zip(paths, (NM, "\n".join(asked) + "\n", TABLE, exceptions)):
            path.write_text(content)
        paths[0].chmod(0o755)
        result = subprocess.run([sys.executable, CHECK, *paths], capture_output=True, text=True)
    lines = result.stdout.split("\n")[:-1] if result.stdout.strip() else []
    assert result.returncode == (1 if lines else 0), result.stderr
    return lines


class Check(unittest.TestCase):
    USUAL = "_ZOld@Qt_5", "_ZInline@Qt_5", "_ZSizedmx@Qt_5", "_ZNew@OTHER_1", "_ZNew"

    def test_allowed(self):
        self.assertEqual(complaints(*self.USUAL), [])
        self.assertEqual(complaints("_ZInline@Qt_5", "_ZSizedji@Qt_5"), [])

    def test_newer(self):
        for version in "Qt_5", "Qt_5.15":
            self.assertEqual(complaints(*self.USUAL, f"_ZNew@{version}"),
                             ["The plug-in asks for _ZNew, which Qt has since 5.10 (_ZNew)"])
        self.assertEqual(len(complaints(*self.USUAL, exceptions="")), 2)

    def test_private(self):
        self.assertEqual(complaints(*self.USUAL, "_ZOwn@Qt_5_PRIVATE_API"),
                         ["The plug-in asks for _ZOwn, which is private to Qt (_ZOwn)"])

    def test_exceptions(self):
        said = complaints("_ZOld@Qt_5", "_ZInline@Qt_5")
        self.assertEqual(said, ["The plug-in asks no longer for _ZSized{size_t}{qptrdiff}: it is no exception"])
        said = complaints(*self.USUAL, exceptions=EXCEPTIONS + "_ZOld\n    Old.\n")
        self.assertEqual(said, ["The plug-in asks no longer for _ZOld: it is no exception"])
        self.assertEqual(complaints(*self.USUAL, exceptions=EXCEPTIONS + "_ZOld sometimes\n    Old.\n"), [])
        said = complaints(*self.USUAL, exceptions=EXCEPTIONS.replace("    Also.\n", ""))
        self.assertEqual(said, ["_ZSized{size_t}{qptrdiff} is an exception without a reason"])

    def test_nothing(self):
        self.assertIn("The plug-in asks nothing of Qt", complaints("_ZNew"))


CORE = """# Confirmed
libQt5Core.so.5 libqt5core5a #MINVER#
| libqt5core5a #MINVER#, qtbase-abi-5-15-8
* Build-Depends-Package: qtbase5-dev
 Qt_5.10@Qt_5.10 5.10.0
 Qt_5@Qt_5 5.6.0~beta
 (symver)Qt_5_PRIVATE_API 0 1
 _ZOld@Qt_5 5.0.2
 _ZPatch@Qt_5 5.3.1
 _ZEarly@Qt_5 5.6.0~beta
 _ZTen@Qt_5 5.10.0 2
 _ZPrivate@Qt_5_PRIVATE_API 5.9.0 1
 (subst)_ZSized{size_t}@Qt_5 5.5.0
 (arch=!armel !armhf)_ZHost@Qt_5 5.4.0
 (optional=templinst)_ZInstance@Qt_5 5.4.0
 (subst|optional=inline)_ZInline@Qt_5 5.4.0
 (c++)"non-virtual thunk to QThing::~QThing()@Qt_5" 5.4.0
 tag@Qt_5.9 5.9.0
 tag@Qt_5.15 5.15.1
"""


class Table(unittest.TestCase):
    def test_made(self):
        with tempfile.TemporaryDirectory() as folder:
            source = pathlib.Path(folder, "qt.debian.tar.xz")
            with tarfile.open(source, "w:xz") as archive:
                for library, content in ("libqt5core5a", CORE), ("libqt5gui5", " _ZGui@Qt_5 5.4.0\n"), \
                                        ("libqt5widgets5", " _ZOld@Qt_5 5.7.0\n _ZWidget@Qt_5 5.4.0\n"):
                    member = tarfile.TarInfo(f"debian/{library}.symbols")
                    member.size = len(content)
                    archive.addfile(member, io.BytesIO(content.encode()))
            table = pathlib.Path(folder, "table")
            subprocess.run([sys.executable, QT_SINCE, "--source", source, table], check=True)
            head, *lines = table.read_text().splitlines()
        self.assertIn("qt.debian.tar.xz", head)
        self.assertEqual(lines, ["_ZEarly 5.6", "_ZGui 5.4", "_ZHost 5.4", "_ZSized{size_t} 5.5", "_ZTen 5.10",
                                 "_ZWidget 5.4", "tag 5.9"])


if __name__ == "__main__":
    unittest.main()
