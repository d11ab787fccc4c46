"""Tries breaks: builds each, runs the tests that own its source until one notices it, and counts."""

import collections
import pathlib
import signal
import threading
import time

from .parallel import in_parallel
from .workshop import Stopped, Trouble

NOTICED = "noticed"
TIMED_OUT = "timed out"
SURVIVED = "survived"
NOT_COMPILED = "did not compile"
SAME_CODE = "same code"

# Those that say something about the tests.
VALID = (NOTICED, TIMED_OUT, SURVIVED)

# How many programs are linked at a time: first the likeliest, then the others.
LIKELIEST = 2
BATCH = 8


class Counted:
    """A file, the order in which its breaks are tried, and what has come out."""

    def __init__(self, file, source, breaks, wanted):
        self.file = file
        self.source = source
        self.waiting = collections.deque(breaks)
        self.wanted = wanted
        self.running = 0
        self.results = []
        self.noticers = []

    def count(self, verdict):
        return sum(1 for _, found, _ in self.results if found == verdict)

    def valid(self):
        return sum(self.count(verdict) for verdict in VALID)

    def has_more(self):
        return bool(self.waiting) and self.valid() + self.running < self.wanted

    def likeliest_first(self, tests, seconds):
        """Those that have noticed the file's last breaks, those of its class, of its room, the others; the
        quickest first."""
        path = pathlib.PurePath(self.file)

        def likelihood(name):
            test = tests[name]
            subject = name.removeprefix("tst_")
            is_own = subject == path.stem or subject.startswith(path.stem + "_")
            is_near = pathlib.PurePath(test.folder).name == path.parent.name
            return (not (name in self.noticers), not is_own, not is_near, seconds[name])

        return sorted(tests, key=likelihood)


class Trial:
    def __init__(self, workshops, owners, seconds, floor, say):
        self.workshops = workshops
        self.owners = owners
        self.seconds = seconds
        self.floor = floor
        self.say = say
        self.lock = threading.Lock()
        self.right = {}

    def run(self, files):
        """Fills in the results of the files."""
        in_parallel(lambda workshop: self.work(workshop, files), self.workshops)

    def work(self, workshop, files):
        counted = None
        while True:
            with self.lock:
                counted = self.chosen(counted, files)
                if counted is None:
                    break
                each = counted.waiting.popleft()
                counted.running += 1
            began = time.monotonic()
            try:
                result = self.verdict(workshop, counted, each)
            finally:
                with self.lock:
                    counted.running -= 1
            with self.lock:
                counted.results.append((each, *result))
                self.tell(counted, each, result, time.monotonic() - began)
        workshop.restore()

    def chosen(self, current, files):
        """The file whose break is the next: the one that the workshop is at, else the least busy one."""
        if current is not None and current.has_more():
            return current
        return min((each for each in files if each.has_more()), key=lambda each: each.running, default=None)

    def tell(self, counted, each, result, seconds):
        verdict, by = result
        by = f" by {by}" if by else ""
        self.say(f"{each.file}:{each.line(counted.source)}: {each.kind}: {verdict}{by} ({seconds:.1f} s)")

    def verdict(self, workshop, counted, each):
        file, source = counted.file, counted.source
        objects = self.owners.shipped_objects(file)
        right = self.right_code(workshop, objects)
        if workshop.broken.keys() - {file}:
            workshop.restore()
        workshop.write(file, each.applied(source))
        if workshop.make(objects):
            return NOT_COMPILED, None
        if [workshop.content(name) for name in objects] == right:
            return SAME_CODE, None
        return self.tested(workshop, counted)

    def right_code(self, workshop, objects):
        """What the objects hold while nothing is broken."""
        key = workshop, tuple(objects)
        if key not in self.right:
            workshop.restore()
            reason = workshop.make(objects)
            if reason:
                raise Trouble(f"The right sources do not build:\n{reason}")
            self.right[key] = [workshop.content(name) for name in objects]
        return self.right[key]

    def tested(self, workshop, counted):
        owning = {name: workshop.tests[name] for name in self.owners.of(counted.file)}
        order = counted.likeliest_first(owning, self.seconds)
        size = LIKELIEST
        while order:
            batch, order, size = order[:size], order[size:], BATCH
            if workshop.make(batch):
                return NOT_COMPILED, None
            verdict, name = self.batch_verdict(workshop, batch)
            workshop.clean()
            if verdict is not None:
                with self.lock:
                    counted.noticers = [name] + [each for each in counted.noticers if each != name][:2]
                return verdict, name
        return SURVIVED, None

    def batch_verdict(self, workshop, names):
        """What came out, and the test that tells it; None, None if all pass."""
        while names:
            passed, suspect = self.side_by_side(workshop, names)
            if suspect is None:
                break
            # Alone, and again: a test that fails by chance has noticed nothing.
            passes, _, _ = workshop.run(suspect, self.limit(suspect))
            if not passes:
                return (TIMED_OUT if passes is None else NOTICED), suspect
            self.say(f"{suspect} failed once and passed then; it does not count.")
            names = [name for name in names if name not in passed and name != suspect]
        return None, None

    def limit(self, name):
        return max(self.floor, 3 * self.seconds[name])

    def side_by_side(self, workshop, names):
        """Runs the tests until the first one does not pass: those that have passed, and that one."""
        waiting = collections.deque(names)
        enough = threading.Event()
        passed, suspects = set(), []

        def work():
            while waiting:
                try:
                    name = waiting.popleft()
                    passes, _, _ = workshop.run(name, self.limit(name), enough)
                except (IndexError, Stopped):
                    return
                if passes:
                    passed.add(name)
                elif not enough.is_set():
                    enough.set()
                    suspects.append(name)
                    workshop.end(signal.SIGKILL)

        threads = [threading.Thread(target=work) for _ in range(workshop.side_by_side)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        if workshop.stop.is_set():
            raise Stopped()
        return passed, (suspects[0] if suspects else None)
