#!/usr/bin/python3
"""That the rules notice what they are for: each gets a small tree with one thing wrong."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

LINT = pathlib.Path(__file__).with_name("lint.py")


def complaints(check, tree):
    """What a check says of a tree, given as contents by path."""
    with tempfile.TemporaryDirectory() as folder:
        for name, content in tree.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(content)
        result = subprocess.run([sys.executable, LINT, check, folder], capture_output=True, text=True)
    lines = result.stdout.split("\n")[:-1] if result.stdout.strip() else []
    assert result.returncode == (1 if lines else 0), result.stderr
    return lines


class Arrows(unittest.TestCase):
    HEADERS = {
        "src/common/trace.h": "",
        "src/factorydebug/statusbar.h": "",
        "hardware/unit/journal.h": "",
        "hardware/unit/unit.h": "",
        "hardware/memory/physicalmemory.h": "",
        "platform/dab/dabmodule.h": "",
        "platform/dab/sim/simdabmodule.h": "",
        "simulator/window/bezel.h": "",
    }

    def check(self, path, include):
        return complaints("arrows", {**self.HEADERS, path: f'#include "{include}"\n'})

    def test_allowed(self):
        for path, include in [("src/gps/a.cpp", "common/trace.h"),
                              ("src/gps/a.cpp", "dab/dabmodule.h"),
                              ("platform/dab/sim/a.cpp", "hardware/unit/unit.h"),
                              ("hardware/radio/a.cpp", "hardware/unit/journal.h"),
                              ("hardware/usb/a.cpp", "hardware/memory/physicalmemory.h"),
                              ("hardware/unit/unit.h", "hardware/memory/physicalmemory.h"),
                              ("simulator/window/a.cpp", "dab/sim/simdabmodule.h"),
                              ("tests/gps/a.cpp", "hardware/unit/unit.h")]:
            self.assertEqual(self.check(path, include), [])

    def test_wrong(self):
        for path, include in [("src/gps/a.cpp", "factorydebug/statusbar.h"),
                              ("src/common/a.cpp", "factorydebug/statusbar.h"),
                              ("src/gps/a.cpp", "hardware/unit/unit.h"),
                              ("src/gps/a.cpp", "dab/sim/simdabmodule.h"),
                              ("hardware/unit/a.cpp", "dab/dabmodule.h"),
                              ("hardware/unit/a.cpp", "hardware/memory/physicalmemory.h"),
                              ("hardware/radio/a.cpp", "hardware/memory/physicalmemory.h"),
                              ("platform/dab/sim/a.cpp", "simulator/window/bezel.h"),
                              ("panel/a.cpp", "hardware/unit/unit.h")]:
            said = self.check(path, include)
            self.assertEqual(len(said), 1, path)
            self.assertIn(f'{path}:1: "{include}"', said[0])


class Others(unittest.TestCase):
    def test_length(self):
        self.assertEqual(complaints("length", {"src/a.cpp": "\n" * 300}), [])
        self.assertEqual(len(complaints("length", {"src/a.cpp": "\n" * 301})), 1)

    def test_format(self):
        self.assertEqual(len(complaints("format", {"src/a.cpp": "int  a;\n"})), 1)

    def test_names(self):
        self.assertEqual(complaints("names", {"src/a/view.h": "class View\n{\n};\n"}), [])
        self.assertEqual(len(complaints("names", {"src/a/other.h": "class View\n{\n};\n"})), 1)

    def test_tests(self):
        tree = {"src/a/view.h": "class View\n{\n};\n", "tests/a/tst_view_moves.cpp": ""}
        self.assertEqual(complaints("tests", tree), [])
        self.assertEqual(len(complaints("tests", {**tree, "tests/a/tst_gone.cpp": ""})), 1)

    def test_translations(self):
        plain = "class View : public QObject\n{\n    Q_OBJECT\n    void f() { tr(\"text\"); }\n};\n"
        self.assertEqual(complaints("translations", {"src/a/view.h": plain}), [])
        lacking = plain.replace("    Q_OBJECT\n", "")
        self.assertNotEqual(complaints("translations", {"src/a/view.h": lacking}), [])

    def test_images(self):
        tree = {"src/images/factorydebug.qrc": "<file>on.png</file>",
                "src/a/view.cpp": '":/images/on.png"\n'}
        self.assertEqual(complaints("images", tree), [])
        self.assertEqual(len(complaints("images", {**tree, "src/a/view.cpp": ""})), 1)

    def test_oddities(self):
        tree = {"tests/a/tst_a.cpp": "void TestA::isOdd()\n"}
        named = "# Oddities\n\n- It is odd: `tst_a::isOdd`.\n"
        self.assertEqual(complaints("oddities", {**tree, "docs/oddities.md": named}), [])
        for wrong in [named.replace("isOdd", "isEven"), named.replace(": `tst_a::isOdd`", "")]:
            self.assertEqual(len(complaints("oddities", {**tree, "docs/oddities.md": wrong})), 1)

    def test_verbs(self):
        table = "simulator/console/verbtable.cpp"
        tree = {table: '    {"World", "plug", "SLOT",\n     "…"},\n'}
        self.assertEqual(complaints("verbs", {**tree, "docs/console.md": "`plug SLOT`"}), [])
        self.assertEqual(len(complaints("verbs", {**tree, "docs/console.md": ""})), 1)
        self.assertEqual(len(complaints("verbs", {table: "", "docs/console.md": ""})), 1)


if __name__ == "__main__":
    unittest.main()
