"""What the monkey does: lines for the console, drawn by a seed."""

import pathlib
import random
import re

BUTTONS = pathlib.Path(__file__).resolve().parents[2] / "docs" / "buttons.md"

QUIT = "quit"
KILL = "# kill"  # To the console a comment; the monkey then kills the unit.
ENDS = (QUIT, KILL)

# The receiver's last answer is waited for without a limit, as it is meant to be.
FOR_EVER = "silence eot"

# With a stick that can be read, an upgrade that goes on until the line is lost or the last answer does not come.
LOSS = ("lift", "speed 50", "pull usb1", "pull sd0", "pull sd1", "mark", "reboot",
        'expect "unit booted" 1000000', "repeat 3 'key HOME'", "package usb0 gps", "plug usb0", "key FACTORY",
        "press gps", "visible idUpdateBtn", "press idUpdateBtn", "speed 1000")

# The unit is ended on purpose in the first part only, so that what it takes can be compared over the rest.
RESTLESS_PART = 20
FEWEST_RESTLESS = 300
MOST_RESTLESS = 10000
ENDS_PER_LINE = 1 / 100

SLOTS = ("usb0", "usb1", "sd0", "sd1")
STAGES = ("configure", "product", "loader", "bootloader", "prompt", "menu", "firmware", "sentences", "eot")
CALLS = ("CMsgClass::getDevRootPath", "CMsgClass::getGpsVerInfo", "ComSysConfig::getCaptureStatus",
         "DabModule::m_DAB_FwUpdate", "DabModule::m_DAB_GetCurrentStatus", "DataDefault::getDefault",
         "DataSaveControl::readSettingData", "DataSaveControl::saveSettingData", "DisplayControl::panelHue",
         "FileDeviceParser::getMountDeviceByType", "FileDeviceParser::startParser",
         "KVPlatformControl::startTcpTestServer", "KVUsbManager::create", "McuMsgModule::sendMsgToMcu",
         "ModuleManager::getModule", "PlatformControl::getUserUpdateData", "PlatformControl::softWareReset",
         "PlatformControl::startVerifyChecksum", "ThreadPool::addTask", "UsbControl::getMountDevice",
         "VendorDataControl::getVendorPosOffset", "VendorDataControl::saveVendorDataInt", "access /media",
         "fopen /media", "mkdir /media", "open /dev", "open /sys", "stat /media", "system cp", "system echo",
         "system mkdir", "system sync")


def pages():
    """The ids of the buttons on each page, by the menu's button that opens it; "" is the menu itself."""
    found = {}
    names = {}
    heading = ""
    for line in BUTTONS.read_text(encoding="utf-8").splitlines():
        if line.startswith("## "):
            heading = line[3:].partition(":")[0]
        row = re.fullmatch(r"\| `(\w+)` \|.*\| (.*) \|", line)
        if row and heading == "Menu":
            names[row[2]] = row[1]
        if row:
            found.setdefault(heading, []).append(row[1])
    result = {names[heading]: ids for heading, ids in found.items() if heading in names}
    result[""] = found["Menu"]
    return result


class Stream:
    """The same seed and number of lines give the same lines."""

    def __init__(self, seed, count):
        self.seed = seed
        self.count = count
        self.pages = pages()
        # A test of the network's throughput that nobody stops takes a whole processor, at this speed.
        self.pages["ncmtest"] += 24 * ["C_STOP", "S_STOP"]
        self.pages[""] += 4 * [each for each in self.pages[""] if each != "ncmtest"]
        self.ids = sorted({each for ids in self.pages.values() for each in ids})

    def lines(self):
        self.random = random.Random(f"monkey {self.seed}")
        self.page = None  # What may be open: a menu button's id, "" for the menu, None for the home screen.
        kinds, weights = zip(*((self.touch, 700), (self.keys, 40), (self.sticks, 50), (self.light, 30),
                               (self.receiver, 25), (self.tuner, 20), (self.faults, 40), (self.values, 40),
                               (self.looks, 25), (self.time, 30)))
        for number in range(self.count):
            restless = number < min(max(self.count // RESTLESS_PART, FEWEST_RESTLESS), MOST_RESTLESS)
            if restless and self.random.random() < ENDS_PER_LINE:
                self.page = None
                end = self.pick((*ENDS, LOSS))
                yield from [end] if end in ENDS else self.loss()
                continue
            self.restless = restless
            yield self.random.choices(kinds, weights)[0]()

    def loss(self):
        yield "try fault none"
        yield f"try fault receiver {self.often(f'hangup {self.pick(STAGES)}', FOR_EVER)}"
        yield from (f"try {line}" for line in LOSS)

    def pick(self, *choices):
        return self.random.choice(*choices)

    def number(self, low, high):
        return self.random.randint(low, high)

    def spot(self):
        return f"{self.number(0, 799)} {self.number(0, 479)}"

    def often(self, usual, seldom):
        return usual if self.random.random() < 0.9 else seldom

    def touch(self):
        chance = self.random.random()
        if chance < 0.45:
            return self.press()
        if chance < 0.5:
            return f"try press {self.pick(self.ids)}"
        if chance < 0.75:
            return f"try tap {self.spot()}{self.often('', ' nowait')}"
        if chance < 0.85:
            return f"try drag {self.spot()} {self.spot()} {self.number(1, 12)}"
        if chance < 0.93:
            return self.often(f"try hold {self.spot()}", f"try hold {self.number(-99, 999)} {self.number(-99, 699)}")
        return self.often("try lift", f"try lift {self.spot()}")

    def press(self):
        """A button of the page that may be open; each stay on a page ends after a while."""
        if self.page is None:
            if self.random.random() < 0.3:
                return f"try press {self.pick(SLOTS)}"
            self.page = ""
            return "try key FACTORY"
        if self.page and self.random.random() < 0.08:
            self.page = ""
            return "try press return"
        identifier = self.pick(self.pages[self.page])
        if self.page == "":
            self.page = None if identifier == "exit" else identifier if identifier in self.pages else ""
        elif identifier in ("return", "idCancelBtn"):
            self.page = ""
        return f"try press {identifier}{self.often('', ' nowait')}"

    def keys(self):
        if self.random.random() < 0.5:
            self.page = None
            return "try key HOME"
        self.page = ""
        return "try key FACTORY"

    def sticks(self):
        slot = self.pick(SLOTS)
        switch = self.pick(("on", "off", "off"))
        package = self.pick(("gps", "gps", "gps-bad", "update", "update-bad"))
        # What makes a package is a program of its own, which takes as long as fifty events.
        return "try " + self.pick((f"plug {slot}", f"plug {slot}", f"plug {slot}",
                                   f"full {slot} {switch}", f"write-protect {slot} {switch}",
                                   f"slow {slot} {self.pick((0, 0, 100000))}",
                                   f"pull {slot}", self.often(f"pull {slot}", f"package {slot} {package}")))

    def light(self):
        # The screen of a panel that is brighter than normal takes several times as long to paint.
        return "try " + self.pick(("panel brightness 12", f"als {self.number(-10, 1100)}", f"als {self.number(0, 300)}",
                                   f"daynight {self.pick(('day', 'night'))} {self.number(0, 255)}",
                                   f"daynight automatic {self.pick(('on', 'off'))}",
                                   f"als-curve {self.pick((0, 0, 0, 0, 1))} {self.number(60, 600)}"))

    def receiver(self):
        block = self.number(1, 9)
        image = self.pick(("", " firmware", " bootloader"))
        # Where its line is lost the program ends, as it is meant to.
        losses = (f"hangup {self.pick(STAGES)}",) if self.restless else ()
        return "try " + self.pick(("wire on", "wire off") + tuple(f"fault receiver {fault}" for fault in losses + (
            f"silence {self.pick(STAGES[:-1])}", f"silence firmware {block}",
            f"nak {self.number(1, 12)} {block}{image}", f"garbage {block}{image}", f"noise {self.number(1, 200)}",
            f"late-eot {self.number(1, 20000)}", "no-yc", "split-yc", "split-prompt", "no-rmc", "none", "none")))

    def tuner(self):
        return "try " + self.pick((f"dab {self.pick((0, 7, 8, 9))}", f"dab {self.number(0, 255)} wrong",
                                   f"fault dab fail {self.number(0, 99)}", f"fault dab stall {self.number(0, 99)}",
                                   "fault dab mute", "fault dab none", "fault dab none"))

    def faults(self):
        slot = self.pick(SLOTS)
        return "try " + self.pick((f'fault call "{self.pick(CALLS)}" {self.number(1, 3)}',
                                   f'fault call "{self.pick(CALLS)}"', "fault memory missing",
                                   "fault memory map-refused", "fault ncm refused", f"fault storage full {slot}",
                                   "fault update silent", "fault update no-data", "fault vendor look-up",
                                   "fault vendor write", "fault none", "fault none", "fault none"))

    def values(self):
        item = self.pick(("brightness", "contrast", "hue", "saturation"))
        key = self.pick(("system/capture", "system/dimmer", "monkey/key"))
        return "try " + self.pick((f"setting {key} {self.pick(('true', 'false', '7', 'text'))}",
                                   f"panel {item} {self.number(0, 24)}", f"panel {item} {self.number(-200, 200)} wrong",
                                   f"vendor {self.number(0, 12)} {self.number(0, 255):02X}",
                                   f"version bluetooth {self.number(0, 10 ** self.number(1, 40))}",
                                   f"usb {self.number(0, 1)} {self.pick(('CDP', 'DCP', 'SDP'))}",
                                   f"usb certification {self.pick('OTM')}",
                                   f"memory phySwing {self.number(0, 0xFFFFFFFF):08X}",
                                   f"memory-fill {self.number(0, 0xFFFFFFFF):08X}",
                                   "keylight", self.often("phy", self.pick(("reboot", "power-cut", "factory-reset")))))

    def looks(self):
        return "try " + self.pick(("look", "state --json", self.often("ncm", "stalls 1"), "effects",
                                   "see Factory 0", "unseen Factory 0", "fault", "journal /nothing/",
                                   self.often("ncm", "shot shot.png"), self.often("receiver", "shot-anew anew.png"),
                                   self.often("memory", self.pick(("record session.txt", "record stop")))))

    def time(self):
        return "try " + self.often(f"wait {self.number(0, 3000)}", f"speed {self.pick((500, 1000))}")
