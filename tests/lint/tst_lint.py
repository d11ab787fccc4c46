#!/usr/bin/python3
"""That the rules notice what they are for: each gets a small tree with one thing wrong."""

import contextlib
import io
import pathlib
import sys
import tempfile
import unittest
import unittest.mock

sys.dont_write_bytecode = True  # The folder belongs to the sources.

import lint


def complaints(check, tree):
    """What a check says of a tree, given as contents by path."""
    with tempfile.TemporaryDirectory() as folder:
        for name, content in tree.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(content)
        output = io.StringIO()
        with contextlib.redirect_stdout(output), unittest.mock.patch.object(sys, "argv", ["lint.py", check, folder]):
            try:
                lint.main()
            except SystemExit as end:
                status = end.code
    lines = output.getvalue().split("\n")[:-1] if output.getvalue().strip() else []
    assert status == (1 if lines else 0), status
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
                              ("panel/a.cpp", "simulator/window/bezel.h"),
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

    def test_python(self):
        right = f"import sys\n\nsys.exit({'1' * 110})\n"
        wrong = ["import sys\n", "print(gone)\n", f"print({'1' * 114})\n", "print( 1)\n"]
        tree = {f"tools/{number}{suffix}": f"#!/usr/bin/python3\n{source}"
                for number, source in enumerate([right, *wrong]) for suffix in ("", ".py")}
        said = complaints("python", {**tree, "tools/5": "#!/bin/sh\nimport sys\n"})
        self.assertEqual(sorted(line.split(":")[0] for line in said), sorted(tree)[2:], said)

    def test_names(self):
        self.assertEqual(complaints("names", {"src/a/view.h": "class View\n{\n};\n"}), [])
        self.assertEqual(len(complaints("names", {"src/a/other.h": "class View\n{\n};\n"})), 1)

    def test_constants(self):
        for right in ["const QLatin1String name(\"a\");\n", "constexpr QSize size(1, 2);\n",
                      "    const QString name = text();\n", "const QString &name()\n"]:
            self.assertEqual(complaints("constants", {"panel/a.cpp": right}), [])
        for wrong in ["const auto name = QStringLiteral(\"a\");\n", "static const QStringList names{\"a\"};\n",
                      "inline const QColor color(1, 2, 3);\n"]:
            self.assertEqual(len(complaints("constants", {"panel/a.h": wrong})), 1)
            self.assertEqual(complaints("constants", {"tests/a.h": wrong}), [])

    def test_tests(self):
        tree = {"src/a/view.h": "class View\n{\n};\n", "tests/a/tst_view_moves.cpp": ""}
        self.assertEqual(complaints("tests", tree), [])
        self.assertEqual(len(complaints("tests", {**tree, "tests/a/tst_gone.cpp": ""})), 1)

    def test_untested(self):
        tree = {"hardware/a/part.h": "class Part\n{\n};\n", "hardware/a/part.cpp": "\n" * 25}
        listed = {"tests/lint/tested-with.txt": "# Why.\nhardware/a/part tst_whole\n"}
        whole = {"hardware/a/whole.h": "class Whole\n{\n};\n", "tests/a/tst_whole.cpp": ""}
        own = {"tests/a/tst_part_moves.cpp": ""}
        holder = {**tree, "hardware/a/part.cpp": "\n" * 24}
        for right in [{**tree, **own}, {**tree, **whole, **listed}, holder]:
            self.assertEqual(complaints("tests", right), [])
        for wrong, words in [(tree, "there is no tst_part"), ({**tree, **listed}, "there is no test tst_whole"),
                             ({**tree, **whole, **listed, **own}, "a test of its own"),
                             ({**whole, **listed}, "there is no class hardware/a/part")]:
            said = complaints("tests", wrong)
            self.assertEqual(len(said), 1, said)
            self.assertIn(words, said[0])

    def test_translations(self):
        plain = "class View : public QObject\n{\n    Q_OBJECT\n    void f() { tr(\"text\"); }\n};\n"
        self.assertEqual(complaints("translations", {"src/a/view.h": plain}), [])
        lacking = plain.replace("    Q_OBJECT\n", "")
        self.assertNotEqual(complaints("translations", {"src/a/view.h": lacking}), [])
        self.assertEqual(complaints("translations", {"src/a/view.h": 'QT_TRANSLATE_NOOP("", "text")\n'}),
                         ["a text without a context: 'text'"])
        self.assertEqual(complaints("translations", {"src/a/view.h": ""}), ["lupdate found no text at all"])

    def test_catalogues(self):
        view = "class View : public QObject\n{\n    Q_OBJECT\n    void f() { tr(\"text \\n\"); }\n};\n"
        right = "<TS><context><name>View</name><message><source>text \n</source>" \
                "<translation>Text \n</translation></message></context></TS>"

        def check(catalogue):
            return complaints("translations", {"src/a/view.h": view, "translations/a_de.ts": catalogue})

        self.assertEqual(check(right), [])
        for wrong, said in [(right.replace("<translation>", '<translation type="unfinished">'), "is not translated"),
                            (right.replace("Text \n", ""), "is not translated"),
                            (right.replace("Text \n", "Text\n"), "begins or ends otherwise than 'Text\\n'"),
                            (right.replace("Text \n", " Text \n"), "begins or ends otherwise than ' Text \\n'")]:
            self.assertEqual(check(wrong), [f"translations/a_de.ts: View: 'text \\n' {said}"])
        self.assertEqual(check("<TS></TS>"), ["translations/a_de.ts: View: 'text \\n' is only in src"])
        self.assertEqual(check(right.replace(">text", ">old")),
                         ["translations/a_de.ts: View: 'old \\n' is only in it",
                          "translations/a_de.ts: View: 'text \\n' is only in src"])

    def test_images(self):
        tree = {"src/images/factorydebug.qrc": "<file>on.png</file>",
                "src/a/view.cpp": '":/images/on.png"\n'}
        self.assertEqual(complaints("images", tree), [])
        self.assertEqual(len(complaints("images", {**tree, "src/a/view.cpp": ""})), 1)


class Docs(unittest.TestCase):
    TABLE = {"simulator/console/verbtable.cpp": '    {"World", "plug", "SLOT [--now]",\n     "…"},\n'}

    def check(self, rule, page, tree=None):
        """How many complaints there are of docs/console.md with that content."""
        return len(complaints(rule, {**self.TABLE, **(tree or {}), "docs/console.md": page}))

    def test_oddities(self):
        tree = {"tests/a/tst_a.cpp": "void TestA::isOdd()\n"}
        named = "# Oddities\n\n- It is odd: `tst_a::isOdd`.\n"
        self.assertEqual(complaints("oddities", {**tree, "docs/oddities.md": named}), [])
        for wrong in [named.replace("isOdd", "isEven"), named.replace(": `tst_a::isOdd`", "")]:
            self.assertEqual(len(complaints("oddities", {**tree, "docs/oddities.md": wrong})), 1)

    def test_links(self):
        page = "# The `look` of it, today\n\n## Twice\n\n## Twice\n"
        for target in ["unit.png", "other.md", "#twice-1", "other.md#the-look-of-it-today", "https://a.example/b"]:
            self.assertEqual(self.check("links", f"{page}![see]({target})\n",
                                        {"docs/unit.png": "", "docs/other.md": page}), 0, target)
        for target in ["gone.png", "gone.md", "#twice-2", "other.md#gone", "other.md#shown"]:
            self.assertEqual(self.check("links", f"{page}[see\nthere]({target})\n",
                                        {"docs/other.md": page + "```\n# shown\n```\n"}), 1, target)
        self.assertEqual(self.check("links", "`[see](gone.md)`\n\n    [see](gone.md)\n"), 0)

    def test_contents(self):
        tree = {"docs/README.md": "[a](console.md)", "simulator/README.md": "\n" * 40}
        self.assertEqual(self.check("contents", "", tree), 0)
        for name, content in [("docs/other.md", ""), ("src/a.cpp", ""), ("simulator/README.md", "\n" * 41),
                              ("PACKAGE.BIN", "")]:
            self.assertEqual(self.check("contents", "", {**tree, name: content}), 1, name)

    def test_verbs(self):
        self.assertEqual(self.check("verbs", "`plug SLOT`"), 0)
        self.assertEqual(self.check("verbs", ""), 1)
        made = {"docs/console-reference.md": "`plug SLOT`"}
        self.assertEqual(self.check("verbs", "", made), 1)
        self.assertEqual(len(complaints("verbs", {"simulator/console/verbtable.cpp": ""})), 1)

    def test_commands(self):
        tree = {"run": "", "tools/make": "", "benchmarks/bench_start.cpp": ""}
        for right in ["    # A script.\n    plug usb0\n",
                      "    ./run --unit DIR \\\n        more\n",
                      "    tools/make it\n",
                      "    build/ci/simulator/headunit-ctl --unit DIR plug usb0\n",
                      "    build/ci/benchmarks/bench_start\n",
                      "```\nwhat it shows\n```\n",
                      "`headunit-ctl` and `headunit-ctl --unit DIR COMMAND…`\n",
                      "| command | does |\n|---|---|\n| `plug SLOT`, `plug` | it |\n",
                      "| id |\n|---|\n| `pull` |\n",
                      "1. a list\n    that goes on\n"]:
            self.assertEqual(self.check("commands", right, tree), 0, right)
        for wrong in ["    plug usb0\n    pull usb0\n",
                      "    ./gone\n",
                      "    tools/gone\n",
                      "    build/ci/simulator/gone\n",
                      "    build/ci/simulator/headunit-ctl --unit DIR pull usb0\n",
                      "Type `headunit-ctl pull usb0`.\n",
                      "| command | does |\n|---|---|\n| `plug SLOT`, `pull` | it |\n"]:
            self.assertEqual(self.check("commands", wrong, tree), 1, wrong)

    def test_options(self):
        tree = {"simulator/options.cpp": 'QCommandLineParser p;\n{{"h", "help"}, "…"}, {"unit",\n'
                                         'QCommandLineOption scale("scale", "…");\n',
                "simulator/sweep/session.py": 'parser.add_argument("--cell", 1)\n',
                "test": "    --fast | --slow) a ;;\n", "tests/tool": "--hidden) a ;;\n"}
        known = "`--unit`, `--help`, `--scale`, `--cell`, `--fast`, `--slow`, `--now`, `cmake\n--build`\n"
        self.assertEqual(self.check("options", known, tree), 0)
        for wrong in ["`headunit --gone`", "    ./test --fastest\n", "`--build`", "`--hidden`"]:
            self.assertEqual(self.check("options", f"# A\n\n{wrong}", tree), 1, wrong)
        self.assertEqual(self.check("options", "```\n--gone\n```\n", tree), 0)


if __name__ == "__main__":
    unittest.main()
