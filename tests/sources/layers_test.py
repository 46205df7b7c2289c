#!/usr/bin/env python3
"""Plants what scripts/check-layers must refuse, each in a small tree of its own."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "scripts" / "check-layers"

# A sound tree: one unit in each of some layers, each standing on the one below.
SOUND = {
    "libs/utils/inc/orlounit.h": [],
    "libs/utils/inc/orlostring.h": ["orlounit.h"],
    "libs/utils/inc/orlopath.h": ["orlostring.h"],
    "libs/utils/inc/orlofile.h": ["orlopath.h"],
    "libs/utils/inc/orlodate.h": ["orlostring.h"],
    "libs/geo/inc/orlogeopoint.h": ["orlostring.h"],
    "libs/utils/src/platform/characters.h": [],
    "libs/utils/src/platform/posix/characters.cpp": ["platform/characters.h"],
    "libs/utils/src/platform/platform.h": ["orlostring.h"],
    "libs/utils/src/text/orlostring.cpp": ["orlostring.h", "platform/characters.h"],
    "libs/utils/src/files/orlopath.cpp": ["orlopath.h", "platform/platform.h"],
    "libs/utils/src/files/orlofile.cpp": ["orlofile.h"],
    "libs/utils/src/calendar/orlodate.cpp": ["orlodate.h"],
    "libs/geo/src/orlogeopoint.cpp": ["orlogeopoint.h"],
    "libs/utils/src/messages/languageentries.h": ["orlostring.h"],
    "libs/utils/src/messages/languageentries.cpp": ["messages/languageentries.h"],
    "libs/utils/src/xml/xmlsource.h": ["orlostring.h"],
    "libs/utils/src/xml/xmlsource.cpp": ["xml/xmlsource.h"],
    "languagecheck/check.cpp": ["orlofile.h", "messages/languageentries.h"],
    "tool/getncs.h": [],
    "tool/getncs.cpp": ["getncs.h", "orlofile.h", "orlogeopoint.h", "orlodate.h"],
}


class Layers(unittest.TestCase):
    def check(self, changes):
        """Exit code and complaints about the sound tree with these files added or longer."""
        with tempfile.TemporaryDirectory() as folder:
            for name in SOUND.keys() | changes.keys():
                path = Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                lines = [*SOUND.get(name, []), *changes.get(name, [])]
                path.write_text("".join(f'#include "{line}"\n' for line in lines))
            done = subprocess.run([CHECK, folder], stdout=subprocess.PIPE, text=True, check=False)
        return done.returncode, done.stdout

    def assert_refused(self, name, included, words):
        code, complaints = self.check({name: [included]})
        self.assertEqual(code, 1)
        self.assertIn(words, complaints)
        self.assertIn(name, complaints)

    def test_a_sound_tree_passes(self):
        self.assertEqual(self.check({})[0], 0)

    def test_an_include_of_a_higher_layer_is_refused(self):
        for name, included, words in (
            ("libs/utils/src/text/orlostring.cpp", "orlopath.h", "text must not include files"),
            ("libs/utils/inc/orlostring.h", "orlofile.h", "text must not include files"),
            ("libs/utils/src/text/orlostring.cpp", "platform/platform.h",
             "text must not include platform"),
            ("libs/utils/src/platform/characters.h", "orlostring.h",
             "characters must not include text"),
            ("libs/utils/src/files/orlofile.cpp", "getncs.h", "no layer"),
        ):
            with self.subTest(f"{name}: {included}"):
                self.assert_refused(name, included, words)

    def test_an_include_of_a_layer_beside_is_refused(self):
        self.assert_refused("libs/geo/src/orlogeopoint.cpp", "orlofile.h",
                            "geo must not include files")
        self.assert_refused("libs/utils/src/calendar/orlodate.cpp", "orlogeopoint.h",
                            "calendar must not include geo")

    def test_the_tool_includes_no_private_header(self):
        for included in ("platform/platform.h", "platform/characters.h"):
            with self.subTest(included):
                self.assert_refused("tool/getncs.cpp", included,
                                    "the tool includes public headers alone")

    def test_the_checker_includes_nothing_above_messages(self):
        for included, words in (("xml/xmlsource.h", "languagecheck must not include xml"),
                                ("orlogeopoint.h", "languagecheck must not include geo")):
            with self.subTest(included):
                self.assert_refused("languagecheck/check.cpp", included, words)

    def test_a_circle_of_headers_is_refused(self):
        code, complaints = self.check({"libs/utils/inc/orlopath.h": ["orlofile.h"]})
        self.assertEqual(code, 1)
        self.assertIn("a circle: orlofile > orlopath > orlofile", complaints)

    def test_a_source_counts_for_the_unit_of_its_header(self):
        code, complaints = self.check({"libs/utils/src/files/orlopath.cpp": ["orlofile.h"]})
        self.assertEqual(code, 1)
        self.assertIn("a circle: orlofile > orlopath > orlofile", complaints)

    def test_a_header_of_no_layer_is_refused(self):
        code, complaints = self.check({"libs/utils/inc/orloother.h": []})
        self.assertEqual(code, 1)
        self.assertIn("libs/utils/inc/orloother.h: belongs to no layer", complaints)


if __name__ == "__main__":
    sys.exit(unittest.main())
