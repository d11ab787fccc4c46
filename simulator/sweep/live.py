"""A simulated unit that is asked while it runs, on a copy of a unit's folder."""

import json
import pathlib
import re
import shlex
import signal
import subprocess
import tempfile
import time

import session

LONGEST = 300  # seconds of the unit, for all that is done to it
READY = "talk to it with"


class Gone(Exception):
    """The unit has ended, or does not answer in time."""


def make_snapshot(folder, programs):
    """A unit's folder with packages and logs, in which a unit has been before."""
    unit = pathlib.Path(folder) / "unit"
    unit.mkdir()
    session.furnish(unit, programs, ())
    command = session.command_line(programs, unit) + ["--no-socket", "--script", "-"]
    subprocess.run(command, input=b"quit\n", check=True, stdout=subprocess.DEVNULL)
    return unit


class LiveUnit:
    """Runs from the with statement's beginning to its end."""

    def __init__(self, programs, snapshot):
        self.programs = programs
        self.temporary = tempfile.TemporaryDirectory(prefix="headunit-sweep-")
        self.folder = pathlib.Path(self.temporary.name) / "unit"
        subprocess.run(["cp", "--archive", "--sparse=always", snapshot, self.folder], check=True)
        self.output = pathlib.Path(self.temporary.name) / "output"
        self.began = time.monotonic()
        self.claims = False  # that it went well, on the screen

    def __enter__(self):
        with open(self.output, "wb") as stream:
            self.process = subprocess.Popen(session.command_line(self.programs, self.folder), stdout=stream,
                                            stderr=subprocess.STDOUT)
        try:
            while READY not in self.printed():
                self.left()
                time.sleep(0.01)
        except Gone:
            self.stop()
            raise
        self.read = len(session.journal_of(self.folder))
        return self

    def __exit__(self, *_):
        self.stop()
        self.temporary.cleanup()

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
            self.process.wait()

    def left(self):
        """Seconds; none is left of a program that has ended."""
        seconds = self.began + max(30, LONGEST / self.programs.speed) - time.monotonic()
        if seconds <= 0 or self.process.poll() is not None:
            raise Gone
        return seconds

    def ask(self, line):
        """Whether a command of the console's went well, and what it said."""
        command = [self.programs.headunit.parent / "headunit-ctl", "--unit", self.folder, *shlex.split(line)]
        try:
            result = subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=self.left())
        except subprocess.TimeoutExpired as error:
            raise Gone from error
        if result.returncode != 0:
            self.left()
        return result.returncode == 0, result.stdout or result.stderr

    def ask_for(self, line, longest):
        """The same, again and again for so many seconds of the unit while it is restarting."""
        end = time.monotonic() + longest / self.programs.speed
        answer = self.ask(line)
        while "the unit is starting" in answer[1] and time.monotonic() < end:
            time.sleep(0.02)
            answer = self.ask(line)
        return answer

    def until(self, pattern, longest):
        """Waits for a line of the journal behind the one of the last time, so many seconds of the unit."""
        end = time.monotonic() + longest / self.programs.speed
        while True:
            lines = session.journal_of(self.folder)
            found = next((place for place in range(self.read, len(lines)) if re.search(pattern, lines[place])), None)
            if found is not None:
                self.read = found + 1
            if found is not None or time.monotonic() > end:
                return
            self.left()
            time.sleep(0.02)

    def state(self, device):
        _, lines = self.ask("state --json")
        return next(state for state in map(json.loads, lines.splitlines()) if state["device"] == device)

    def quit(self):
        """Has it end, and waits for that."""
        try:
            self.ask("quit")
            self.process.wait(self.left())
        except (Gone, subprocess.TimeoutExpired):
            pass  # Its end tells.

    def printed(self):
        return self.output.read_text(errors="replace")

    def end(self, files=()):
        """As far as it has come; the status is -1 as long as it runs."""
        status = self.process.poll()
        return session.End(-1 if status is None else status, time.monotonic() - self.began, self.printed(), "",
                           session.journal_of(self.folder), session.contents(self.folder, files), self.claims)
