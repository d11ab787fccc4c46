"""The rows of the sweeps: what goes wrong, where, and what must then be so."""

import concurrent.futures
import dataclasses
import threading
import typing

import session

# What a cell ends with.
DONE = "done"  # all went well, and is really so
REFUSED = "refused"  # said to have failed, or not said to have gone well
ENDED = "ended"  # the plug-in ended the program, as it is meant to
PRESCRIBED = "prescribed"  # a success that is none, or no end, as it is meant to be
NOTHING = "nothing"  # the fault had no place to come
FALSE = "false success"
HANGS = "hangs"
CRASHED = "crashed"
WRONG = "wrong"  # the unit is not usable afterwards
FAILURES = (FALSE, HANGS, CRASHED, WRONG)

MOST_PLACES = 200
LOST_LINE = 251  # exit(-5)


class Unknown(Exception):
    """What is wrong with the id of a cell."""


@dataclasses.dataclass(frozen=True)
class Kind:
    """A session that faults come into."""
    name: str
    script: typing.Callable  # of the fault's lines, and of those that come while it goes on
    files: tuple
    verdict: typing.Callable  # of the end of a session


@dataclasses.dataclass(frozen=True)
class Row:
    kind: Kind
    name: str
    title: str
    fault: typing.Callable = lambda place: []  # the lines ahead, of a place
    during: typing.Callable = lambda place: []
    came: str = ""  # what the journal has when the fault came; empty where it always does
    last: int = 1  # place; a row of one has none in its id
    package: tuple = ()  # options of make-update-package
    alone: int = 0  # the only place that is run, if any

    def whole_name(self):
        return f"{self.kind.name}/{self.name}"

    def cell(self, place):
        return self.whole_name() + (f"/{place}" if self.last > 1 else "")

    def places(self):
        return [self.alone] if self.alone else range(1, self.last + 1)

    def only(self, place):
        return dataclasses.replace(self, alone=place)

    def run(self, place, programs):
        script = self.kind.script(self.fault(place), self.during(place))
        end = session.run("\n".join(script) + "\n", programs, self.kind.files, self.package)
        verdict, detail = judged(self, place, end)
        return Result(self.cell(place), self.title, verdict, detail, end.seconds)


@dataclasses.dataclass
class Result:
    cell: str
    title: str
    verdict: str
    detail: str
    seconds: float

    @property
    def failed(self):
        return self.verdict in FAILURES


def run(rows, programs, jobs, tell):
    """Runs the rows side by side; the results in the order of the rows."""
    lock = threading.Lock()

    def run_row(row):
        results = []
        for place in row.places():
            result = row.run(place, programs)
            results.append(result)
            with lock:
                tell(result)
            if result.verdict == NOTHING:
                break
        return results

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        return [result for results in pool.map(run_row, rows) for result in results]


def judged(row, place, end):
    if end.status == -1 and end.has("^receiver silent at eot$"):
        return PRESCRIBED, "waits for the answer to the end of a transfer for ever"
    if end.status == -1:
        return HANGS, f"killed after {end.seconds:.0f} s; last in the journal: {(end.journal or [''])[-1]}"
    if end.status < 0 or end.status in (134, 139):
        return CRASHED, f"status {end.status}"
    if row.came and not end.has(row.came.format(place=place)):
        return NOTHING, "the fault did not come"
    if end.status == LOST_LINE and end.has("^receiver hangs up at "):
        return ENDED, "the line was lost"
    if end.status == LOST_LINE:
        return CRASHED, "ended as for a lost line, which was there"
    if end.status != 0:
        return WRONG, end.last_error()
    return row.kind.verdict(end)


# The receiver's upgrade

SUCCESS = "THE UPGRADE IS SUCCESSFUL"


def upgrade_script(ahead, during):
    return [*ahead, "plug usb0", "key FACTORY", 'see "Factory" 5000', "press gps",
            'see "Firmware verified Success" 20000', "press idUpdateBtn nowait", *during,
            'expect "unit booted" 400000', 'see "Factory" 20000', "receiver"]


FIRMWARE = "sticks/usb0/gps_firmware.pkg"
RECEIVED = "receiver/firmware.pkg"


def upgrade_verdict(end):
    has_firmware = RECEIVED in end.files and end.files[RECEIVED] == end.files.get(FIRMWARE) \
        and "receiver runs GNSS 2.5.1" in end.journal
    if SUCCESS not in end.output:
        return REFUSED, "new firmware all the same" if has_firmware else "old firmware"
    if has_firmware:
        return DONE, "new firmware"
    if "Retry too many times,Quit!" in end.output:
        return PRESCRIBED, "too many refusals of one block count as a success"
    if end.has("^(fault fread|storage pull) "):
        return PRESCRIBED, "a file that cannot be read on counts as sent"
    return FALSE, "said to be successful, and the receiver does not have it all"


UPGRADE = Kind("gps", upgrade_script, (FIRMWARE, RECEIVED), upgrade_verdict)
PULLED_UPGRADE = dataclasses.replace(UPGRADE, name="gps-pulled")

STAGES = ("configure", "product", "loader", "prompt", "menu", "sentences", "eot")
IMAGES = ("bootloader", "firmware")
BLOCKS = 6  # that the longer image has
SIGNS = 12  # of the receiver, in an upgrade without a fault


def upgrade_rows():
    yield Row(UPGRADE, "clean", "no fault")
    for kind, came in (("silence", "^receiver silent at {}$"), ("hangup", "^receiver hangs up at {}$")):
        for stage in STAGES:
            yield receiver_row(f"{kind}-{stage}", f"{kind} {stage}", came.format(stage))
        for image in IMAGES:
            yield receiver_row(f"{kind}-{image}", f"{kind} {image} {{place}}", came.format(image), MOST_PLACES)
    for image in IMAGES:
        for count in (1, 11, 12):
            yield receiver_row(f"nak{count}-{image}", f"nak {count} {{place}} {image}",
                               f"^receiver {image} block {{place}} is refused on purpose$", MOST_PLACES)
        yield receiver_row(f"garbage-{image}", f"garbage {{place}} {image}",
                           f"^receiver {image} block {{place}} is answered with garbage$", MOST_PLACES)
    for name, words in (("noise-1", "noise 1"), ("noise-100", "noise 100"), ("late-eot-5000", "late-eot 5000"),
                        ("late-eot-20000", "late-eot 20000"), ("no-yc", "no-yc"), ("split-yc", "split-yc"),
                        ("split-prompt", "split-prompt"), ("no-rmc", "no-rmc")):
        yield receiver_row(name, words, "^receiver fault ")
    yield Row(UPGRADE, "pull", "stick pulled at the Nth sign of the receiver", during=pull_at_sign,
              came="^storage pull ", last=SIGNS)


def pull_at_sign(place):
    return ['expect "/^receiver (?!fault)/" 20000'] * place + ["pull usb0"]


def pulled_upgrade_rows():
    """Each fault of the receiver at each of its places, and the stick pulled at each sign of the receiver beside it."""
    for row in upgrade_rows():
        if row.fault(1):
            for place in range(1, min(row.last, BLOCKS) + 1):
                name = row.name + (f"-{place}" if row.last > 1 else "")
                yield dataclasses.replace(row, kind=PULLED_UPGRADE, name=name,
                                          title=f"pulled at the Nth sign; {row.title.replace(' N', f' {place}')}",
                                          fault=lambda _, row=row, place=place: row.fault(place), during=pull_at_sign,
                                          came="^storage pull ", last=SIGNS)


def receiver_row(name, words, came, last=1):
    return Row(UPGRADE, name, "receiver: " + words.replace(" {place}", " N"),
               lambda place: ["fault receiver " + words.format(place=place)], came=came, last=last)


# The user's update

OK = "tap 291 327"  # which may be disabled


def update_script(ahead, during):
    return [*ahead, "plug usb0", "key FACTORY", 'see "Factory" 5000', "press vendordata", 'see "VendorData Set" 5000',
            "tap 200 439 nowait", *during, "wait 4000", OK, "wait 5000", "key HOME", "key FACTORY",
            'see "Factory" 5000']


def update_verdict(end):
    is_handed_over = end.has("^update data device 5") and end.has("^platform software reset$")
    if is_handed_over and not end.has("^update verified 0 good$"):
        return FALSE, "handed over without having been verified"
    return (DONE, "handed over, restarted") if is_handed_over else (REFUSED, "not handed over")


UPDATE = Kind("update", update_script, (), update_verdict)

UPDATE_PACKAGES = ("corrupt", "truncated")
UPDATE_CALLS = ("FileDeviceParser::getMountDeviceByType", "UsbControl::getHwCtrlId", "PlatformControl::getCustomerVer",
                "PlatformControl::getSDKVer", "PlatformControl::startVerifyChecksum",
                "PlatformControl::getUserUpdateData", "DataSaveControl::readSettingData",
                "VendorDataControl::getVendorPosOffset", "VendorDataControl::saveVendorDataString",
                "McuMsgModule::sendMsgToMcu", "PlatformControl::softWareReset")


def update_rows():
    yield Row(UPDATE, "clean", "no fault")
    for option in UPDATE_PACKAGES:
        yield Row(UPDATE, option, f"the package is made with --{option}", package=(f"--{option}",))
    for call in UPDATE_CALLS:
        yield Row(UPDATE, call.replace("::", "."), f"the Nth {call} fails",
                  lambda place, call=call: [f"fault call {call} {place}"], came=f"^fault {call}", last=MOST_PLACES)
    yield Row(UPDATE, "pull", "stick pulled so many ms into the check",
              during=lambda place: [f"wait {100 * (place - 1)}", "pull usb0"], last=8)


# The logs

LOGS_BUTTON = "tap 282 196 nowait"  # which is disabled without a stick


def logs_script(ahead, during):
    return [*ahead, "plug usb0", "key FACTORY", 'see "Factory" 5000', "press idCopyBtsnoop nowait", *during,
            "wait 3000", 'see "Factory" 5000', "press sysCtrl", 'see "System Control" 5000', LOGS_BUTTON,
            "wait 4000", "press return", 'see "Factory" 5000']


def logs_verdict(end):
    # The pages show no result, so there is none that could be wrong.
    copied = sum(1 for name, text in LOGS.items() if end.files.get(name) == text)
    return (DONE if copied == len(LOGS) else REFUSED), f"{copied} of {len(LOGS)} logs on the stick"


LOGS = {"sticks/usb0/userdata/btsnoop.log": session.LOGS["userdata/btsnoop.log"],
        "sticks/usb0/nvm/btsnoop.log": session.LOGS["nvm/btsnoop.log"],
        "sticks/usb0/QM_SYSTEMLOG/service.log": session.LOGS["userdata/log_service/service.log"],
        "sticks/usb0/QM_SYSTEMLOG/dfb_crash.dump": session.LOGS["nvm/dfb_crash.dump"]}
LOG_COPY = Kind("logs", logs_script, tuple(LOGS), logs_verdict)


def log_rows():
    yield Row(LOG_COPY, "clean", "no fault")
    yield Row(LOG_COPY, "full", "the stick is full", lambda _: ["fault storage full usb0"])
    for command in ("mkdir", "cp", "sync"):
        yield Row(LOG_COPY, command, f"the Nth {command} fails",
                  lambda place, command=command: [f'fault call "system {command}" {place}'],
                  came=f"^fault system {command}", last=MOST_PLACES)
    yield Row(LOG_COPY, "pull", "stick pulled at the Nth command",
              during=lambda place: ['expect "/^shell/" 3000'] * place + ["pull usb0"], came="^storage pull ", last=8)


SWEEPS = {"gps": upgrade_rows, "gps-pulled": pulled_upgrade_rows, "update": update_rows, "logs": log_rows}


def row_named(name):
    for rows in SWEEPS.values():
        for row in rows():
            if row.whole_name() == name:
                return row
    raise Unknown(f'there is no row "{name}"; --list names the first cell of each')


def row_of(cell):
    """The row of that cell, cut down to it."""
    for rows in SWEEPS.values():
        for row in rows():
            for place in row.places():
                if row.cell(place) == cell:
                    return row.only(place)
    raise Unknown(f'there is no cell "{cell}"; --list names the first of each row')
