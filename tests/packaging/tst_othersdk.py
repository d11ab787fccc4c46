#!/usr/bin/python3
"""That code which relies on what an SDK decides for itself compiles against the platform's faces and not against the
other SDK, each line for its own reason.

    tst_othersdk.py SOURCE BUILD
"""

import pathlib
import re
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True  # The folder belongs to the sources.
import strict

INCLUDES = """
#include "dab/dabmodule.h"
#include "kvappframework/sysevent.h"
#include "kvappframework/uimanager.h"
#include "kvwidget/kvdislabel.h"
#include "kvwidget/kvlockbutton.h"
#include "kvwidget/popupview.h"
using namespace kvappframework;
"""

# What may be relied on.
RIGHT = """
void text(KvIconButton *b) { b->setShowMode(static_cast<KvIconButton::ShowMode>(1)); b->setDisplayText(QString()); }
KvLockButton *made(QWidget *parent) { return new KvLockButton(parent); }
void listen(KvIconButton *b, QObject *o) { QObject::connect(b, &KvIconButton::btnClicked, o, &QObject::deleteLater); }
QEvent *sent(SysEvent *event) { return event; }
DabModulePlugin *asked(Module *module) { return dynamic_cast<DabModulePlugin *>(module); }
QWidget *layer() { return UIManager::getUIHerarchy(static_cast<UIHerarchy>(1)); }
"""

# What may not, and what the compiler says of it.
WRONG = {
    "void named(PopupView *p) { p->setButtonType(PopupView::NoButton); }": "no member named 'NoButton'",
    "QWidget *named() { return UIManager::getUIHerarchy(UI_HERARCHY_POPUP); }": "undeclared identifier",
    "int number(KvIconButton::ShowMode mode) { return mode; }": "cannot initialize return object",
    "KvIconButton *icon(KvLockButton *button) { return button; }": "cannot initialize return object",
    "QLabel *label(KvDisLabel *label) { return label; }": "cannot initialize return object",
    "DabModulePlugin *down(Module *m) { return static_cast<DabModulePlugin *>(m); }": "via virtual base",
    "QEvent *first(SysEvent *event) { return reinterpret_cast<QEvent *>(event); }": "behaves differently",
    "KvIconButton *leftOut() { return new KvIconButton; }": "no matching constructor",
    "void (KvIconButton::*place)(int) = &KvIconButton::setTextSize;": "does not match required type",
    "KvTouchButton *between(KvIconButton *button) { return button; }": "cannot initialize return object",
}


def complaints(source, build, code, other_sdk=None):
    """The first error of each line of the code that has one, by its line."""
    command = strict.reading(source, build, ["clang++", "-ferror-limit=0"], other_sdk)
    result = subprocess.run(command, input=INCLUDES + code, text=True, capture_output=True)
    lines = (INCLUDES + code).split("\n")
    found = {}
    for number, error in re.findall(r"^<stdin>:(\d+):\d+: error: (.*)$", result.stderr, re.M):
        found.setdefault(lines[int(number) - 1], error)
    if result.returncode and not found:
        sys.exit(result.stderr)
    return found


def main():
    source, build = map(pathlib.Path, sys.argv[1:])
    code = RIGHT + "\n".join(WRONG)
    wrong = [f"{line}\n  {error}" for line, error in complaints(source, build, code).items()]
    with tempfile.TemporaryDirectory() as folder:
        found = complaints(source, build, code, folder)
    wrong += [f"{line}\n  compiles" for line in WRONG if line not in found]
    wrong += [f"{line}\n  {error}" for line, error in found.items() if WRONG.get(line, "\n") not in error]
    sys.exit("\n".join(wrong) or None)


main()
