"""What surrounds a run and must not, or must, change its answer: time zone, language of the
system, odd file names, full disks, missing permissions."""

import os
import re
import resource
import shutil
import signal
import subprocess
import tempfile
from contextlib import suppress
from pathlib import Path

from toolcase import DATE, FLAT, MEASURED, TIME, ToolCase, expected, measuring_data

NOBODY = 65534


class Surroundings(ToolCase):
    def confirm(self, changes, seconds=MEASURED):
        return expected("flatRectangle", platform="P1", datetime=self.machine.time_text(seconds, changes))

    def linux_only(self, why):
        if self.machine.name != "linux":
            self.skipTest(why)

    def in_locale(self, name, source=None):
        """The environment of a user of that language; `source` is a file that defines it."""
        if not self.locales:
            self.skipTest("no folder for locales was given")
        made = self.locales / name
        if not made.is_dir():
            # Made aside, so that another run of these tests never sees half of it.
            aside = Path(tempfile.mkdtemp(dir=self.locales))
            subprocess.run(["localedef", "-i", source or name.partition(".")[0], "-f", "UTF-8", aside / name],
                           check=True)
            with suppress(OSError):
                (aside / name).rename(made)
            shutil.rmtree(aside)
        return {"LC_ALL": name, "LOCPATH": str(self.locales)}

    def with_time_format(self, name, form):
        """As in_locale, with a language that shows a time by this format."""
        german = Path("/usr/share/i18n/locales/de_DE").read_text(encoding="utf-8")
        source = self.folder / name
        source.write_text(re.sub(r'(?m)^(d_t_fmt\s+)"[^"]*"', lambda found: found[1] + f'"{form}"', german),
                          encoding="utf-8")
        return self.in_locale(name, source)

    def shown_time(self, changes):
        """What a result tells of the time of measuring."""
        self.measure(FLAT)
        self.assert_run(self.getncs(), 1, changes=changes)
        return re.search("measured on (.*)</message>", self.result.read_text(encoding="utf-8-sig"))[1]

    # --- Time ---

    def test_the_month_counts_from_0_and_fields_out_of_range_roll_over(self):
        rows = [
            ("as expected", DATE, TIME, MEASURED),
            ("the 12th month is the next January", "2023-12-31Z", "23:59:59Z", 1706745599),
            ("month 0 is January", "2024-0-1Z", "00:00:00Z", 1704067200),
            ("the 31st of a shorter month", "2024-1-31Z", "12:00:00Z", 1709380800),
            ("hours beyond the day", "2024-4-15Z", "33:40:30Z", MEASURED + 86400),
            ("leading zeros and blanks", "2024- 04- 15Z", " 09: 40: 30Z", MEASURED),
        ]
        for name, date, time, seconds in rows:
            with self.row(name):
                self.measuring_file().write_text(measuring_data(FLAT, date=date, time=time))
                self.assert_run(self.getncs("-zoffset:0.5"), 1)
                self.assert_result(self.confirm({}, seconds))

    def test_the_time_is_that_of_the_users_zone(self):
        shown = set()
        for zone in ("UTC0", "XYZ-9", "ABC5:30"):
            with self.row(zone):
                self.measure(FLAT)
                changes = {"TZ": zone}
                self.assert_run(self.getncs("-zoffset:0.5"), 1, changes=changes)
                self.assert_result(self.confirm(changes))
                shown.add(self.result.read_bytes())
        self.assertEqual(len(shown), 3)

    # --- Language of the system ---

    def test_the_date_is_in_the_users_own_format(self):
        changes = self.in_locale("de_DE.UTF-8")
        self.measure(FLAT)
        self.assert_run(self.getncs("-zoffset:0.5"), 1, changes=changes)
        german = {"linux": b"Mi 15 Mai 2024", "windows": b"15.5.2024"}
        self.assertIn(german[self.machine.name], self.result.read_bytes())
        self.assert_result(self.confirm(changes))

    def test_the_date_keeps_the_letters_of_the_users_language(self):
        self.linux_only("a date of Windows has no letters")
        changes = self.in_locale("de_DE.UTF-8")
        self.measuring_file().write_text(measuring_data(FLAT, date="2024-2-29Z"))
        self.assert_run(self.getncs("-zoffset:0.5"), 1, changes=changes)
        self.assertIn("Fr 29 M\u00E4r 2024".encode(), self.result.read_bytes())
        self.assert_result(self.confirm(changes, 1711705230))

    def test_the_date_follows_the_time_category_alone(self):
        self.linux_only("a user of Windows has one language for all")
        changes = {**self.in_locale("de_DE.UTF-8"), "LC_ALL": "", "LANG": "C", "LC_TIME": "de_DE.UTF-8"}
        self.measure(FLAT)
        self.assert_run(self.getncs("-zoffset:0.5"), 1, changes=changes)
        self.assertIn(b"Mi 15 Mai 2024", self.result.read_bytes())

    def test_the_users_language_is_that_of_all_before_that_of_times_before_the_common_one(self):
        self.linux_only("a user of Windows has one language for all")
        folder = self.in_locale("de_DE.UTF-8")
        self.in_locale("fr_FR.UTF-8")
        self.in_locale("tr_TR.UTF-8")
        german, french, turkish = "Mi 15 Mai 2024", "mer. 15 mai 2024", "\u00c7r\u015f 15 May 2024"
        rows = [
            ("all three", "de_DE", "fr_FR", "tr_TR", german),
            ("not for all", "", "fr_FR", "tr_TR", french),
            ("the common one alone", "", "", "tr_TR", turkish),
            ("times alone", "", "fr_FR", "", french),
            ("for all, and the common one", "de_DE", "", "tr_TR", german),
        ]
        for name, of_all, of_times, common, begin in rows:
            with self.row(name):
                values = {"LC_ALL": of_all, "LC_TIME": of_times, "LANG": common}
                changes = {**folder, **{key: value and value + ".UTF-8" for key, value in values.items()}}
                shown = self.shown_time(changes)
                self.assertEqual(shown[:len(begin)], begin)
                self.assertEqual(shown, self.machine.time_text(MEASURED, changes))

    def test_a_language_that_is_not_installed_leaves_the_time_in_english(self):
        self.linux_only("Windows always has a language")
        self.assertEqual(self.shown_time({"LC_ALL": "xx_XX.UTF-8"}), self.machine.time_text(MEASURED, {}))

    def test_a_date_counts_in_characters(self):
        self.linux_only("the languages of Windows have no such format")
        changes = self.in_locale("km_KH.UTF-8")
        shown = self.shown_time(changes)
        self.assertEqual(shown, self.machine.time_text(MEASURED, changes))
        self.assertGreater(len(shown.encode()), 127, "in bytes it is too long")
        for length, text in (127, "Mittwoch" * 15 + "\u1782" * 7), (128, ""):
            changes = self.with_time_format(f"units{length}", "%A" * 15 + "\u1782" * (length - 120))
            self.assertEqual(self.shown_time(changes), text)

    def test_the_date_is_in_english_where_no_language_is_set(self):
        self.linux_only("Windows always has a language")
        changes = {"LC_ALL": "", "LC_TIME": "", "LANG": ""}
        self.measure(FLAT)
        self.assert_run(self.getncs("-zoffset:0.5"), 1, changes=changes)
        self.assert_result(self.confirm(changes))

    def test_numbers_do_not_follow_a_decimal_comma(self):
        changes = self.in_locale("de_DE.UTF-8")
        for text in ("0.5", "0,5"):
            with self.row(text):
                self.measure([("0.0", "10,0", "1"), ("2e1", "10", "1,0"), ("20", "0", "1"), ("0", "0", "1.0")])
                self.assert_run(self.getncs(f"-zoffset:{text}"), 1, changes=changes)
                self.assert_result(self.confirm(changes))

    def test_the_command_is_folded_without_the_users_language(self):
        changes = self.in_locale("tr_TR.UTF-8")
        self.fill(self.slicing, "P1.xml")
        self.assert_run(["-cmd:SLISTAT", *self.slistat("ended_success")[1:]], 1, changes=changes)

    # --- File names ---

    def test_names_that_are_no_text_survive(self):
        self.linux_only("names are text on Windows")
        platform = os.fsdecode(b"P\xe9\xff")
        taven = self.folder / os.fsdecode(b"taven\xfe")
        taven.mkdir()
        self.fill(self.slicing, platform + ".xml", "screen.png")
        (taven / (platform + ".gif")).touch()
        (taven / f"MeasuringData_{platform}.xml").touch()
        switches = ["-cmd:slistat", "-stat:ended_success", f"-slifldr:{self.slicing}", f"-tavenfldr:{taven}",
                    f"-platform:{platform}"]
        self.assert_run(switches, 1)
        self.assertEqual(self.names(taven), sorted([platform + ".png", platform + ".xml"]))

        result = self.results / os.fsdecode(b"r\xe9sult.xml")
        self.assert_run(["-cmd:getncs", f"-out:{result}", f"-tavenfldr:{taven}", f"-platform:{platform}"], 1)
        self.assert_result(expected("measureNotFound", platform="P\ufffd\ufffd"), result)

    def test_a_name_with_a_backslash_does_not_stop_the_wipe(self):
        self.linux_only("a backslash separates on Windows")
        self.fill(self.taven, "P1.x\\y", "P1.xml")
        self.assert_run(self.slistat("started"), 0)
        self.assertNotIn("P1.xml", self.names(self.taven))

    # --- What the system refuses ---

    def test_a_full_disk_ends_the_process_silently(self):
        self.linux_only("the limit is set by means of Linux")

        def allow_no_bytes():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))

        self.result.write_text("older")
        self.assert_abnormal_end(self.getncs(), preexec_fn=allow_no_bytes)
        self.assertEqual(self.result.read_bytes(), b"", "the older result has gone")

    def as_nobody(self):
        """Details of a run by somebody who is not allowed everything."""
        self.linux_only("permissions are those of Linux")
        if os.getuid() != 0:
            return {}
        for folder in (self.folder, self.taven, self.slicing, self.results):
            os.chown(folder, NOBODY, NOBODY)
        return {"user": NOBODY, "group": NOBODY, "extra_groups": []}

    def test_a_folder_without_write_permission_ends_the_process_silently(self):
        details = self.as_nobody()
        self.results.chmod(0o555)
        self.assert_abnormal_end(self.getncs(), **details)
        self.results.chmod(0o755)
        self.assertEqual(self.names(self.results), [])

    def test_a_write_protected_result_of_windows_ends_the_process_silently(self):
        if self.machine.name != "windows":
            self.skipTest("the folder decides who may delete a file")
        self.result.write_text("older")
        self.result.chmod(0o444)
        self.assert_abnormal_end(self.getncs())
        self.assertEqual(self.result.read_text(), "older")

    def test_a_measuring_file_without_read_permission_is_reported(self):
        details = self.as_nobody()
        self.measure(FLAT)
        self.measuring_file().chmod(0)
        self.assert_run(self.getncs(), 0, [f'Error parsing file "{self.machine.shown(self.measuring_file())}" '],
                        **details)

    def test_files_that_cannot_be_wiped_are_no_failure(self):
        details = self.as_nobody()
        self.fill(self.taven, "P1.xml", "P1.png")
        self.taven.chmod(0o555)
        self.assert_run(self.slistat("started"), 0, **details)
        self.taven.chmod(0o755)
        self.assertEqual(self.names(self.taven), ["P1.png", "P1.xml"])

    def test_a_language_file_without_read_permission_is_no_failure(self):
        details = self.as_nobody()
        tool = self.machine.place_tool(self.machine.tool, self.folder / "tool" / "bin")
        (tool.parent / "language.loc").write_text("infoNotFound secret\n")
        (tool.parent / "language.loc").chmod(0)
        self.assert_run(self.getncs(), 1, tool=tool, **details)
        self.assert_result(expected("infoNotFound", platform="P1"))

    def test_the_tool_runs_from_any_folder_and_through_a_link(self):
        self.linux_only("Wine does not tell links from files")
        tool = self.machine.place_tool(self.machine.tool, self.folder / "tool" / "bin")
        (tool.parent / "language.loc").write_text("infoNotFound beside the tool\n")
        link = self.folder / "link"
        link.symlink_to(tool)
        self.assert_run(self.getncs(), 1, tool=link)
        self.assertIn(b"beside the tool", self.result.read_bytes())
