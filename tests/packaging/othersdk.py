"""Another SDK of the unit, made of the faces in platform/: it has what the unit's platform fixes, and differs from
them in all that each SDK decides for itself. What compiles against both relies on neither.

The same are the names and namespaces of classes, functions, signals and types, their arguments, and that the widgets
are KvWidgets and what the framework looks up are Modules. Others are

- bases: what lies between a class and those is part of the class itself; a second base comes before the first, or
  behind it where that is a QObject; Modules are virtual bases;
- enumerators: names, order and numbers, and none of them is an int;
- members: their order, and nothing private but constructors;
- arguments: none that could be left out can be, but there are others that can; one overload more; text by value in
  place of by reference.
"""

import pathlib
import re

# The bases that are fixed.
WIDGET = "KvWidget"
MODULE = "kvappframework::Module"

# What is a KvWidget here, although ours is something of Qt's: with what it must have of that all the same.
OTHER_WIDGETS = {"KvDisLabel": ["void setText(const QString &text);", "void setAlignment(Qt::Alignment alignment);"]}

# Their virtual functions have the order that the framework calls them in.
FIXED_ORDER = {"Activity", "ActivityProperty"}

OF_THIS_SDK = """
struct OtherArgument {};
template<class Class>
class OtherBase
{
public:
    virtual ~OtherBase();
    virtual void otherFunction();
    long otherMember[3];
};
"""

LABEL = re.compile(r"(public|protected|private|signals)( slots)?\s*:(?!:)")
MACRO = re.compile(r"Q_[A-Z_]+(\([^()]*\))?(?=\s|$)")
CLASS = re.compile(r"class (?:KV_API )?(\w+)(?: : public ([\w:]+))?\s*\{(.*)\}\s*;", re.S)
ENUM = re.compile(r"enum (\w+)(?: : \w+)?\s*\{(.*)\}\s*;", re.S)
NAMESPACE = re.compile(r"namespace (\w+)\s*\{(.*)\}", re.S)
FUNCTION = re.compile(r"(?P<before>[^()]*?)(?P<name>~?\w+)\((?P<arguments>.*)\)(?P<after>[^()]*)", re.S)


def closing(text, place):
    """The place behind the brace that closes the one that stands there."""
    depth = 0
    for here in range(place, len(text)):
        depth += {"{": 1, "}": -1}.get(text[here], 0)
        if depth == 0:
            return here + 1
    raise ValueError(f"no brace closes {text[place:place + 60]!r}")


def item_end(text, place):
    """Where the declaration that begins there ends."""
    for pattern in (re.compile(r"#.*"), LABEL, MACRO):
        match = pattern.match(text, place)
        if match:
            return match.end()
    stop = re.compile(r"[;{]").search(text, place)
    if text[stop.start()] == ";":
        return stop.end()
    end = closing(text, stop.start())
    tail = re.compile(r"\s*;").match(text, end)
    return tail.end() if tail else end


def items(text):
    """The declarations of a piece of code without comments, one after the other."""
    place = 0
    while True:
        place = re.compile(r"\s*").match(text, place).end()
        if place == len(text):
            return
        end = item_end(text, place)
        yield text[place:end]
        place = end


class Face:
    """A class as the faces have it."""

    def __init__(self, name, base, body):
        self.name = name
        self.base = base
        self.types = []
        self.members = {"public": [], "protected": [], "signals": [], "private": []}
        access = "private"
        self.is_object = False
        for item in items(body):
            label = LABEL.fullmatch(item)
            if label:
                access = label.group(1)
            elif MACRO.fullmatch(item):
                self.is_object |= item == "Q_OBJECT"
            elif ENUM.fullmatch(item):
                self.types.append(other_enum(item))
            elif access != "private" or re.match(rf"(explicit )?{name}\(\)", item):
                self.members[access].append(item)


def functions_named(members):
    return {FUNCTION.match(member).group("name") for member in members if FUNCTION.match(member)}


def other_enum(item):
    """An enumeration with others' names for its numbers in another order, and one number more."""
    name, body = ENUM.fullmatch(item).groups()
    numbers = [int(number) for number in re.findall(r"= (-?\d+)", body)]
    listed = [f"Other{name}{place} = {number}" for place, number in enumerate([max(numbers, default=0) + 7, *numbers])]
    return f"enum class {name} : long {{ {', '.join(reversed(listed))} }};"


def other_function(member, is_signal):
    """The declarations in place of one."""
    match = FUNCTION.match(member)
    if "{" in member or not match or match["name"].startswith("~"):
        return [re.sub(r" override\b", "", member)]
    arguments = re.sub(r" = [^,]*", "", match["arguments"])
    after = re.sub(r" override\b", "", match["after"])
    before = match["before"]
    if is_signal or "virtual" in before or " override" in match["after"]:
        return [f"{before}{match['name']}({arguments}){after}"]
    arguments = re.sub(r"const (\w+) &", r"\1 ", arguments)
    more = f"{arguments}, " if arguments else ""
    made = [f"{before}{match['name']}({more}OtherArgument = OtherArgument()){after}"]
    is_constructor = before.strip() in ("", "explicit")
    if arguments and not is_constructor:
        made.append(f"{before}{match['name']}(OtherArgument){after}")
    return made


def check_all_is_other(header, text, made):
    """A face that is written in a way that is not known here would stay as it is."""
    enumerators = re.findall(r"(\w+) = -?\d+(?=[,\s}])", text)
    left = [name for name in enumerators if re.search(rf"\b{name}\b", made)]
    if left or made.count(" OtherBase<") != text.count("class KV_API"):
        raise ValueError(f"{header} stays as it is in part: {' '.join(left) or 'a class'}")


class OtherSdk:
    def __init__(self, platform):
        self.texts = {header: re.sub(r"//.*", "", header.read_text()) for header in platform.glob("*/*.h")
                      if header.parent.name != "unitlink"}
        self.classes = {}
        for text in self.texts.values():
            self.learn(text)

    def learn(self, text):
        for item in items(text):
            match = NAMESPACE.fullmatch(item)
            if match:
                self.learn(match.group(2))
            match = CLASS.fullmatch(item)
            if match:
                self.classes[match.group(1)] = Face(*match.groups())

    def write(self, folder):
        for header, text in self.texts.items():
            file = pathlib.Path(folder, header.parent.name, header.name)
            file.parent.mkdir(parents=True, exist_ok=True)
            made = self.code(text)
            check_all_is_other(header, text, made)
            file.write_text(made + (OF_THIS_SDK if header.name == "kvglobal.h" else ""))

    def code(self, text):
        return "".join(f"{self.item(item)}\n" for item in items(text))

    def item(self, item):
        match = NAMESPACE.fullmatch(item)
        if match:
            return f"namespace {match.group(1)}\n{{\n{self.code(match.group(2))}}}"
        match = CLASS.fullmatch(item)
        if match:
            return self.other_class(self.classes[match.group(1)])
        return other_enum(item) if ENUM.fullmatch(item) else item

    def whole(self, face):
        """The class with what its bases have, up to the first that is fixed."""
        base = face.base
        types = list(face.types)
        members = {access: list(own) for access, own in face.members.items()}
        while base and base not in (WIDGET, MODULE) and base in self.classes:
            above = self.classes[base]
            known = functions_named(sum(members.values(), [])) | {above.name, f"~{above.name}"}
            for access in ("public", "protected", "signals"):
                members[access] += [member for member in above.members[access]
                                    if not functions_named([member]) & known]
            types += above.types
            base = above.base
        return base, types, members

    def bases(self, face, base):
        other = f"public OtherBase<{face.name}>"
        if not base:
            return other
        if face.is_object:
            return f"public {base}, {other}"
        return f"{other}, {'virtual ' if base == MODULE else ''}public {base}"

    def other_class(self, face):
        base, types, members = self.whole(face)
        if face.name in OTHER_WIDGETS:
            base = WIDGET
            members["public"] += OTHER_WIDGETS[face.name]
        lines = ['#include "kvwidget/kvwidget.h"'] if face.name in OTHER_WIDGETS else []
        lines += [f"class KV_API {face.name} : {self.bases(face, base)}", "{"]
        lines += ["Q_OBJECT"] if face.is_object else []
        lines += ["public:", *types] if types else []
        for access in ("signals", "protected", "private", "public"):
            made = [line for member in members[access]
                    for line in other_function(member, access == "signals")]
            made = made if face.name in FIXED_ORDER else list(reversed(made))
            lines += [f"{access}:", *made] if made else []
        return "\n".join([*lines, "};"])


def write(platform, folder):
    """Makes the SDK's headers in the folder, of the faces below the platform's."""
    OtherSdk(platform).write(folder)
