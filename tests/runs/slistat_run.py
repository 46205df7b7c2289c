"""slistat: what it wipes, what it brings in, its reports and exit codes."""

import os

from toolcase import ToolCase

WIPED = ["P1", "P1.PNG", "P1.gif", "P1.tar.gz", "P1.xml", "MeasuringData_P1.xml"]
KEPT = ["P10.xml", "xP1.xml", "P1-old.xml", "Q.xml", "MeasuringData_P1.xml.bak", "MeasuringData_P10.xml",
        "MeasuringData_P1.txt"]


def status_message(status):
    return f'Status message: "{status}"'


class Slistat(ToolCase):
    def taven_missing(self, path):
        return f'Taven folder "{self.machine.shown(path)}\\" not found'

    def test_an_unknown_status_does_nothing(self):
        rows = ["", "Started", "STARTED", "started ", " started", "starte", "started2", "ended_error", "ended_Success",
                "ended_success_"]
        for status in rows:
            with self.row(f"'{status}'"):
                self.fill(self.taven, *WIPED)
                self.fill(self.slicing, "P1.xml", "screen.png")
                self.assert_run(self.slistat(status), 0)
                self.assertEqual(self.names(self.taven), sorted(WIPED))

    def test_no_status_at_all_is_an_empty_one(self):
        self.fill(self.taven, *WIPED)
        switches = [switch for switch in self.slistat("x") if not switch.startswith("-stat:")]
        self.assert_run(switches, 0)
        self.assert_run([*switches, "-debug"], 0, [status_message("")])
        self.assertEqual(self.names(self.taven), sorted(WIPED))

    def test_the_debug_flag_shows_any_status_and_looks_at_no_folder_for_an_unknown_one(self):
        for status in ("", "Started", "ended_error", "50%s"):
            with self.row(f"'{status}'"):
                self.assert_run(["-debug", "-cmd:slistat", f"-stat:{status}", "-tavenfldr:nowhere"], 0,
                                [status_message(status)])

    def test_both_statuses_wipe_the_platform_and_nothing_else(self):
        for status in ("started", "ended_success"):
            with self.row(status):
                self.fill(self.taven, *WIPED, *KEPT)
                (self.taven / "P1.old").mkdir()
                self.fill(self.taven / "P1.old", "P1.xml")
                self.assert_run(self.slistat(status), 0)
                self.assertEqual(self.names(self.taven), sorted([*KEPT, "P1.old"]))
                self.assertEqual(self.names(self.taven / "P1.old"), ["P1.xml"])

    def test_many_files_of_a_platform_all_go(self):
        self.fill(self.taven, *(f"P1.{n}" for n in range(500)), *(f"P2.{n}" for n in range(500)))
        self.assert_run(self.slistat("started"), 0)
        self.assertEqual(self.names(self.taven), sorted(f"P2.{n}" for n in range(500)))

    def test_a_folder_named_like_the_measuring_file_survives(self):
        self.measuring_file().mkdir()
        self.assert_run(self.slistat("started"), 0)
        self.assertEqual(self.names(self.taven), [self.measuring_file().name])

    def test_hidden_files_survive(self):
        self.fill(self.taven, ".p.xml", ".p.png")
        self.assert_run(self.slistat("started", platform=".p"), 0)
        self.assertEqual(self.names(self.taven), [".p.png", ".p.xml"])

    def test_hidden_and_system_files_of_windows_survive(self):
        if self.machine.name != "windows":
            self.skipTest("names alone hide files, and there are no system files")
        self.fill(self.taven, "P1.hid", "P1.sys", "P1.txt")
        for name, attributes in (("P1.hid", b"0x2"), ("P1.sys", b"0x4")):
            try:
                os.setxattr(self.taven / name, "user.DOSATTRIB", attributes)
            except OSError as error:
                self.skipTest(f"the file system keeps no attributes: {error}")
        self.assert_run(self.slistat("started"), 0)
        self.assertEqual(self.names(self.taven), ["P1.hid", "P1.sys"])

    def test_case_follows_the_file_system(self):
        self.fill(self.taven, "p1.xml")
        self.assert_run(self.slistat("started"), 0)
        self.assertEqual(self.names(self.taven), ["p1.xml"] if self.machine.name == "linux" else [])

    def test_an_empty_platform_is_not_refused(self):
        self.fill(self.taven, "P1.xml", "MeasuringData_.xml", "MeasuringData_P1.xml")
        self.assert_run(self.slistat("started", platform=""), 0)
        self.assertEqual(self.names(self.taven), ["MeasuringData_P1.xml", "P1.xml"])

    def test_the_platform_is_used_verbatim(self):
        rows = [
            ("blanks", "big one", "big one.xml", "big.xml"),
            ("letters of other languages", "Gr\u00f6\u00dfe \u6771", "Gr\u00f6\u00dfe \u6771.xml", "Gr\u00f6.xml"),
            ("points", "v1.2", "v1.2.xml", "v1.xml"),
            ("wildcards", "P?", "P7.xml", "P10.xml"),
        ]
        for name, platform, wiped, kept in rows:
            with self.row(name):
                self.fill(self.taven, wiped, kept)
                self.assert_run(self.slistat("started", platform=platform), 0)
                self.assertEqual(self.names(self.taven), [kept])

    def test_started_needs_no_slicing_folder(self):
        self.fill(self.taven, *WIPED)
        switches = ["-debug", "-cmd:slistat", "-stat:started", f"-tavenfldr:{self.path(self.taven)}", "-platform:P1"]
        self.assert_run([*switches, "-slifldr:nowhere"], 0, [status_message("started")])
        self.assertEqual(self.names(self.taven), [])
        self.assert_run(switches, 0, [status_message("started")])

    def test_a_missing_taven_folder_is_reported_under_debug_only(self):
        for status in ("started", "ended_success"):
            with self.row(status):
                missing = self.folder / "missing"
                switches = ["-cmd:slistat", f"-stat:{status}", f"-tavenfldr:{self.path(missing)}", "-slifldr:missing"]
                self.assert_run(switches, 0)
                self.assert_run([*switches, "-debug"], 0, [status_message(status), self.taven_missing(missing)])

    def test_a_taven_folder_that_is_not_given_is_shown_empty(self):
        for more in ([], ["-tavenfldr:"], [f"-tavenfldr:{self.path(self.taven)}", "-tavenfldr:"]):
            with self.row(more):
                self.assert_run(["-debug", "-cmd:slistat", "-stat:started", *more], 0,
                                [status_message("started"), 'Taven folder "" not found'])

    def test_a_missing_slicing_folder_leaves_the_wipe_done(self):
        for name in ("missing", "not given", "empty"):
            with self.row(name):
                missing = self.folder / "missing"
                switch = {"missing": f"-slifldr:{self.path(missing)}", "not given": "", "empty": "-slifldr:"}[name]
                shown = self.machine.shown(missing) + "\\" if name == "missing" else ""
                switches = ["-cmd:slistat", "-stat:ended_success", f"-tavenfldr:{self.path(self.taven)}",
                            "-platform:P1", switch]
                self.fill(self.taven, *WIPED, *KEPT)
                self.assert_run(switches, 0)
                self.assertEqual(self.names(self.taven), sorted(KEPT))
                self.assert_run([*switches, "-debug"], 0, [status_message("ended_success"),
                                                           f'Slicing output folder "{shown}" not found'])

    def test_a_missing_description_ends_silently(self):
        for name in ("missing", "a folder"):
            with self.row(name):
                self.fill(self.taven, *WIPED)
                self.fill(self.slicing, "screen.png", "P10.xml")
                if name == "a folder":
                    (self.slicing / "P1.xml").mkdir()
                self.assert_run(self.slistat("ended_success"), 0)
                self.assert_run([*self.slistat("ended_success"), "-debug"], 0, [status_message("ended_success")])
                self.assertEqual(self.names(self.taven), [])

    def test_a_good_end_brings_in_description_and_picture(self):
        rows = [
            ("a picture", ["screen.png"], "screen.png", "P1.png"),
            ("the extension keeps its case", ["screen.PNG"], "screen.PNG", "P1.PNG"),
            ("any file of the name will do", ["screen.txt"], "screen.txt", "P1.txt"),
            ("the extension is behind the last point", ["screen.old.Gif"], "screen.old.Gif", "P1.Gif"),
            ("other names do not count", ["screen2.png", "myscreen.png", "screen.bmp"], "screen.bmp", "P1.bmp"),
            ("none at all", ["other.png"], None, None),
            ("nothing but hidden ones", [".screen.png"], None, None),
        ]
        for name, files, chosen, picture in rows:
            with self.row(name):
                self.fill(self.slicing, "P1.xml", *files)
                self.assert_run(self.slistat("ended_success"), 1)
                self.assertEqual(self.names(self.taven), sorted(filter(None, [picture, "P1.xml"])))
                self.assertEqual((self.taven / "P1.xml").read_text(), "P1.xml")
                if picture:
                    self.assertEqual((self.taven / picture).read_text(), chosen)
                self.assertEqual(self.names(self.slicing), sorted(["P1.xml", *files]))

    def test_an_image_goes_before_other_files(self):
        for extension in ("png", "gif", "jpg", "jpeg", "bmp", "tiff", "JPEG", "Tiff"):
            with self.row(extension):
                others = ["screen.aaa", "screen.txt", "screen.zip", "screen.pngx", "screen.tif"]
                self.fill(self.slicing, "P1.xml", *others[:2], f"screen.{extension}", *others[2:])
                self.assert_run(self.slistat("ended_success"), 1)
                self.assertEqual(self.names(self.taven), sorted(["P1.xml", f"P1.{extension}"]))

    def test_a_folder_is_no_picture(self):
        self.fill(self.slicing, "P1.xml")
        (self.slicing / "screen.png").mkdir()
        self.assert_run(self.slistat("ended_success"), 1)
        self.assertEqual(self.names(self.taven), ["P1.xml"])

    def test_bytes_arrive_as_they_are(self):
        content = bytes(range(256)) * 5000
        (self.slicing / "P1.xml").write_bytes(content)
        (self.slicing / "screen.png").write_bytes(content[::-1])
        self.assert_run(self.slistat("ended_success"), 1)
        self.assertEqual((self.taven / "P1.xml").read_bytes(), content)
        self.assertEqual((self.taven / "P1.png").read_bytes(), content[::-1])

    def test_a_failed_copy_changes_nothing_in_the_answer(self):
        self.fill(self.slicing, "P1.xml", "screen.png")
        for name in ("P1.xml", "P1.png"):
            with self.row(name):
                self.fill(self.slicing, "P1.xml", "screen.png")
                (self.taven / name).mkdir()
                self.assert_run(self.slistat("ended_success"), 1)
                self.assertEqual(self.names(self.taven), ["P1.png", "P1.xml"])
                self.assertTrue((self.taven / name).is_dir())

    def test_measuring_data_are_never_brought_in(self):
        self.fill(self.slicing, "P1.xml", self.measuring_file().name)
        self.assert_run(self.slistat("ended_success"), 1)
        self.assertEqual(self.names(self.taven), ["P1.xml"])

    def test_the_last_of_a_repeated_switch_wins(self):
        self.fill(self.slicing, "P1.xml")
        other = ["-stat:started", "-slifldr:nowhere", "-tavenfldr:nowhere", "-platform:P2"]
        self.assert_run([*other, *self.slistat("ended_success")], 1)
        self.assertEqual(self.names(self.taven), ["P1.xml"])
        self.assert_run([*self.slistat("ended_success"), *other], 0)
        self.assertEqual(self.names(self.taven), ["P1.xml"])

    def test_switches_are_case_sensitive_and_begin_the_argument(self):
        self.fill(self.slicing, "P1.xml")
        noise = ["-Stat:x", "-TAVENFLDR:x", "x-platform:P2", "-slifldr=x", "-platfor:m", "-unknown", ""]
        self.assert_run([*self.slistat("ended_success"), *noise], 1)
        self.assertEqual(self.names(self.taven), ["P1.xml"])

    def test_folders_may_be_written_in_many_ways(self):
        rows = [
            ("relative", "taven", "slicing"),
            ("with slashes", "./taven/", "taven/../slicing//"),
            ("with backslashes", "taven\\", ".\\slicing\\\\"),
            ("in quotes", '"taven"', '"slicing" and more'),
            ("by a variable", "%TAVEN_TEST%", "%TAVEN_TEST%\\..\\slicing"),
        ]
        for name, taven, slicing in rows:
            with self.row(name):
                self.fill(self.taven, *WIPED, *KEPT)
                self.fill(self.slicing, "P1.xml")
                switches = ["-cmd:slistat", "-stat:ended_success", f"-tavenfldr:{taven}", f"-slifldr:{slicing}",
                            "-platform:P1"]
                self.assert_run(switches, 1, changes={"TAVEN_TEST": self.machine.shown(self.taven)})
                self.assertEqual(self.names(self.taven), sorted(["P1.xml", *KEPT]))

    def test_a_rooted_path_counts_from_the_current_drive(self):
        self.fill(self.taven, *WIPED)
        self.assert_run(["-cmd:slistat", "-stat:started", f"-tavenfldr:{self.taven}", "-platform:P1"], 0)
        self.assertEqual(self.names(self.taven), [])
