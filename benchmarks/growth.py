"""Draws docs/growth.svg from what run.py has measured: time against size, both in powers of
ten, for the parse and the write of small elements, the load of a language file and a wipe."""

import json
import math
import re
import statistics
import sys
from pathlib import Path

PANELS = [
    ("XML, bytes to tree", "parse/small/", "bytes"),
    ("XML, tree to bytes", "write/small/", "bytes"),
    ("Load of a language file", "language-load/entries/", "entries"),
    ("Wipe of a folder", "wipe/files/", "files"),
]
COLOURS = {"project": "#c1121f"}
PEER_COLOURS = ["#1d3557", "#457b9d", "#6a994e", "#bc6c25", "#7b2cbf"]
WIDTH, HEIGHT, LEFT, TOP = 420, 300, 60, 40
GAP = 90


def size_of(label):
    number, unit = re.fullmatch(r"(\d+)([KM]?)", label).groups()
    return int(number) * {"": 1, "K": 1000, "M": 1000000}[unit]


def lines_of(samples, prefix):
    """The points of each who: size and median."""
    lines = {}
    for name, values in samples.items():
        if name.startswith(prefix):
            label, who = name[len(prefix):].split("/", 1)
            lines.setdefault(who, []).append((size_of(label), statistics.median(values)))
    return {who: sorted(points) for who, points in lines.items()}


def decades(values):
    return math.floor(math.log10(min(values))), math.ceil(math.log10(max(values)))


def power(exponent, units):
    for step, name in units:
        if exponent >= step:
            return f"{10 ** (exponent - step)} {name}"
    return f"1e{exponent}"


def time_text(exponent):
    return power(exponent, [(6, "s"), (3, "ms"), (0, "µs")])


def size_text(exponent, unit):
    if unit == "bytes":
        return power(exponent, [(6, "MB"), (3, "KB"), (0, "B")])
    return f"{10 ** exponent:,}"


def panel(title, lines, unit, x, y):
    points = [point for line in lines.values() for point in line]
    first_size, last_size = decades([size for size, _ in points])
    first_time, last_time = decades([time for _, time in points])
    across = lambda size: x + WIDTH * (math.log10(size) - first_size) / (last_size - first_size)
    up = lambda time: y + HEIGHT - HEIGHT * (math.log10(time) - first_time) / (last_time - first_time)

    drawn = [f'<text x="{x}" y="{y - 12}" font-size="16" font-weight="bold">{title}</text>']
    for exponent in range(first_size, last_size + 1):
        at = across(10 ** exponent)
        drawn.append(f'<path d="M{at:.1f} {y}V{y + HEIGHT}" stroke="#ddd"/>'
                     f'<text x="{at:.1f}" y="{y + HEIGHT + 18}" text-anchor="middle">{size_text(exponent, unit)}</text>')
    for exponent in range(first_time, last_time + 1):
        at = up(10 ** exponent)
        drawn.append(f'<path d="M{x} {at:.1f}H{x + WIDTH}" stroke="#ddd"/>'
                     f'<text x="{x - 6}" y="{at + 4:.1f}" text-anchor="end">{time_text(exponent)}</text>')

    peers = sorted(who for who in lines if who != "project")
    for index, who in enumerate([*peers, "project"]):
        colour = COLOURS.get(who) or PEER_COLOURS[index % len(PEER_COLOURS)]
        way = "L".join(f"{across(size):.1f} {up(time):.1f} " for size, time in lines[who])
        legend = y + 20 + 18 * index
        drawn.append(f'<path d="M{way.strip()}" fill="none" stroke="{colour}" stroke-width="2"/>'
                     f'<path d="M{x + 12} {legend}h22" stroke="{colour}" stroke-width="2"/>'
                     f'<text x="{x + 40}" y="{legend + 4}">{who}</text>')
    return drawn


def main():
    samples = json.loads(Path(sys.argv[1]).read_text())
    drawn = []
    for index, (title, prefix, unit) in enumerate(PANELS):
        lines = lines_of(samples, prefix)
        if "project" in lines:
            drawn += panel(title, lines, unit, LEFT + index % 2 * (WIDTH + GAP), TOP + index // 2 * (HEIGHT + GAP))
    width, height = 2 * (WIDTH + GAP) + 20, 2 * (HEIGHT + GAP) + 10
    Path(sys.argv[2]).write_text(
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" '
        f'font-size="12">\n<rect width="{width}" height="{height}" fill="white"/>\n' + "\n".join(drawn) + "\n</svg>\n")


if __name__ == "__main__":
    main()
