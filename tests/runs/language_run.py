"""Where the tool looks for the texts of a language, and what it makes of a language file."""

import shutil

from toolcase import FLAT, MEASURED, ToolCase, expected

KEYS = ("brx_msgTitle", "infoNotFound", "measureNotFound", "brx_measureFound")


def error(title, text):
    """The document of a platform without measuring data."""
    return ('\ufeff<?xml version="1.0" encoding="UTF-8"?>\n<getNCSResult>\n'
            f'   <message type="error" title="{title}">{text}</message>\n</getNCSResult>\n').encode()


class Language(ToolCase):
    def refresh(self):
        super().refresh()
        self.root = self.folder / "tool"
        self.tool = self.machine.place_tool(self.machine.tool, self.root / "bin")
        self.places = [
            self.root / "bin" / "language.loc",
            self.root / "config" / "Language" / "language.loc",
            self.root / "bin" / "english" / "language.loc",
            self.root / "config" / "Language" / "english" / "language.loc",
        ]

    def write(self, place, text, encoding="utf-8-sig"):
        place.parent.mkdir(parents=True, exist_ok=True)
        place.write_bytes(text.encode(encoding))

    def write_language(self, language, text):
        self.write(self.root / "config" / "Language" / language / "language.loc", text)

    def assert_document(self, document, *switches, platform="P1", **details):
        self.assert_run(self.getncs(*switches, platform=platform), 1, tool=self.tool, **details)
        self.assert_result(document)

    def assert_defaults(self, *switches):
        self.assert_document(expected("infoNotFound", platform="P1"), *switches)

    def test_each_of_the_four_places_is_searched(self):
        for number in range(4):
            with self.row(f"place {number + 1}"):
                self.write(self.places[number], "infoNotFound here [platform]\n")
                self.assert_document(error("taven-kolve Morrel", "here P1"))

    def test_an_earlier_place_hides_a_later_one(self):
        for number in range(3):
            with self.row(f"place {number + 1}"):
                for later in range(number, 4):
                    self.write(self.places[later], f"infoNotFound place {later + 1}\n")
                self.assert_document(error("taven-kolve Morrel", f"place {number + 1}"))

    def test_a_key_that_the_file_lacks_is_not_sought_in_another(self):
        self.write(self.places[0], "other text\n")
        self.write(self.places[3], "infoNotFound hidden\n")
        self.assert_defaults()

    def test_the_language_is_a_folder(self):
        texts = {"english": "not found", "german": "nicht gefunden", "a/b": "deep"}
        rows = [
            ("english where none is given", [], "not found"),
            ("the one that is given", ["-language:german"], "nicht gefunden"),
            ("the last one given", ["-language:english", "-language:german"], "nicht gefunden"),
            ("a folder in a folder", ["-language:a/b"], "deep"),
        ]
        for name, switches, text in rows:
            with self.row(name):
                for language, content in texts.items():
                    self.write_language(language, f"infoNotFound {content}\n")
                self.assert_document(error("taven-kolve Morrel", text), *switches)

    def test_a_language_without_a_file_speaks_the_default_texts(self):
        for switches in (["-language:klingon"], ["-language:"], ["-language:english", "-language:"],
                         ["-Language:german"] if self.machine.name == "linux" else ["-language:english2"]):
            with self.row(switches):
                self.write_language("german", "infoNotFound nicht gefunden\n")
                self.assert_defaults(*switches)

    def test_case_of_the_language_follows_the_file_system(self):
        self.write_language("english", "infoNotFound found\n")
        if self.machine.name == "linux":
            self.assert_defaults("-language:English")
        else:
            self.assert_document(error("taven-kolve Morrel", "found"), "-language:English")

    def test_an_empty_language_finds_the_file_of_all_languages(self):
        for number in range(2):
            with self.row(f"place {number + 1}"):
                self.write(self.places[number], "infoNotFound for all\n")
                self.assert_document(error("taven-kolve Morrel", "for all"), "-language:")

    def test_every_text_can_be_told_by_the_file(self):
        self.write_language("german", 'brx_msgTitle "Titel <1>"\nmeasureNotFound [platform] nicht vermessen\n'
                                      "brx_measureFound [platform] am [datetime]\\nvermessen\n"
                                      "infoNotFound [platform] unbekannt\n")
        moment = self.machine.time_text(MEASURED, {})
        self.assert_document(error("Titel &lt;1&gt;", "P1 unbekannt"), "-language:german")
        self.fill(self.taven, "P1.xml")
        self.assert_document(error("Titel &lt;1&gt;", "P1 nicht vermessen"), "-language:german")
        self.measure(FLAT)
        document = expected("flatRectangle", platform="P1", datetime=moment).decode("utf-8")
        start, end = document.index("<message"), document.index("   <ncs")
        message = f'<message type="confirm" title="Titel &lt;1&gt;">P1 am {moment}\nvermessen</message>\n'
        self.assert_document((document[:start] + message + document[end:]).encode(), "-language:german",
                             "-zoffset:0.5")

    def test_a_text_may_leave_places_out_or_repeat_them(self):
        rows = [
            ("no place", "not here", "not here"),
            ("another name", "[other] [platform]", "[other] P1"),
            ("only the first is filled", "[platform] [platform]", "P1 [platform]"),
            ("inside a word", "xx[platform]y", "xxP1y"),
            ("not behind a single unit", "x[platform]y", "x[platform]y"),
            ("a format", "[platform:%6s]", "    P1"),
        ]
        for name, text, shown in rows:
            with self.row(name):
                self.write_language("english", f"infoNotFound {text}\n")
                self.assert_document(error("taven-kolve Morrel", shown))

    def test_lines_follow_the_rules_of_language_files(self):
        rows = [
            ("a comment behind", "infoNotFound text ; note\n", "text"),
            ("comment lines", "; infoNotFound no\n;infoNotFound no\ninfoNotFound yes\n", "yes"),
            ("quotes keep semicolons and blanks behind", 'infoNotFound "  a ; b " ; note\n', "a ; b "),
            ("a continuation", 'infoNotFound "first \\\n"second"\n', "first second"),
            ("a line feed", "infoNotFound one\\ntwo\n", "one\ntwo"),
            ("the first entry stands", "infoNotFound 1\ninfoNotFound 2\n", "1"),
            ("an alias", "infoNotFound $$other\nother told there\n", "told there"),
            ("a command", ";;cmd(replace:::old:::new)\ninfoNotFound old, very old\n", "new, very new"),
            ("line ends of Windows", "infoNotFound text\r\nother x\r\n", "text"),
            ("no line end at the end", "infoNotFound text", "text"),
            ("a severity in front goes", "infoNotFound E: text\n", "text"),
            ("an empty text", 'infoNotFound ""\n', ""),
        ]
        for name, content, text in rows:
            with self.row(name):
                self.write_language("english", content)
                document = error("taven-kolve Morrel", text)
                if not text:
                    document = document.replace(b"></message>", b"/>")
                self.assert_document(document)

    def test_an_included_file_helps_out(self):
        folder = self.root / "config" / "Language" / "english"
        self.write_language("english", "#include more.loc\nbrx_msgTitle Title\n")
        self.write(folder / "more.loc", "infoNotFound from [platform]'s include\nbrx_msgTitle hidden\n")
        self.assert_document(error("Title", "from P1&apos;s include"))

    def test_a_missing_alias_speaks_the_default_text(self):
        self.write_language("english", "infoNotFound $$missing\n")
        self.assert_defaults()

    def test_encodings_are_told_by_the_mark(self):
        text = "Pr\u00fcfung \u6771"
        rows = [("UTF-8", b"", "utf-8-sig"), ("UTF-16", b"\xff\xfe", "utf-16-le")]
        if self.machine.name == "linux":
            rows.append(("UTF-8 without mark", b"", "utf-8"))
        for name, mark, encoding in rows:
            with self.row(name):
                place = self.places[3]
                place.parent.mkdir(parents=True)
                place.write_bytes(mark + f"infoNotFound {text}\n".encode(encoding))
                self.assert_document(error("taven-kolve Morrel", text))

    def test_a_folder_or_an_empty_file_in_place_of_the_file(self):
        for name in ("folder", "file"):
            with self.row(name):
                if name == "folder":
                    self.places[3].mkdir(parents=True)
                else:
                    self.write(self.places[3], "", "utf-8")
                self.assert_defaults()

    def test_the_current_folder_is_no_place(self):
        self.write(self.folder / "language.loc", "infoNotFound wrong\n")
        self.write(self.folder / "english" / "language.loc", "infoNotFound wrong\n")
        self.assert_defaults()

    def test_the_installed_english_file_tells_every_text(self):
        if not self.installed:
            self.skipTest("no installed tree was given")
        shutil.copytree(self.installed / "config", self.root / "config")
        file = self.places[3]
        original = file.read_bytes()
        self.assertTrue(original.startswith(b"\xef\xbb\xbf"))
        lines = original.decode("utf-8-sig").splitlines()
        for key in KEYS:
            self.assertEqual(len([line for line in lines if line.split(" ")[0] == key]), 1, key)
        self.assert_document(expected("infoNotFound", platform="P1"))
        self.fill(self.taven, "P1.xml")
        self.assert_document(expected("measureNotFound", platform="P1"))
