#!/usr/bin/env python3
"""Runs the built tool as its callers do: switches in, exit code, boxes and files out.

    whole_run.py --tool build/bin/tavenMorrel
    whole_run.py --tool build-windows/bin/tavenMorrel.exe --helpers build-windows/tests

A Windows executable runs under Wine, with WINEPREFIX and DISPLAY from the environment; the
helpers are the folder of boxanswer.exe and timetext.exe. The last line counts the tests.
"""

import argparse
import sys
import traceback
import unittest
from pathlib import Path

from machines import Linux, Windows
from toolcase import ToolCase


class Count(unittest.TextTestResult):
    """Counts each row of a table as a test and names what failed at once."""

    def __init__(self, stream, *rest):
        super().__init__(stream, False, 0)
        self.passed = self.failed = 0
        self.tables = set()

    def addSuccess(self, test):
        if test not in self.tables:
            self.passed += 1

    def addSubTest(self, test, row, error):
        self.tables.add(test)
        if error is None:
            self.passed += 1
        else:
            self.note_failure(row, error)

    def addFailure(self, test, error):
        self.note_failure(test, error)

    def addError(self, test, error):
        self.note_failure(test, error)

    def addSkip(self, test, reason):
        print(f"not here: {test.id()}: {reason}")

    def note_failure(self, test, error):
        self.failed += 1
        print(f"FAILED {test.id()}\n" + "".join(traceback.format_exception(*error)), flush=True)


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--tool", type=Path, required=True, help="the executable")
    options.add_argument("--helpers", type=Path, help="folder of the helpers for the Windows executable")
    options.add_argument("--locales", type=Path, help="folder for the languages of other countries, made as needed")
    options.add_argument("--installed", type=Path, help="the installed tree, to test its language files")
    options.add_argument("--file", default="*", help="only those of FILE_run.py")
    options.add_argument("names", nargs="*", help="only tests whose name holds one of these")
    given = options.parse_args()

    tool = given.tool.resolve()
    windows = tool.suffix == ".exe"
    machine = Windows(tool, given.helpers.resolve()) if windows else Linux(tool)
    ToolCase.machine = machine
    ToolCase.locales = given.locales and given.locales.resolve()
    ToolCase.installed = given.installed and given.installed.resolve()

    loader = unittest.TestLoader()
    loader.testNamePatterns = [f"*{name}*" for name in given.names] or None
    try:
        tests = loader.discover(str(Path(__file__).parent), pattern=f"{given.file}_run.py")
        count = unittest.TextTestRunner(sys.stdout, resultclass=Count).run(tests)
    finally:
        machine.close()
    print(f"{count.passed} passed, {count.failed} failed")
    return 0 if count.passed and not count.failed else 1


if __name__ == "__main__":
    sys.exit(main())
