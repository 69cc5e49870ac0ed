#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reports the includes of the C++ files below a folder that run against the arrows.

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
    "QEVDependencies": (
        "contracts/QEVDependencies",
        {"QEVLog", "QEVKonstantsKeys", "QEVCommonTools"},
    ),
    "QEVModels": ("contracts/QEVModels", {"QEVDependencies"}),
    "QEVCoreComponents": ("contracts/QEVCoreComponents", {"QEVModels"}),
    "QEVSettings": ("QEVSettings", {"QEVCoreComponents"}),
    "host": ("host", {"QEVSettings", "qt", "headless"}),
    "tests": ("tests", {"host"}),
    "benchmarks": ("benchmarks", {"QEVSettings", "headless", "qt"}),
    "fuzz": ("fuzz", {"QEVSettings", "headless"}),
}

AT_TOP = None  # The files of a room that stand in none of its folders.

# room: {a folder inside of it: the other folders inside of it that it may use}. Every folder may
# use itself and the public headers, which may use only one another. A room that is not named here
# has no inner arrows.
INNER = {
    "viewkit": {
        "support": set(),
        "tree": {"support"},
        "input": {"tree"},
        "layout": {"tree"},
        "leaves": {"tree"},
        "controls": {"tree", "input"},
        "modifiers": {"tree", "input"},
        "containers": {"tree", "input", "layout", "controls"},
        "passes": {"tree", "input", "support"},
    },
    "qt": {
        "bridge": set(),
        "desktop": set(),
        "paint": {"bridge"},
        "controls": {"bridge", "paint"},
        "accessibility": {"bridge", "controls"},
        "mirror": {"bridge", "paint", "controls"},
        "updates": {"paint"},
        "window": {"bridge", "desktop", "paint", "controls", "accessibility", "mirror"},
    },
    "host": {
        AT_TOP: {"commands"},
        "commandline": set(),
        "services": set(),
        "analyzers": set(),
        "profiles": set(),
        "process": {"commandline"},
        "catalogue": {"commandline", "services", "analyzers"},
        "history": {"commandline", "catalogue"},
        "preferences": {"catalogue", "history"},
        "pages": {"commandline", "services", "analyzers", "catalogue"},
        "window": {
            "commandline",
            "process",
            "profiles",
            "catalogue",
            "history",
            "preferences",
            "pages",
        },
        "commands": {
            "commandline",
            "analyzers",
            "profiles",
            "process",
            "catalogue",
            "history",
            "preferences",
            "pages",
            "window",
        },
    },
}
PUBLIC = "include"

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
    "benchmarks": [
        POSIX,
        QT,
        r"benchmark/.+",
        r"sqlite3\.h",
        r"gio/.+",
        r"nlohmann/.+",
        r"adwaita\.h",
    ],
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
        (len(folder), room) for room, (folder, _) in ROOMS.items() if path.is_relative_to(folder)
    ]
    return max(holding)[1] if holding else None


def inner_folder(room, path):
    """The folder inside of a room that holds a path; None for a file at the room's top."""
    parts = path.relative_to(ROOMS[room][0]).parts
    return parts[0] if len(parts) > 1 else None


def included_file(root, source, room, target):
    """The room and the file that an include leads to, as far as they are known."""
    for folder in (source.parent, Path(ROOMS[room][0])):
        if (root / folder / target).is_file():
            return room_of(folder / target), folder / target
    # A fuzz target may reach behind the public headers, by the path from the root.
    if room == "fuzz" and (root / target).is_file():
        return room_of(Path(target)), Path(target)
    for other, (folder, _) in ROOMS.items():
        if (root / folder / PUBLIC / target).is_file():
            return other, Path(folder, PUBLIC, target)
    # A generated header may not exist yet. Its first folder names its room.
    parts = Path(target).parts
    if parts[:2] == ("QEVSettings", "preferences"):
        return "preferences", None
    return (parts[0] if len(parts) > 1 and parts[0] in ROOMS else None), None


def check_inner_include(source, room, target, file):
    """What is wrong with an include from a room into itself, or None."""
    arrows = INNER.get(room)
    if arrows is None or file is None:
        return None
    here, there = inner_folder(room, source), inner_folder(room, file)
    if there in (here, PUBLIC) or there in arrows.get(here, set()):
        return None
    user = f"{room}/{here}" if here else room
    return f"includes {target}, but {user} may not use {room}/{there}"


def check_inner_folder(source, room):
    """What is wrong with the folder of a source inside of its room, or None."""
    arrows = INNER.get(room)
    if arrows is None or inner_folder(room, source) in arrows.keys() | {PUBLIC}:
        return None
    return f"stands in no inner folder of {room}"


def check_include(root, source, room, target):
    """The problem with one include, or None."""
    if ".." in Path(target).parts:
        return f'includes "{target}" through "..": name it from its room'
    other, file = included_file(root, source, room, target)
    if other == room:
        return check_inner_include(source, room, target, file)
    if other is not None:
        if other not in reach(room):
            return f"includes {target}, but {room} may not use {other}"
        return None
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
        folders[:] = sorted(
            f for f in folders if not f.startswith(".") and here / f != Path("build")
        )
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
        if problem := check_inner_folder(source, room):
            findings.append(f"{source}: {problem}")
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
