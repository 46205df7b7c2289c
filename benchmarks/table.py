"""Prints what run.py has measured as one table in Markdown. For each case it has the project's
median with its spread and the median of the project's ratio to each peer, then the same of the
first run in a fresh process, and both once more of the Windows build under Wine. Goals that are
not met are marked."""

import argparse
import json
import os
import re
import statistics
import subprocess
from pathlib import Path

# A case, the peer and the largest ratio to it.
GOALS = [
    (r"getncs/process/", "minimal C|C with all calls", 1.10),
    (r"wipe/files/(1000|100000)$", "find -delete", 1.0),
    (r"wipe/files/(1000|100000)$", "minimal C", 1.2),
    (r"copy/process/", "cp", 1.02),
    (r"parse/", "tinyxml2", 1.0),
    (r"parse/", "libxml2", 1.0),
    (r"parse/", r"expat\+tree", 1.0),
    (r"parse/small/100?M", "pugixml", 2.0),
    (r"parse/attributes/", "pugixml", 1.8),
    (r"parse/texts/", "pugixml", 1.5),
    (r"parse/wide/", "pugixml", 2.5),
    (r"parse/deep/", "pugixml", 4),
    (r"write/", "tinyxml2", 1.0),
    (r"write/", "libxml2", 1.0),
    (r"write/small/100?M", "pugixml", 1.1),
    (r"write/attributes/", "pugixml", 1.0),
    (r"write/texts/", "pugixml", 1.2),
    (r"write/wide/", "pugixml", 1.1),
    (r"parse memory/small/", "the document", 8),
    (r"parse memory/attributes/", "the document", 5.8),
    (r"parse memory/texts/", "the document", 3.05),
    (r"parse memory/wide/", "the document", 14),
    (r"double-to-text/", "std::to_chars", 0.7),
    (r"crc/1M", "zlib", 2),
    (r"text-to-double/", "std::from_chars", 1.3),
    (r"inverse/", "Eigen", 5),
    (r"text-by-key/", "file checks", 1.4),
    (r"language-load/entries/100000$", "std::map with streams", 1.0),
    (r"language-load/entries in order/100000$", "std::map with streams", 1.0),
]

# The same of the first run in a fresh process.
FIRST_GOALS = [
    (r"parse/small/", "pugixml", 1.5),
    (r"parse/attributes/", "pugixml", 1.6),
    (r"parse/wide/", "pugixml", 1.8),
    (r"parse/texts/", "pugixml", 1.5),
    (r"parse/deep/", "pugixml", 2.5),
    (r"parse/texts/", "tinyxml2", 0.9),
    (r"parse/", r"tinyxml2|libxml2|expat\+tree", 1.0),
    (r"release/", "tinyxml2", 0.6),
    (r"language-load/entries/100000$", "std::map with streams", 1.2),
    (r"language-load/entries in order/100000$", "std::map with streams", 1.0),
]

WINDOWS_GOALS = [
    (r"parse/(small/10M|attributes/|texts/|wide/)", "pugixml", 2.5),
    (r"parse memory/small/", "the document", 8.4),
    (r"parse memory/attributes/", "the document", 6.1),
    (r"parse memory/texts/", "the document", 3.2),
    (r"parse memory/wide/", "the document", 14.7),
    (r"write/(small/10M|attributes/|texts/|wide/)", "pugixml", 1.3),
    (r"double-to-text/", "std::to_chars", 0.9),
]

WINDOWS_FIRST_GOALS = [
    (r"parse/(small|attributes|wide)/", "pugixml", 2.2),
    (r"parse/(small|attributes|wide)/", "tinyxml2", 0.8),
    (r"parse/texts/", "pugixml", 2.0),
    (r"parse/texts/", "tinyxml2", 1.0),
    (r"release/", "tinyxml2", 0.8),
    (r"language-load/entries( in order)?/100000$", "std::map with streams", 1.0),
]

# A case and the largest figure of its own. The sizes are 5 % above those of the time when
# documents were still decoded whole before they were read.
OWN_GOALS = [
    (r"getncs/system calls/", 45),
    (r"start/constructors/", 20),
    (r"size/executable", 1530000),
]

WINDOWS_OWN_GOALS = [(r"size/executable", 821000)]

UNITS = {"parse memory": "bytes", "size": "bytes", "getncs/system calls": "calls"}


def cases(samples):
    found = {}
    for name, values in samples.items():
        case, who = name.rsplit("/", 1)
        found.setdefault(case, {})[who] = values
    return found


def number(value):
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def spread(values):
    """Half the distance of the quartiles, in percent of the median."""
    if len(values) < 3:
        return ""
    low, middle, high = statistics.quantiles(values, n=4)
    return f" ± {50 * (high - low) / middle:.0f} %" if middle else ""


def judged(text, value, goal):
    if goal is None:
        return text
    return f"{text} (≤ {goal})" if value <= goal else f"**{text} (goal {goal})**"


def unit_of(case):
    return next((unit for prefix, unit in UNITS.items() if case.startswith(prefix)), "µs")


def ratio(values, peers):
    """The median over the rounds: the two were measured one right after the other, so that the
    drift of a machine's speed falls out."""
    return statistics.median(value / peer for value, peer in zip(values, peers, strict=True))


class Column:
    """The samples of one way to measure, and the goals for them."""

    def __init__(self, measured, goals, own_goals=()):
        self.measured = measured
        self.goals = goals
        self.own_goals = own_goals

    def figure(self, case):
        """The project's own."""
        values = self.measured.get(case, {}).get("project")
        if not values:
            return ""
        median = statistics.median(values)
        goal = next((goal for pattern, goal in self.own_goals if re.match(pattern, case)), None)
        return judged(f"{number(median)} {unit_of(case)}{spread(values)}", median, goal)

    def goal_of(self, case, who):
        return next((limit for pattern, peer, limit in self.goals
                     if re.match(pattern, case) and re.fullmatch(peer, who)), None)

    def comparisons(self, case):
        whose = self.measured.get(case, {})
        if "project" not in whose:
            return ""
        ratios = {who: ratio(whose["project"], values) for who, values in whose.items() if who != "project"}
        return ", ".join(judged(f"{who} {value:.2f}", value, self.goal_of(case, who))
                         for who, value in ratios.items())

    def cell(self, case):
        return "; ".join(part for part in (self.figure(case), self.comparisons(case)) if part)


def split_first(samples):
    """The cases of warm runs and those of first runs."""
    found = cases(samples)
    first = {case.removeprefix("first/"): whose for case, whose in found.items() if case.startswith("first/")}
    return {case: whose for case, whose in found.items() if not case.startswith("first/")}, first


def table(measured, windows):
    warm, first = split_first(measured)
    linux = Column(warm, GOALS, OWN_GOALS)
    others = {"first run": Column(first, FIRST_GOALS)}
    if windows:
        warm_there, first_there = split_first(windows)
        others["Windows, under Wine"] = Column(warm_there, WINDOWS_GOALS, WINDOWS_OWN_GOALS)
        others["Windows, first run"] = Column(first_there, WINDOWS_FIRST_GOALS)
    lines = ["| " + " | ".join(["what", "project", "ratio to the peer", *others]) + " |",
             "| --- | --- | --- |" + " --- |" * len(others)]
    for case in sorted({*warm, *first}):
        cells = [linux.figure(case), linux.comparisons(case), *(column.cell(case) for column in others.values())]
        if any(cells):
            lines.append("| " + " | ".join([case, *cells]) + " |")
    return "\n".join(lines)


def first_line(command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()[0]


def field_of(path, pattern):
    return re.search(pattern, Path(path).read_text(), re.MULTILINE).group(1)


def machine():
    return (f"Measured on {os.cpu_count()} × {field_of('/proc/cpuinfo', r'^model name.*: (.*)')}, "
            f"{int(field_of('/proc/meminfo', r'MemTotal: *([0-9]+)')) >> 20} GiB, "
            f"{field_of('/etc/os-release', r'PRETTY_NAME=.(.*).$')}, kernel {os.uname().release}, "
            f"{first_line(['c++', '--version'])}.")


def put_between(path, text):
    """Puts the text where the last table stood."""
    begin, end = "<!-- table -->", "<!-- end of table -->"
    before, rest = path.read_text().split(begin)
    path.write_text(f"{before}{begin}\n{text}\n{end}{rest.split(end)[1]}")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("measured", type=Path)
    arguments.add_argument("--windows", type=Path, help="the same, of the Windows build")
    arguments.add_argument("--readme", type=Path, help="a file to put the table into, with the machine")
    given = arguments.parse_args()
    windows = json.loads(given.windows.read_text()) if given.windows else {}
    text = table(json.loads(given.measured.read_text()), windows)
    print(text)
    if given.readme:
        put_between(given.readme, f"{machine()}\n\n{text}")


if __name__ == "__main__":
    main()
