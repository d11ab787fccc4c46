#!/usr/bin/python3
"""That the monkey finds what is wrong and cuts it down to the shortest script: it is given a program in the place of
"headunit" that misbehaves as a test says."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

MONKEY = pathlib.Path(__file__).resolve().parents[2] / "tools" / "monkey"

# Takes every line, answers as much of it as is waited for, and does what the test says with what it has "seen".
PROGRAM = """#!/usr/bin/python3 -ES
import os, signal, sys, time
def option(name):
    return sys.argv[sys.argv.index(name) + 1]
file = option("--script")
unit = option("--unit")
seen = []
def fail(reason):
    print(f"<stdin>:{len(seen)}: {reason}", file=sys.stderr)
    sys.exit(1)
def has(word):
    return any(word in each for each in seen)
%s
for line in sys.stdin if file == "-" else open(file):
    line = line.rstrip()
    seen.append(line)
    if "/batch/" in line:
        print(f'  there is no folder "{line.split()[-1]}"', flush=True)
    if line == "quit":
        break
    look(line)
"""

NOTHING = "def look(line): pass"


class TestMonkey(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.temporary.name)

    def tearDown(self):
        self.temporary.cleanup()

    def run_monkey(self, program, *words, events=600, seed=1):
        path = self.folder / "headunit"
        path.write_text(PROGRAM % program)
        path.chmod(0o755)
        return subprocess.run([sys.executable, MONKEY, "--headunit", path, "--findings", self.folder,
                               "--seed", str(seed), "--events", str(events), *words], capture_output=True, text=True)

    def script(self):
        return (self.folder / "monkey-1.txt").read_text().splitlines()

    def assert_found(self, result, sentence):
        self.assertIn(sentence, result.stdout)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)

    def test_what_is_well(self):
        result = self.run_monkey(NOTHING)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertIn("Ends of the unit: ", result.stdout)
        self.assertEqual(list(self.folder.iterdir()), [self.folder / "headunit"])

    def test_a_crash(self):
        result = self.run_monkey("""
def look(line):
    if line.startswith("try press") and has("plug usb0") and has("try key HOME"):
        os.kill(os.getpid(), signal.SIGSEGV)
""")
        self.assert_found(result, "The unit crashed by SIGSEGV.")
        self.assertIn("monkey-1.txt shows it in 3 lines.", result.stdout)
        head, *lines = self.script()
        self.assertEqual(head, "# crashed by SIGSEGV")
        self.assertEqual(sorted(" ".join(line.split()[:2]) for line in lines), ["try key", "try plug", "try press"])
        self.assertTrue(lines[-1].startswith("try press"))
        self.assertFalse((self.folder / "monkey-1.unit").exists())

    def test_a_crash_that_needs_what_was_stored(self):
        result = self.run_monkey("""
was_there = os.path.exists(unit + "/stored")
def look(line):
    if "press briinc" in line:
        open(unit + "/stored", "w").close()
    if was_there and "try dab" in line:
        os.kill(os.getpid(), signal.SIGABRT)
""", events=6000, seed=10)
        self.assert_found(result, "The unit crashed by SIGABRT.")
        self.assertIn("in 1 lines, from ", result.stdout)
        self.assertTrue((self.folder / "monkey-10.unit" / "stored").exists())

    def test_a_hang(self):
        result = self.run_monkey("""
def look(line):
    if line.startswith("try als"):
        time.sleep(100)
""", "--patience", "1")
        self.assert_found(result, "The unit hangs.")
        head, line = self.script()
        self.assertTrue(line.startswith("try als"), line)

    def test_a_wait_without_a_limit_that_is_meant(self):
        result = self.run_monkey("""
def look(line):
    if "silence eot" in line:
        time.sleep(100)
""", events=1000, seed=13)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertRegex(result.stdout, "[1-9] waits for ever")

    def test_a_warning(self):
        result = self.run_monkey("""
def look(line):
    if line.startswith("try tap"):
        print("This plugin does not support raise()", file=sys.stderr)
    if line.startswith("try drag"):
        print("QWidget::repaint: Recursive repaint detected", file=sys.stderr)
""")
        self.assert_found(result, "The unit said: QWidget::repaint: Recursive repaint detected.")
        self.assertEqual(len(self.script()), 2)

    def test_a_word_among_many_that_are_known(self):
        result = self.run_monkey("""
def look(line):
    print("This plugin does not support raise()", file=sys.stderr)
    if len(seen) == 2000:
        print("The file cannot be written", file=sys.stderr)
""", "--minutes", "0.1", events=6000)
        self.assert_found(result, "The unit said: The file cannot be written.")
        self.assertLess(len((self.folder / "monkey-1.txt").read_text().splitlines()), 3000)

    def test_an_end_without_reason(self):
        result = self.run_monkey("""
def look(line):
    if line.startswith("try drag"):
        sys.exit(251)
""")
        self.assert_found(result, "The unit ended with 251.")

    def test_a_unit_that_is_not_usable(self):
        result = self.run_monkey("""
def look(line):
    if line.startswith("see KeyColor") and has("try plug usb1"):
        fail("no button")
""")
        self.assert_found(result, "The unit not usable: no button.")
        head, first, *check = self.script()
        self.assertEqual(first, "try plug usb1")
        self.assertEqual(check[-1], "key HOME")

    def test_descriptors_that_stay_open(self):
        result = self.run_monkey("""
def look(line):
    if line.startswith("try press"):
        os.dup(0)
""", events=6000)
        self.assert_found(result, "Does not stay: descriptors: ")

    def test_memory_that_stays(self):
        result = self.run_monkey("""
kept = []
def look(line):
    kept.append(bytearray(10000))
""", events=6000)
        self.assert_found(result, "Does not stay: memory: ")

    def test_time_that_grows(self):
        result = self.run_monkey("""
def look(line):
    if line == "press keycolor":
        sum(range(200 * len(seen)))
""", events=6000)
        self.assert_found(result, "Does not stay: stroll: ")

    def test_a_machine_that_becomes_slower(self):
        result = self.run_monkey("""
def look(line):
    if line == "press keycolor":
        with open(sys.argv[0] + ".presses", "a") as presses:
            presses.write(".")
            sum(range(2000 * presses.tell()))
""", events=6000)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        strolls = [float(line.split()[6]) for line in result.stdout.splitlines()[1:-1]]
        self.assertGreater(strolls[-1], 1.5 * strolls[1] + 0.1)

    def test_a_new_unit_that_crashes(self):
        result = self.run_monkey("""
def look(line):
    if seen[0] == "try lift" and line.endswith("als-curve 0 60"):
        os.kill(os.getpid(), signal.SIGSEGV)
""", events=6000)
        self.assert_found(result, "The unit crashed by SIGSEGV.")
        self.assertEqual(self.script(), ["# crashed by SIGSEGV", "try lift", "try als-curve 0 60"])

    def test_a_new_unit_that_hangs(self):
        result = self.run_monkey("""
def look(line):
    if seen[0] == "try lift" and line.endswith("see Red 60000000"):
        time.sleep(100)
""", "--patience", "1", "--minutes", "0", events=6000)
        self.assert_found(result, "The unit hangs.")
        lines = self.script()
        self.assertEqual([lines[0], lines[-1], lines.count("try key FACTORY")], ["try lift", "try key HOME", 2])

    def lose_line_at(self, last, *words):
        return self.run_monkey(f"""
def look(line):
    if line == "{last}" and has("receiver hangup"):
        sys.exit(251)
""", *words, events=6000, seed=3)

    def test_a_line_that_is_lost_while_it_may_be(self):
        result = self.lose_line_at("see Red 60000000")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertIn(", 1 line lost", result.stdout)

    def test_a_line_that_is_lost_after_a_restart(self):
        self.assert_found(self.lose_line_at("als-curve 0 60", "--minutes", "0"), "The unit ended with 251.")

    def test_the_seed_decides(self):
        def lines(seed):
            return subprocess.run([sys.executable, MONKEY, "--list", "--events", "500", "--seed", str(seed)],
                                  check=True, capture_output=True).stdout

        self.assertEqual(lines(1), lines(1))
        # Without a loss of the line, which takes several.
        self.assertEqual(lines(9).count(b"\n"), 500)
        self.assertNotEqual(lines(1), lines(2))


if __name__ == "__main__":
    unittest.main()
