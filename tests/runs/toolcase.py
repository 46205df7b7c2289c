"""What all whole-run tests stand on: an exchange of folders, runs of the tool, expected documents."""

import os
import shutil
import tempfile
import unittest
from contextlib import contextmanager
from pathlib import Path

EXPECTED = Path(__file__).parent / "expected"


class ToolCase(unittest.TestCase):
    maxDiff = None
    machine = None  # set by the runner, as are the two below
    locales = None  # folder for locales, which are made in it as tests ask for them, or None
    installed = None  # the tree that `cmake --install` made, or None

    def setUp(self):
        self.refresh()
        self.addCleanup(lambda: shutil.rmtree(self.folder))

    def refresh(self):
        """A new folder with an empty taven folder, an empty slicing folder and one for results."""
        old = getattr(self, "folder", None)
        if old:
            shutil.rmtree(old)
        self.folder = Path(tempfile.mkdtemp(dir=self.machine.folder))
        self.folder.chmod(0o755)
        self.taven, self.slicing, self.results = (self.folder / name for name in ("taven", "slicing", "results"))
        for folder in (self.taven, self.slicing, self.results):
            folder.mkdir()
        self.result = self.results / "result.xml"

    @contextmanager
    def row(self, name):
        """A row of a table: a test of its own, with folders of its own."""
        with self.subTest(name):
            self.refresh()
            yield

    def path(self, path):
        return self.machine.argument(path)

    def run_tool(self, *switches, folder=None, **details):
        outcome = self.machine.run(switches, folder or self.folder, **details)
        self.assertEqual(outcome.output, b"", "the tool prints nothing but its boxes")
        return outcome

    def assert_run(self, switches, code, boxes=(), **details):
        outcome = self.run_tool(*switches, **details)
        self.assertEqual(outcome.boxes, list(boxes))
        self.assertEqual(outcome.code, code)

    def assert_abnormal_end(self, switches, **details):
        outcome = self.run_tool(*switches, **details)
        self.assertEqual(outcome.boxes, [])
        self.assertTrue(self.machine.ended_abnormally(outcome.code), f"exit code {outcome.code}")

    def fill(self, folder, *names):
        """Files that hold their own names."""
        for name in names:
            (folder / name).write_bytes(os.fsencode(name))

    def names(self, folder):
        return sorted(entry.name for entry in folder.iterdir())

    def slistat(self, status, platform="P1"):
        return ["-cmd:slistat", f"-stat:{status}", f"-slifldr:{self.path(self.slicing)}",
                f"-tavenfldr:{self.path(self.taven)}", f"-platform:{platform}"]

    def getncs(self, *more, platform="P1"):
        return ["-cmd:getncs", f"-out:{self.path(self.result)}", f"-tavenfldr:{self.path(self.taven)}",
                f"-platform:{platform}", *more]

    def measuring_file(self, platform="P1"):
        return self.taven / f"MeasuringData_{platform}.xml"

    def measure(self, points, platform="P1"):
        """Leaves the measuring file of a platform with these points."""
        self.measuring_file(platform).write_text(measuring_data(points, platform), encoding="utf-8")

    def assert_result(self, document, file=None):
        """The bytes of the document; the text goes first because it shows better what differs."""
        found = (file or self.result).read_bytes()
        self.assertEqual(found.decode("utf-8", "replace"), document.decode("utf-8", "replace"))
        self.assertEqual(found, document)


def expected(name, **places):
    """The document of that name under expected/, with its {places} filled."""
    text = (EXPECTED / (name + ".xml")).read_bytes()
    for place, value in places.items():
        text = text.replace(b"{" + place.encode() + b"}", value.encode())
    return text


# The worked examples of a frame; expected/ holds their documents.
FLAT = ((0, 10, 1), (20, 10, 1), (20, 0, 1), (0, 0, 1))
WORKED_EXAMPLE = ((1, 11, 2), (21, 11, 3), (21, 1, 2), (1, 1, 1))
QUARTER_TURN = ((-10, 0, 1), (-10, 20, 1), (0, 20, 1), (0, 0, 1))
ANTICLOCKWISE = tuple(reversed(FLAT))

MEASURED = 1715766030  # what DATE and TIME say, in seconds since 1970: months count from 0
DATE, TIME = "2024-4-15Z", "9:40:30Z"


def measuring_point(name, coordinates):
    axes = "".join(f'<axis Name="{axis}">{text}</axis>' for axis, text in zip("xyz", coordinates))
    return f'<measuringpoint Name="{name}">{axes}</measuringpoint>'


def measuring_data(points, platform="P1", date=DATE, time=TIME):
    """A measuring file; `points` are triples of coordinates, or the text of the content."""
    if not isinstance(points, str):
        points = "".join(measuring_point(f"cylinder{n}", point) for n, point in enumerate(points, 1))
    return f'<data PlatformName="{platform}" CreationDate="{date}" CreationTime="{time}">{points}</data>'
