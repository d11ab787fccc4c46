#!/usr/bin/python3
"""That a sweep tells a session that went wrong from one that went as it should: it is given a program in the place of
"headunit" that ends as a test says."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

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
(unit / "receiver" / "firmware.pkg").write_bytes((unit / "sticks/usb0/gps_firmware.pkg").read_bytes())
lines.append("receiver runs GNSS 2.5.1")
"""


class SweepTest(unittest.TestCase):
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


class TestSweep(SweepTest):
    def test_what_went_well(self):
        self.assertEqual(self.verdicts(UPGRADED, "--cell", "gps/clean", status=0), [("gps/clean", "done")])

    def test_a_success_that_is_none(self):
        program = 'print("THE UPGRADE IS SUCCESSFUL")'
        self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=1), [("gps/clean", "false success")])

    def test_a_success_that_is_none_and_prescribed(self):
        for program in ('print("Retry too many times,Quit!\\nTHE UPGRADE IS SUCCESSFUL")',
                        'print("THE UPGRADE IS SUCCESSFUL"); lines.append("storage pull usb0")'):
            self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=0), [("gps/clean", "prescribed")])

    def test_a_part_of_the_firmware_is_none(self):
        program = UPGRADED.replace("read_bytes()", "read_bytes()[:1024]")
        self.assertEqual(self.verdicts(program, "--cell", "gps/clean", status=1), [("gps/clean", "false success")])

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


# Plays a unit that runs: what is asked of it is a file of its folder each, and so is how it ends.
LIVE_PROGRAM = """#!/usr/bin/python3
import pathlib, sys, time
unit = pathlib.Path(sys.argv[sys.argv.index("--unit") + 1])
if "--script" not in sys.argv:
    (unit / "journal.log").write_text("0.001 #1 unit booted\\n")
    print("talk to it with", flush=True)
    while not (unit / "end").is_file():
        time.sleep(0.01)
    time.sleep(0.05)
    sys.exit(int((unit / "end").read_text()))
"""

CONTROL = """#!/usr/bin/python3
import json, os, pathlib, signal, sys, time
unit = pathlib.Path(sys.argv[2])
words = sys.argv[3:]
line = " ".join(words)
def journal(text):
    with open(unit / "journal.log", "a") as file:
        file.write(f"0.002 #2 {text}\\n")
def end(status):
    (unit / "end").write_text(str(status))
def remember(name):
    (unit / name).write_text(line)
def has(name):
    return (unit / name).is_file()
left_open = []
if words[:2] == ["fault", "call"] and len(words) == 2:
    print("What can fail:\\n  call     McuMsgModule::sendMsgToMcu\\n  call     read [PATH]: EIO, EINTR\\n"
          "  call     system [COMMAND]: 127\\nWhat does:")
if words[:2] == ["fault", "call"] and len(words) > 3:
    (unit / "fault").write_text(line)
if line == "quit":
    end(0)
%s
if line == "state --json":
    fault = (unit / "fault").read_text() if has("fault") else ""
    print(json.dumps({"device": "unit", "openFiles": left_open}))
    print(json.dumps({"device": "faults", "present": {"call": [
        "1000000 McuMsgModule::sendMsgToMcu", "999998 read", "1000000 system"]}}))
"""

# The second read is the last one.
READS = """
if words[:3] == ["fault", "call", "read"] and int(words[3]) <= 2:
    journal(f"fault read /dev/ttyS3 {words[4]}")
"""


class TestCalls(SweepTest):
    """That a sweep of the calls tells the same, of units that it asks."""

    def sweep(self, control, *words):
        for name, text in (("headunit", LIVE_PROGRAM), ("headunit-ctl", CONTROL % control)):
            (self.folder / name).write_text(text)
            (self.folder / name).chmod(0o755)
        found = self.folder / "cells"
        result = subprocess.run([sys.executable, SWEEP, "--headunit", self.folder / "headunit", "--json", found,
                                 "--speed", "1000", *words], capture_output=True, text=True)
        return result, [json.loads(line) for line in found.read_text().splitlines()] if found.is_file() else []

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
if words[0] in ("fault", "key", "press"):
    (pathlib.Path(__file__).parent / "asked").open("a").write(line + "\\n")
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
                ('if line == "press C_TCP" and has("none"): print("it is hidden"); sys.exit(1)\n'
                 'if line == "fault none": remember("none")', "wrong", "afterwards, press C_TCP: it is hidden"),
                ('left_open = ["/dev/ttyS3"]', "wrong", "left open: /dev/ttyS3"),
                ('left_open = ["/dev/mem"]', "wrong", "left open: /dev/mem"),
                ('if line == "press C_TCP": end(134)', "crashed", "status 134"),
                ('if line == "press C_TCP": end(251)', "ended", "the line was lost"),
                ('if line == "quit": end(7)', "wrong", "status 7")):
            result, cells = self.sweep(READS + control, "--cell", cell)
            self.assertEqual([(found["verdict"], found["detail"]) for found in cells], [(verdict, detail)],
                             result.stderr)
            self.assertEqual(result.returncode, 0 if verdict == "ended" else 1)

    def test_a_unit_that_does_not_start(self):
        live = LIVE_PROGRAM.replace('print("talk to it with", flush=True)', "sys.exit(1)")
        with unittest.mock.patch.dict(globals(), LIVE_PROGRAM=live):
            result, cells = self.sweep(READS, "--cell", "calls/throughput/read-EIO/1")
        self.assertEqual([(cell["verdict"], cell["detail"]) for cell in cells],
                         [("crashed", "does not start, status 1")])

    def test_an_end_for_nothing(self):
        control = READS.replace("/dev/ttyS3", "/media/usb0/file") + 'if line == "press C_TCP": end(251)'
        self.assertEqual(self.verdicts(control, "--cell", "calls/throughput/read-EIO/1", status=1),
                         [("calls/throughput/read-EIO/1", "crashed")])

    def test_what_a_refused_mapping_may_leave(self):
        control = 'left_open = ["/dev/mem"]\nif words[:3] == ["fault", "call", "mmap"]: journal("fault mmap /dev/mem")'
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
