#!/usr/bin/python3
"""That the monkey finds what is wrong and cuts it down to the shortest script: it is given a program in the place of
"headunit" that misbehaves as a test says.

That is started hundreds of times, so it is one in Perl, which starts several times faster than Python. The monkey runs
within the test."""

import pathlib
import sys
import tempfile
import unittest

MONKEY = pathlib.Path(__file__).resolve().parents[2] / "tools" / "monkey"

sys.dont_write_bytecode = True  # The folder belongs to the sources.
sys.path[:0] = [str(MONKEY.parent), str(pathlib.Path(__file__).resolve().parents[1] / "support")]

from programs import run_apart, run_here

# Takes every line as $_, answers as much of it as is waited for, and does what the test says with what it has "seen".
PROGRAM = r"""#!/usr/bin/perl
($unit) = "@ARGV" =~ /--unit (\S+)/;
($script) = "@ARGV" =~ /--script (\S+)/;
$| = 1;
@seen = ();
sub fail { print STDERR "<stdin>:" . @seen . ": @_\n"; exit 1 }
sub has { my ($word) = @_; return scalar grep { index($_, $word) >= 0 } @seen }
%s
@ARGV = $script;
while (<>) {
    chomp;
    push @seen, $_;
    print qq(  there is no folder "$1"\n) if m{(/batch/\d+)$};
    last if $_ eq "quit";
    look();
}
"""

NOTHING = "sub look {}"


class TestMonkey(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.temporary.name)

    def tearDown(self):
        self.temporary.cleanup()

    def run_monkey(self, program, *words, events=600, seed=1, run=run_here):
        path = self.folder / "headunit"
        path.write_text(PROGRAM % program)
        path.chmod(0o755)
        return run([MONKEY, "--headunit", path, "--findings", self.folder, "--seed", str(seed),
                    "--events", str(events), *words])

    def script(self):
        return (self.folder / "monkey-1.txt").read_text().splitlines()

    def assert_found(self, result, sentence):
        self.assertIn(sentence, result.stdout)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)

    def test_what_is_well(self):
        result = self.run_monkey(NOTHING, run=run_apart)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertIn("Ends of the unit: ", result.stdout)
        self.assertEqual(list(self.folder.iterdir()), [self.folder / "headunit"])

    def test_a_crash(self):
        result = self.run_monkey("""
sub look { kill SEGV => $$ if /^try press/ && has("plug usb0") && has("try key HOME") }
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
$was_there = -e "$unit/stored";
sub look {
    open(STORED, ">", "$unit/stored") if /press briinc/;
    kill ABRT => $$ if $was_there && /try dab/;
}
""", events=6000, seed=10)
        self.assert_found(result, "The unit crashed by SIGABRT.")
        self.assertIn("in 1 lines, from ", result.stdout)
        self.assertTrue((self.folder / "monkey-10.unit" / "stored").exists())

    def test_a_hang(self):
        result = self.run_monkey("""
sub look { sleep 100 if /^try als/ }
""", "--patience", "1")
        self.assert_found(result, "The unit hangs.")
        head, line = self.script()
        self.assertTrue(line.startswith("try als"), line)

    def test_a_wait_without_a_limit_that_is_meant(self):
        result = self.run_monkey("""
sub look { sleep 100 if /silence eot/ }
""", events=1000, seed=13)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertRegex(result.stdout, "[1-9] waits for ever")

    def test_a_warning(self):
        result = self.run_monkey(r"""
sub look {
    print STDERR "This plugin does not support raise()\n" if /^try tap/;
    print STDERR "QWidget::repaint: Recursive repaint detected\n" if /^try drag/;
}
""")
        self.assert_found(result, "The unit said: QWidget::repaint: Recursive repaint detected.")
        self.assertEqual(len(self.script()), 2)

    def test_a_word_among_many_that_are_known(self):
        result = self.run_monkey(r"""
sub look {
    print STDERR "This plugin does not support raise()\n";
    # Of lines that a replay has, too.
    print STDERR "The file cannot be written\n" if !/mark$|batch/ && ++$lines == 2000;
}
""", "--minutes", "0.005", events=6000)
        self.assert_found(result, "The unit said: The file cannot be written.")
        self.assertIn("monkey-1.txt shows it in ", result.stdout)
        # At once, not after all ten tenths.
        self.assertLess(len([line for line in result.stdout.splitlines() if line.startswith(" ")]), 6)
        self.assertLess(len((self.folder / "monkey-1.txt").read_text().splitlines()), 3000)

    def test_an_end_without_reason(self):
        result = self.run_monkey("""
sub look { exit 251 if /^try drag/ }
""")
        self.assert_found(result, "The unit ended with 251.")

    def test_a_unit_that_is_not_usable(self):
        result = self.run_monkey("""
sub look { fail("no button") if /^see KeyColor/ && has("try plug usb1") }
""")
        self.assert_found(result, "The unit not usable: no button.")
        head, first, *check = self.script()
        self.assertEqual(first, "try plug usb1")
        self.assertEqual(check[-1], "key HOME")

    def test_descriptors_that_stay_open(self):
        result = self.run_monkey("""
sub look { open($kept[@kept], "<&", 0) if /^try press/ }
""", events=3000)
        self.assert_found(result, "Does not stay: descriptors: ")

    def test_memory_that_stays(self):
        result = self.run_monkey("""
sub look { $kept .= " " x 10000 }
""", events=3000)
        self.assert_found(result, "Does not stay: memory: ")

    # What is compared is the end of a walk: until then the time is short.
    def test_time_that_grows(self):
        result = self.run_monkey("""
sub look {
    if ($_ eq "press keycolor") {
        for (1 .. (@seen / 850) ** 6) {}
    }
}
""", events=3000)
        self.assert_found(result, "Does not stay: stroll: ")

    def test_a_machine_that_becomes_slower(self):
        result = self.run_monkey("""
sub look {
    if ($_ eq "press keycolor") {
        open(PRESSES, ">>", "$0.presses");
        syswrite(PRESSES, ".");
        $presses = -s PRESSES;
        for (1 .. ($presses / 55) ** 6) {}
    }
}
""", events=3000)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        strolls = [float(line.split()[6]) for line in result.stdout.splitlines()[1:-1]]
        self.assertGreater(strolls[-1], 1.5 * strolls[1] + 0.1)

    def test_a_new_unit_that_crashes(self):
        result = self.run_monkey("""
sub look { kill SEGV => $$ if $seen[0] eq "try lift" && /als-curve 0 60$/ }
""", events=6000)
        self.assert_found(result, "The unit crashed by SIGSEGV.")
        self.assertEqual(self.script(), ["# crashed by SIGSEGV", "try lift", "try als-curve 0 60"])

    def test_a_new_unit_that_hangs(self):
        result = self.run_monkey("""
sub look { sleep 100 if $seen[0] eq "try lift" && /see Red 60000000$/ }
""", "--patience", "1", "--minutes", "0", events=6000)
        self.assert_found(result, "The unit hangs.")
        lines = self.script()
        self.assertEqual([lines[0], lines[-1], lines.count("try key FACTORY")], ["try lift", "try key HOME", 2])

    def lose_line_at(self, last, *words):
        return self.run_monkey(f"""
sub look {{ exit 251 if $_ eq "{last}" && has("receiver hangup") }}
""", *words, events=6000, seed=3)

    def test_a_line_that_is_lost_while_it_may_be(self):
        result = self.lose_line_at("see Red 60000000")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertIn(", 1 line lost", result.stdout)

    def test_a_line_that_is_lost_after_a_restart(self):
        self.assert_found(self.lose_line_at("als-curve 0 60", "--minutes", "0"), "The unit ended with 251.")

    def test_the_seed_decides(self):
        def lines(seed, run=run_here):
            result = run([MONKEY, "--list", "--events", "500", "--seed", str(seed)])
            self.assertEqual(result.returncode, 0, result.stderr)
            return result.stdout

        # In another process, too, which has sets in another order.
        self.assertEqual(lines(1, run_apart), lines(1))
        # Without a loss of the line, which takes several.
        self.assertEqual(lines(9).count("\n"), 500)
        self.assertNotEqual(lines(1), lines(2))


if __name__ == "__main__":
    unittest.main()
