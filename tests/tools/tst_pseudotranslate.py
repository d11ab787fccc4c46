#!/usr/bin/python3
"""What tools/pseudo-translate makes of texts."""

import pathlib
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

PROGRAM = pathlib.Path(__file__).resolve().parents[2] / "tools" / "pseudo-translate"


def translated(text, translation_type=""):
    """What becomes of a text that has that translation."""
    with tempfile.TemporaryDirectory() as folder:
        catalogue = pathlib.Path(folder, "texts.ts")
        root = ElementTree.Element("TS", version="2.1", language="de_DE")
        message = ElementTree.SubElement(ElementTree.SubElement(root, "context"), "message")
        ElementTree.SubElement(message, "source").text = text
        translation = ElementTree.SubElement(message, "translation")
        translation.text = "Übersetzung"
        if translation_type:
            translation.set("type", translation_type)
        ElementTree.ElementTree(root).write(catalogue, encoding="utf-8")
        made = pathlib.Path(folder, "made.ts")
        subprocess.run([PROGRAM, catalogue, made], check=True)
        result = ElementTree.parse(made).find("context/message/translation")
        return result.text if result.get("type") is None else None


class PseudoTranslate(unittest.TestCase):
    def test_is_marked_and_has_accents(self):
        self.assertEqual(translated("OK"), "[ÖĶ]")
        self.assertEqual(translated("Copy Btsnoop"), "[Ċööþÿ Bţţšñöööþ]")

    def test_is_two_fifths_longer(self):
        for length in (5, 6, 12, 31, 100):
            self.assertEqual(len(translated("a" * length)), (length * 14 + 9) // 10)

    def test_keeps_what_is_filled_in(self):
        self.assertIn("%1", translated("%1 of %2 files, %L3 in all"))
        self.assertEqual(translated("%1"), "[%1]")

    def test_keeps_line_breaks_and_outer_blanks(self):
        self.assertEqual(translated("OK\n"), "[ÖĶ]\n")
        self.assertEqual(translated(" OK: \nOK"), " [ÖĶ:] \n[ÖĶ]")

    def test_finishes_what_is_not_translated(self):
        self.assertEqual(translated("OK", "unfinished"), "[ÖĶ]")


unittest.main()
