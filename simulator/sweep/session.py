"""One session of the simulated unit, from its folder to what it ended with."""

import dataclasses
import functools
import pathlib
import re
import signal
import subprocess
import tempfile
import time

LONGEST = 300  # seconds of the unit, for a whole session
LOGS = {"userdata/log_service/service.log": b"service", "userdata/btsnoop.log": b"bluetooth",
        "nvm/dfb_crash.dump": b"dump", "nvm/btsnoop.log": b"bluetooth too"}
UPDATE_FILE = "ORRERY_PACK.BIN"


@dataclasses.dataclass
class Programs:
    headunit: pathlib.Path
    plugin: pathlib.Path
    packages: pathlib.Path
    speed: float
    snapshot: pathlib.Path = None  # of a unit's folder, for what begins with a copy


@dataclasses.dataclass
class End:
    """How a session ended."""
    status: int  # -1 where it was killed because it did not end
    seconds: float
    output: str
    error: str
    journal: list  # the texts of the lines
    files: dict  # contents by path below the unit's folder, of those that were asked for
    claims: bool = False  # that it went well, on the screen at its end

    def has(self, pattern):
        return any(re.search(pattern, line) for line in self.journal)

    def last_error(self):
        lines = [line for line in self.error.splitlines() if not line.startswith("[")]
        return lines[-1] if lines else ""


def furnish(folder, programs, package):
    """Packages for the receiver, the tuner and the user's data on the stick of "usb0", logs to copy in the flash."""
    stick = folder / "sticks" / "usb0"
    stick.mkdir(parents=True)
    for name, version, size in (("bootloader", "boot 3", "5000"), ("firmware", "GNSS 2.5.1", "6000")):
        made = package_of(programs.packages / "make-gps-package", ("valid",), (version, size))
        (stick / f"gps_{name}.pkg").write_bytes(made)
    (stick / UPDATE_FILE).write_bytes(package_of(programs.packages / "make-update-package", tuple(package)))
    (stick / "dab_firmware.bin").write_bytes(bytes(100000))
    logs = folder / "media" / "flash"
    for path, text in LOGS.items():
        (logs / path).parent.mkdir(parents=True, exist_ok=True)
        (logs / path).write_bytes(text)


@functools.cache
def package_of(program, ahead, behind=()):
    """What the program writes, with these words ahead of the file's name and behind it: made once for all sessions."""
    with tempfile.NamedTemporaryFile(prefix="headunit-sweep-") as file:
        subprocess.run([program, *map(str, ahead), file.name, *behind], check=True, stdout=subprocess.DEVNULL)
        return pathlib.Path(file.name).read_bytes()


def command_line(programs, folder):
    command = [programs.headunit, "--headless", "--unit", folder, "--speed", str(programs.speed)]
    return command + (["--plugin", programs.plugin] if programs.plugin else [])


def run(script, programs, files, package=()):
    """Runs a script of console commands on a unit of its own."""
    with tempfile.TemporaryDirectory(prefix="headunit-sweep-") as name:
        folder = pathlib.Path(name) / "unit"
        folder.mkdir()
        furnish(folder, programs, package)
        command = command_line(programs, folder) + ["--no-socket", "--script", "-"]
        began = time.monotonic()
        # Where the program's standard output is a file, all of it is there also after exit().
        output = pathlib.Path(name) / "output"
        with open(output, "wb") as stream:
            process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=stream, stderr=subprocess.PIPE)
            try:
                _, error = process.communicate(script.encode(), timeout=max(30, LONGEST / programs.speed))
                status = process.returncode
            except subprocess.TimeoutExpired:
                process.send_signal(signal.SIGKILL)
                _, error = process.communicate()
                status = -1
        return End(status, time.monotonic() - began, output.read_text(errors="replace"),
                   error.decode(errors="replace"), journal_of(folder), contents(folder, files))


def journal_of(folder):
    path = folder / "journal.log"
    if not path.is_file():
        return []
    lines = path.read_text(errors="replace").splitlines()
    return [line.split(" ", 2)[2] for line in lines if line.count(" ") > 1 and not line.startswith("#")]


def contents(folder, files):
    return {name: (folder / name).read_bytes() for name in files if (folder / name).is_file()}
