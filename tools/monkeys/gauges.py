"""What a running unit takes, event by event, and whether that stays."""

import os
import pathlib
import re
import statistics
import time

TENTHS = 10
FEWEST = 4  # samples of a tenth that can be compared
MOST = 20  # samples of a tenth whose memory is counted

# With each restart of the unit the plug-in is mapped once more, from a copy, and stays: so it is meant to be.
PLUGIN_COPY = re.compile(r"/\d+-[^/]*\.so( \(deleted\))?$")

# By how much the median of the last tenth may exceed that of the second one, in which caches have been filled:
# a part of it, and a number; of memory that is given, in megabytes. What an event takes depends on what was switched
# on, such as a brighter panel, and is told only; the stroll after each tenth is always the same.
SAMPLED = ("memory", "descriptors", "threads", "ms", "copies")
# It is held against that of a new unit, which goes it by turns.
TOLERANCES = {"memory": (0.05, 0), "descriptors": (0, 2), "threads": (0, 1), "stroll": (0.5, 0.1)}


def memory(folder):
    """The megabytes that the program has in memory, but for the plug-in's further copies, and how many these are."""
    kilobytes = 0
    copies = set()
    counts = True
    with open(folder / "smaps", errors="replace") as lines:
        for line in lines:
            if line.startswith("Rss:"):
                kilobytes += int(line.split()[1]) if counts else 0
            elif line[0] in "0123456789abcdef":
                copy = PLUGIN_COPY.search(line.rstrip())
                counts = not copy
                if copy:
                    copies.add(copy[0])
    return {"memory": kilobytes / 1000, "copies": len(copies)}


def processor_ms(pid):
    """What the first thread, which shows the screen, has had of the processor: what the machine does else, and what a
    throughput test sends meanwhile, is left out."""
    return int(pathlib.Path(f"/proc/{pid}/schedstat").read_text().split()[0]) / 1e6


class Gauges:
    def __init__(self, count, memory):
        self.count = count
        self.memory = memory
        self.samples = {}
        self.began = time.monotonic()
        self.last = None
        self.told = 0
        self.memory_due = 0

    def sample(self, pid, done):
        """Looks at the program after so many events."""
        folder = pathlib.Path("/proc") / str(pid)
        try:
            spent = processor_ms(pid)
            values = {"descriptors": len(os.listdir(folder / "fd")), "threads": len(os.listdir(folder / "task"))}
            if done >= self.memory_due:
                values.update(memory(folder))
                self.memory_due = done + self.count // (MOST * TENTHS)
        except OSError:
            return  # It has just ended.
        if self.last and self.last[0] == pid and done > self.last[1]:
            values["ms"] = (spent - self.last[2]) / (done - self.last[1])
        self.last = (pid, done, spent)
        self.add(min(TENTHS, 1 + (done - 1) * TENTHS // self.count), done, values)

    def add(self, tenth, done, values):
        self.samples.setdefault(tenth, []).append((time.monotonic(), done, values))

    def median(self, tenth, name):
        values = [values[name] for _, _, values in self.samples.get(tenth, ()) if name in values]
        return statistics.median(values) if len(values) >= FEWEST else None

    def row(self, tenth):
        values = [self.median(tenth, name) for name in (*SAMPLED, "stroll", "new")]
        ended, done, _ = self.samples[tenth][-1]
        before = self.samples.get(tenth - 1)
        began, first = before[-1][:2] if before else (self.began, 0)
        rate = (done - first) / max(1e-9, ended - began)
        return (f"{done:>9} {rate:>9.0f} {values[0]:>8.1f} {values[1]:>11.0f} {values[2]:>7.0f} {values[3]:>8.2f}"
                f" {values[5]:>9.2f} {values[6]:>5.2f} {values[4]:>6.0f}")

    def over(self, done):
        """The tenths that are newly over, but for those with too few samples to be told."""
        while self.told < done * TENTHS // self.count:
            self.told += 1
            if None not in [self.median(self.told, name) for name in SAMPLED]:
                yield self.told

    def growth(self):
        """What does not stay, as sentences; None where there is too little to tell."""
        found = []
        for name, (part, number) in TOLERANCES.items():
            before, after = self.before(name), self.median(TENTHS, name)
            if before is None or after is None:
                return None
            if name == "memory":
                number = self.memory
            if after > before * (1 + part) + number:
                what = "of a new unit" if name == "stroll" else "in the second tenth"
                found.append(f"{name}: {before:.2f} {what}, {after:.2f} in the last")
        return found

    def before(self, name):
        return self.median(TENTHS, "new") if name == "stroll" else self.median(2, name)


HEAD = (f"{'events':>9} {'events/s':>9} {'MB':>8} {'descriptors':>11} {'threads':>7} {'ms/event':>8} {'ms/stroll':>9}"
        f" {'new':>5} {'copies':>6}")
