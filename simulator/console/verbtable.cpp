#include "verbs.h"

namespace simulator
{

namespace
{

struct Row
{
    const char *group;
    const char *name;
    const char *usage;
    const char *help;
    const char *example;
};

const Row rows[] = {
    {"Touch", "press", "ID [nowait]",
     "Taps the button with that id (or, if it has none, that object name or text). With \"nowait\" "
     "what the tap sets off is not waited for.",
     "press idCapture"},
    {"Touch", "tap", "X Y [nowait]", "Taps the screen there.", "tap 400 120"},
    {"Touch", "hold", "X Y", "Puts the finger down there; moves it there when it is down.",
     "hold 400 120"},
    {"Touch", "lift", "[X] [Y]", "Lifts the finger where it is, or there.", "lift 400 300"},
    {"Touch", "drag", "X1 Y1 X2 Y2 [STEPS]", "Drags the finger, in 10 steps if not said.",
     "drag 400 400 400 100"},
    {"Touch", "key", "HOME|FACTORY", "Presses a hard key beside the screen.", "key FACTORY"},

    {"Look", "look", "",
     "Lists what the screen shows: the activity on top, the pages with their parts, texts, and "
     "buttons with id, place (left, top, width, height), state and text.",
     "look"},
    {"Look", "see", "TEXT [MS]",
     "Waits, for 2000 ms if not said, for that text, or one that matches /REGEX/, on the screen.",
     "see \"capture turned on\" 5000"},
    {"Look", "unseen", "TEXT [MS]",
     "Waits, for 2000 ms if not said, until the screen does not show that text.",
     "unseen \"/capture turned o.*/\""},
    {"Look", "visible", "ID", "Waits up to 2 s for that button to be seen.", "visible return"},
    {"Look", "hidden", "ID", "Waits up to 2 s until that button is not to be seen.",
     "hidden return"},
    {"Look", "shot", "FILE [X] [Y] [WIDTH] [HEIGHT]",
     "Saves the 800 x 480 screen, or that part of it, as a PNG: what the window really shows, as "
     "it was painted last, also while it hangs.",
     "shot bar.png 0 0 800 66"},
    {"Look", "shot-anew", "FILE [X] [Y] [WIDTH] [HEIGHT]",
     "Saves the same painted anew, as it ought to look; where \"shot\" differs, a repaint was "
     "forgotten.",
     "shot-anew menu.png"},
    {"Look", "shot-window", "FILE", "Saves the screen with its bezel.", "shot-window unit.png"},

    {"Journal", "journal", "[--all] [--follow] [--from=LINE] [FORM] [PATTERN]",
     "Lists the journal with the unit's times, or its lines with that text or /REGEX/; --all also "
     "what was touched, asked and waited for. --follow tells headunit-ctl the lines from now on as "
     "they come, --from those from that number on, the first being 0. The FORM --causes also tells "
     "what each line follows from, --json is an object "
     "for each.",
     "journal \"/^shell cp/\""},
    {"Journal", "expect", "PATTERN [MS]",
     "Waits, for 2000 ms if not said, for a line, and reads on behind it.",
     "expect \"unit booted\" 20000"},
    {"Journal", "absent", "PATTERN", "Fails when the journal has such a line ahead.",
     "absent \"shell cp\""},
    {"Journal", "effects", "[ID] [FILE]",
     "Tells what the last touch led to: on the screen, in calls, messages, registers, commands, "
     "waits and stored values; with an ID presses that button first. --all presses every button "
     "of every page, and is meant for a fresh unit; it can save that as Markdown in a FILE.",
     "effects idCapture"},
    {"Journal", "stalls", "[MS]",
     "Sums up by button and call how long the screen was blocked, MS and more at a time, 100 if "
     "not said; shorter ones where a call of the plug-in was seen.",
     "stalls 1"},
    {"Journal", "mark", "", "Reads on at the end of the journal.", "mark"},

    {"World", "plug", "SLOT [FOLDER]",
     "Plugs a stick: that folder, or the slot's own stick in the unit's folder.",
     "plug usb0 /tmp/stick"},
    {"World", "package", "SLOT KIND",
     "Puts a package on the stick of that slot: gps, gps-bad, update or update-bad; one of before "
     "is replaced.",
     "package usb0 gps"},
    {"World", "pull", "SLOT", "Pulls the stick.", "pull usb0"},
    {"World", "full", "SLOT on|off", "The stick takes no more bytes, or does again.",
     "full usb0 on"},
    {"World", "write-protect", "SLOT on|off", "Nothing on the stick can be changed, or can again.",
     "write-protect usb0 on"},
    {"World", "slow", "SLOT BYTES-PER-SECOND",
     "The stick reads and writes so many bytes in a second of the unit's time; 0 is as fast as the "
     "host.",
     "slow usb0 100000"},
    {"World", "als", "[READING]",
     "Has the light sensor report, or says its reading, thresholds and mode.", "als 300"},
    {"World", "als-curve", "RATE [SECONDS]",
     "Has the light sensor follow a day of 240 s, if not said, with RATE readings a second; 0 "
     "ends it.",
     "als-curve 10 60"},

    {"Unit", "state", "--json",
     "Says the state of the whole unit for programs: an object of JSON for each device, on a line "
     "each.",
     "state --json"},
    {"Unit", "setting", "KEY [VALUE]", "Says or changes a value of the settings store.",
     "setting system/capture true"},
    {"Unit", "panel", "[ITEM] [VALUE] [wrong]",
     "Says the panel's picture, or changes an item of it; \"wrong\" allows a value out of range.",
     "panel brightness 12"},
    {"Unit", "daynight", "[day|night|automatic] [VALUE]",
     "Says the light sensor's thresholds, whether the mode goes by them, and the mode; or changes "
     "a "
     "threshold, or has the mode go by them: on, off.",
     "daynight night 120"},
    {"Unit", "keylight", "", "Says the colour behind the hard keys, 0 to 100 each.", "keylight"},
    {"Unit", "vendor", "[POSITION] [BYTES]",
     "Lists the vendor data, or says the bytes of one item, or changes as many of them, from the "
     "first on, as are given in hexadecimal.",
     "vendor 2 0C000000"},
    {"Unit", "version", "[NAME] [VALUE]",
     "Says the modules' versions, or one of them, or changes it.", "version bluetooth 4.2"},
    {"Unit", "usb", "[PORT|certification] [MODE]",
     "Says what the USB ports are set to, or sets one: CDP, DCP, SDP; or their certification: O, "
     "T, "
     "M.",
     "usb 1 DCP"},
    {"Unit", "phy", "", "Says the USB ports' role, speed, test mode, swing and disconnect level.",
     "phy"},
    {"Unit", "ncm", "", "Says which NCM throughput test runs or ran last, and its figures.", "ncm"},
    {"Unit", "memory", "[ADDRESS] [VALUE]",
     "Says or changes a word of the physical memory, in hexadecimal; an address may be a "
     "register's name. Without an address, all registers.",
     "memory phySwing 7F7F4041"},
    {"Unit", "memory-fill", "VALUE",
     "Writes that hexadecimal value into every register that has a name.", "memory-fill A5A5A5A5"},
    {"Unit", "dab", "[CODE] [wrong]",
     "Says the DAB tuner's update status, or has the tuner take one on and tell it: 0 idle, 7 "
     "running, 8 failed, 9 succeeded; \"wrong\" allows other codes up to 255.",
     "dab 8"},
    {"Unit", "receiver", "", "Says what the GPS receiver does and what goes wrong with it.",
     "receiver"},
    {"Unit", "wire", "[on|off]",
     "Says whether the journal gets the bytes on the GPS receiver's line, or has it get them from "
     "now on, or no longer.",
     "wire on"},
    {"Unit", "speed", "[FACTOR]",
     "Says how many times faster than the host's the unit's time passes, or sets that, from 0.01 "
     "to 1000. What waits already ends when it would have.",
     "speed 10"},
    {"Unit", "reboot", "", "Has the unit restarted; it then journals \"unit booted\".", "reboot"},
    {"Unit", "power-cut", "",
     "Cuts the unit's power and has it start again: what the unit's commands changed on its flash "
     "and sticks since the last \"sync\" is gone. What its devices keep themselves stays.",
     "power-cut"},
    {"Unit", "factory-reset", "",
     "Forgets settings, vendor data, thresholds and what lies in the unit's flash, and has the "
     "unit "
     "restarted. Sticks, tables, registers and the receiver's firmware stay.",
     "factory-reset"},

    {"Faults", "fault", "[DEVICE] [NAME]...",
     "Lists what can fail and what does, of the whole unit or one device of it, or has something "
     "fail from now on: of calls, receiver and storage any number of things, of the other "
     "devices one at a time. \"none\" in place of NAME ends it for that device, in place of DEVICE "
     "for "
     "all.",
     "fault dab stall 20"},

    {"Scripts", "repeat", "COUNT COMMAND",
     "Runs a command, in quotes, so many times, until it fails.", "repeat 12 \"press briinc\""},
    {"Scripts", "fails", "COMMAND...",
     "Runs a command, in quotes or as it is, and fails when that does not; says why it failed.",
     "fails pull usb0"},
    {"Scripts", "try", "COMMAND...",
     "Runs a command, in quotes or as it is, and goes on also where that fails; says why it "
     "failed.",
     "try press return"},
    {"Scripts", "include", "FILE", "Runs the commands of a script, as if they stood here.",
     "include open-panel.txt"},
    {"Scripts", "set", "NAME VALUE",
     "From the next line of the session on, $NAME and ${NAME} stand for that value, but not "
     "between '…'.",
     "set slot usb1"},
    {"Scripts", "record", "[FILE|stop]",
     "Records touches, keys and what happens around the unit as a script, until \"record stop\"; "
     "or says into which file.",
     "record session.txt"},
    {"Scripts", "report", "FILE",
     "Packs the unit's folder, the recorded session, the screen's picture and versions as a "
     ".tar.xz; \"headunit --from\" goes on from there.",
     "report report.tar.xz"},
    {"Scripts", "cd", "FOLDER", "Relative file names count from that folder on.", "cd /tmp"},
    {"Scripts", "wait", "MS", "Lets that many milliseconds of the unit's time pass.", "wait 2500"},
    {"Scripts", "help", "[COMMAND]", "Lists the commands, or explains one.", "help press"},
    {"Scripts", "quit", "", "Ends the program, after 5 s also when the screen is blocked.", "quit"},
};

} // namespace

QList<Verb> verbTable()
{
    QList<Verb> verbs;
    for (const Row &row : rows) {
        verbs.append({QString::fromUtf8(row.group), QString::fromUtf8(row.name),
                      QString::fromUtf8(row.usage), QString::fromUtf8(row.help),
                      QString::fromUtf8(row.example)});
    }
    return verbs;
}

} // namespace simulator
