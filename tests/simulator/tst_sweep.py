#!/usr/bin/python3
"""That a sweep tells a session that went wrong from one that went as it should: it is given a program in the place of
"headunit" that ends as a test says."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

SWEEP = pathlib.Path(__file__).resolve().parents[2] / "simulator" / "sweep" / "headunit-sweep"

# Reads the script, leaves a journal and a stick in the unit's folder, and does what the test says.
PROGRAM = """#!/usr/bin/python3
import os, pathlib, signal, sys, time
script = sys.stdin.read()
unit = pathlib.Path(sys.argv[sys.argv.index("--unit") + 1])
(unit / "receiver").mkdir()
lines = ["unit booted"]
def journal():
    (unit / "journal.log").write_text("# head\\n" + "".join(f"0.001 #1 {line}\\n" for line in lines))
%s
journal()
"""

UPGRADED = """
print("===== THE UPGRADE IS SUCCESSFUL, reseting=====")
(unit / "receiver" / "firmware.pkg").write_bytes(b"GNSS-VERSION=GNSS 2.5.1")
lines.append("receiver runs GNSS 2.5.1")
"""


class TestSweep(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.temporary.name)

    def tearDown(self):
        self.temporary.cleanup()

    def sweep(self, program, *words):
        path = self.folder / "headunit"
        path.write_text(PROGRAM % program)
        path.chmod(0o755)
        found = self.folder / "cells"
        result = subprocess.run([sys.executable, SWEEP, "--headunit", path, "--json", found, *words],
                                capture_output=True, text=True)
        cells = [json.loads(line) for line in found.read_text().splitlines()] if found.is_file() else []
        return result, cells

    def verdicts(self, program, *words, status):
        result, cells = self.sweep(program, *words)
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        return [(cell["cell"], cell["verdict"]) for cell in cells]

    def test_what_went_well(self):
        self.assertEqual(self.verdicts(UPGRADED, "--cell", "gps/clean", status=0), [("gps/clean", "done")])

    def test_a_success_that_is_none(self):
        program = 'print("THE UPGRADE IS SUCCESSFUL")'
        self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=1), [("gps/clean", "false success")])

    def test_a_success_that_is_none_and_prescribed(self):
        program = 'print("Retry too many times,Quit!\\nTHE UPGRADE IS SUCCESSFUL")'
        self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=0), [("gps/clean", "prescribed")])

    def test_a_crash(self):
        program = "os.kill(os.getpid(), signal.SIGSEGV)"
        result, cells = self.sweep(program, "--cell", "gps/silence-menu")
        self.assertEqual([cell["verdict"] for cell in cells], ["crashed"])
        # With what runs it again.
        self.assertIn("Failed: --cell gps/silence-menu (crashed: status -11)", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_a_script_that_fails(self):
        program = 'print("<stdin>:3: the screen hangs", file=sys.stderr); sys.exit(1)'
        self.assertEqual(self.verdicts(program, "--cell", "logs/clean", status=1), [("logs/clean", "wrong")])

    def test_the_end_of_the_program_that_is_meant(self):
        program = 'lines.append("receiver hangs up at eot"); journal(); os._exit(251)'
        self.assertEqual(self.verdicts(program, "--cell", "gps/hangup-eot", status=0), [("gps/hangup-eot", "ended")])

    def test_the_same_end_for_nothing(self):
        program = 'lines.append("receiver silent at menu"); journal(); os._exit(251)'
        self.assertEqual(self.verdicts(program, "--cell", "gps/silence-menu", status=1),
                         [("gps/silence-menu", "crashed")])

    def test_a_row_ends_where_the_fault_does_not_come(self):
        program = """
for block in (1, 2):
    if f"fault receiver garbage {block} firmware" in script:
        lines.append(f"receiver firmware block {block} is answered with garbage")
"""
        result, cells = self.sweep(program, "--row", "gps/garbage-firmware")
        row = [(cell["cell"], cell["verdict"]) for cell in cells]
        self.assertEqual(row, [("gps/garbage-firmware/1", "refused"), ("gps/garbage-firmware/2", "refused"),
                               ("gps/garbage-firmware/3", "nothing")])
        self.assertRegex(result.stdout, r"garbage N firmware +2 refused, 1 nothing")

    def test_logs_count_by_what_they_hold(self):
        program = """
for name in ("userdata/btsnoop.log", "nvm/btsnoop.log", "QM_SYSTEMLOG/service.log", "QM_SYSTEMLOG/dfb_crash.dump"):
    (unit / "sticks/usb0" / name).parent.mkdir(exist_ok=True)
    (unit / "sticks/usb0" / name).write_bytes(b"bluetooth")
"""
        _, cells = self.sweep(program, "--cell", "logs/clean")
        self.assertEqual([(cell["verdict"], cell["detail"]) for cell in cells],
                         [("refused", "1 of 4 logs on the stick")])

    def test_a_sample_is_the_same_for_a_seed(self):
        chosen = [self.verdicts(UPGRADED, "gps", "--sample", "4", "--seed", seed, status=0) for seed in "112"]
        self.assertEqual(len(chosen[0]), 4)
        self.assertEqual(chosen[0], chosen[1])
        self.assertNotEqual(chosen[0], chosen[2])

    def test_the_page_has_every_cell(self):
        page = self.folder / "page.html"
        self.sweep(UPGRADED, "--cell", "gps/clean", "--cell", "logs/full", "--html", str(page))
        text = page.read_text()
        self.assertTrue(text.index("gps/clean") < text.index("logs/full"), text)

    def test_wrong_words(self):
        for words, sentence in ((["gqs"], 'there is no sweep "gqs"'), (["--cell", "gps/x"], 'there is no cell "gps/x"'),
                                (["--row", "gps/x"], 'there is no row "gps/x"'),
                                (["--sample", "0"], '"0" is not 1 or more')):
            result, cells = self.sweep(UPGRADED, *words)
            self.assertEqual((result.returncode, cells), (2, []))
            self.assertIn(sentence, result.stderr)


if __name__ == "__main__":
    unittest.main()
