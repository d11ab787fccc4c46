#!/usr/bin/python3
"""That a unit which is killed at any of its changes of its folder, in the middle of what it writes, starts again with
the old or the new value of everything, and says what it removed.

    tst_killed.py HEADUNIT PLUGIN KILLEDAT TOOLS [--all]

KILLEDAT is the library that kills. Without --all it does so at every so many of the changes."""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SAMPLE = 6  # changes of each session
HEADUNIT, PLUGIN, KILLEDAT, TOOLS = (pathlib.Path(word).absolute() for word in sys.argv[1:5])
ALL = "--all" in sys.argv[5:]

# Each value once, so that it has an old value and a new one.
CHANGES = """
setting kept/text new
setting kept/number 2
vendor 2 13000000
panel hue 7
daynight day 180
daynight automatic off
version bluetooth 9.9
usb 0 DCP
usb certification T
plug sd0
pull usb1
full usb0 on
write-protect usb0 on
slow usb0 90000
memory phySwing 01020304
key FACTORY
press ncmtest
press S_UDP
"""
UPGRADE = """
key FACTORY
press gps
visible idUpdateBtn
press idUpdateBtn
expect "receiver runs GNSS 2.5.1" 100000
"""
BEFORE = "setting kept/text old\nsetting kept/number 1\nplug usb1\nplug usb0\nfull usb0 off\n"
RESET = "factory-reset\nexpect \"unit booted\"\n"

# What passes, or is of the moment.
OF_THE_MOMENT = ("ncm", "keylight", "program", "dab", "receiver", "unit", "faults")
JOURNAL_LINE = re.compile(rb"# .*|[0-9.]+ #[0-9?]+ .*|.* \.\.\. cut off")

failures = []


def run(folder, script, kill_at=0, log=None, speed=100):
    # What a killed program leaves goes with the scratch folder.
    environment = dict(os.environ, TMPDIR=str(folder.parent))
    if kill_at or log:
        environment.update(LD_PRELOAD=str(KILLEDAT), KILLED_BELOW=f"{folder}/", KILLED_AT=str(kill_at))
    if log:
        environment["KILLED_LOG"] = str(log)
    return subprocess.run([HEADUNIT, "--headless", "--no-socket", "--speed", str(speed), "--plugin", PLUGIN,
                           "--unit", folder, "--script", "-"], input=script, env=environment, capture_output=True,
                          text=True, errors="replace", cwd=folder.parent, timeout=120)


def copied(folder, name):
    target = folder.parent / name
    shutil.rmtree(target, ignore_errors=True)
    if folder.exists():
        subprocess.run(["cp", "-a", "--sparse=always", folder, target], check=True)
    return target


def leaves(value, path=""):
    """Each single value with its path."""
    if isinstance(value, dict):
        pairs = value.items()
    elif isinstance(value, list):
        pairs = ((each.get("name", index) if isinstance(each, dict) else index, each)
                 for index, each in enumerate(value))
    else:
        return {path: value}
    return {key: leaf for name, each in pairs for key, leaf in leaves(each, f"{path}/{name}").items()}


def state(folder):
    """All that a start finds; None, with a complaint, where it does not start."""
    result = run(folder, "state --json\n")
    if result.returncode != 0 or result.stderr:
        return None, f"the next start ends with {result.returncode}: {result.stderr}"
    found = {}
    for line in result.stdout.splitlines():
        device = json.loads(line)
        if device["device"] not in OF_THE_MOMENT:
            found.update(leaves(device, device["device"]))
    for image in ("bootloader", "firmware"):
        path = folder / "receiver" / f"{image}.pkg"
        found[f"receiver/{image}"] = path.read_bytes() if path.exists() else b""
    return found, ""


def names(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*")}


def unfinished(folder):
    """What a program that is killed may leave: what it was writing, and files of processes that are no more."""
    return {str(path.relative_to(folder)) for path in folder.rglob("*")
            if not path.is_symlink() and (path.name.endswith(".part") or path.parent == folder / "run")}


def complaint(folder, old, new, known):
    left = unfinished(folder)
    journal = folder / "journal.log"
    is_cut = journal.exists() and journal.read_bytes()[-1:] not in (b"\n", b"")
    found, wrong = state(folder)
    if wrong:
        return wrong
    for name in sorted(old.keys() | new.keys() | found.keys()):
        value = found.get(name)
        if value not in (old.get(name), new.get(name)):
            return f"{name} is {value!r}, neither {old.get(name)!r} nor {new.get(name)!r}"
    lines = journal.read_bytes().splitlines()
    for name in left:
        if not any(line.endswith(f"unit removed /{name}".encode()) for line in lines):
            return f"nothing is said of {name}"
    for line in lines:
        if not JOURNAL_LINE.fullmatch(line):
            return f"the journal has {line!r}"
    if is_cut and not any(line.endswith(b" ... cut off") for line in lines):
        return "nothing is said of the line that was cut off"
    left = names(folder) - known - {"lock"}
    return f"{left} is left" if left else ""


def session(start, name, script, place, log):
    """Run once more, and slower, where a busy machine made it fail: the receiver's patience is not without end."""
    for speed in (50, 20, 10):
        folder = copied(start, name)
        log.unlink(missing_ok=True)
        result = run(folder, script, place, log, speed)
        if result.returncode in (0, -signal.SIGKILL):
            break
    return folder, result


def kill_everywhere(title, start, script):
    """The same session, killed at one change after the other until it goes through."""
    began = time.monotonic()
    log = start.parent / "log"
    whole, result = session(start, "whole", script, 0, log)
    changes = log.read_text().splitlines()
    if result.returncode != 0:
        failures.append(f"{title}: {result.stderr}")
        return
    old = state(copied(start, "old"))[0]
    new = state(whole)[0]
    known = names(whole) | names(start.parent / "old")
    # Most lines of the journal are alike.
    states = [number for number, change in enumerate(changes, 1) if ALL or "journal.log" not in change]
    places = states if ALL else [*states[::max(1, len(states) // SAMPLE)], len(changes) // 2]
    killed = 0
    for place in places:
        folder, result = session(start, "killed", script, place, log)
        if result.returncode != -signal.SIGKILL:
            if result.returncode != 0:
                failures.append(f"{title}, at {place}: {result.returncode} {result.stderr}")
            continue
        killed += 1
        wrong = complaint(folder, old, new, known)
        if wrong:
            failures.append(f"{title}, killed at {place}, \"{log.read_text().splitlines()[-1]}\": {wrong}")
    print(f"{title}: killed {killed} times at {len(changes)} changes, {time.monotonic() - began:.0f} s", flush=True)


def main():
    with tempfile.TemporaryDirectory(prefix="killed-") as name:
        scratch = pathlib.Path(name)
        kill_everywhere("first start", scratch / "nothing", "look\n")
        unit = scratch / "unit"
        unit.mkdir()
        for part, size in (("bootloader", "5000"), ("firmware", "6000")):
            stick = unit / "sticks" / "usb0"
            stick.mkdir(parents=True, exist_ok=True)
            subprocess.run([TOOLS / "make-gps-package", "valid", stick / f"gps_{part}.pkg", "GNSS 2.5.1", size],
                           check=True, stdout=subprocess.DEVNULL)
        result = run(unit, BEFORE)
        if result.returncode != 0:
            failures.append(result.stderr)
        for title, script in (("changes", CHANGES), ("upgrade", UPGRADE), ("factory reset", RESET)):
            kill_everywhere(title, unit, script)
    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
