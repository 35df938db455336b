#!/usr/bin/env python3
"""Brings the translation files up to date with the texts in the sources.

Collects every key with its English from src/, adds new ones to each language and drops those that are gone. English is filled
in from the sources; the other languages are left for a translator, who finds them marked unfinished.
"""

import pathlib
import subprocess
import sys
import xml.etree.ElementTree as tree

HERE = pathlib.Path(__file__).resolve().parent
SOURCES = HERE.parent.parent / "src"
LANGUAGES = ["en", "zh-Hans", "zh-Hant", "de", "fr", "es", "ja"]
LUPDATE = "/usr/lib/qt6/bin/lupdate"


def fill_english(path):
    document = tree.parse(path)
    for message in document.iter("message"):
        translation = message.find("translation")
        source = message.findtext("source")
        forms = translation.findall("numerusform")
        if forms:
            singular = source.replace("(s)", "")
            plural = source.replace("(s)", "s")
            for form, text in zip(forms, [singular, plural]):
                form.text = text
        else:
            translation.text = source
        translation.attrib.pop("type", None)
        if (old := message.find("oldsource")) is not None:
            message.remove(old)
    tree.indent(document, "    ")
    document.write(path, encoding="utf-8", xml_declaration=True)
    text = path.read_text(encoding="utf-8")
    header, rest = text.split("\n", 1)
    path.write_text('<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n' + rest.rstrip() + "\n", encoding="utf-8")


def main():
    for language in LANGUAGES:
        path = HERE / f"vellora_{language}.ts"
        command = [LUPDATE, "-silent", "-no-obsolete", "-locations", "none", "-source-language", "en",
                   "-target-language", language.replace("-", "_"), str(SOURCES), "-ts", str(path)]
        # What lupdate says about C++ it cannot follow is of no interest unless it fails.
        run = subprocess.run(command, stderr=subprocess.PIPE, text=True)
        if run.returncode != 0:
            print(run.stderr, file=sys.stderr, end="")
            return run.returncode
        if language == "en":
            fill_english(path)
        unfinished = path.read_text(encoding="utf-8").count('type="unfinished"')
        if unfinished:
            print(f"{path.name}: {unfinished} texts wait for a translation")
    return 0


if __name__ == "__main__":
    sys.exit(main())
