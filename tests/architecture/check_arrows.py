#!/usr/bin/env python3
"""Reads the includes of every C++ file below a folder and reports those that run against the arrows.

    check_arrows.py ROOT

Prints one line for each finding and exits with 1 when there is any.
"""

import os
import re
import sys
from pathlib import Path

CONTRACT_BASE = {"viewkit", "sparkle"}

# room: (its folder, the rooms directly below it). A room may include every room that these lead to.
ROOMS = {
    "preferences": ("QEVSettings/preferences", set()),
    "foundation": ("platform/foundation", {"preferences"}),
    "appkit": ("platform/appkit", {"foundation"}),
    "viewkit": ("platform/viewkit", {"appkit"}),
    "sparkle": ("platform/sparkle", {"appkit"}),
    "headless": ("platform/headless", {"viewkit"}),
    "qt": ("platform/qt", {"viewkit", "sparkle"}),
    "QEVLog": ("contracts/QEVLog", CONTRACT_BASE),
    "QEVKonstantsKeys": ("contracts/QEVKonstantsKeys", CONTRACT_BASE),
    "QEVCommonTools": ("contracts/QEVCommonTools", CONTRACT_BASE | {"QEVKonstantsKeys"}),
    "QEVDependencies": ("contracts/QEVDependencies", {"QEVLog", "QEVKonstantsKeys", "QEVCommonTools"}),
    "QEVModels": ("contracts/QEVModels", {"QEVDependencies"}),
    "QEVCoreComponents": ("contracts/QEVCoreComponents", {"QEVModels"}),
    "QEVSettings": ("QEVSettings", {"QEVCoreComponents"}),
    "host": ("host", {"QEVSettings", "qt", "headless"}),
    "tests": ("tests", {"host"}),
    "benchmarks": ("benchmarks", {"QEVSettings", "headless", "qt"}),
    "fuzz": ("fuzz", {"QEVSettings", "headless"}),
}

# room: {a folder in it: the folders that it may include}. Listed here are folders right below the room's own;
# "include" holds the public headers.
INNER = {
    "qt": {
        "include": set(),
        "bridge": set(),
        "desktop": set(),
        "paint": {"bridge"},
        "controls": {"bridge", "paint"},
        "accessibility": {"bridge", "controls"},
        "mirror": {"bridge", "paint", "controls"},
        "updates": {"include", "paint"},
        "window": {"include", "bridge", "desktop", "paint", "controls", "accessibility", "mirror"},
    },
}

POSIX = r"(sys/\w+|unistd|fcntl|poll|pwd|signal|spawn|dlfcn|termios)\.h"
NETWORK = r"(arpa/inet|ifaddrs|net/if|netinet/in)\.h"
QT = r"Qt|Q[A-Z]\w*(/\w+)?"

# What each room may include besides the standard library. Rooms that are not listed: nothing.
OUTSIDE = {
    "foundation": [POSIX, r"sqlite3\.h", r"expat\.h", r"unicode/.+", r"xxhash\.h"],
    "viewkit": [r"cxxabi\.h"],
    "sparkle": [r"sodium\.h"],
    "qt": [POSIX, QT],
    "host": [POSIX, NETWORK, QT],
    "tests": [r".+"],
    "benchmarks": [POSIX, QT, r"benchmark/.+", r"sqlite3\.h", r"gio/.+", r"nlohmann/.+"],
    "fuzz": [POSIX, r"sqlite3\.h"],
}
# The public headers of these rooms may include none of that.
HIDES_OUTSIDE = {"foundation", "sparkle", "host"}

STANDARD = re.compile(r"[a-z0-9_]+")  # "vector": neither a folder nor an ending
DIRECTIVE = re.compile(r"^\s*#\s*(?:include|include_next|import)\b\s*(.*)", re.MULTILINE)
TARGET = re.compile(r'<([^>]+)>|"([^"]+)"')
SOURCE_ENDINGS = {".cpp", ".hpp", ".h", ".hh", ".hxx", ".cc", ".cxx", ".c", ".inc", ".ipp"}


def reach(room):
    """The rooms that a room may include: itself and all rooms below it."""
    seen, pending = set(), [room]
    while pending:
        current = pending.pop()
        if current not in seen:
            seen.add(current)
            pending.extend(ROOMS[current][1])
    return seen


def room_of(path):
    """The room with the innermost folder that contains a path; None when there is none."""
    holding = [
        (len(folder), room)
        for room, (folder, _) in ROOMS.items()
        if path.is_relative_to(folder)
    ]
    return max(holding)[1] if holding else None


def included_file(root, source, room, target):
    """The file that an include names by its path from the source, the room or the room's public headers, from the
    root; None when it names none of them."""
    room_folder = Path(ROOMS[room][0])
    for folder in (source.parent, room_folder, room_folder / "include"):
        if (root / folder / target).is_file():
            return folder / target
    return None


def inner_folder(path, room):
    """The folder right below the room's own that holds a path; None for a file of the room's own folder."""
    parts = path.relative_to(ROOMS[room][0]).parts
    return parts[0] if len(parts) > 1 else None


def check_inner(root, source, room, target):
    """What is wrong with one include between the folders of a room, or None."""
    file = included_file(root, source, room, target)
    if room not in INNER or file is None or room_of(file) != room:
        return None
    own, other = inner_folder(source, room), inner_folder(file, room)
    for folder in (own, other):
        if folder not in INNER[room]:
            return f"includes {target}, but INNER does not say what {room}/{folder or ''} may use"
    if own == other or other in INNER[room][own]:
        return None
    return f"includes {target}, but {room}/{own} may not use {room}/{other}"


def included_room(root, source, room, target):
    """The room of an included file; None when the file is not ours."""
    file = included_file(root, source, room, target)
    if file is not None:
        return room_of(file)
    # A fuzz target may include private headers, by their path from the root.
    if room == "fuzz" and (root / target).is_file():
        return room_of(Path(target))
    for other, (folder, _) in ROOMS.items():
        if (root / folder / "include" / target).is_file():
            return other
    # A generated header may not exist yet. Its first folder names its room.
    parts = Path(target).parts
    if parts[:2] == ("QEVSettings", "preferences"):
        return "preferences"
    return parts[0] if len(parts) > 1 and parts[0] in ROOMS else None


def check_include(root, source, room, target):
    """The problem with one include, or None."""
    if ".." in Path(target).parts:
        return f'includes "{target}" through "..": name it from its room'
    other = included_room(root, source, room, target)
    if other is not None:
        if other not in reach(room):
            return f"includes {target}, but {room} may not use {other}"
        return check_inner(root, source, room, target)
    if target.endswith(".moc") or STANDARD.fullmatch(target):
        return None
    allowed = OUTSIDE.get(room, [])
    if room in HIDES_OUTSIDE and "include" in source.parts:
        allowed = []
    if any(re.fullmatch(pattern, target) for pattern in allowed):
        return None
    return f"includes {target}, which is neither ours nor the standard library's"


def check_built(root, source):
    """Whether a CMakeLists in the folder of a source or above it names the source."""
    for folder in source.parents:
        lists = root / folder / "CMakeLists.txt"
        if lists.is_file():
            text = re.sub(r"#.*", "", lists.read_text(encoding="utf-8"))
            name = re.escape(str(source.relative_to(folder)))
            if re.search(rf'(^|[\s("/}}]){name}($|[\s)"])', text):
                return None
    return "is built by no CMakeLists.txt"


def sources_below(root):
    for folder, folders, files in os.walk(root):
        here = Path(folder).relative_to(root)
        folders[:] = sorted(f for f in folders if not f.startswith(".") and here / f != Path("build"))
        yield from (here / f for f in sorted(files) if Path(f).suffix in SOURCE_ENDINGS)


def check(root):
    """All findings below a root, as lines "path: problem"."""
    findings = []
    includes = 0
    for source in sources_below(root):
        room = room_of(source)
        if room is None:
            findings.append(f"{source}: stands in no room")
            continue
        if source.suffix == ".cpp" and (problem := check_built(root, source)):
            findings.append(f"{source}: {problem}")
        for directive in DIRECTIVE.findall((root / source).read_text(encoding="utf-8")):
            includes += 1
            match = TARGET.match(directive)
            problem = (
                check_include(root, source, room, match[1] or match[2])
                if match
                else f"includes {directive}, which cannot be read without the preprocessor"
            )
            if problem:
                findings.append(f"{source}: {problem}")
    if includes == 0:
        findings.append(f"{root}: not one include found, so nothing was checked")
    return findings


if __name__ == "__main__":
    problems = check(Path(sys.argv[1]))
    print("\n".join(problems))
    sys.exit(1 if problems else 0)
