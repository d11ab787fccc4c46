#!/usr/bin/python3
"""That count-instructions judges what the counting tool says, by a program in the tool's place."""

import os
import pathlib
import subprocess
import tempfile
import unittest

COUNT = pathlib.Path(__file__).resolve().parents[2] / "benchmarks" / "count-instructions"

PROGRAM = "#!/bin/sh\nprintf 'start\\nopen\\n'\n"

# Its last word is the work, and the environment has what it takes.
TOOL = """#!/bin/sh
echo "$*" >>"$CALLS"
for work; do :; done
eval "count=\\$$work"
echo "==1== Collected : $count" >&2
"""


class CountInstructions(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name, content in (("valgrind", TOOL), ("program", PROGRAM)):
            (self.folder / name).write_text(content)
            (self.folder / name).chmod(0o755)
        self.figures = self.folder / "figures"
        self.figures.write_text("start 1000\nopen 2000\n")

    def count(self, start, opened, *options):
        environment = {"PATH": f"{self.folder}:{os.environ['PATH']}", "CALLS": str(self.folder / "calls"),
                       "TMPDIR": tempfile.gettempdir(),
                       "start": str(start), "open": str(opened)}
        result = subprocess.run([COUNT, self.folder / "program", self.figures, *options], env=environment,
                                capture_output=True, text=True)
        return result.returncode, result.stdout.splitlines(), result.stderr

    def test_up_to_ten_per_cent(self):
        status, lines, _ = self.count(1100, 1000)
        self.assertEqual((status, lines), (0, ["start                    1,100 instructions  +10.0 %",
                                               "open                     1,000 instructions  -50.0 %"]))
        call = (self.folder / "calls").read_text().splitlines()[0]
        self.assertRegex(call, r"^--tool=callgrind --toggle-collect=counted\* .*/program start$")

    def test_too_much(self):
        status, lines, _ = self.count(1000, 2201)
        self.assertEqual((status, lines[1][-16:]), (1, "+10.1 %: too much"[-16:]))
        self.assertEqual(self.figures.read_text(), "start 1000\nopen 2000\n")

    def test_no_figure(self):
        self.figures.write_text("start 1000\n")
        status, lines, _ = self.count(1000, 2000)
        self.assertEqual((status, lines[1][-13:]), (1, "has no figure"))

    def test_accepted(self):
        status, _, _ = self.count(3000, 4000, "--accept")
        self.assertEqual((status, self.figures.read_text()), (0, "start 3000\nopen 4000\n"))

    def test_nothing_counted(self):
        status, _, error = self.count(1000, 0)
        self.assertEqual((status, error.splitlines()[0]), (1, "open cannot be counted:"))


if __name__ == "__main__":
    unittest.main()
