#!/usr/bin/python3
"""That a sweep tells a session that went wrong from one that went as it should: it is given a program in the place of
"headunit" that ends as a test says.

A start of Python takes longer than all that is looked at: the sweep runs within the test, which loads its modules once,
and what it starts are programs for the shell."""

import json
import pathlib
import sys
import tempfile
import unittest
import unittest.mock

SWEEP = pathlib.Path(__file__).resolve().parents[2] / "simulator" / "sweep" / "headunit-sweep"

sys.dont_write_bytecode = True  # The folder belongs to the sources.
sys.path[:0] = [str(SWEEP.parent), str(pathlib.Path(__file__).resolve().parents[1] / "support")]

from programs import run_apart, run_here

# Leaves a journal in the unit's folder, and does what the test says.
PROGRAM = """#!/bin/sh
until [ "$1" = --unit ]; do shift; done
unit=$2
lines="0.001 #1 unit booted"
tell() {
    lines="$lines
0.001 #1 $1"
}
journal() {
    printf '# head\\n%%s\\n' "$lines" >"$unit/journal.log"
}
%s
journal
"""

UPGRADED = """
echo "===== THE UPGRADE IS SUCCESSFUL, reseting====="
mkdir "$unit/receiver"
cat "$unit/sticks/usb0/gps_firmware.pkg" >"$unit/receiver/firmware.pkg"
tell "receiver runs GNSS 2.5.1"
"""

# Stand in for those of tools/, since nobody looks into the packages.
PACKAGE_TOOLS = {"make-gps-package": """#!/bin/sh
[ -d "${2%/*}" ] || mkdir -p "${2%/*}"
printf "%0$4d" 0 >"$2"
""", "make-update-package": """#!/bin/sh
while [ $# -gt 1 ]; do shift; done
: >"$1"
"""}


class SweepTest(unittest.TestCase):
    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.temporary.name)

    def tearDown(self):
        self.temporary.cleanup()

    def plant(self, programs):
        for name, text in programs.items():
            (self.folder / name).write_text(text)
            (self.folder / name).chmod(0o755)

    def plant_unit(self, program):
        self.plant({"headunit": PROGRAM % program})

    def sweep(self, program, *words):
        self.plant(PACKAGE_TOOLS)
        return self.run_sweep(run_here, program, "--packages", self.folder, *words)

    def run_sweep(self, run, program, *words):
        self.plant_unit(program)
        found = self.folder / "cells"
        result = run([SWEEP, "--headunit", self.folder / "headunit", "--json", found, "--speed", "1000", *words])
        cells = [json.loads(line) for line in found.read_text().splitlines()] if found.is_file() else []
        return result, cells

    def verdicts(self, program, *words, status):
        result, cells = self.sweep(program, *words)
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        return [(cell["cell"], cell["verdict"]) for cell in cells]


class TestSweep(SweepTest):
    def test_what_went_well(self):
        # Started as by hand, with packages that tools/ makes.
        result, cells = self.run_sweep(run_apart, UPGRADED, "--cell", "gps/clean")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertEqual([(cell["cell"], cell["verdict"]) for cell in cells], [("gps/clean", "done")])

    def test_a_success_that_is_none(self):
        program = 'echo "THE UPGRADE IS SUCCESSFUL"'
        self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=1), [("gps/clean", "false success")])

    def test_a_success_that_is_none_and_prescribed(self):
        for program in ('echo "Retry too many times,Quit!"; echo "THE UPGRADE IS SUCCESSFUL"',
                        'echo "THE UPGRADE IS SUCCESSFUL"; tell "storage pull usb0"'):
            self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=0), [("gps/clean", "prescribed")])

    def test_a_part_of_the_firmware_is_none(self):
        program = UPGRADED.replace("cat", "head --bytes=1024")
        self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=1), [("gps/clean", "false success")])

    def test_a_crash(self):
        program = "kill -SEGV $$"
        result, cells = self.sweep(program, "--cell", "gps/silence-menu")
        self.assertEqual([cell["verdict"] for cell in cells], ["crashed"])
        # With what runs it again.
        self.assertIn("Failed: --cell gps/silence-menu (crashed: status -11)", result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_a_script_that_fails(self):
        program = 'echo "<stdin>:3: the screen hangs" >&2; exit 1'
        self.assertEqual(self.verdicts(program, "--cell", "logs/clean", status=1), [("logs/clean", "wrong")])

    def test_the_end_of_the_program_that_is_meant(self):
        program = 'tell "receiver hangs up at eot"; journal; exit 251'
        self.assertEqual(self.verdicts(program, "--cell", "gps/hangup-eot", status=0), [("gps/hangup-eot", "ended")])

    def test_the_same_end_for_nothing(self):
        program = 'tell "receiver silent at menu"; journal; exit 251'
        self.assertEqual(self.verdicts(program, "--cell", "gps/silence-menu", status=1),
                         [("gps/silence-menu", "crashed")])

    def test_a_row_ends_where_the_fault_does_not_come(self):
        program = """
while read -r line; do
    case $line in "fault receiver garbage "[12]" firmware")
        line=${line% firmware}
        tell "receiver firmware block ${line##* } is answered with garbage"
    esac
done
"""
        result, cells = self.sweep(program, "--row", "gps/garbage-firmware")
        row = [(cell["cell"], cell["verdict"]) for cell in cells]
        self.assertEqual(row, [("gps/garbage-firmware/1", "refused"), ("gps/garbage-firmware/2", "refused"),
                               ("gps/garbage-firmware/3", "nothing")])
        self.assertRegex(result.stdout, r"garbage N firmware +2 refused, 1 nothing")

    def test_logs_count_by_what_they_hold(self):
        program = """
cd "$unit/sticks/usb0"
mkdir userdata nvm QM_SYSTEMLOG
for name in userdata/btsnoop.log nvm/btsnoop.log QM_SYSTEMLOG/service.log QM_SYSTEMLOG/dfb_crash.dump; do
    printf bluetooth >"$name"
done
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


# Plays a unit that runs, and ends as it is told first.
LIVE_PROGRAM = """#!/bin/sh
case $* in *--script*) exit ;; esac
until [ "$1" = --unit ]; do shift; done
echo "0.001 #1 unit booted" >"$2/journal.log"
mkfifo "$2/end"
exec 3<>"$2/end"
echo "talk to it with"
read -r status <&3
exit "$status"
"""

# Plays what asks it. A pipe that is opened for both ways waits for nobody, also where the unit has ended.
CONTROL = """#!/bin/sh
unit=$2
shift 2
line=$*
left_open=
journal() {
    echo "0.002 #2 $1" >>"$unit/journal.log"
}
end() {
    echo "$1" 1<>"$unit/end"
}
%s
case $line in
"fault call")
    echo "What can fail:"
    echo "  call     McuMsgModule::sendMsgToMcu"
    echo "  call     read [PATH]: EIO, EINTR"
    echo "  call     system [COMMAND]: 127"
    echo "What does:" ;;
quit)
    end 0 ;;
"state --json")
    echo '{"device": "unit", "openFiles": ['"$left_open"']}'
    left='"1000000 McuMsgModule::sendMsgToMcu", "999998 read", "1000000 system"'
    echo '{"device": "faults", "present": {"call": ['"$left"']}}' ;;
esac
"""

# The second read is the last one.
READS = """
case $line in "fault call read "[12]" "*) journal "fault read /dev/ttyS3 $5" ;; esac
"""


class TestCalls(SweepTest):
    """That a sweep of the calls tells the same, of units that it asks."""

    def plant_unit(self, control):
        self.plant({"headunit": LIVE_PROGRAM, "headunit-ctl": CONTROL % control})

    def test_each_error_at_each_place_once_and_for_good(self):
        result, cells = self.sweep(READS, "--calls", "throughput")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        self.assertIn("throughput: 2 calls: 2 read\n", result.stdout)
        # Nothing is interrupted for ever.
        self.assertEqual([(cell["cell"], cell["verdict"]) for cell in cells],
                         [(f"calls/throughput/read-{how}/{place}", verdict) for how in ("EIO", "EIO-on", "EINTR")
                          for place, verdict in ((1, "done"), (2, "done"), (3, "nothing"))])

    def test_what_is_asked_for(self):
        program = READS + """
case $1 in fault|key|press) echo "$line" >>"${0%/*}/asked" ;; esac
"""
        result, cells = self.sweep(program, "--cell", "calls/throughput/McuMsgModule.sendMsgToMcu-on/4")
        self.assertEqual([cell["verdict"] for cell in cells], ["nothing"])
        # A cell that is named must have its fault.
        self.assertIn("sendMsgToMcu-on/4 the fault does not come", result.stdout)
        self.assertEqual(result.returncode, 1)
        asked = (self.folder / "asked").read_text().splitlines()
        page = [line for line in asked[2:asked.index("fault none")]]
        self.assertEqual(asked, ["fault call McuMsgModule::sendMsgToMcu 4 on", "key FACTORY", *page, "fault none",
                                 "key HOME", "key FACTORY", *page, "key HOME"])
        self.assertEqual((page[0], page[-1]), ("press ncmtest", "press return"))

    def test_what_goes_wrong(self):
        cell = "calls/throughput/read-EIO/1"
        for control, verdict, detail in (
                ('if [ "$line" = "press C_TCP" ] && [ -f "$unit/none" ]; then echo "it is hidden"; exit 1; fi\n'
                 'if [ "$line" = "fault none" ]; then : >"$unit/none"; fi',
                 "wrong", "afterwards, press C_TCP: it is hidden"),
                ('left_open=\'"/dev/ttyS3"\'', "wrong", "left open: /dev/ttyS3"),
                ('left_open=\'"/dev/mem"\'', "wrong", "left open: /dev/mem"),
                ('if [ "$line" = "press C_TCP" ]; then end 134; fi', "crashed", "status 134"),
                ('if [ "$line" = "press C_TCP" ]; then end 251; fi', "ended", "the line was lost"),
                ('if [ "$line" = quit ]; then end 7; fi', "wrong", "status 7")):
            result, cells = self.sweep(READS + control, "--cell", cell)
            self.assertEqual([(found["verdict"], found["detail"]) for found in cells], [(verdict, detail)],
                             result.stderr)
            self.assertEqual(result.returncode, 0 if verdict == "ended" else 1)

    def test_a_unit_that_does_not_start(self):
        live = LIVE_PROGRAM.replace('echo "talk to it with"', "exit 1")
        with unittest.mock.patch.dict(globals(), LIVE_PROGRAM=live):
            result, cells = self.sweep(READS, "--cell", "calls/throughput/read-EIO/1")
        self.assertEqual([(cell["verdict"], cell["detail"]) for cell in cells],
                         [("crashed", "does not start, status 1")])

    def test_an_end_for_nothing(self):
        control = READS.replace("/dev/ttyS3", "/media/usb0/file") + 'if [ "$line" = "press C_TCP" ]; then end 251; fi'
        self.assertEqual(self.verdicts(control, "--cell", "calls/throughput/read-EIO/1", status=1),
                         [("calls/throughput/read-EIO/1", "crashed")])

    def test_what_a_refused_mapping_may_leave(self):
        control = 'left_open=\'"/dev/mem"\'\ncase $line in "fault call mmap "*) journal "fault mmap /dev/mem" ;; esac'
        self.assertEqual(self.verdicts(control, "--cell", "calls/usb/mmap-EPERM/1", status=0),
                         [("calls/usb/mmap-EPERM/1", "done")])

    def test_wrong_words(self):
        for words, sentence in ((["--calls", "gqs"], 'there is no session "gqs"'),
                                (["--cell", "calls/gqs/read/1"], 'there is no session "gqs"')):
            result, cells = self.sweep(READS, *words)
            self.assertEqual((result.returncode, cells), (2, []))
            self.assertIn(sentence, result.stderr)


if __name__ == "__main__":
    unittest.main()
