"""Prints what run.py has measured as one table in Markdown: for each case the project's median
with its spread, and the median of the project's ratio to each peer. Goals that are not met are marked."""

import argparse
import json
import os
import re
import statistics
import subprocess
from pathlib import Path

# A case, the peer and the largest ratio to it.
GOALS = [
    (r"getncs/process/", "minimal C", 1.10),
    (r"wipe/files/(1000|100000)$", "find -delete", 1.0),
    (r"wipe/files/(1000|100000)$", "minimal C", 1.2),
    (r"copy/process/", "cp", 1.02),
    (r"parse/", "tinyxml2", 1.0),
    (r"parse/", "libxml2", 1.0),
    (r"parse/", r"expat\+tree", 1.0),
    (r"parse/small/100?M", "pugixml", 2.2),
    (r"parse/attributes/", "pugixml", 2.8),
    (r"parse/texts/", "pugixml", 2.3),
    (r"parse/wide/", "pugixml", 3),
    (r"parse/deep/", "pugixml", 4),
    (r"write/", "tinyxml2", 1.0),
    (r"write/", "libxml2", 1.0),
    (r"write/(small|attributes|texts)/100?M", "pugixml", 1.2),
    (r"write/wide/", "pugixml", 1.6),
    (r"parse memory/small/", "the document", 9),
    (r"parse memory/texts/", "the document", 4),
    (r"double-to-text/", "std::to_chars", 0.7),
    (r"crc/1M", "zlib", 2),
    (r"text-to-double/", "std::from_chars", 1.3),
    (r"inverse/", "Eigen", 5),
    (r"text-by-key/", "file checks", 1.4),
    (r"language-load/entries/100000$", "std::map with streams", 1.0),
]

# A case and the largest figure of its own.
OWN_GOALS = [
    (r"getncs/system calls/", 45),
    (r"start/constructors/", 20),
]

UNITS = {"parse memory": "bytes", "getncs/system calls": "calls"}


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


def goal_of(case, who):
    for pattern, peer, limit in GOALS:
        if re.match(pattern, case) and re.fullmatch(peer, who):
            return limit
    return None


def comparison(case, who, value):
    goal = goal_of(case, who)
    text = f"{who} {value:.2f}"
    if goal is None:
        return text
    return judged(text, value, goal)


def judged(text, value, goal):
    return f"{text} (≤ {goal})" if value <= goal else f"**{text} (goal {goal})**"


def own_figure(case, unit, values):
    median = statistics.median(values)
    text = f"{number(median)} {unit}{spread(values)}"
    return next((judged(text, median, goal) for pattern, goal in OWN_GOALS if re.match(pattern, case)), text)


def ratio(values, peers):
    """The median over the rounds: the two were measured one right after the other, so that the
    drift of a machine's speed falls out."""
    return statistics.median(value / peer for value, peer in zip(values, peers, strict=True))


def row(case, whose):
    unit = next((name for prefix, name in UNITS.items() if case.startswith(prefix)), "µs")
    compared = [comparison(case, who, ratio(whose["project"], values))
                for who, values in whose.items() if who != "project"]
    return f"| {case} | {own_figure(case, unit, whose['project'])} | {', '.join(compared)} |"


def table(measured, windows):
    lines = ["| what | project | ratio to the peer |" + (" Windows, under Wine |" if windows else ""),
             "| --- | --- | --- |" + (" --- |" if windows else "")]
    for case, whose in sorted(measured.items()):
        if "project" not in whose:
            continue
        line = row(case, whose)
        if windows:
            there = windows.get(case, {}).get("project")
            line += f" {number(statistics.median(there))} µs |" if there else "  |"
        lines.append(line)
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
    windows = cases(json.loads(given.windows.read_text())) if given.windows else {}
    text = table(cases(json.loads(given.measured.read_text())), windows)
    print(text)
    if given.readme:
        put_between(given.readme, f"{machine()}\n\n{text}")


if __name__ == "__main__":
    main()
