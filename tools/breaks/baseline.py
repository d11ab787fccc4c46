"""What the tests say of the right sources."""

import collections
import json

from .parallel import in_parallel
from .workshop import FAILURE, Trouble


class Baseline:
    """How long each test takes on the right sources; all must pass there."""

    def __init__(self, path, digest):
        self.path = path
        self.digest = digest
        self.seconds = {}
        self.load()

    def load(self):
        try:
            stored = json.loads(self.path.read_text(encoding="utf-8"))
            if stored["digest"] == self.digest:
                self.seconds = stored["seconds"]
        except (OSError, ValueError, KeyError):
            pass

    def save(self):
        self.path.write_text(json.dumps({"digest": self.digest, "seconds": self.seconds}), encoding="utf-8")

    def measure(self, workshops, tests, say):
        missing = collections.deque(sorted(set(tests) - set(self.seconds)))
        red = {}

        def work(workshop):
            while missing:
                try:
                    name = missing.popleft()
                except IndexError:
                    return
                passes, seconds, output = workshop.run(name)
                workshop.clean()
                if not passes:
                    say(f"{name} fails on the right sources: once more.")
                    passes, seconds, output = workshop.run(name)
                if passes:
                    self.seconds[name] = seconds
                else:
                    red[name] = output
                    missing.clear()

        if missing:
            say(f"Running {len(missing)} tests on the right sources.")
            try:
                in_parallel(work, workshops)
            finally:
                self.save()
        if red:
            name, output = sorted(red.items())[0]
            raise Trouble(f"{name} fails on the right sources, so that no break can be told by it:\n"
                          f"{reasons(output)}")


def reasons(output):
    """What a test program says of its failures, or at least its last words."""
    lines = output.splitlines()
    told = [line for number, line in enumerate(lines)
            if any(FAILURE.match(each.encode()) for each in lines[max(0, number - 3):number + 1])]
    return "\n".join(told or lines[-10:])
