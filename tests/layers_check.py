#!/usr/bin/env python3
"""Holds every #include below src/ against src/layers.txt.

usage: layers_check.py SOURCE_FOLDER     (the folder that holds layers.txt)
       layers_check.py --self-test       (shows that wrong includes are found)
"""
import re
import sys
import tempfile
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
SOURCES = {".h", ".cpp"}


class Table:
    """The rules of one layers.txt."""

    def __init__(self, text):
        self.rooms = {}
        self.restricted = []
        for number, line in enumerate(text.splitlines(), 1):
            line = line.split("#", 1)[0].strip()
            if not line:
                continue
            match = re.fullmatch(r"(room|only)\s+(.+?)\s+:\s*(.*)", line)
            if not match:
                raise ValueError(f"layers.txt:{number}: neither a room nor an only line")
            kind, name, rooms = match[1], match[2], match[3].split()
            if kind == "room":
                self.rooms[name] = {name, *rooms}
            else:
                self.restricted.append((re.compile(name), set(rooms)))
        for room, allowed in list(self.rooms.items()) + [(p.pattern, r) for p, r in self.restricted]:
            unknown = allowed - self.rooms.keys()
            if unknown:
                raise ValueError(f"layers.txt: {room} names unknown rooms: {' '.join(sorted(unknown))}")

    def room_of(self, path):
        """The deepest room whose folder holds `path`; None for none."""
        for folder in Path(path).parents:
            if folder.as_posix() in self.rooms:
                return folder.as_posix()
        return None

    def fault(self, room, quoted, header):
        """Why files of `room` may not include `header`, or None."""
        other = self.room_of(header) if quoted else None
        if other is not None:
            return None if other in self.rooms[room] else f"may not know {other}"
        for pattern, rooms in self.restricted:
            if pattern.search(header) and room not in rooms:
                return f"only {' '.join(sorted(rooms))} may include that"
        return None


def faults(root):
    """Every wrong include below `root`, as printable lines, and the number of files read."""
    table = Table((root / "layers.txt").read_text())
    found, count = [], 0
    for path in sorted(p for p in root.rglob("*") if p.suffix in SOURCES):
        count += 1
        relative = path.relative_to(root)
        room = table.room_of(relative)
        if room is None:
            found.append(f"{relative}: in no room of layers.txt")
            continue
        text = path.read_text(errors="replace")
        for match in INCLUDE.finditer(text):
            why = table.fault(room, match[1] == '"', match[2])
            if why:
                line = text.count("\n", 0, match.start(2)) + 1
                found.append(f"{relative}:{line}: includes {match[2]}, but {room} {why}")
    return found, count


def self_test():
    table = "room base :\nroom app : base\nroom app/ui : app base\nonly ^xcb/ : app\nonly ^Q(Widget|.*Layout)$ : app/ui\n"
    files = {
        "base/good.h": "#include <vector>\n",
        "base/up.cpp": '// first\n#include "app/thing.h"\n',
        "app/model.cpp": '#include "base/good.h"\n#include <xcb/xcb.h>\n# include <QWidget>\n',
        "app/ui/view.cpp": '#include "app/thing.h"\n#include <QHBoxLayout>\n#include <xcb/xcb.h>\n',
        "app/sibling.h": '#include "app/ui/view.h"\n',
        "lost.cpp": "",
    }
    expected = {
        "base/up.cpp:2: includes app/thing.h, but base may not know app",
        "app/model.cpp:3: includes QWidget, but app only app/ui may include that",
        "app/ui/view.cpp:3: includes xcb/xcb.h, but app/ui only app may include that",
        "app/sibling.h:1: includes app/ui/view.h, but app may not know app/ui",
        "lost.cpp: in no room of layers.txt",
    }
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "layers.txt").write_text(table)
        for name, text in files.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        found = set(faults(root)[0])
    for wrong in ("room a : missing\n", "nonsense\n"):
        try:
            Table(wrong)
            found.add(f"accepted: {wrong}")
        except ValueError:
            pass
    for line in sorted(found ^ expected):
        print(("missed: " if line in expected else "unexpected: ") + line)
    return found == expected


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    if sys.argv[1] == "--self-test":
        return 0 if self_test() else 1
    found, count = faults(Path(sys.argv[1]))
    print("\n".join(found) if found else f"{count} files keep to the layers")
    return 1 if found or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
