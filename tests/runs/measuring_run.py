"""The measuring file as getncs meets it: what is tolerated, and the report of each fault."""

from toolcase import DATE, FLAT, MEASURED, TIME, ToolCase, expected, measuring_data, measuring_point

POINTS = [measuring_point(f"cylinder{n}", point) for n, point in enumerate(FLAT, 1)]
OTHERS = "".join(POINTS[1:])


def axes(*pairs):
    return "".join(f'<axis Name="{name}">{text}</axis>' for name, text in pairs)


def renamed(point, axis):
    return "".join(POINTS).replace("measuringpoint", point).replace("axis", axis)


def first(content, name="cylinder1"):
    """The four points with this content in the first."""
    return f'<measuringpoint Name="{name}">{content}</measuringpoint>' + OTHERS


class MeasuringFile(ToolCase):
    def flat(self, platform="P1"):
        return expected("raised", platform=platform, datetime=self.machine.time_text(MEASURED, {}), height="1",
                        minusHeight="-1")

    def assert_read(self, content):
        self.measuring_file().write_text(content, encoding="utf-8")
        self.assert_run(self.getncs(), 1)
        self.assert_result(self.flat())

    def assert_refused(self, content, report):
        self.measuring_file().write_text(content, encoding="utf-8")
        self.assert_run(self.getncs(), 0, [f'File "{self.machine.shown(self.measuring_file())}" {report}'])
        self.assertFalse(self.result.exists())

    def test_other_orders_and_extras_are_tolerated(self):
        flat = axes(("x", 0), ("y", 10), ("z", 1))
        rows = [
            ("as expected", first(flat)),
            ("axes in another order", first(axes(("z", 1), ("x", 0), ("y", 10)))),
            ("points in another order", "".join(reversed(POINTS))),
            ("upper-case axes", first(axes(("X", 0), ("Y", 10), ("Z", 1)))),
            ("another axis beside them", first(flat + axes(("w", "a"), ("", "b")))),
            ("an axis without a name", first(flat + "<axis>7</axis>")),
            ("a second axis replaces the first", first(axes(("x", 99), ("y", 10), ("z", 1), ("X", 0)))),
            ("other elements in a point", first("<note>x</note>" + flat + "<axes/>")),
            ("other elements beside the points", "<info/>" + first(flat) + "<point Name='cylinder9'/>"),
            ("comments", "<!-- 1 -->" + first("<!-- 2 -->" + flat) + "<!-- 3 --><end/>"),
            ("a later point replaces an earlier one",
             measuring_point("cylinder1", (5, 5, 5)) + "".join(POINTS)),
            ("a fifth and a sixth point", "".join(POINTS) + POINTS[0] + POINTS[3]),
            ("upper-case elements", renamed("MEASURINGPOINT", "AXIS")),
            ("mixed-case elements", renamed("MeasuringPoint", "Axis")),
            ("blanks and line ends", first(flat).replace("><", "> \r\n\t<")),
            ("text behind a number", first(axes(("x", "0mm"), ("y", "10 mm"), ("z", "1\u00b5")))),
            ("a decimal comma", first(axes(("x", "0,0"), ("y", "10,0"), ("z", "1,00")))),
            ("exponents and signs", first(axes(("x", "-0"), ("y", "+1e1"), ("z", "1.0E+0")))),
            ("entities", first(axes(("x", 0), ("y", "&#x31;0"), ("z", "&#x031;")))),
        ]
        for name, content in rows:
            with self.row(name):
                self.assert_read(measuring_data(content))

    def test_points_and_axes_count_in_their_places_alone(self):
        nested = "<group>" + measuring_point("cylinder1", (5, 5, 5)) + "</group>"
        rows = [
            ("a point below another element", "".join(POINTS) + nested),
            ("one that nobody knows", "<group>" + measuring_point("unknown", ("a",)) + "</group>" + "".join(POINTS)),
            ("axes below another element", first(axes(("x", 0), ("y", 10), ("z", 1)) + "<group>"
                                                 + axes(("x", "a"), ("z", 9)) + "</group>")),
        ]
        for name, content in rows:
            with self.row(name):
                self.assert_read(measuring_data(content))

    def test_what_a_schema_takes_for_a_number_need_not_be_one(self):
        rows = [
            ("a comment before it", "<!-- mm -->0.0"),
            ("a section of plain text", "<![CDATA[0.0]]>"),
            ("a decimal reference", "&#48;"),
        ]
        for name, text in rows:
            with self.row(name):
                self.assert_refused(measuring_data(first(axes(("x", text), ("y", 10), ("z", 1)))),
                                    'doesn\'t contains unknown values for axis "x"')

    def test_numbers_beyond_all_limits_give_no_system(self):
        for text in ("1e999", "-1e309", "inf", "nan"):
            with self.row(text):
                self.assert_refused(measuring_data(first(axes(("x", text), ("y", 10), ("z", 1)))),
                                    "contains invalid measuring points - Error calculating new coordinate system")

    def test_the_first_fault_is_reported(self):
        complete = axes(("x", 0), ("y", 10), ("z", 1))
        rows = [
            ("incomplete point", first(axes(("x", 0), ("y", 10))),
             'doesn\'t contains incomplete axis values for point "cylinder1"'),
            ("no axis at all", first(""), 'doesn\'t contains incomplete axis values for point "cylinder1"'),
            ("another axis in place of one", first(axes(("x", 0), ("y", 10), ("w", 1))),
             'doesn\'t contains incomplete axis values for point "cylinder1"'),
            ("incomplete before unknown", first(axes(("x", 0), ("y", 10)), "cylinder5"),
             'doesn\'t contains incomplete axis values for point "cylinder5"'),
            ("incomplete and nameless", first(axes(("x", 0))).replace(' Name="cylinder1"', ""),
             'doesn\'t contains incomplete axis values for point ""'),
            ("a later point is complete by itself", "".join(POINTS) + first(axes(("x", 0))),
             'doesn\'t contains incomplete axis values for point "cylinder1"'),
            ("unknown point", first(complete, "cylinder5"), 'doesn\'t contains unknown pointdata "cylinder5"'),
            ("a point's name is case-sensitive", first(complete, "Cylinder1"),
             'doesn\'t contains unknown pointdata "Cylinder1"'),
            ("nameless point", first(complete).replace(' Name="cylinder1"', ""),
             'doesn\'t contains unknown pointdata ""'),
            ("a point's attribute is case-sensitive", first(complete).replace('Name="cylinder1"', 'name="cylinder1"'),
             'doesn\'t contains unknown pointdata ""'),
            ("value without a number", first(axes(("x", "a"))), 'doesn\'t contains unknown values for axis "x"'),
            ("empty value", first(axes(("x", 0), ("Y", ""))), 'doesn\'t contains unknown values for axis "Y"'),
            ("a value before the completeness", first(axes(("z", "-")), "cylinder5"),
             'doesn\'t contains unknown values for axis "z"'),
            ("a point below another element in place of one",
             "<group>" + POINTS[0] + "</group>" + OTHERS, "doesn't contain all required four measuring points"),
            ("an axis below another element in place of one",
             first(axes(("x", 0), ("y", 10)) + "<group>" + axes(("z", 1)) + "</group>"),
             'doesn\'t contains incomplete axis values for point "cylinder1"'),
            ("three cylinders", OTHERS, "doesn't contain all required four measuring points"),
            ("four points, three names", OTHERS + POINTS[3], "doesn't contain all required four measuring points"),
            ("no point", "<a/>", "doesn't contain all required four measuring points"),
            ("a percent sign is shown as it stands", first(complete, "100%s"),
             'doesn\'t contains unknown pointdata "100%s"'),
        ]
        for name, content, report in rows:
            with self.row(name):
                self.assert_refused(measuring_data(content), report)

    def test_the_platform_must_be_the_one_that_was_asked_for(self):
        other = 'doesn\'t contain data from platform "P1"'
        rows = [
            ("another case", measuring_data(FLAT, "p1")),
            ("a blank more", measuring_data(FLAT, "P1 ")),
            ("none", measuring_data(FLAT, "")),
            ("attribute missing", measuring_data(FLAT).replace(' PlatformName="P1"', "")),
            ("attribute in another case", measuring_data(FLAT).replace("PlatformName", "platformName")),
            ("before any other fault", measuring_data("<a/>", "P2")),
        ]
        for name, content in rows:
            with self.row(name):
                self.assert_refused(content, other)

    def test_a_missing_platform_name_fits_an_empty_one(self):
        self.measuring_file("").write_text(measuring_data(FLAT).replace(' PlatformName="P1"', ""))
        self.assert_run(self.getncs(platform=""), 1)
        self.assert_result(self.flat(""))

    def test_a_report_is_cut_at_511_characters(self):
        name = "n" * 600
        self.measuring_file().write_text(measuring_data(first(axes(("x", 1)), name)))
        file = self.machine.shown(self.measuring_file())
        whole = f'File "{file}" doesn\'t contains incomplete axis values for point "{name}"'
        self.assert_run(self.getncs(), 0, [whole[:511]])

    def test_every_encoding_is_read(self):
        name = "Gr\u00f6\u00dfe"
        plain = measuring_data(FLAT, name)
        rows = [
            ("UTF-8", plain.encode("utf-8"), name),
            ("UTF-8 with a mark", plain.encode("utf-8-sig"), name),
            ("UTF-8 declared", ('<?xml version="1.0" encoding="UTF-8"?>' + plain).encode("utf-8"), name),
            ("nothing declared in double quotes",
             ("<?xml version='1.0' encoding='latin-1'?>" + plain).encode("utf-8"), name),
            ("UTF-16 with a mark", b"\xff\xfe" + plain.encode("utf-16-le"), name),
            ("another one declared",
             ('<?xml version="1.0" encoding="windows-1252"?>' + plain).encode("windows-1252"), name),
        ]
        for row, content, platform in rows:
            with self.row(row):
                self.measuring_file(platform).write_bytes(content)
                self.assert_run(self.getncs(platform=platform), 1)
                self.assert_result(self.flat(platform))

    def test_a_declaration_of_utf_16_without_its_mark_gives_an_empty_document(self):
        content = '<?xml version="1.0" encoding="utf-16"?>' + measuring_data(FLAT)
        self.assert_refused(content, 'doesn\'t contain data from platform "P1"')

    def test_a_date_that_is_missing_or_strange_is_no_fault(self):
        whole = measuring_data(FLAT)
        rows = [
            ("no date", whole.replace(f' CreationDate="{DATE}"', "")),
            ("no time", whole.replace(f' CreationTime="{TIME}"', "")),
            ("neither", whole.replace(f' CreationDate="{DATE}" CreationTime="{TIME}"', "")),
            ("words", measuring_data(FLAT, date="yesterday", time="noon")),
            ("a far year", measuring_data(FLAT, date="99999999-1-1Z")),
            ("numbers beyond 32 bits", measuring_data(FLAT, date="99999999999999999999-1-1Z")),
            ("everything negative", measuring_data(FLAT, date="-1--1--1Z", time="-1:-1:-1Z")),
        ]
        for name, content in rows:
            with self.row(name):
                self.measuring_file().write_text(content)
                outcome = self.run_tool(*self.getncs())
                self.assertEqual((outcome.code, outcome.boxes), (1, []))
                document = self.result.read_bytes()
                self.assertIn(b'<message type="confirm" title="taven-kolve Morrel">', document)
                self.assertTrue(document.endswith(self.flat()[self.flat().index(b"   <ncs"):]))
