"""A program in Python as a test runs it."""

import contextlib
import io
import runpy
import subprocess
import sys
import unittest.mock


def run_here(command):
    """Within the test: a start of Python, and of the modules that the program loads, takes longer than most of what a
    test does with it. The modules must be found from the test."""
    output, errors = io.StringIO(), io.StringIO()
    with contextlib.redirect_stdout(output), contextlib.redirect_stderr(errors), \
            unittest.mock.patch.object(sys, "argv", [str(word) for word in command]):
        try:
            runpy.run_path(sys.argv[0], run_name="__main__")
        except SystemExit as end:
            status = end.code or 0
            if isinstance(status, str):  # A complaint.
                print(status, file=sys.stderr)
                status = 1
            return subprocess.CompletedProcess(command, status, output.getvalue(), errors.getvalue())
    raise AssertionError("the program goes on")


def run_apart(command):
    """As it is started by hand."""
    return subprocess.run([sys.executable, *command], capture_output=True, text=True)
