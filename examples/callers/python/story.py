#!/usr/bin/env python3
"""The story of one platform: slicing starts and ends, somebody measures, the toolpath side asks.

    story.py TOOL SLICING TAVEN RESULT PLATFORM MEASURED LIMIT

SLICING is the folder that slicing has filled, MEASURED the file that a measuring run would leave
(empty: nobody measures), LIMIT the seconds that a call may take. Ends with 0 for a coordinate
system, 1 for a message in its place, 2 for a refusal, 3 for an abnormal end, 4 for a call that
took too long, 5 for a tool that can't be started.
"""

import shutil
import subprocess
import sys
import xml.etree.ElementTree
from pathlib import Path


class ToolFailure(Exception):
    """There is no answer. `code` is what this program ends with."""

    def __init__(self, code, text):
        super().__init__(text)
        self.code = code


def run_tool(tool, limit, *switches):
    """Runs the tool and returns whether the job was carried out. Copy this one.

    Each switch is one argument, whatever it holds; the list needs no quoting of ours. With its
    standard input at the end, a report on Linux needs no answer; it goes to our standard error. On
    Windows it is a box that waits for a person, hence the limit.
    """
    try:
        code = subprocess.run([tool, *switches], stdin=subprocess.DEVNULL, timeout=limit).returncode
    except subprocess.TimeoutExpired:  # the tool has been ended
        raise ToolFailure(4, "time limit: a report may have waited for a person") from None
    except OSError as error:
        raise ToolFailure(5, f"not started: {error}") from None
    if code not in (0, 1):
        raise ToolFailure(3, f"abnormal end: {code}")
    return code == 1


def ask(tool, limit, taven, platform, result, zoffset):
    """Asks where a platform stands; returns the root element of the answer. Copy this one too."""
    Path(result).unlink(missing_ok=True)  # after a refusal an old one would still be there
    if not run_tool(tool, limit, "-cmd:getncs", f"-out:{result}", f"-tavenfldr:{taven}",
                    f"-platform:{platform}", f"-zoffset:{zoffset}"):
        raise ToolFailure(2, "refused: the report tells why")
    return xml.etree.ElementTree.parse(result).getroot()


def matrix(frame):
    """The rows of an `ncs` or `cs` element: its axes and its origin are the columns."""
    columns = [[float(number) for number in frame.get(name).split(",")] for name in "xyzo"]
    return [*([column[row] for column in columns] for row in range(3)), [0.0, 0.0, 0.0, 1.0]]


def story(tool, slicing, taven, result, platform, measured, limit):
    of_platform = (f"-tavenfldr:{taven}", f"-platform:{platform}")
    run_tool(tool, limit, "-cmd:slistat", "-stat:started", *of_platform)
    print("slicing started")
    brought = run_tool(tool, limit, "-cmd:slistat", "-stat:ended_success", f"-slifldr:{slicing}",
                       *of_platform)
    print("slicing ended:", "brought in" if brought else "nothing brought in")
    if measured:
        shutil.copy(measured, Path(taven) / f"MeasuringData_{platform}.xml")
        print("measured")

    answer = ask(tool, limit, taven, platform, result, "0.25")
    message = answer.find("message")
    print("answer:", message.get("type"))
    print(f"{message.get('title')}: {message.text}")
    if message.get("type") != "confirm":
        return 1
    for name in ("ncs", "cs"):
        print(name)
        for row in matrix(answer.find(name)):
            print(*(f"{number:.8f}" for number in row))
    return 0


def main():
    if len(sys.argv) != 8:
        sys.exit(__doc__)
    sys.stdout.reconfigure(encoding="utf-8")
    *texts, limit = sys.argv[1:]
    try:
        sys.exit(story(*texts, float(limit)))
    except ToolFailure as failure:
        print(failure)
        sys.exit(failure.code)


if __name__ == "__main__":
    main()
