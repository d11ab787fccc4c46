"""The plug-in's texts and images."""

import pathlib
import re
import subprocess
import tempfile
from xml.etree import ElementTree

from rules import tree
from rules.tree import files, text

# Carried for the platform, which may look for it; no page draws it.
UNUSED_IMAGES = {
    "bg_statusbar.png",
    "pop/sw_popup_676x198.png",
    "pop/sw_popup_blue_dis.png",
}


def translated(path):
    """The translation, None where it is unfinished, by context and text of a catalogue."""
    return {(context.findtext("name"), message.findtext("source")):
            None if message.find("translation").get("type") else message.findtext("translation")
            for context in ElementTree.parse(path).iter("context") for message in context.iter("message")}


def wrong_translation(original, translation):
    """What is wrong with the translation of a text, or None."""
    if not translation:
        return "is not translated"
    before, after = (re.sub(r"\S.*\S|\S", "…", one, flags=re.S) for one in (original, translation))
    return None if before == after else f"begins or ends otherwise than {translation!r}"


def translations():
    sources = [str(path) for path in files(".cpp", ".h", ".ui") if path.parts[0] == "src"]
    with tempfile.TemporaryDirectory() as folder:
        catalogue = pathlib.Path(folder) / "texts.ts"
        result = subprocess.run(["lupdate", "-silent", *sources, "-ts", catalogue], cwd=tree.root,
                                capture_output=True, text=True)
        found = translated(catalogue)
    for line in result.stderr.splitlines():
        yield f"{line.strip()}"
    for context, original in found:
        if not context:
            yield f"a text without a context: {original!r}"
    if not found:
        yield "lupdate found no text at all"
    for path in files(".ts"):
        known = translated(tree.root / path)
        for context, original in sorted(found.keys() ^ known.keys()):
            yield f"{path}: {context}: {original!r} is only in {'src' if (context, original) in found else 'it'}"
        for context, original in sorted(found.keys() & known.keys()):
            wrong = wrong_translation(original, known[context, original])
            if wrong:
                yield f"{path}: {context}: {original!r} {wrong}"


def images():
    resource = pathlib.Path("src/images/factorydebug.qrc")
    listed = set(re.findall(r"<file[^>]*>([^<]+)</file>", text(resource)))
    sources = "\n".join(text(path) for path in files(".cpp", ".h", ".ui") if path.parts[0] == "src")
    # A "%1" in a name stands for anything.
    patterns = {re.sub(r"%\d", ".*", re.escape(name).replace(r"\%", "%"))
                for name in re.findall(r":/images/([^\")]+?)(?:\.png)?[\")<]", sources)}
    for name in sorted(listed):
        stem = name.rsplit(".", 1)[0]
        is_used = any(re.fullmatch(pattern, stem) for pattern in patterns)
        if not is_used and name not in UNUSED_IMAGES:
            yield f"{resource}: {name} is used by no page"
        if is_used and name in UNUSED_IMAGES:
            yield f"{name} is used: take it from the list of those that are not"
    for path in files(".png"):
        if path.parts[:2] == ("src", "images") and str(path.relative_to("src/images")) not in listed:
            yield f"{path}: not listed in {resource}"
