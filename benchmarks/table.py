"""Prints what run.py has measured as one table in Markdown: for each case the project's median
with its spread, and the project's ratio to each peer. Goals that are not met are marked."""

import argparse
import json
import re
import statistics
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
    (r"double-to-text/", "std::to_chars", 1.3),
    (r"text-to-double/", "std::from_chars", 1.3),
    (r"inverse/", "Eigen", 5),
    (r"text-by-key/", "file checks", 1.4),
    (r"language-load/entries/100000$", "std::map with streams", 1.0),
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


def comparison(case, who, ratio):
    goal = goal_of(case, who)
    text = f"{who} {ratio:.2f}"
    if goal is None:
        return text
    return f"{text} (≤ {goal})" if ratio <= goal else f"**{text} (goal {goal})**"


def row(case, whose):
    unit = next((name for prefix, name in UNITS.items() if case.startswith(prefix)), "µs")
    project = whose["project"]
    median = statistics.median(project)
    compared = [comparison(case, who, median / statistics.median(values))
                for who, values in whose.items() if who != "project"]
    return f"| {case} | {number(median)} {unit}{spread(project)} | {', '.join(compared)} |"


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("measured", type=Path)
    arguments.add_argument("--windows", type=Path, help="the same, of the Windows build")
    given = arguments.parse_args()
    windows = cases(json.loads(given.windows.read_text())) if given.windows else {}

    print("| what | project | ratio to the peer |" + (" Windows, under Wine |" if windows else ""))
    print("| --- | --- | --- |" + (" --- |" if windows else ""))
    for case, whose in sorted(cases(json.loads(given.measured.read_text())).items()):
        if "project" not in whose:
            continue
        line = row(case, whose)
        if windows:
            there = windows.get(case, {}).get("project")
            line += f" {number(statistics.median(there))} µs |" if there else "  |"
        print(line)


if __name__ == "__main__":
    main()
