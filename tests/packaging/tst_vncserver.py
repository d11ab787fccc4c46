#!/usr/bin/python3
"""That the VNC server of ./run --vnc listens to this machine alone."""

import os
import pathlib
import subprocess
import time
import unittest

SERVER = pathlib.Path(__file__).resolve().parents[2] / "cmake" / "vnc-server"

LISTENS = "0A"
LOOPBACK = {"0100007F", "00000000000000000000000001000000"}


def listening(process):
    """What the process listens on, as (address, port); the address as the kernel tells it."""
    folder = pathlib.Path(f"/proc/{process}")
    sockets = set()
    for descriptor in (folder / "fd").iterdir():
        try:
            sockets.add(os.readlink(descriptor))
        except FileNotFoundError:
            pass
    found = set()
    for table in ("tcp", "tcp6"):
        for line in (folder / "net" / table).read_text().splitlines()[1:]:
            words = line.split()
            if words[3] == LISTENS and f"socket:[{words[9]}]" in sockets:
                address, port = words[1].split(":")
                found.add((address, int(port, 16)))
    return found


class VncServer(unittest.TestCase):
    def start(self, number):
        """False where that display is taken."""
        self.server = subprocess.Popen([SERVER, str(number)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        while self.server.poll() is None:
            try:
                self.found = listening(self.server.pid)
            except FileNotFoundError:
                continue
            if self.found:
                return True
            time.sleep(0.05)
        return False

    def stop(self):
        self.server.terminate()
        self.server.wait()

    def test_only_this_machine(self):
        first = 20 + os.getpid() % 500
        self.addCleanup(self.stop)
        number = next(number for number in range(first, first + 20) if self.start(number))
        self.assertIn(5900 + number, {port for _, port in self.found})
        self.assertLessEqual({address for address, _ in self.found}, LOOPBACK)


if __name__ == "__main__":
    unittest.main()
