#!/usr/bin/python3
"""The packages of a build, made anew and unpacked: what they hold, what lintian says, and that the programs work from
there, without anything of the build or the sources.

    tst_packages.py SOURCE BUILD CPACK ARCHITECTURE WORK"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD, CPACK, ARCHITECTURE, WORK = sys.argv[1:6]
LISTS = pathlib.Path(__file__).parent / "packages"
ROOT = pathlib.Path(WORK) / "root"
NAMES = sorted(path.stem for path in LISTS.glob("*.txt"))
PROGRAMS = ["headunit", "headunit-ctl", "headunit-panel", "headunit-sweep", "make-gps-package", "make-update-package"]


def said(*words, status=0, **options):
    """What a command says on standard output."""
    result = subprocess.run(list(map(str, words)), stdin=subprocess.DEVNULL, capture_output=True, text=True, **options)
    if result.returncode != status:
        raise AssertionError(f"{words} ended with {result.returncode}:\n{result.stdout}{result.stderr}")
    return result.stdout


def debs():
    return sorted(pathlib.Path(WORK).glob("*.deb"))


def environment(**others):
    """What whoever has just logged in has."""
    home = pathlib.Path(WORK) / "home"
    home.mkdir(exist_ok=True)
    return {"PATH": f"{ROOT}/usr/bin:/usr/bin:/bin", "HOME": str(home), "LC_ALL": "C.UTF-8",
            "TMPDIR": tempfile.gettempdir(), **others}


def flat(text):
    return " ".join(text.split())


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    said(CPACK, "--config", f"{BUILD}/CPackConfig.cmake", "-B", WORK)
    for deb in debs():
        said("dpkg-deb", "--extract", deb, ROOT)


class Packages(unittest.TestCase):
    maxDiff = None

    def test_files(self):
        made = {deb.name.split("_")[0]: deb for deb in debs()}
        self.assertEqual(sorted(made), NAMES)
        for name, deb in made.items():
            expected = (LISTS / f"{name}.txt").read_text().replace("<architecture>", ARCHITECTURE)
            rows = [line.split(None, 5) for line in said("dpkg-deb", "--contents", deb).splitlines()]
            listed = sorted(f"{row[0]} {row[5]}" for row in rows if not row[0].startswith("d"))
            self.assertEqual("\n".join(listed) + "\n", expected)
            self.assertEqual({row[1] for row in rows}, {"root/root"})

    def test_lintian(self):
        self.assertEqual(said("lintian", "--fail-on", "error,warning", *debs()), "")

    def test_nothing_of_the_build(self):
        for path in ROOT.rglob("*"):
            if path.is_file():
                for folder in (SOURCE, BUILD):
                    self.assertNotIn(folder.encode(), path.read_bytes(), path)

    def test_entries(self):
        """What a desktop starts and shows is there."""
        for entry in (ROOT / "usr/share/applications").iterdir():
            values = dict(re.findall(r"^(\w+)=(.*)$", entry.read_text(), re.M))
            self.assertTrue(os.access(ROOT / "usr/bin" / values["Exec"], os.X_OK), entry)
            self.assertTrue((ROOT / f"usr/share/icons/hicolor/scalable/apps/{values['Icon']}.svg").is_file(), entry)


class SelfTest(unittest.TestCase):
    def lines(self, *words, status=0):
        words = ("headunit", "--self-test", "--speed", "5", *words)
        return said(*words, status=status, env=environment()).splitlines()

    def test_all_works(self):
        lines = self.lines()
        self.assertEqual(lines[0], f"works   Plug-in: {ROOT}/usr/lib/{ARCHITECTURE}/activity/libfactorydebug.so")
        pages = re.findall(r"^## ([^:\n]+)$", (pathlib.Path(SOURCE) / "docs/buttons.md").read_text(), re.M)
        tried = [re.match(r"works   ([^:]+): ", line).group(1) for line in lines[:-1]]
        self.assertEqual(set(pages) - set(tried), {"Home screen"})
        self.assertEqual(lines[-1], f"{len(tried)} of {len(tried)} work.")

    def test_pages_that_do_not_open(self):
        """In a plug-in one of whose pages has another title, and one of whose buttons another id."""
        content = (ROOT / f"usr/lib/{ARCHITECTURE}/activity/libfactorydebug.so").read_bytes()
        for text, other in ((b"KeyColor Set", b"KeyColor Let"), (b"pdtVer", b"pdtVar")):
            self.assertEqual(content.count(text), 1)
            content = content.replace(text, other)
        plugin = pathlib.Path(WORK) / "libfactorydebug.so"
        plugin.write_bytes(content)
        wrong = [line for line in self.lines("--plugin", plugin, status=1) if not line.startswith("works ")]
        self.assertEqual([line.split(":")[0] for line in wrong],
                         ["FAILED  KeyColor", "FAILED  Product", "17 of 19 work."])

    def test_tools_that_are_missing(self):
        tool = ROOT / "usr/share/factorydebug/tools/make-gps-package"
        away = tool.with_name("away")
        tool.rename(away)
        try:
            wrong = [line for line in self.lines(status=1) if not line.startswith("works ")]
        finally:
            away.rename(tool)
        self.assertRegex(wrong[0], f"^FAILED  GPS package: {tool} cannot be started: ")
        self.assertEqual([line.split(":")[0] for line in wrong[1:]], ["FAILED  GPS Update", "17 of 19 work."])


class Manual(unittest.TestCase):
    """The pages tell what the programs do."""

    def test_pages(self):
        pages = sorted(path.name.split(".")[0] for path in (ROOT / "usr/share/man/man1").iterdir())
        self.assertEqual(pages, PROGRAMS)
        self.assertEqual(sorted(path.name for path in (ROOT / "usr/bin").iterdir()), PROGRAMS)

    def page(self, program):
        path = ROOT / f"usr/share/man/man1/{program}.1.gz"
        return flat(said("man", "--local-file", path, env=environment(MANWIDTH="1000", MANROFFOPT="-c")))

    def test_they_agree_with_the_help(self):
        for program in PROGRAMS:
            usual = environment(HOME="~", COLUMNS="1000")
            text = said(program, "--help", env=usual)
            page = self.page(program)
            self.assertRegex(page, rf"NAME {program} - \w.* SYNOPSIS {program} .* DESCRIPTION \w.* OPTIONS -h, --help ")
            # Each entry with what belongs to it, each heading and each line of prose.
            for entry in re.split(r"\n(?! {6})", text):
                words = re.sub(r"^([Uu]sage: |positional arguments:|options:|Options:$)", "", flat(entry))
                self.assertIn(words, page, program)

    def test_commands(self):
        page = self.page("headunit-ctl")
        verbs = said("headunit-ctl", "--complete", "", env=environment()).split()
        self.assertGreater(len(verbs), 40)
        for verb in verbs:
            self.assertIn(flat(said("headunit-ctl", "help", verb, env=environment())), page)


class Completion(unittest.TestCase):
    def completed(self, *words):
        """What bash makes of the last word."""
        script = ('. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
                  'read -r _ _ _ _ function _ < <(complete -p "$1"); $function; echo "${COMPREPLY[*]}"')
        file = ROOT / "usr/share/bash-completion/completions" / words[0]
        return said("bash", "-c", script, "bash", file, *words, env=environment()).split()

    def test_options(self):
        self.assertEqual(self.completed("headunit", "--scr"), ["--script"])
        self.assertEqual(self.completed("headunit-ctl", "--un"), ["--unit"])
        self.assertEqual(self.completed("headunit-panel", "--help-"), ["--help-all"])
        self.assertEqual(self.completed("headunit-sweep", "--"), sorted(
            "--calls --cell --headunit --help --html --jobs --json --list --packages --plugin --row --sample --seed "
            "--speed".split()))
        self.assertEqual(self.completed("make-gps-package", "--a"), ["--all"])
        self.assertEqual(self.completed("make-update-package", "--c"), ["--corrupt"])
        self.assertEqual(self.completed("headunit", "--unit", "x"), [])

    def test_verbs(self):
        self.assertEqual(self.completed("headunit-ctl", "shot-"), ["shot-anew", "shot-window"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
