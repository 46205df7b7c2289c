"""Runs the benchmarks and keeps what they measured in one file of JSON: for each name, as in
"parse/small/10M/pugixml", the samples of all rounds.

Every benchmark runs in a process of its own, so that none finds a heap that another one has
warmed or scattered. The rounds go through all of them in turn, those of one case one right after
the other, so that a busy moment of the machine hits them all.

Under Wine the time is that of the clock on the wall: the processor time that it tells is a
multiple of 10 ms. First runs are in "first/parse/small/10M/pugixml"."""

import argparse
import json
import os
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

ARGUMENTS = argparse.ArgumentParser(description=__doc__)
ARGUMENTS.add_argument("--build", type=Path, required=True, help="the build folder")
ARGUMENTS.add_argument("--installed", type=Path, required=True, help="the installed tool")
ARGUMENTS.add_argument("--wine", help="runs the programs, which are those of the Windows build")
ARGUMENTS.add_argument("--out", type=Path, required=True)
ARGUMENTS.add_argument("--rounds", type=int, default=5)
ARGUMENTS.add_argument("--quick", action="store_true", help="two rounds in place of five")
ARGUMENTS.add_argument("--only", default="", help="a regular expression over the names")
ARGUMENTS.add_argument("--large", action="store_true", help="also documents of 100 MB and a million files")

# Jobs that are measured in fresh processes: the case, what `firstrun` is told, and the peers.
XML_PEERS = ["pugixml", "tinyxml2", "libxml2", "expat+tree"]
FIRST_RUNS = [
    ("parse/measuring/1K", ["parse", "measuring", "0"], XML_PEERS),
    ("parse/small/10M", ["parse", "small", "10000000"], XML_PEERS),
    ("parse/attributes/10M", ["parse", "attributes", "10000000"], XML_PEERS),
    ("parse/texts/10M", ["parse", "texts", "10000000"], XML_PEERS),
    ("parse/wide/1000000", ["parse", "wide", "1000000"], XML_PEERS),
    ("parse/deep/100000", ["parse", "deep", "100000"], ["pugixml", "libxml2", "expat+tree"]),
    ("write/small/10M", ["write", "small", "10000000"], XML_PEERS[:3]),
    ("write/attributes/10M", ["write", "attributes", "10000000"], XML_PEERS[:3]),
    ("write/texts/10M", ["write", "texts", "10000000"], XML_PEERS[:3]),
    ("write/wide/1000000", ["write", "wide", "1000000"], XML_PEERS[:3]),
    ("language-load/entries/1000", ["language-load", "shuffled", "1000"], ["streams"]),
    ("language-load/entries/100000", ["language-load", "shuffled", "100000"], ["streams"]),
    ("language-load/entries in order/1000", ["language-load", "rising", "1000"], ["streams"]),
    ("language-load/entries in order/100000", ["language-load", "rising", "100000"], ["streams"]),
]
# Those that are built for Windows too.
WINDOWS_PEERS = {"pugixml", "tinyxml2", "streams"}
# What the table calls them.
LONG_NAMES = {"streams": "std::map with streams"}

CYLINDERS = [(12.5182, 318.4466, 151.2037), (412.4969, 319.3193, 151.5312),
             (413.1514, 19.3204, 151.3094), (13.1727, 18.4477, 150.9767)]


class Samples:
    """What was measured, in microseconds of processor time, or another unit that the name tells."""

    def __init__(self, only):
        self.only = re.compile(only)
        self.all = {}

    def wants(self, name):
        return bool(self.only.search(name))

    def add(self, name, value):
        self.all.setdefault(name, []).append(value)


class Programs:
    """Starts the programs of a build, and knows how they call a folder of this system."""

    def __init__(self, build, wine, folder):
        self.build = build / "benchmarks"
        self.runner = [wine] if wine else []
        self.drive = "Z:" if wine else ""
        self.clock = "real_time" if wine else "cpu_time"
        self.environment = {**os.environ, "ORLO_BENCHMARK_FOLDER": self.path(folder)}

    def path(self, path):
        return f"{self.drive}{path}"

    def output(self, name, *arguments):
        """What a program prints."""
        program = next(self.build.glob(f"{name}.exe" if self.runner else name))
        run = subprocess.run([*self.runner, program, *arguments], capture_output=True, text=True, check=True,
                             env=self.environment)
        return run.stdout


def micro_names(programs, large):
    listed = programs.output("microbenchmarks", "--benchmark_list_tests")
    names = [line.strip() for line in listed.splitlines() if line.strip()]
    wanted = [name for name in names if large or "/100M/" not in name]
    return sorted(wanted, key=lambda name: name.rsplit("/", 1)[0])


def exactly(name):
    """Escaped for the expressions of Google Benchmark, which refuse to escape plain characters."""
    return re.sub(r"[][(){}.*+?^$|\\]", r"\\\g<0>", name)


def run_micro(programs, names, rounds, samples):
    for _ in range(rounds):
        for name in names:
            printed = programs.output("microbenchmarks", f"--benchmark_filter=^{exactly(name)}$",
                                      "--benchmark_min_time=0.05", "--benchmark_format=json")
            for row in json.loads(printed)["benchmarks"]:
                if row.get("error_occurred"):
                    raise SystemExit(f"{name}: {row['error_message']}")
                scale = {"ns": 1e-3, "us": 1, "ms": 1e3}[row["time_unit"]]
                # Without the argument, which stands behind the name.
                samples.add(re.sub(r"/\d+$", "", name), row[programs.clock] * scale)


def first_runs(programs, rounds, samples):
    """The first run of each job, and of a parse the release of the tree as a case of its own."""
    jobs = [(case, told, ["project", *(who for who in peers if not programs.runner or who in WINDOWS_PEERS)])
            for case, told, peers in FIRST_RUNS]
    for _ in range(rounds):
        for case, told, libraries in jobs:
            for who in libraries:
                name = f"{case}/{LONG_NAMES.get(who, who)}"
                releases = case.startswith("parse/") and samples.wants("release" + name.removeprefix("parse"))
                if not samples.wants(name) and not releases:
                    continue
                job, release = (int(value) / 1000 for value in programs.output("firstrun", who, *told).split())
                if samples.wants(name):
                    samples.add(f"first/{name}", job)
                if releases:
                    samples.add("first/release" + name.removeprefix("parse"), release)


def processor_time(command, expected=0):
    """Runs a command without a shell and gives its processor time in microseconds."""
    silent = [(os.POSIX_SPAWN_OPEN, 0, "/dev/null", os.O_RDONLY, 0), (os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)]
    process = os.posix_spawn(command[0], command, {"LC_ALL": "C"}, file_actions=silent)
    _, status, usage = os.wait4(process, 0)
    if os.waitstatus_to_exitcode(status) != expected:
        raise SystemExit(f"{command} ended with {os.waitstatus_to_exitcode(status)}")
    return (usage.ru_utime + usage.ru_stime) * 1e6


def system_calls(command, log):
    subprocess.run(["strace", "-f", "-o", log, *command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   env={**os.environ, "LC_ALL": "C"})
    return sum(1 for line in Path(log).read_text(errors="replace").splitlines() if not line.split()[1].startswith("+++"))


def measuring_file(path):
    points = ""
    for number, point in enumerate(CYLINDERS, 1):
        axes = "".join(f'      <Axis Name="{axis}">{value}</Axis>\n' for axis, value in zip("XYZ", point))
        points += f'   <MeasuringPoint Name="cylinder{number}">\n{axes}   </MeasuringPoint>\n'
    path.write_text('<?xml version="1.0" encoding="UTF-8"?>\n<MeasuringData PlatformName="P400" '
                    f'CreationDate="2024-4-17Z" CreationTime="9:41:27Z">\n{points}</MeasuringData>\n')


class WholeRuns:
    def __init__(self, tool, build, folder, samples):
        self.tool = str(tool / "bin/tavenMorrel")
        self.language = tool / "config/Language/english/language.loc"
        self.bounds = build / "benchmarks"
        self.folder = folder
        self.samples = samples
        self.taven = folder / "taven"
        self.taven.mkdir()

    def minimal(self, name):
        return str(self.bounds / f"minimal_{name}")

    def getncs(self, rounds):
        measuring = self.taven / "MeasuringData_P400.xml"
        measuring_file(measuring)
        results = [self.folder / name for name in ("project.xml", "minimal.xml", "calls.xml")]
        program, languages = Path(self.tool).parent, self.language.parent.parent
        in_vain = [f"{place}/language.loc" for place in (program, languages, program / "english")]
        commands = {
            "project": [self.tool, "-cmd:getncs", "-language:english", f"-tavenfldr:{self.taven}", "-platform:P400",
                        f"-out:{results[0]}"],
            "minimal C": [self.minimal("getncs"), str(measuring), str(self.language), str(results[1]), "P400"],
            "C with all calls": [self.minimal("getncs_all_calls"), str(measuring), str(self.language),
                                 str(results[2]), "P400", f"{self.folder}/", f"{self.taven}/", *in_vain],
        }
        for command in commands.values():
            processor_time(command, 1)
        if len({result.read_bytes() for result in results}) != 1:
            raise SystemExit("getncs: the results differ")
        for _ in range(rounds):
            for who, command in commands.items():
                self.samples.add(f"getncs/process/measured/{who}", processor_time(command, 1))
        for who, command in commands.items():
            self.samples.add(f"getncs/system calls/measured/{who}", system_calls(command, self.folder / "calls"))
        measuring.unlink()

    def start(self, rounds):
        for _ in range(rounds):
            for who, name in (("project", "startup_libraries"), ("nothing", "startup_nothing")):
                program = str(self.bounds / name)
                self.samples.add(f"start/process/libraries/{who}", processor_time([program]))
                constructors = subprocess.run([program], capture_output=True, text=True, check=True)
                self.samples.add(f"start/constructors/libraries/{who}", int(constructors.stdout) / 1000)

    def wipe(self, count, rounds):
        commands = {
            "project": [self.tool, "-cmd:slistat", "-stat:started", f"-tavenfldr:{self.taven}", "-platform:P400"],
            "find -delete": ["/usr/bin/find", str(self.taven), "-maxdepth", "1", "-name", "P400.*", "-delete"],
            "minimal C": [self.minimal("wipe"), str(self.taven), "P400."],
        }
        for _ in range(rounds):
            for who, command in commands.items():
                for number in range(count):
                    os.close(os.open(self.taven / f"P400.{number}", os.O_WRONLY | os.O_CREAT))
                self.samples.add(f"wipe/files/{count}/{who}", processor_time(command))
                if any(self.taven.iterdir()):
                    raise SystemExit(f"{who} left files behind")

    def copy(self, size, rounds):
        output = self.folder / "output"
        output.mkdir()
        source = output / "P400.xml"
        with source.open("wb") as file:
            for _ in range(size >> 20):
                file.write(os.urandom(1 << 20))
        target = self.taven / "P400.xml"
        commands = {
            "project": ([self.tool, "-cmd:slistat", "-stat:ended_success", f"-slifldr:{output}",
                         f"-tavenfldr:{self.taven}", "-platform:P400"], 1),
            "cp": (["/bin/cp", str(source), str(target)], 0),
            "minimal C": ([self.minimal("copy"), str(source), str(target)], 0),
        }
        for _ in range(rounds):
            for who, (command, expected) in commands.items():
                started = time.perf_counter()
                processor = processor_time(command, expected)
                self.samples.add(f"copy/wall/300M/{who}", (time.perf_counter() - started) * 1e6)
                self.samples.add(f"copy/process/300M/{who}", processor)
                if subprocess.run(["cmp", "-s", source, target]).returncode != 0:
                    raise SystemExit(f"{who} did not copy")
                target.unlink()
        source.unlink()


def parse_memory(programs, kind, size, label, folder, samples):
    path = folder / "document.xml"
    programs.output("parsememory", kind, str(size), programs.path(path))
    for who in ("project", "pugixml", "tinyxml2"):
        if kind == "deep" and who == "tinyxml2":
            continue  # refuses it
        grown = int(programs.output("parsememory", who, programs.path(path)))
        samples.add(f"parse memory/{kind}/{label}/{who}", grown)
    samples.add(f"parse memory/{kind}/{label}/the document", path.stat().st_size)
    path.unlink()


def parse_memories(programs, large, folder, samples):
    if not samples.wants("parse memory"):
        return
    size, label = (10 ** 8, "100M") if large else (10 ** 7, "10M")
    for kind in ("small", "attributes", "texts"):
        parse_memory(programs, kind, size, label, folder, samples)
    parse_memory(programs, "wide", 10 ** 6, "1000000", folder, samples)
    parse_memory(programs, "deep", 10 ** 5, "100000", folder, samples)


def executable_size(arguments, folder, samples):
    """Without the symbols, which nobody loads."""
    if not samples.wants("size"):
        return
    name = "tavenMorrel.exe" if arguments.wine else "tavenMorrel"
    strip = "x86_64-w64-mingw32-strip" if arguments.wine else "strip"
    subprocess.run([strip, "-o", folder / name, arguments.installed / "bin" / name], check=True)
    samples.add("size/executable/project", (folder / name).stat().st_size)
    (folder / name).unlink()


def whole_runs(arguments, rounds, folder, samples):
    tree = folder / "installed"
    shutil.copytree(arguments.installed, tree)
    runs = WholeRuns(tree, arguments.build, folder, samples)
    if samples.wants("getncs"):
        runs.getncs(100 * rounds)
    if samples.wants("start"):
        runs.start(100 * rounds)
    if samples.wants("wipe"):
        for count in (10, 100, 1000, 10000, 100000) + ((1000000,) if arguments.large else ()):
            runs.wipe(count, max(1, min(20, 30000 // count)) * rounds)
    if samples.wants("copy"):
        runs.copy(300 << 20, 2 * rounds)


def main():
    arguments = ARGUMENTS.parse_args()
    rounds = 2 if arguments.quick else arguments.rounds
    samples = Samples(arguments.only)
    # In memory, as what a disk adds is the same for all and hides the rest.
    base = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=base) as name:
        folder = Path(name)
        programs = Programs(arguments.build, arguments.wine, folder)
        micro = [name for name in micro_names(programs, arguments.large) if samples.wants(name)]
        run_micro(programs, micro, rounds, samples)
        first_runs(programs, 2 * rounds + 1, samples)
        parse_memories(programs, arguments.large, folder, samples)
        executable_size(arguments, folder, samples)
        if not arguments.wine:
            whole_runs(arguments, rounds, folder, samples)
    arguments.out.write_text(json.dumps(samples.all, indent=1))


if __name__ == "__main__":
    main()
