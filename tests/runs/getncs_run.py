"""getncs: its documents byte for byte, its exit codes and reports, and what it leaves alone."""

from pathlib import Path

from toolcase import (ANTICLOCKWISE, FLAT, MEASURED, QUARTER_TURN, WORKED_EXAMPLE, ToolCase, expected,
                      measuring_data)

EXAMPLES = Path(__file__).parents[2] / "examples"


class Getncs(ToolCase):
    def confirm(self, name, platform="P1", **places):
        moment = self.machine.time_text(MEASURED, {})
        return expected(name, platform=platform, datetime=moment, **places)

    def refusals(self):
        """Runs that end without a document: name, what is prepared, switches, report, and whether
        the report needs the debug flag."""
        file = self.machine.shown(self.measuring_file())
        missing = self.folder / "missing"
        return [
            ("taven folder missing", None, [f"-tavenfldr:{self.path(missing)}"],
             f'Taven folder "{self.machine.shown(missing)}\\" not found', True),
            ("taven folder not given", None, ["-tavenfldr:"], 'Taven folder "" not found', True),
            ("zoffset is no number", FLAT, ["-zoffset:high"], 'Error parsing zoffset value "high" ', False),
            ("measuring file is no XML", "<a>", [], f'Error parsing file "{file}" ', False),
            ("measuring file of another platform", measuring_data(FLAT, "P2"), [],
             f'File "{file}" doesn\'t contain data from platform "P1"', False),
            ("measuring file without a cylinder", FLAT[:3], [],
             f'File "{file}" doesn\'t contain all required four measuring points', False),
            ("four equal points", [(1, 2, 3)] * 4, [],
             f'File "{file}" contains invalid measuring points - Error calculating new coordinate system', False),
        ]

    def prepare(self, content):
        if isinstance(content, str):
            self.measuring_file().write_text(content)
        elif content:
            self.measure(content)

    # --- Documents ---

    def test_nothing_is_known_of_the_platform(self):
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("infoNotFound", platform="P1"))

    def test_the_platform_is_built_but_not_measured(self):
        self.fill(self.taven, "P1.xml")
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("measureNotFound", platform="P1"))

    def test_folders_in_place_of_files_count_as_missing(self):
        self.measuring_file().mkdir()
        (self.taven / "P1.xml").mkdir()
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("infoNotFound", platform="P1"))

    def test_a_measured_platform_gets_both_systems(self):
        rows = [
            ("workedExample", WORKED_EXAMPLE, ["-zoffset:0.25"]),
            ("flatRectangle", FLAT, ["-zoffset:0.5"]),
            ("quarterTurn", QUARTER_TURN, []),
            ("anticlockwise", ANTICLOCKWISE, []),
        ]
        for name, points, switches in rows:
            with self.row(name):
                self.measure(points)
                self.assert_run(self.getncs(*switches), 1)
                self.assert_result(self.confirm(name))

    def test_measuring_data_count_also_without_a_description(self):
        self.measure(FLAT)
        self.fill(self.taven, "P1.xml")
        self.assert_run(self.getncs("-zoffset:0.5"), 1)
        self.assert_result(self.confirm("flatRectangle"))

    def test_the_examples_say_what_they_tell(self):
        rows = [
            ("P400", "-zoffset:0,35", "exampleP400", MEASURED + 2 * 86400 + 57),
            ("P20", "-zoffset:0.25", "workedExample", MEASURED + 2 * 86400 + 1295),
        ]
        for platform, switch, name, seconds in rows:
            with self.row(platform):
                file = EXAMPLES / "measuring" / f"MeasuringData_{platform}.xml"
                self.measuring_file(platform).write_bytes(file.read_bytes())
                self.assert_run(self.getncs(switch, platform=platform), 1)
                moment = self.machine.time_text(seconds, {})
                self.assert_result(expected(name, platform=platform, datetime=moment))

    def test_the_whole_story_of_a_platform(self):
        self.fill(self.slicing, "P1.xml", "screen.png")
        self.measure(WORKED_EXAMPLE)
        self.assert_run(self.slistat("started"), 0)
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("infoNotFound", platform="P1"))
        self.assert_run(self.slistat("ended_success"), 1)
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("measureNotFound", platform="P1"))
        self.measure(WORKED_EXAMPLE)
        self.assert_run(self.getncs("-zoffset:0.25"), 1)
        self.assert_result(self.confirm("workedExample"))
        self.assert_run(self.slistat("started"), 0)
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("infoNotFound", platform="P1"))

    def test_the_platform_stands_encoded_in_the_message(self):
        rows = [
            ("nothing", "", ""),
            ("blanks", " big one ", " big one "),
            ("entities", "a&b'c", "a&amp;b&apos;c"),
            ("what no file name holds", '<"1">', "&lt;&quot;1&quot;&gt;"),
            ("letters of other languages", "Gr\u00f6\u00dfe \u6771", "Gr\u00f6\u00dfe \u6771"),
            ("characters beyond 16 bits", "\U0001f600", "\U0001f600"),
        ]
        for name, platform, shown in rows:
            with self.row(name):
                self.assert_run(self.getncs(platform=platform), 1)
                self.assert_result(expected("infoNotFound", platform=shown))

    # --- The offset ---

    def test_the_offset_raises_the_origin(self):
        rows = [
            ("not given", None, "1", "-1"),
            ("0", "0", "1", "-1"),
            ("0.5", "0.5", "1.5", "-1.5"),
            ("decimal comma", "0,5", "1.5", "-1.5"),
            ("no digit in front", ".5", "1.5", "-1.5"),
            ("no digit behind", "2,", "3", "-3"),
            ("negative", "-3.25", "-2.25", "2.25"),
            ("plus sign", "+2", "3", "-3"),
            ("leading zeros", "007", "8", "-8"),
            ("blanks in front", "  2", "3", "-3"),
            ("text behind", "12mm", "13", "-13"),
            ("exponent", "1e3", "1001", "-1001"),
            ("a second separator ends the number", "1,234.5", "2.234", "-2.234"),
            ("more than 8 decimals", "0.123456789", "1.12345679", "-1.12345679"),
            ("large", "123456789.125", "123456790.125", "-123456790.125"),
        ]
        for name, text, height, minus in rows:
            with self.row(name):
                self.measure(FLAT)
                self.assert_run(self.getncs(*([] if text is None else [f"-zoffset:{text}"])), 1)
                self.assert_result(self.confirm("raised", height=height, minusHeight=minus))

    def test_an_offset_that_is_no_number_is_reported_always(self):
        for text in ("", " ", "high", "-", "+", ".", ",", "e5", "mm12"):
            for debug in ([], ["-debug"]):
                with self.row(f"'{text}' {debug}"):
                    self.measure(FLAT)
                    self.assert_run(self.getncs(f"-zoffset:{text}", *debug), 0,
                                    [f'Error parsing zoffset value "{text}" '])
                    self.assertFalse(self.result.exists())

    def test_an_offset_without_bounds_gives_no_system(self):
        for text in ("inf", "-inf", "infinity", "nan", "1e309", "-1e309"):
            with self.row(text):
                self.measure(FLAT)
                file = self.machine.shown(self.measuring_file())
                self.assert_run(self.getncs(f"-zoffset:{text}"), 0,
                                [f'File "{file}" contains invalid measuring points - Error calculating new '
                                 "coordinate system"])
                self.assertFalse(self.result.exists())

    def test_the_offset_is_read_also_where_it_is_not_needed(self):
        self.assert_run(self.getncs("-zoffset:x"), 0, ['Error parsing zoffset value "x" '])

    # --- Refusals ---

    def test_refusals_give_0_and_their_report(self):
        for index, (name, *_) in enumerate(self.refusals()):
            for debug in (False, True):
                with self.row(f"{name}, {'with' if debug else 'without'} debug"):
                    _, content, switches, report, debug_only = self.refusals()[index]
                    self.prepare(content)
                    boxes = [report] if debug or not debug_only else []
                    self.assert_run(self.getncs(*switches, *(["-debug"] if debug else [])), 0, boxes)
                    self.assertFalse(self.result.exists())

    def test_refusals_leave_an_older_result_standing(self):
        for index, (name, *_) in enumerate(self.refusals()):
            with self.row(name):
                _, content, switches, report, debug_only = self.refusals()[index]
                self.prepare(content)
                self.result.write_text("older")
                self.assert_run(self.getncs(*switches), 0, [] if debug_only else [report])
                self.assertEqual(self.result.read_text(), "older")

    def test_a_missing_result_folder_is_reported_under_debug_only(self):
        missing = self.folder / "missing"
        rows = [
            ("missing", f"-out:{self.path(missing / 'result.xml')}", self.machine.shown(missing) + "\\"),
            ("two levels missing", f"-out:{self.path(missing / 'deep' / 'result.xml')}",
             self.machine.shown(missing / "deep") + "\\"),
            ("empty", "-out:", ""),
        ]
        for name, switch, shown in rows:
            switches = self.getncs(switch, "-zoffset:x", "-tavenfldr:nowhere")
            self.assert_run(switches, 0)
            self.assert_run([*switches, "-debug"], 0, [f'Folder for result "{shown}" not existing'])
            self.assertFalse(missing.exists(), name)

    def test_the_checks_come_in_their_order(self):
        all_wrong = ["-debug", "-cmd:getncs", "-out:", "-tavenfldr:", "-zoffset:"]
        self.assert_run(all_wrong, 0, ['Folder for result "" not existing'])
        all_wrong.append(f"-out:{self.path(self.result)}")
        self.assert_run(all_wrong, 0, ['Taven folder "" not found'])
        all_wrong.append(f"-tavenfldr:{self.path(self.taven)}")
        self.measuring_file("").write_text("<")
        self.assert_run(all_wrong, 0, ['Error parsing zoffset value "" '])
        all_wrong.append("-zoffset:0")
        self.assert_run(all_wrong, 0, [f'Error parsing file "{self.machine.shown(self.measuring_file(""))}" '])

    def test_a_measuring_file_that_cannot_be_loaded_is_reported(self):
        rows = [
            ("no closing tag", b"<a>"),
            ("nothing behind the first mark", b"<"),
            ("a slash in the name", b"<a/b>"),
            ("an attribute without equal sign", b"<a b>"),
            ("an attribute without quote", b"<a b=c>"),
            ("an attribute that does not end", b'<a b="c>'),
            ("another closing name", b"<a></b>"),
            ("a closing tag that does not end", b"<a></a"),
            ("no closing tag behind a child", b"<a><b/>"),
            ("another closing name behind a child", b"<a><b/></c>"),
            ("a last tag that does not end", b"<a><b/></a"),
            ("nothing but a mark", b"\xef\xbb\xbf"),
            ("UTF-16 without a mark", "<a/>".encode("utf-16-le")),
        ]
        for name, content in rows:
            with self.row(name):
                self.measuring_file().write_bytes(content)
                self.assert_run(self.getncs(), 0,
                                [f'Error parsing file "{self.machine.shown(self.measuring_file())}" '])
                self.assertFalse(self.result.exists())

    def test_documents_without_content_are_of_no_platform(self):
        rows = [("an empty file", b""), ("no tag", b"text"), ("a closing tag first", b"</a>"),
                ("a comment without end", b"<!-- <a/>"), ("nothing but UTF-16's mark", b"\xff\xfe")]
        for name, content in rows:
            with self.row(name):
                self.measuring_file().write_bytes(content)
                file = self.machine.shown(self.measuring_file())
                self.assert_run(self.getncs(), 0, [f'File "{file}" doesn\'t contain data from platform "P1"'])

    def test_points_that_give_no_system_are_reported(self):
        rows = [
            ("four equal points", [(7, 7, 7)] * 4),
            ("sides that run against each other", [(0, 0, 0), (1, 0, 0), (0, 1, 0), (1, 1, 0)]),
            ("points on one line", [(0, 0, 0), (1, 1, 1), (2, 2, 2), (-1, -1, -1)]),
            ("normals that cancel", [(0, 1, 0), (0, 0, 0), (1, 0, 0), (0, 0, 0)]),
            ("sides of 1e-13", [("0", "0", "0"), ("1e-13", "0", "0"), ("1e-13", "-1", "0"), ("0", "-1", "0")]),
        ]
        for name, points in rows:
            with self.row(name):
                self.measure(points)
                file = self.machine.shown(self.measuring_file())
                self.assert_run(self.getncs(), 0, [f'File "{file}" contains invalid measuring points - Error '
                                                   "calculating new coordinate system"])
                self.assertFalse(self.result.exists())

    # --- The result file ---

    def test_an_older_result_is_replaced(self):
        self.result.write_text("older and much longer\n" * 1000)
        self.assert_run(self.getncs(), 1)
        self.assert_result(expected("infoNotFound", platform="P1"))

    def test_the_result_may_be_named_in_many_ways(self):
        rows = [
            ("a bare name", "answer.xml", "answer.xml"),
            ("relative", "results/answer", "results/answer"),
            ("with dots", "results\\..\\.\\results//answer.xml", "results/answer.xml"),
            ("in quotes", '"results/an answer.xml" more', "results/an answer.xml"),
            ("by a variable", "%ANSWERS%/answer.xml", "results/answer.xml"),
            ("with a separator at the end", "results/answer.xml/", "results/answer.xml"),
            ("letters of other languages", "results/Gr\u00f6\u00dfe \u6771.xml", "results/Gr\u00f6\u00dfe \u6771.xml"),
        ]
        for name, text, file in rows:
            with self.row(name):
                self.assert_run(self.getncs(f"-out:{text}"), 1,
                                changes={"ANSWERS": self.machine.shown(self.results)})
                self.assert_result(expected("infoNotFound", platform="P1"), self.folder / file)

    def test_a_rooted_path_counts_from_the_current_drive(self):
        self.assert_run(self.getncs(f"-out:{self.result}", f"-tavenfldr:{self.taven}"), 1)
        self.assert_result(expected("infoNotFound", platform="P1"))

    def test_nothing_else_is_touched(self):
        self.measure(FLAT)
        self.fill(self.taven, "P1.xml", "P1.png")
        before = self.measuring_file().read_bytes()
        self.assert_run(self.getncs(), 1)
        self.assertEqual(self.names(self.taven), ["MeasuringData_P1.xml", "P1.png", "P1.xml"])
        self.assertEqual(self.measuring_file().read_bytes(), before)
        self.assertEqual(self.names(self.results), ["result.xml"])

    def test_a_result_that_cannot_be_written_ends_the_process_silently(self):
        self.result.mkdir()
        self.assert_abnormal_end(self.getncs())
        self.assertTrue(self.result.is_dir())
        self.assertEqual(self.names(self.result), [])

    def test_the_last_of_a_repeated_switch_wins(self):
        self.measure(FLAT)
        other = ["-out:nowhere/x", "-tavenfldr:nowhere", "-platform:P2", "-zoffset:x"]
        self.assert_run([*other, *self.getncs("-zoffset:0.5")], 1)
        self.assert_result(self.confirm("flatRectangle"))

    def test_switches_are_case_sensitive_and_begin_the_argument(self):
        self.measure(FLAT)
        noise = ["-Out:x", "-TavenFldr:x", "x-zoffset:x", "-platform", "-zoffset=7", "", "-stat:started"]
        self.assert_run(self.getncs("-zoffset:0.5", *noise), 1)
        self.assert_result(self.confirm("flatRectangle"))
