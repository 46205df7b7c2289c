#!/usr/bin/env python3
"""What CHANGELOG.md tells of versions.

    changelog.py knows VERSION              exit code 1 and a message if it does not
    changelog.py debian PACKAGE MAINTAINER  all versions in the form of a Debian changelog
"""

import datetime
import pathlib
import re
import sys
import textwrap

CHANGELOG = pathlib.Path(__file__).parent.parent / "CHANGELOG.md"
HEADING = re.compile(r"^## \[?(\d+\.\d+\.\d+)\]? - (\d{4}-\d{2}-\d{2})\s*$")


def versions():
    """Each released version with its date and its lines, the newest first."""
    found = []
    for line in CHANGELOG.read_text(encoding="utf-8").splitlines():
        heading = HEADING.match(line)
        if heading:
            found.append((heading[1], heading[2], []))
        elif line.startswith("## "):
            found.append((None, None, []))  # what is not released yet
        elif found:
            found[-1][2].append(line)
    return [entry for entry in found if entry[0]]


def points(lines):
    """The items of the lists, each as one text."""
    items = []
    for line in lines:
        if line.startswith("- "):
            items.append(line[2:].strip())
        elif line.startswith("  ") and items:
            items[-1] += " " + line.strip()
    return [item.replace("`", "") for item in items] or ["Released."]


def debian(package, maintainer):
    for version, date, lines in versions():
        day = datetime.datetime.fromisoformat(date + "T12:00:00+00:00")
        print(f"{package} ({version}) stable; urgency=medium\n")
        for item in points(lines):
            print(textwrap.fill(item, 76, initial_indent="  * ", subsequent_indent="    "))
        print(f"\n -- {maintainer}  {day:%a, %d %b %Y %H:%M:%S +0000}\n")


def main():
    match sys.argv[1:]:
        case ["knows", version]:
            if version not in [entry[0] for entry in versions()]:
                sys.exit(
                    f"CHANGELOG.md does not know version {version}: give it the heading "
                    f'"## [{version}] - YYYY-MM-DD" and say what is new.'
                )
        case ["debian", package, maintainer]:
            debian(package, maintainer)
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    main()
