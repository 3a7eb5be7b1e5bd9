#!/usr/bin/env python3
"""Checks that includes point down: a file may include files of its own floor and of floors below.

Prints each include that points up, each file that stands on no floor, and each quoted include that
is not found. Usage: layers.py SOURCE_DIR
"""
import fnmatch
import pathlib
import re
import sys

# Floors from the bottom to the top. A floor is a list of folders (with what is below them) or file
# patterns; of several that hold a file the longest decides. Floors in one line stand side by side
# and do not see each other.
FLOORS = [
    [["include"]],
    [["platform/*.h"]],
    [["sdk/frame/base"]],
    [["sdk/access"]],
    [["sdk/lookup"]],
    [["sdk/record"]],
    [["sdk/micro"], ["sdk/cpuchan"]],
    [["sdk/tables"]],
    [["sdk/oam"], ["sdk/dfx"]],
    [["sdk/tables/list.*", "sdk/tables/tables.h"]],
    [["sdk/frame"]],
    [["sdk/module/cli"]],
    [["sdk/module"], ["chipmodel"], ["platform/host"]],
    [["host"], ["platform/linux"]],
    [["host/pcap"]],
    [["tools/log"], ["tools/params"]],
    [["tools/asm"], ["tools/commands"], ["tools/ldsdk"], ["tools/status"]],
    [["tests"], ["bench"], ["fuzz"], ["examples"]],
]
# Trees that do not see each other, whatever their floors.
APART = [("sdk", "chipmodel"), ("sdk", "platform/host"), ("chipmodel", "platform/host")]

# Where a quoted include is looked for, beside the including file's own folder.
ROOTS = ["", "include", "platform/linux/compat"]
SOURCES = {".h", ".c", ".cpp"}
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.M)


class House:
    def __init__(self, root):
        self.root = root
        self.rooms = [(pattern, level, room)
                      for level, floors in enumerate(FLOORS)
                      for room, patterns in enumerate(floors) for pattern in patterns]

    def sources(self):
        """Files of the folders that FLOORS or APART begin with, and of new ones beside them."""
        for path in sorted(self.root.rglob("*")):
            name = path.relative_to(self.root).as_posix()
            if path.suffix in SOURCES and not name.startswith(("build/", ".")):
                yield name

    def place(self, name):
        """(level, room, pattern) of a file, None when it stands nowhere."""
        best = None
        for pattern, level, room in self.rooms:
            holds = name.startswith(pattern + "/") or fnmatch.fnmatch(name, pattern)
            if holds and (best is None or len(pattern) > len(best[2])):
                best = (level, room, pattern)
        return best

    def find(self, name, include):
        folders = [pathlib.PurePosixPath(name).parent.as_posix(), *ROOTS]
        for folder in folders:
            path = (self.root / folder / include).resolve()
            if path.is_file() and path.is_relative_to(self.root):
                return path.relative_to(self.root).as_posix()
        return None

    def why_not(self, name, other):
        """Why a file may not include another; empty when it may."""
        for pair in APART:
            for mine, theirs in (pair, pair[::-1]):
                if name.startswith(mine + "/") and other.startswith(theirs + "/"):
                    return f"{mine} and {theirs} stand apart"
        here, there = self.place(name), self.place(other)
        if there is None:
            return "it stands on no floor"
        if there[0] > here[0]:
            return f"{there[2]} is above {here[2]}"
        if there[0] == here[0] and there[1] != here[1]:
            return f"{there[2]} is beside {here[2]}"
        return ""

    def faults(self):
        for name in self.sources():
            if self.place(name) is None:
                yield f"{name}: stands on no floor"
                continue
            text = (self.root / name).read_text(errors="replace")
            for found in INCLUDE.finditer(text):
                line = text.count("\n", 0, found.start()) + 1
                other = self.find(name, found[1])
                why = "it is not there" if other is None else self.why_not(name, other)
                if why:
                    yield f"{name}:{line}: includes {found[1]}, but {why}"


def main():
    faults = list(House(pathlib.Path(sys.argv[1]).resolve()).faults())
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
