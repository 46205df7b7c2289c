"""The two systems that the tool runs on, behind one interface for the whole-run tests.

A machine starts the tool with switches, answers its message boxes, and tells how paths look to
the tool. What a box showed is compared as text; how it is read and answered is told here.
"""

import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

TITLE = "Velmora"
PATIENCE = 60  # seconds after which a run counts as hanging


class Outcome:
    """How a run ended: its exit code, the texts of its boxes in order, and the bytes it printed."""

    def __init__(self, code, boxes, output=b""):
        self.code = code
        self.boxes = boxes
        self.output = output


class Machine:
    """What both systems share: a folder of the session with the bare tool, without language files."""

    def __init__(self, tool):
        self.folder = Path(tempfile.mkdtemp(prefix="taven"))
        self.folder.chmod(0o755)
        self.tool = self.place_tool(tool, self.folder / "bare" / "bin")

    @staticmethod
    def place_tool(tool, folder):
        folder.mkdir(parents=True)
        return Path(shutil.copy(tool, folder))

    def close(self):
        shutil.rmtree(self.folder)

    def shown(self, path):
        """The path in the tool's own form, as its messages show it."""
        return self.drive + str(path).replace("/", "\\")

    def environment(self, changes):
        return {**os.environ, "TZ": "UTC0", **self.settings, **changes}

    @staticmethod
    def finish(process):
        """Waits for the end; returns what was printed to standard output and standard error."""
        try:
            return process.communicate(timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            Machine.kill(process)
            raise AssertionError(f"The tool still ran after {PATIENCE} seconds") from None

    @staticmethod
    def kill(process):
        process.kill()
        process.communicate()


class Linux(Machine):
    """Boxes are lines on standard error; a line or the end of standard input answers."""

    name = "linux"
    drive = "C:"
    settings = {"LC_ALL": "C"}

    def argument(self, path):
        """The path as a caller on this system gives it."""
        return str(path)

    def start(self, switches, folder, changes=None, tool=None, stdin=subprocess.PIPE, **details):
        tool = tool or self.tool
        return subprocess.Popen([tool, *switches], cwd=folder, env=self.environment(changes or {}), stdin=stdin,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, **details)

    def run(self, switches, folder, **details):
        process = self.start(switches, folder, stdin=subprocess.DEVNULL, **details)
        output, errors = self.finish(process)
        boxes = self.boxes_in(errors)
        return Outcome(process.returncode, boxes, output + (b"" if boxes is not None else errors))

    @staticmethod
    def boxes_in(errors):
        """The texts between titles; None if something else than boxes was printed."""
        begin = TITLE + "\n"
        text = errors.decode("utf-8", "surrogateescape")
        if not text:
            return []
        if not text.startswith(begin) or not text.endswith("\n"):
            return None
        return text[len(begin):-1].split("\n" + begin)

    @staticmethod
    def wait_for_box(process):
        """Reads the title and the text, which must be a single line."""
        assert process.stderr.readline() == TITLE.encode() + b"\n"
        return process.stderr.readline().decode().rstrip("\n")

    @staticmethod
    def answer(process):
        process.stdin.write(b"\n")
        process.stdin.flush()

    def hold_boxes(self):
        pass  # an open standard input holds them

    def release_boxes(self):
        pass

    @staticmethod
    def ended_abnormally(code):
        return code == -signal.SIGABRT

    def time_text(self, seconds, changes):
        """The time in the user's own format, from the shell's clock."""
        return subprocess.run(["date", "-d", f"@{seconds}", "+%c"], env=self.environment(changes), check=True,
                              stdout=subprocess.PIPE).stdout.decode().rstrip("\n")


class Windows(Machine):
    """The Windows executable under Wine; its boxes appear on the display and a helper answers."""

    name = "windows"
    drive = "Z:"
    settings = {"LC_ALL": "C.UTF-8"}  # file names are Unicode to a Windows program
    wine = "/usr/lib/wine/wine64"

    def __init__(self, tool, helpers):
        super().__init__(tool)
        self.helpers = helpers
        self.printed = self.folder / "printed"
        self.boxes = self.folder / "boxes"
        self.boxes.mkdir()
        self.answerer = subprocess.Popen([self.wine, helpers / "boxanswer.exe", self.shown(self.boxes)],
                                         env=self.environment({}), stdin=subprocess.DEVNULL,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until((self.boxes / "ready").exists, "The program that answers message boxes did not start")

    def close(self):
        (self.boxes / "stop").touch()
        self.answerer.wait(PATIENCE)
        super().close()

    def argument(self, path):
        return self.shown(path)

    def start(self, switches, folder, changes=None, tool=None, **details):
        for old in self.boxes.glob("*.txt"):
            old.unlink()
        # No pipe: the desktop of Wine, once started by a run, would keep its other end open.
        with open(self.printed, "wb") as printed:
            return subprocess.Popen([self.wine, tool or self.tool, *switches], cwd=folder,
                                    env=self.environment(changes or {}), stdin=subprocess.DEVNULL,
                                    stdout=printed, stderr=printed, **details)

    def run(self, switches, folder, **details):
        process = self.start(switches, folder, **details)
        self.finish(process)
        return Outcome(process.returncode, self.boxes_shown(), self.printed.read_bytes())

    def boxes_shown(self):
        files = sorted(self.boxes.glob("*.txt"), key=lambda file: int(file.stem))
        return [self.text_of(file) for file in files]

    @staticmethod
    def text_of(file):
        """The text of a box with the right title and one button; else all that is known of it."""
        plain = TITLE + "\nbuttons 1, icons 0, owners 0\n"
        content = file.read_bytes().decode("utf-16-le", "surrogatepass")
        return content[len(plain):] if content.startswith(plain) else "another kind of box: " + content

    def wait_for_box(self, process):
        file = self.boxes / "1.txt"
        wait_until(file.exists, "No message box appeared")
        return self.text_of(file)

    def answer(self, process):
        self.release_boxes()

    def hold_boxes(self):
        (self.boxes / "hold").touch()

    def release_boxes(self):
        (self.boxes / "hold").unlink(missing_ok=True)

    @staticmethod
    def ended_abnormally(code):
        return code not in (0, 1)

    def time_text(self, seconds, changes):
        """The time in the user's own format, from the system's runtime library."""
        return subprocess.run([self.wine, self.helpers / "timetext.exe", str(seconds)], check=True,
                              env=self.environment(changes), stdout=subprocess.PIPE).stdout.decode()


def wait_until(condition, complaint):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(complaint)
        time.sleep(0.005)
