"""Sessions in which a call of the plug-in's fails: the Nth of its kind, or all from the Nth on, with each error that it
can really give."""

import dataclasses
import functools
import re
import typing

import live
import sweeps
from sweeps import CRASHED, DONE, ENDED, FALSE, HANGS, NOTHING, PRESCRIBED, REFUSED, WRONG

NEVER = 1000000  # A call that often is none that comes.
EACH = 12  # So many places are tried one by one, then every fourth more of them.
MOST = 3000
RESTART = 20  # seconds of the unit, in which it takes no key

MENU = ("key FACTORY", "see Factory 5000")
USB = ("press usbtest", "tap 200 120", "tap 200 110", "tap 200 370", "tap 200 110", "press return", "press return",
       "press usbeye", "press eyeDiagram", "press write", "press usePhy", "press increase", "press write", "press read",
       "press disconnectLevel", "press read", "press hostMode", "press return")
THROUGHPUT = ("press ncmtest", "press C_UPD50", "press C_STOP", "press C_TCP", "press S_UDP", "press S_STOP",
              "press return")
ADJUSTMENTS = ("press idPanel", "press briinc", "press condec", "press hueinc", "press satdec", "press return",
               "press keycolor", "press briinc", "press condec", "press return",
               "press als", "als 300", "press hueinc", "press condec", "press return", "wait 300")
SYSTEM = ("press idCapture", "wait 2600", "press pdtVer", "press return", "press sysCtrl", "press idTouchBtn",
          "tap 40 32", "tap 400 240", "key HOME", *MENU, "press startUSBTest", "key HOME", *MENU, "press exit")
TUNER = ("plug usb0", "press sysCtrl", "press idDabBtn")
LOGS = ("plug usb0", "press idCopyBtsnoop nowait", "wait 3000", "press sysCtrl", sweeps.LOGS_BUTTON, "wait 4000",
        "press return")
UPDATE = ("plug usb0", "press vendordata", "see 'VendorData Set' 5000", "tap 200 439 nowait", "wait 4000", sweeps.OK,
          "wait 5000")


def upgrade(unit):
    unit.ask("plug usb0")
    unit.ask("press gps")
    unit.until("^threads end threadGpsUpdateId$", 20)
    if unit.ask("see 'Firmware verified Success' 5000")[0]:
        unit.ask("press idUpdateBtn nowait")
        unit.until("^(mcu reboot|fault CMsgClass::setSysReboot)$", 400)
        unit.until("^unit booted$", 20)


def all_of(lines, unit):
    for line in lines:
        unit.ask(line)


def no_verdict(_):
    """Where a page tells of no success there is none that could be wrong."""
    return DONE, ""


def update_tuner(unit):
    all_of(TUNER, unit)
    unit.until("^dab tells [89]$", 20)
    unit.ask("wait 500")
    unit.claims = unit.ask("see '/^DAB updata ok/' 2000")[0]


def tuner_verdict(end):
    is_done = end.has("^dab update ok")
    if end.claims and not is_done:
        return FALSE, "said to be done, which it is not"
    return (DONE, "new firmware") if is_done else (REFUSED, "old firmware")


@dataclasses.dataclass(frozen=True)
class Session:
    """What a technician does, one thing after another, whatever comes of it."""
    name: str
    do: typing.Callable  # with a unit whose menu is shown
    again: tuple  # what must go well once nothing fails any more, from the menu on
    verdict: typing.Callable = no_verdict  # of the end
    files: tuple = ()
    no_way_out: dict = dataclasses.field(default_factory=dict)  # why the menu is out of reach afterwards, by the call


def lines(name, what, again, *more):
    return Session(name, functools.partial(all_of, what), again, *more)


SYSTEM_PAGE = ("press sysCtrl", "see 'System Control' 5000", "press return")
UPDATE_PAGE = ("press vendordata", "see 'VendorData Set' 5000", "press return")
UPGRADE_PAGE = ("press gps", "see 'Firmware verified Success' 20000", "press idCancelBtn", "see Factory 5000")

SESSIONS = {session.name: session for session in (
    lines("usb", USB, USB),
    lines("throughput", THROUGHPUT, THROUGHPUT),
    lines("adjustments", ADJUSTMENTS, ADJUSTMENTS),
    lines("system", SYSTEM, SYSTEM),
    lines("logs", LOGS, SYSTEM_PAGE, sweeps.logs_verdict, tuple(sweeps.LOGS)),
    lines("update", UPDATE, UPDATE_PAGE, sweeps.update_verdict),
    Session("tuner", update_tuner, SYSTEM_PAGE, tuner_verdict),
    Session("gps", upgrade, UPGRADE_PAGE, sweeps.upgrade_verdict, sweeps.UPGRADE.files,
            {"ThreadPool::addTask": "waits for a check that has not begun, and has no button that ends it",
             "CMsgClass::setSysReboot": "shows the upgrade until the restart that it has asked for"}),
)}


@dataclasses.dataclass(frozen=True)
class Row:
    """A session for each place where a call can fail like that."""
    session: Session
    call: str
    failure: str = ""  # of the C library's calls
    lasts: bool = False
    alone: int = 0

    @property
    def title(self):
        with_what = f" with {self.failure}" if self.failure else ""
        return f"{self.session.name}: {self.call}{with_what}" + (", and from then on" if self.lasts else "")

    def whole_name(self):
        words = [self.call.replace("::", "."), *filter(None, [self.failure]), *(["on"] if self.lasts else [])]
        return f"calls/{self.session.name}/" + "-".join(words)

    def cell(self, place):
        return f"{self.whole_name()}/{place}"

    def places(self):
        if self.alone:
            return [self.alone]
        places = list(range(1, EACH + 1))
        while places[-1] < MOST:
            places.append(places[-1] * 5 // 4)
        return places

    def only(self, place):
        return dataclasses.replace(self, alone=place)

    def run(self, place, programs):
        unit = live.LiveUnit(programs, programs.snapshot)
        try:
            with unit:
                found = self.course(place, unit)
                end = unit.end(self.session.files)
        except live.Gone:
            end = unit.end()
            found = CRASHED, f"does not start, status {end.status}"
        verdict, detail = found or self.judged(end)
        return sweeps.Result(self.cell(place), self.title, verdict, detail, end.seconds)

    def course(self, place, unit):
        """What went wrong, if anything did."""
        try:
            unit.ask(f"fault call {self.call} {place} {self.failure} {'on' if self.lasts else ''}")
            begin(unit)
            self.session.do(unit)
            unit.ask("fault none")
            wrong = self.not_again(unit)
            unit.quit()
            return wrong
        except live.Gone:
            return None

    def not_again(self, unit):
        for line in ("key HOME", *MENU, *self.session.again, "key HOME"):
            is_done, said = unit.ask_for(line, RESTART)
            if not is_done and self.call in self.session.no_way_out:
                return PRESCRIBED, self.session.no_way_out[self.call]
            if not is_done:
                return WRONG, f"afterwards, {line}: {said.strip()}"
        left_open = unit.state("unit")["openFiles"]
        if left_open and not self.may_leave(left_open):
            return WRONG, f"left open: {', '.join(left_open)}"
        return None

    def may_leave(self, left_open):
        # Where the memory cannot be mapped its descriptor is kept, as it always was.
        return self.call == "mmap" and set(left_open) == {"/dev/mem"}

    def judged(self, end):
        if end.status == -1:
            is_meant = waits_for_ever(end.output)
            return (PRESCRIBED, "waits for the answer to the end of a transfer for ever") if is_meant else \
                (HANGS, f"last in the journal: {(end.journal or [''])[-1]}")
        if end.status < 0 or end.status in (134, 139):
            return CRASHED, f"status {end.status}"
        if not end.has(f"^fault {re.escape(self.call)}\\b"):
            return NOTHING, "the call did not come that often"
        if end.status == sweeps.LOST_LINE:
            return (ENDED, "the line was lost") if end.has("^fault read /dev/ttyS3 EIO$") else (CRASHED, "ended")
        if end.status != 0:
            return WRONG, f"status {end.status}"
        return self.session.verdict(end)


def waits_for_ever(output):
    return output.rstrip().endswith("Complete ACK")


def begin(unit):
    for line in MENU:
        unit.ask(line)


def count(session, programs):
    """How often each call comes in a session in which none fails, and with what each can fail."""
    with live.LiveUnit(programs, programs.snapshot) as unit:
        failures = listed(unit.ask("fault call")[1])
        for call in failures:
            unit.ask(f"fault call {call} {NEVER}")
        begin(unit)
        session.do(unit)
        left = present(unit.state("faults")["present"]["call"])
    return {call: (NEVER - left[call], failures[call]) for call in failures if left[call] < NEVER}


def listed(text):
    """The calls of "fault call", each with its failures."""
    calls = re.findall(r"^  call     (\S+?)(?: \[\w+\])?(?:: (.*))?$", text, re.MULTILINE)
    return {call: failures.split(", ") if failures else [""] for call, failures in calls}


def present(texts):
    return {text.split()[1]: int(text.split()[0]) for text in texts}


def rows(names, programs, tell):
    """Of the sessions with these names; \a tell is told how often each call came."""
    found = []
    for name in names:
        counts = count(SESSIONS[name], programs)
        tell(name, {call: times for call, (times, _) in counts.items()})
        found += [Row(SESSIONS[name], call, failure, lasts)
                  for call, (_, failures) in counts.items() for failure in failures for lasts in (False, True)
                  # Nothing is interrupted for ever.
                  if not (lasts and failure == "EINTR")]
    return found


def row_named(name):
    _, session, words = name.split("/", 2)
    call, *how = words.split("-")
    lasts = how[-1:] == ["on"]
    failure = "".join(how[:-1] if lasts else how)
    if session not in SESSIONS:
        raise sweeps.Unknown(f'there is no session "{session}"; there are {", ".join(SESSIONS)}')
    return Row(SESSIONS[session], call.replace(".", "::"), failure, lasts)


def row_of(cell):
    row, place = cell.rsplit("/", 1)
    return row_named(row).only(int(place))
