"""A simulated unit that is fed with lines, and what goes wrong with it."""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import threading

from .stream import pages

ROOT = pathlib.Path(__file__).resolve().parents[2]

LINE_LOST = 251  # The plug-in ends the program where the receiver's line is lost.
BLOCKED = 7  # headunit, where it was to end and a page's work went on

# The logs that pages copy.
LOGS = ("userdata/log_service/service.log", "userdata/btsnoop.log", "nvm/dfb_crash.dump", "nvm/btsnoop.log")

# Of Qt's warnings that of the NCM page's style sheet, and what its offscreen platform cannot do; and what the commands
# of the unit's shell have to say.
KNOWN = re.compile(r'Could not parse stylesheet of object QLabel\(0x[0-9a-f]+, name = "notice"\)$'
                   r"|This plugin does not support raise\(\)$|(cp|mkdir|rm|sh|killall|logset): ")

# A page of the receiver's that no result reaches stays on everything, as it is meant to, until the unit is restarted.
USABLE = ("try lift", "fault none", "speed 1000", "mark", "reboot", 'expect "unit booted" 60000000', "wait 300000",
          'repeat 3 "key HOME"', "key FACTORY", "see KeyColor 60000000", "press keycolor", "see Red 60000000",
          "press return", "see KeyColor 60000000", "key HOME")

# Always the same, in the same light: what it takes can be compared.
PAGES = [page for page, ids in pages().items() if "return" in ids]
STROLL = ("panel brightness 12", "als-curve 0 60", "daynight day 255", "key FACTORY",
          *(line for page in 5 * PAGES for line in (f"press {page}", "press return")), "key HOME")

FAILED_LINE = re.compile(r"\S+:\d+: ")


class Finding(Exception):
    """What goes wrong; the kind is the same each time that it does."""

    def __init__(self, kind, details=""):
        super().__init__(kind)
        self.kind = kind
        self.details = details


def environment(temporary):
    """Leaks, also of threads where the program ends at once, are not told but measured, and what was freed is kept for
    as long as memory stays comparable. What a killed program leaves lies in the folder."""
    sanitizers = {"ASAN_OPTIONS": "detect_leaks=0:quarantine_size_mb=16", "UBSAN_OPTIONS": "print_stacktrace=1",
                  "TSAN_OPTIONS": f"{os.environ.get('TSAN_OPTIONS', '')}:report_thread_leaks=0"}
    return {**os.environ, **sanitizers, "TMPDIR": str(temporary)}


def furnish(folder):
    for name in LOGS:
        path = folder / "media" / "flash" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("log\n")


def copy(folder, target):
    """A unit's folder as it is now, but for what it has journalled. Its memory is a file with holes."""
    shutil.rmtree(target, ignore_errors=True)
    subprocess.run(["cp", "-a", "--sparse=always", folder, target], check=True)
    (target / "journal.log").unlink(missing_ok=True)
    # Of a unit that was killed.
    (target / "lock").unlink(missing_ok=True)


def finding_of(status, errors, ended_by=None, could_lose_line=False):
    """What an end of the program shows, or None for one that is as it should be."""
    failed = [line for line in errors if FAILED_LINE.match(line)]
    said = [line for line in errors if line not in failed and not KNOWN.match(line)]
    details = "\n".join(errors[-20:])
    if status < 0 and ended_by != signal.Signals(-status):
        return Finding(f"crashed by {signal.Signals(-status).name}", details)
    if said:
        return Finding(f"said: {re.sub(r'0x[0-9a-f]+|[0-9]+', '#', said[0])}", details)
    if failed:
        return Finding(f"not usable: {failed[0].split(': ', 1)[1]}", details)
    if status == LINE_LOST and could_lose_line or status == 0 or status < 0:
        return None
    return Finding(f"ended with {status}", details)


class Unit:
    """One run of the program; lines go in by batches, of which one is under way while the next is made."""

    def __init__(self, command, folder, patience):
        self.patience = patience
        self.process = subprocess.Popen(
            [*command, "--unit", folder, "--script", "-"], cwd=folder, env=environment(folder.parent), text=True,
            errors="replace", stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.pid = self.process.pid
        self.errors = []
        self.written = 0
        self.answered = 0
        self.is_over = False
        self.news = threading.Condition()
        self.readers = [threading.Thread(target=self.read_answers, daemon=True),
                        threading.Thread(target=self.read_errors, daemon=True)]
        for reader in self.readers:
            reader.start()

    def read_answers(self):
        for line in self.process.stdout:
            answer = re.search(r'"/batch/(\d+)"$', line)
            if answer:
                with self.news:
                    self.answered = int(answer[1])
                    self.news.notify()
        with self.news:
            self.is_over = True
            self.news.notify()

    def read_errors(self):
        for line in self.process.stderr:
            if not KNOWN.match(line.rstrip("\n")):
                self.errors.append(line.rstrip("\n"))
                del self.errors[1:-1000]  # The first one tells what it is.

    def feed(self, lines):
        """Hands lines over when those before the last ones have been run. False when the program is over."""
        self.written += 1
        # What nobody has read of the journal stays in memory.
        text = "".join(f"{line}\n" for line in (*lines, "mark", f"try cd /batch/{self.written}"))
        try:
            self.process.stdin.write(text)
            self.process.stdin.flush()
        except BrokenPipeError:
            return False
        return self.await_answer(self.written - 1)

    def await_answer(self, number):
        with self.news:
            if not self.news.wait_for(lambda: self.is_over or self.answered >= number, self.patience):
                raise Finding("hangs")
        # Of a unit that goes on; of one that does not, its end tells more.
        finding = None if self.is_over else finding_of(0, [line for line in self.errors if not FAILED_LINE.match(line)])
        if finding:
            raise finding
        return not self.is_over

    def finish(self):
        """Waits until all has been run."""
        return self.await_answer(self.written)

    def end(self):
        """Of a program that is over, or told to be: its status and what it said."""
        try:
            status = self.process.wait(self.patience)
        except subprocess.TimeoutExpired:
            raise Finding("hangs") from None
        for reader in self.readers:
            reader.join(self.patience)
        return status, self.errors

    def kill(self):
        self.process.kill()
        self.process.wait()
        try:
            self.process.stdin.close()
        except BrokenPipeError:
            pass


def replay(command, start, lines, patience, scratch):
    """What the lines, as a script, show on a unit that starts from that folder; None when nothing."""
    folder = scratch / "replayed"
    copy(start, folder)
    script = scratch / "replayed.txt"
    script.write_text("".join(f"{line}\n" for line in lines))
    process = subprocess.Popen([*command, "--unit", folder, "--script", script], cwd=folder,
                               env=environment(folder.parent), text=True, errors="replace",
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    try:
        _, errors = process.communicate(timeout=patience)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        return Finding("hangs")
    return finding_of(process.returncode, errors.splitlines(),
                      could_lose_line=any("receiver hangup" in line for line in lines))
