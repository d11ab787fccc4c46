#!/usr/bin/python3
"""That contained tells what is written outside of the folders, from lines as strace writes them, and of a command."""

import contextlib
import importlib.machinery
import importlib.util
import io
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = pathlib.Path(__file__).resolve().parents[2] / "cmake" / "contained"

sys.dont_write_bytecode = True
SPEC = importlib.util.spec_from_loader("contained", importlib.machinery.SourceFileLoader("contained", str(PROGRAM)))
contained = importlib.util.module_from_spec(SPEC)
SPEC.loader.exec_module(contained)


def findings(text):
    """Of a command in /in, where it may write."""
    watch = contained.Watch(["/in"], "/in")
    for line in text.strip().splitlines():
        watch.read(line.strip() + "\n")
    return [f"{path} {call} {program}" for program, call, path in sorted(watch.findings)]


class Lines(unittest.TestCase):
    def told(self, text, *expected):
        self.assertEqual(findings(text), list(expected))

    def test_inside(self):
        self.told("""
            1 openat(AT_FDCWD</in>, "a", O_WRONLY|O_CREAT, 0666) = 3</in/a>
            1 mkdir("/in/b", 0777) = 0
            1 rename("/in/a", "b/c") = 0
            1 unlinkat(3</in/b>, "c", 0) = 0""")

    def test_reading_is_no_harm(self):
        self.told('1 openat(AT_FDCWD</in>, "/etc/passwd", O_RDONLY|O_CLOEXEC) = 3</etc/passwd>')

    def test_beside_the_folder(self):
        self.told('1 mkdir("/inside", 0777) = 0', "/inside mkdir ?")

    def test_each_kind(self):
        for call, path in (
                ('open("/out", O_RDWR) = 3</out>', "/out"),
                ('openat(AT_FDCWD</in>, "../out", O_WRONLY|O_CREAT, 0666) = 3</out>', "/out"),
                ('openat(AT_FDCWD</in>, "../out", O_RDONLY|O_TRUNC) = 3</out>', "/out"),
                ('creat("/out", 0666) = 3</out>', "/out"),
                ('mkdirat(4</out>, "of", 0777) = 0', "/out/of"),
                ('unlinkat(4</out>, "of", 0) = 0', "/out/of"),
                ('rename("/in/a", "/out") = 0', "/out"),
                ('rename("/out", "/in/a") = 0', "/out"),
                ('renameat2(AT_FDCWD</in>, "a", 4</out>, "of", RENAME_NOREPLACE) = 0', "/out/of"),
                ('symlink("/in", "/out") = 0', "/out"),
                ('symlinkat("/in", 4</out>, "of") = 0', "/out/of"),
                ('linkat(AT_FDCWD</in>, "a", 4</out>, "of", 0) = 0', "/out/of"),
                ('truncate("/out", 0) = 0', "/out"),
                ('fchmodat(AT_FDCWD</in>, "/out", 0700) = 0', "/out"),
                ('mount("a", "/out", "tmpfs", 0, NULL) = 0', "/out"),
                ('bind(3<socket:[1]>, {sa_family=AF_UNIX, sun_path="/out"}, 110) = 0', "/out")):
            with self.subTest(call):
                self.told("1 " + call, f"{path} {call.partition('(')[0]} ?")

    def test_where_a_link_leads(self):
        self.told('1 openat(AT_FDCWD</in>, "link", O_WRONLY) = 3</out>', "/out openat ?")

    def test_what_fails_might_not(self):
        self.told('1 openat(AT_FDCWD</in>, "/dev/ttyS9", O_RDWR) = -1 ENOENT (No such file or directory)',
                  "/dev/ttyS9 openat ?")

    def test_what_is_there_is_not_made(self):
        self.told('1 mkdir("/", 0777) = -1 EEXIST (File exists)')

    def test_exceptions(self):
        self.told("""
            1 openat(AT_FDCWD</in>, "/dev/null", O_RDWR) = 3</dev/null>
            1 openat(AT_FDCWD</in>, "/proc/self/fd/3", O_RDWR) = 4</memfd:a>(deleted)
            1 openat(AT_FDCWD</in>, "/dev/stdout", O_WRONLY) = 4<pipe:[12]>
            1 bind(3<socket:[1]>, {sa_family=AF_UNIX, sun_path=@"/tmp/.X11-unix/X9"}, 20) = 0""")

    def test_exceptions_for_what_is_missing(self):
        self.told("""
            1 mkdir("/media/flash/area7/known", 0777) = -1 ENOENT (No such file or directory)
            1 mkdir("/media/flash/area8/known", 0777) = 0
            1 openat(AT_FDCWD</in>, "/etc/passwd/a", O_RDWR|O_CREAT, 0666) = -1 ENOTDIR (Not a directory)""",
                  "/media/flash/area8/known mkdir ?")

    def test_what_is_open_already(self):
        self.told("""
            1 openat(AT_FDCWD</in>, "a", O_RDONLY|O_PATH) = 3</in/a>
            1 chmod("/proc/self/fd/3", 0700) = 0
            1 openat(AT_FDCWD</in>, "/out", O_RDONLY|O_PATH) = 3</out>
            1 chmod("/proc/self/fd/3", 0700) = 0""", "/out chmod ?")

    def test_relative_to_the_folder_of_each_process(self):
        self.told("""
            1 vfork() = 2
            2 chdir("/out") = 0
            2 mkdir("a", 0777) = 0
            1 mkdir("b", 0777) = 0
            1 chdir("/missing") = -1 ENOENT (No such file or directory)
            1 mkdir("c", 0777) = 0""", "/out/a mkdir ?")

    def test_threads_share_the_folder(self):
        self.told("""
            1 clone3({flags=CLONE_VM|CLONE_FS|CLONE_FILES|CLONE_THREAD, stack=0x1}, 88) = 2
            2 fchdir(3</out>) = 0
            1 rmdir("a") = 0""", "/out/a rmdir ?")

    def test_calls_that_others_interrupt(self):
        self.told("""
            1 clone(child_stack=NULL, flags=CLONE_CHILD_SETTID|SIGCHLD <unfinished ...>
            2 mkdir("../b", 0777 <unfinished ...>
            1 <... clone resumed>, child_tidptr=0x7f) = 2
            2 <... mkdir resumed>) = 0
            2 +++ exited with 0 +++
            1 rmdir("/c") = 0""", "/b mkdir ?", "/c rmdir ?")

    def test_by_what_the_command_started(self):
        self.told("""
            1 execve("/bin/ctest", ["ctest", "-j2"], 0x7f /* 9 vars */) = 0
            1 vfork() = 2
            2 execve("/in/tst_a", ["/in/tst_a", "b"], 0x7f /* 9 vars */) = 0
            2 vfork() = 3
            3 execve("/bin/sh", ["sh"], 0x7f /* 9 vars */) = 0
            3 unlink("/out") = 0
            1 unlink("/out") = 0""", "/out unlink /in/tst_a b", "/out unlink ctest -j2")

    def test_what_nobody_has_started(self):
        watch = contained.Watch(["/in"], "/in")
        watch.read("1 vfork( <unfinished ...>\n")
        watch.read('2 mkdir("/out", 0777) = 0\n')
        with contextlib.redirect_stdout(io.StringIO()) as said:
            self.assertFalse(watch.report())
        self.assertIn('Not understood: 2 mkdir("/out", 0777) = 0\n', said.getvalue())

    def test_odd_names(self):
        self.told(r'1 mkdir("/a, \"b\"\303\274", 0777) = 0', '/a, "b"ü mkdir ?')


class Command(unittest.TestCase):
    def run_in(self, script):
        with tempfile.TemporaryDirectory() as outside, tempfile.TemporaryDirectory() as inside:
            result = subprocess.run([PROGRAM, inside, "--", "sh", "-c", script, "sh", inside, outside],
                                    capture_output=True, text=True)
            return result.returncode, result.stdout.replace(outside, "OUTSIDE")

    def test_contained(self):
        status, said = self.run_in('echo a >"$1/a"; rm "$1/a"; mktemp >/dev/null; exit 3')
        self.assertEqual(status, 3)
        self.assertRegex(said, r"^\d of \d+ calls change files; outside of the folders: 0\n$")

    def test_not_contained(self):
        status, said = self.run_in('ln -s "$2" "$1/link"; echo a >"$1/link/b"; mv "$2/b" "$1"')
        self.assertEqual(status, 1)
        self.assertRegex(said, r"(?m)^OUTSIDE/b: openat, by sh -c ")
        self.assertRegex(said, r"(?m)^OUTSIDE/b: renameat2?, .*by mv ")


if __name__ == "__main__":
    unittest.main()
