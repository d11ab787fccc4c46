#!/usr/bin/python3
"""That tools/break makes every kind of break, and names those that no test notices: it is given a small tree
with a test that sees much and one that sees nothing.

It runs within this program, which loads its modules once, but for the run that is interrupted."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import unittest.mock

BREAK = pathlib.Path(__file__).resolve().parents[2] / "tools" / "break"

sys.dont_write_bytecode = True  # The folder belongs to the sources.
sys.path[:0] = [str(BREAK.parent), str(pathlib.Path(__file__).resolve().parents[1] / "support")]

from programs import run_here

TREE = {
    "CMakeLists.txt": """
        cmake_minimum_required(VERSION 3.25)
        project(Sample LANGUAGES CXX)
        include(CTest)
        add_library(kinds OBJECT src/room/kinds.cpp)
        add_library(scale OBJECT src/room/leave.cpp src/room/scale.cpp src/room/wait.cpp)
        foreach(name IN ITEMS tst_blind tst_scale)
            add_executable(${name} tests/${name}.cpp)
            target_link_libraries(${name} PRIVATE scale)
            add_test(NAME ${name} COMMAND ${name})
        endforeach()
        """,
    "src/room/kinds.h": """
        namespace Qt { enum ConnectionType { AutoConnection, QueuedConnection }; }
        struct QWidget {};
        struct Button : QWidget { void btnClicked(); };
        struct Service { void done(); void failed(); };
        enum Size { Small, Large };
        inline int twice(int value) { return 2 * value; }
        """,
    "src/room/kinds.cpp": """
        #include "kinds.h"
        #define TWICE(x) twice(7)
        void connect(Button *, void (Button::*)(), int, Size, Qt::ConnectionType = {});
        void connect(Service *, void (Service::*)(), int, int, Qt::ConnectionType = {});
        int tr(const char *text);
        struct QString { static int fromUtf8(const char *text); };
        void kinds(int left, int right, bool isLoud, char *text)
        {
            if (left < right && isLoud) {
                text[3] = 'n';
            }
            connect(new Button, &Button::btnClicked, left, Large);
            connect(new Service, &Service::done, 1, left | right); // TWICE(8);
            connect(new Service, &Service::done, tr("text"), 2, Qt::QueuedConnection);
            isLoud = true;
        }
        """,
    "src/room/scale.cpp": """
        static_assert(sizeof(char) == 1, "");
        int scaled(int value)
        {
            (void)value;
            return value < 0 ? 0 : 3 * value;
        }
        """,
    "src/room/leave.cpp": """
        int leaves()
        {
            return 0;
        }
        """,
    "src/room/wait.cpp": """
        void wait(int (*isDone)())
        {
            while (!isDone()) {
            }
        }
        """,
    "src/room/form.ui": """
        <ui version="4.0">
         <property name="x"><number>10</number></property>
         <property name="y"><bool>true</bool></property>
         <property name="z"><string>Text</string></property>
        </ui>
        """,
    "tests/tst_blind.cpp": "int main() {}\n",
    "tests/tst_scale.cpp": """
        #include <unistd.h>
        int leaves();
        int scaled(int value);
        void wait(int (*isDone)());
        int isDone()
        {
            usleep(1000);
            return 1;
        }
        int main()
        {
            if (leaves() && fork() == 0) {
                setpgid(0, 0);
                pause();
            }
            wait(isDone);
            return scaled(2) == 6 && scaled(-1) == 0 ? 0 : 1;
        }
        """,
}

EXCUSE = """\
file: src/room/scale.cpp
kind: operator changed
was: return value < 0 ? 0 : 3 * value;
becomes: return value <= 0 ? 0 : 3 * value;
reason: Three times 0 is 0.

file: src/room/scale.cpp
kind: statement removed
was: gone();
reason: It was there.
"""


def plant(folder, tree):
    for name, content in tree.items():
        path = pathlib.Path(folder, name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(re.sub(r"^ {8}", "", content, flags=re.M).lstrip("\n"))


KINDS = """\
2 number changed: #define TWICE(x) twice(6)
2 number changed: #define TWICE(x) twice(8)
9 statement removed: 
9 statements swapped: connect(new Button, &Button::btnClicked, left, Large);
9 condition negated: if (!(left < right && isLoud)) {
9 operator changed: if (left <= right && isLoud) {
9 operator changed: if (left < right || isLoud) {
10 statement removed: 
10 number changed: text[2] = 'n';
10 number changed: text[4] = 'n';
10 text emptied: text[3] = '\\0';
12 statement removed: 
12 signal exchanged: connect(new Button, &Button::btnReleased, left, Large);
12 argument replaced: connect(new Button, &Button::btnClicked, right, Large);
12 argument replaced: connect(new Button, &Button::btnClicked, left, Small);
12 connection type changed: connect(new Button, &Button::btnClicked, left, Large, Qt::QueuedConnection);
13 statement removed: // TWICE(8);
13 argument replaced: connect(new Service, &Service::failed, 1, left | right); // TWICE(8);
13 number changed: connect(new Service, &Service::done, 0, left | right); // TWICE(8);
13 number changed: connect(new Service, &Service::done, 2, left | right); // TWICE(8);
13 argument replaced: connect(new Service, &Service::done, left | right, left | right); // TWICE(8);
13 argument replaced: connect(new Service, &Service::done, 1, 1); // TWICE(8);
13 operator changed: connect(new Service, &Service::done, 1, left); // TWICE(8);
13 operator changed: connect(new Service, &Service::done, 1, right); // TWICE(8);
13 connection type changed: connect(new Service, &Service::done, 1, left | right, Qt::DirectConnection); // TWICE(8);
13 connection type changed: connect(new Service, &Service::done, 1, left | right, Qt::QueuedConnection); // TWICE(8);
14 statement removed: 
14 statements swapped: isLoud = true;
14 argument replaced: connect(new Service, &Service::failed, tr("text"), 2, Qt::QueuedConnection);
14 argument replaced: connect(new Service, &Service::done, 2, 2, Qt::QueuedConnection);
14 text untranslated: connect(new Service, &Service::done, QString::fromUtf8("text"), 2, Qt::QueuedConnection);
14 text emptied: connect(new Service, &Service::done, tr(""), 2, Qt::QueuedConnection);
14 number changed: connect(new Service, &Service::done, tr("text"), 1, Qt::QueuedConnection);
14 number changed: connect(new Service, &Service::done, tr("text"), 3, Qt::QueuedConnection);
14 argument replaced: connect(new Service, &Service::done, tr("text"), tr("text"), Qt::QueuedConnection);
14 connection type changed: connect(new Service, &Service::done, tr("text"), 2, Qt::AutoConnection);
14 connection type changed: connect(new Service, &Service::done, tr("text"), 2, Qt::BlockingQueuedConnection);
14 connection type changed: connect(new Service, &Service::done, tr("text"), 2, Qt::DirectConnection);
15 statement removed: 
15 true and false exchanged: isLoud = false;
"""


class Break(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.folder.name, "tree")
        cls.temporary = pathlib.Path(cls.folder.name, "temporary")
        cls.temporary.mkdir()

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def setUp(self):
        plant(self.root, TREE)
        (self.root / "tools").mkdir(exist_ok=True)
        (self.root / "tools/break.unnoticeable").unlink(missing_ok=True)

    def tearDown(self):
        self.assertEqual(list(self.temporary.iterdir()), [])
        for name in TREE:
            copied = self.root / "build/break/1/source" / name
            self.assertEqual(copied.read_text(), (self.root / name).read_text())

    def start(self, *options):
        return subprocess.Popen([BREAK, "--root", self.root, *options], stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True,
                                env=dict(os.environ, TMPDIR=str(self.temporary)))

    def call(self, *options):
        with unittest.mock.patch.object(tempfile, "tempdir", str(self.temporary)):
            result = run_here([BREAK, "--root", self.root, *options])
        return result.returncode, result.stdout, result.stderr

    def listed(self, file):
        """The breaks of a file as "line kind: what is there now", in the order of the file."""
        status, output, error = self.call("--list", "--file", file)
        self.assertEqual(status, 0, error)
        breaks = re.findall(r"^\S+:(\d+): (.*)\n--- .*\n\+\+\+ .*\n((?:[-+ @].*\n)+)", output, re.M)
        return [f"{line} {kind}: " + " ".join(" ".join(re.findall(r"^\+(.*)", diff, re.M)).split())
                for line, kind, diff in breaks]

    def running(self):
        return [path for path in pathlib.Path("/proc").glob("[0-9]*/cmdline")
                if os.fsencode(self.root) in contents(path)]

    def test_kinds(self):
        self.assertEqual(self.listed("*/kinds.cpp"), KINDS.splitlines())
        self.assertEqual(self.listed("*/kinds.h")[-3:], [
            "6 number changed: inline int twice(int value) { return 1 * value; }",
            "6 number changed: inline int twice(int value) { return 3 * value; }",
            "6 operator changed: inline int twice(int value) { return 2 / value; }",
        ])
        self.assertEqual(self.listed("*/form.ui"), [
            '2 number changed: <property name="x"><number>11</number></property>',
            '2 number changed: <property name="x"><number>9</number></property>',
            '3 true and false exchanged: <property name="y"><bool>false</bool></property>',
            '4 text emptied: <property name="z"><string></string></property>',
        ])

    def test_the_seed_draws(self):
        one, other = (self.call("--list", "--file", "*/kinds.cpp", "--count", "5", "--seed", seed)[1]
                      for seed in ("1", "2"))
        self.assertNotEqual(one, other)
        self.assertEqual(len(re.findall("^--- ", one, re.M)), 5)

    def test_survivors(self):
        status, output, error = self.call("--file", "*/scale.cpp", "--file", "*/wait.cpp", "--count", "100",
                                          "--floor", "1")
        self.assertEqual(status, 1, error)
        self.assertEqual(sorted(re.findall(r"^\+    (.*)", output, re.M)),
                         ["", "return value < 1 ? 0 : 3 * value;", "return value <= 0 ? 0 : 3 * value;"])
        self.assertEqual(output.splitlines()[-4:], [
            "src/room/scale.cpp        7          0         2                3          1",
            "src/room/wait.cpp         0          1         1                0          0",
            "total                     7          1         3                3          1",
            "survived: 27.3 %",
        ])
        self.assertIn("src/room/wait.cpp:3: condition negated: timed out by tst_scale", error)

    def test_what_a_test_leaves_behind(self):
        """In a group of its own, and with the test's output open."""
        _, output, error = self.call("--file", "*/leave.cpp", "--kind", "number changed", "--count", "1",
                                     "--floor", "1")
        self.assertEqual(output.splitlines()[-2].split()[:4], ["total", "0", "1", "0"], error)
        self.assertEqual(self.running(), [])

    def test_excuses(self):
        (self.root / "tools/break.unnoticeable").write_text(EXCUSE)
        options = ("--file", "*/scale.cpp", "--kind", "operator changed")
        status, output, error = self.call(*options)
        self.assertEqual(status, 0, error)
        self.assertIn("survived: 0.0 %", output)
        self.assertIn("nothing matches any more: src/room/scale.cpp: statement removed: gone();", error)
        (self.root / "tools/break.unnoticeable").unlink()
        status, output, _ = self.call(*options, "--allow", "50")
        self.assertIn("survived: 50.0 %", output)
        self.assertEqual(status, 0)

    def test_a_red_test_is_refused(self):
        plant(self.root, {"tests/tst_scale.cpp": "int main() { return 1; }\n"})
        status, output, error = self.call("--file", "*/scale.cpp")
        self.assertEqual((status, output), (2, ""))
        self.assertIn("tst_scale fails on the right sources", error)

    def test_an_interrupt_leaves_nothing(self):
        self.call("--file", "*/wait.cpp", "--list")
        process = self.start("--file", "*/wait.cpp", "--kind", "condition negated", "--floor", "600")
        while "breaks" not in process.stderr.readline():
            pass
        # The broken program never ends.
        time.sleep(1)
        process.send_signal(signal.SIGINT)
        output, error = process.communicate(timeout=10)
        self.assertEqual(process.returncode, 130)
        self.assertIn("survived: 0.0 %", output)
        self.assertEqual(self.running(), [])


def contents(path):
    try:
        return path.read_bytes()
    except OSError:
        return b""


if __name__ == "__main__":
    unittest.main()
