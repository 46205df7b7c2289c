#!/usr/bin/env python3
"""Runs the built checker of language files as a translator does: exit code and lines out.

    checker_run.py --checker build/installed/bin/orloLanguageCheck --languages build/installed/config/Language

A Windows executable runs under Wine, with WINEPREFIX from the environment.
"""

import argparse
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "runs"))
from machines import PATIENCE, Windows  # noqa: E402

MARK = b"\xef\xbb\xbf"


class Checker(unittest.TestCase):
    checker: Path
    languages: Path

    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="languagecheck")
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)

    def check(self, *arguments, folder=None, **details):
        """Exit code, and what was printed to standard output and standard error."""
        start = [Windows.wine] if self.checker.suffix == ".exe" else []
        done = subprocess.run([*start, self.checker, *arguments], cwd=folder or self.folder, check=False,
                              stdin=subprocess.DEVNULL, timeout=PATIENCE,
                              **{"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **details})
        # Lines end as the system's do.
        return done.returncode, *((text or b"").replace(b"\r\n", b"\n") for text in (done.stdout, done.stderr))

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(MARK + content.encode())

    def test_the_delivered_languages_are_without_a_finding(self):
        self.assertEqual(sum(1 for _ in self.languages.glob("*/language.loc")), 9)
        self.assertEqual(self.check("--reference", "english", self.languages.name, folder=self.languages.parent),
                         (0, b"", b""))

    def test_a_planted_slip_is_an_error_with_its_line(self):
        self.write("english/language.loc", "; texts\nnotFound Platform [platform] not found\n")
        self.write("czech/language.loc", "; texty\n\nnotFound Platforma ([platfrom]) nenalezena\n")
        self.assertEqual(self.check("--reference", "english", "."), (1, (
            "./czech/language.loc:3: error: the place [platform] is missing\n"
            "./czech/language.loc:3: error: the place [platfrom] is not known\n").encode(), b""))

    def test_warnings_alone_are_no_failure(self):
        self.write("t.loc", "notFound not found; sorry\n")
        code, output, errors = self.check("t.loc")
        self.assertEqual((code, errors), (0, b""))
        self.assertTrue(output.startswith(b"t.loc:1: warning: "))

    def test_letters_outside_ascii_are_printed_as_utf_8(self):
        self.write("Pr\u00fcfung \u6771.loc", "Schl\u00fcssel\n\u6771 \U0001f600 [x]\n")
        code, output, _ = self.check("Pr\u00fcfung \u6771.loc", env=self.utf8_environment())
        self.assertEqual((code, output.decode()), (
            1, "Pr\u00fcfung \u6771.loc:1: error: \"Schl\u00fcssel\" is a key alone, without a text\n"))
        _, output, _ = self.check("--list", "Pr\u00fcfung \u6771.loc", env=self.utf8_environment())
        self.assertEqual(output.decode(), "Pr\u00fcfung \u6771.loc\n  \u6771\n    \U0001f600 <x>\n")

    def test_a_wrong_call_is_told_on_standard_error(self):
        code, output, errors = self.check()
        self.assertEqual((code, output), (2, b""))
        self.assertIn(b"orloLanguageCheck [--reference", errors)
        self.assertEqual(self.check("."), (2, b"", b"orloLanguageCheck: .: no language file in this folder\n"))

    def test_findings_that_can_not_be_printed_are_no_success(self):
        if self.checker.suffix == ".exe":
            self.skipTest("Windows has no device that is always full")
        self.write("t.loc", "notFound not found; sorry\n")
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.check("t.loc", stdout=full)[0], 2)

    @staticmethod
    def utf8_environment():
        return {**os.environ, "LC_ALL": "C.UTF-8"}


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("--checker", type=Path, required=True, help="the executable")
    options.add_argument("--languages", type=Path, required=True, help="the folder of the delivered languages")
    given = options.parse_args()
    Checker.checker = given.checker.resolve()
    Checker.languages = given.languages.resolve()
    result = unittest.TextTestRunner(verbosity=2).run(unittest.defaultTestLoader.loadTestsFromTestCase(Checker))
    return 0 if result.testsRun and result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
