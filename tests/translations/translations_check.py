#!/usr/bin/env python3
"""Holds the translation files against the texts the sources use.

usage: translations_check.py SOURCE_FOLDER TRANSLATIONS_FOLDER
       translations_check.py --self-test       (shows that faults are found)
"""
import re
import sys
import tempfile
import xml.etree.ElementTree as tree
from pathlib import Path

# Plural forms of each language.
LANGUAGES = {"en": 2, "zh-Hans": 1, "zh-Hant": 1, "de": 2, "fr": 2, "es": 2, "ja": 1}

# Keys that models hand on as plain strings begin with one of these.
FAMILIES = (
    "alert.", "capture.error.", "countdown.", "load.error.", "menu.", "overlay.", "picture.", "settings.", "shortcut.", "toast.",
)

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'""", re.DOTALL
)
ENGLISH = re.compile(r'//%\s*"((?:\\.|[^"\\])*)"')
LOOKUP = re.compile(r'\b(?:qtTrId|QT_TRID_NOOP|QT_TRID_N_NOOP)\s*\(\s*"([^"]+)"')
KEY_FUNCTION = re.compile(r"[\w*&>]\s+[*&]?(?:\w+::)*(?:label|title|hint|localization)Key\s*\([^;{}]*\)[\w\s]*\{")
DOTTED = re.compile(r'"([a-z]\w*(?:\.\w+)+)"')
PLACE = re.compile(r"%L?(?:\d{1,2}|n)")


class Sources:
    """What one tree of sources says about texts."""

    def __init__(self, root):
        self.used = {}  # key: first place it is used
        self.english = {}  # key: its English
        self.literals = set()
        self.contradictions = []
        for path in sorted(p for p in root.rglob("*") if p.suffix in {".h", ".cpp"}):
            self.read(path.read_text(encoding="utf-8"), path.relative_to(root).as_posix())

    def read(self, text, name):
        code, comments = without_comments(text)
        events = [(position, None, comment) for position, comment in comments]
        events += [(match.start(), match[1], None) for match in LOOKUP.finditer(code)]
        pending = ""
        for position, key, comment in sorted(events, key=lambda event: event[0]):
            if key is None:
                for match in ENGLISH.finditer(comment):
                    pending += re.sub(r"\\(.)", lambda m: {"n": "\n", "t": "\t"}.get(m[1], m[1]), match[1])
                continue
            place = f"{name}:{code.count(chr(10), 0, position) + 1}"
            self.used.setdefault(key, place)
            if pending and self.english.setdefault(key, pending) != pending:
                self.contradictions.append(f"{place}: {key} has another English elsewhere")
            pending = ""
        for start, end in [(0, len(code))] + [body(code, m.end()) for m in KEY_FUNCTION.finditer(code)]:
            for match in DOTTED.finditer(code, start, end):
                self.literals.add(match[1])
                if start > 0 or match[1].startswith(FAMILIES):
                    self.used.setdefault(match[1], f"{name}:{code.count(chr(10), 0, match.start()) + 1}")


def without_comments(text):
    """The text with blanks for comments, and the comments with their positions."""
    comments = []

    def blank(match):
        if match["comment"] is None:
            return match[0]
        comments.append((match.start(), match[0]))
        return re.sub(r"[^\n]", " ", match[0])

    return TOKEN.sub(blank, text), comments


def body(code, start):
    """Start and end of a function body whose brace opens right before `start`."""
    depth = 1
    for match in re.finditer(r'"(?:\\.|[^"\\\n])*"|\'[{}]\'|[{}]', code[start:]):
        depth += {"{": 1, "}": -1}.get(match[0], 0)
        if depth == 0:
            return start, start + match.end()
    return start, len(code)


def message_faults(message, forms):
    """What is wrong with one message element of a .ts file."""
    source = message.findtext("source") or ""
    translation = message.find("translation")
    counted = message.get("numerus") == "yes"
    texts = [form.text or "" for form in translation.findall("numerusform")] if counted else [translation.text or ""]
    if translation.get("type"):
        yield f"is {translation.get('type')}"
    if counted and len(texts) != forms:
        yield f"has {len(texts)} plural forms instead of {forms}"
    for text in texts:
        if not text.strip():
            yield "is empty"
        elif set(PLACE.findall(text)) != set(PLACE.findall(source)):
            yield f"has other places than “{source}”"


def faults(root, translations):
    """Every fault with the languages that have it, and the number of keys in use."""
    sources = Sources(root)
    found = {fault: ["src"] for fault in sources.contradictions}
    for language, forms in LANGUAGES.items():
        path = translations / f"vellora_{language}.ts"
        messages = {m.get("id"): m for m in tree.parse(path).iter("message")} if path.exists() else {}
        here = [f"{key} is missing ({place})" for key, place in sources.used.items() if key not in messages]
        for key, message in messages.items():
            if key not in sources.used and key not in sources.literals:
                here.append(f"{key} is used nowhere")
            elif sources.english.get(key) != message.findtext("source"):
                here.append(f"{key} has another English than the sources: run update.py")
            here += [f"{key} {fault}" for fault in message_faults(message, forms)]
        for fault in here:
            found.setdefault(fault, []).append(language)
    return found, len(sources.used)


SELF_TEST_SOURCE = r"""
void View::retranslate() {
  //% "Area \"%1\" "
  //% "of %2"
  title(qtTrId("view.title").arg(1'000'000).arg(2));
  count(
      //% "%n file(s)"
      qtTrId("view.count", 3));
  // qtTrId("only.comment") and "menu.comment"
  icon("capture.area");
  toast({"toast.undeclared", {}});
  //% "Quit"
  static const char* const key = QT_TRID_NOOP("menu.quit");
  //% "Leave"
  leave(qtTrId("menu.quit"));
}
const char* labelKey(Mode mode) {
  if (mode == Mode::A) { return "mode.a"; }
  return "mode.b";
}
QString Mode::titleKey() const { return other(); }
"""
SELF_TEST_MESSAGES = {
    "view.title": ('Area "%1" of %2', ["Bereich „%1“ von %2"]),
    "view.count": ("%n file(s)", ["%n Datei", "%n Dateien"]),
    "menu.quit": ("Quit", ["Beenden"]),
    "toast.undeclared": (None, ["Da"]),
    "mode.a": (None, ["A"]),
    "mode.b": (None, ["B"]),
}


def write_ts(path, messages):
    root = tree.Element("TS")
    for key, (source, texts) in messages.items():
        message = tree.SubElement(tree.SubElement(root, "context"), "message", id=key)
        if source is not None:
            tree.SubElement(message, "source").text = source
        translation = tree.SubElement(message, "translation")
        if source and "%n" in source:
            message.set("numerus", "yes")
            for text in texts:
                tree.SubElement(translation, "numerusform").text = text
        else:
            translation.text = texts[0]
            if texts[0].endswith("!"):
                translation.set("type", "unfinished")
    tree.ElementTree(root).write(path, encoding="utf-8")


def self_test():
    cases = [
        ({}, set()),
        ({"mode.b": None}, {"mode.b is missing (view.cpp:19)"}),
        ({"toast.undeclared": None}, {"toast.undeclared is missing (view.cpp:11)"}),
        ({"view.title": None}, {"view.title is missing (view.cpp:5)"}),
        ({"mode.a": (None, ["A!"])}, {"mode.a is unfinished"}),
        ({"mode.a": (None, [" "])}, {"mode.a is empty"}),
        ({"view.count": ("%n file(s)", ["%n Datei", "Dateien"])}, {"view.count has other places than “%n file(s)”"}),
        ({"view.count": ("%n file(s)", ["%n Dateien"])}, {"view.count has 1 plural forms instead of 2"}),
        ({"menu.quit": ("Exit", ["Ende"])}, {"menu.quit has another English than the sources: run update.py"}),
        ({"only.comment": (None, ["x"])}, {"only.comment is used nowhere"}),
    ]
    wrong = []
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "view.cpp").write_text(SELF_TEST_SOURCE, encoding="utf-8")
        for change, expected in cases:
            messages = {key: value for key, value in {**SELF_TEST_MESSAGES, **change}.items() if value}
            write_ts(root / "vellora_de.ts", messages)
            found = faults(root, root)[0]
            german = {fault for fault, languages in found.items() if "de" in languages}
            wrong += [f"{change}: {'missed' if f in expected else 'unexpected'}: {f}" for f in german ^ expected]
        if "view.cpp:15: menu.quit has another English elsewhere" not in found:
            wrong.append("missed: one key with two English texts")
        if "ja" not in found.get("menu.quit is missing (view.cpp:13)", []):
            wrong.append("missed: a language without a file")
    print("\n".join(wrong) if wrong else f"{len(cases)} cases judged right")
    return not wrong


def main():
    if sys.argv[1:] == ["--self-test"]:
        return 0 if self_test() else 1
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    found, count = faults(Path(sys.argv[1]), Path(sys.argv[2]))
    for fault, languages in found.items():
        print(f"{fault} [{', '.join(languages)}]")
    if not found:
        print(f"{count} texts are there in {len(LANGUAGES)} languages")
    return 1 if found or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
