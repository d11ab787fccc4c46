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
        doubtful = []

        def work(workshop):
            while missing:
                try:
                    name = missing.popleft()
                except IndexError:
                    return
                passes, seconds, _ = workshop.run(name)
                if passes:
                    self.seconds[name] = seconds
                else:
                    doubtful.append(name)

        if missing:
            say(f"Running {len(missing)} tests on the right sources.")
            try:
                in_parallel(work, [each for each in workshops for _ in range(each.side_by_side)])
                self.confirm(workshops[0], doubtful, say)
            finally:
                self.save()

    def confirm(self, workshop, doubtful, say):
        """Runs those that have failed alone."""
        for name in doubtful:
            say(f"{name} has failed: once more.")
            passes, seconds, output = workshop.run(name)
            if not passes:
                raise Trouble(f"{name} fails on the right sources, so that no break can be told by it:\n"
                              f"{reasons(output)}")
            self.seconds[name] = seconds


def reasons(output):
    """What a test program says of its failures, or at least its last words."""
    lines = output.splitlines()
    told = [line for number, line in enumerate(lines)
            if any(FAILURE.match(each.encode()) for each in lines[max(0, number - 3):number + 1])]
    return "\n".join(told or lines[-10:])
