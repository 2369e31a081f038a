#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that includes point down the tree only: what a folder may include is what it is listed with here."""

import pathlib
import re
import sys

FOUNDATION = {"store"}
SCREEN_BASE = {"ui", "checkbox", "platform", "store"}
MAY_INCLUDE = {
    "store": set(),
    "exchange/format": FOUNDATION,
    "platform": FOUNDATION,
    "platform/linux": {"platform", "store"},
    "checkbox": set(),
    "ui": SCREEN_BASE,
    "shell": SCREEN_BASE | {"exchange/format"},
    "jokes": SCREEN_BASE | {"shell"},
    "lists": SCREEN_BASE | {"jokes"},
    "exchange": SCREEN_BASE | {"exchange/format", "jokes"},
    "app": SCREEN_BASE | {"shell", "jokes", "lists", "exchange", "platform/linux"},
}
# Of the shell the jokes may know the review prompt, nothing else.
ONLY_HEADERS = {("jokes", "shell"): {"shell/ReviewService.h"}}

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def room_of(path):
    """The deepest listed folder that holds a path given from the root."""
    candidates = [room for room in MAY_INCLUDE if path.startswith(room + "/")]
    return max(candidates, key=len, default=None)


def findings(root, source):
    name = source.relative_to(root).as_posix()
    room = room_of(name)
    for included in INCLUDE.findall(source.read_text(encoding="utf-8")):
        target = room_of(included)
        if target is None:
            if not included.endswith((".moc", "_p.h")):
                yield f'{name}: "{included}" is not written from the root of the tree'
        elif target != room and target not in MAY_INCLUDE[room]:
            yield f"{name}: {room} must not include {included}"
        elif included not in ONLY_HEADERS.get((room, target), {included}):
            yield f"{name}: {room} must not include {included}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    sources = [s for room in {r.split("/")[0] for r in MAY_INCLUDE} for s in (root / room).rglob("*.[ch]*")]
    sources = [s for s in sources if s.suffix in {".h", ".cpp"}]
    if not sources:
        sys.exit(f"no sources below {root}")
    problems = sorted({finding for source in sources for finding in findings(root, source)})
    print("\n".join(problems) or f"{len(sources)} files include downwards only")
    sys.exit(bool(problems))


if __name__ == "__main__":
    main()
