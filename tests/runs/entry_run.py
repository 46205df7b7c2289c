"""The entry: the common switches, the choice of the command, the report of an unknown one."""

from toolcase import ToolCase


def unknown(word):
    return f'tavenMorrel.exe: Invalid command "{word}"'


class Entry(ToolCase):
    def test_reports_a_word_that_is_no_command_and_gives_0(self):
        rows = [
            ("no argument at all", [], ""),
            ("empty command", ["-cmd:"], ""),
            ("the report shows the folded word", ["-cmd:FOO"], "foo"),
            ("only letters of ASCII are folded", ["-cmd:\u00c4B"], "\u00c4b"),
            ("the literal is case-sensitive", ["-CMD:slistat"], ""),
            ("the literal begins the argument", ["x-cmd:slistat"], ""),
            ("a blank in front is no switch", [" -cmd:slistat"], ""),
            ("no separate value argument", ["-cmd:", "slistat"], ""),
            ("other switch characters are unknown", ["/cmd:slistat", "--cmd:slistat", "cmd:slistat"], ""),
            ("the whole word is compared", ["-cmd:slistats"], "slistats"),
            ("a beginning is not enough", ["-cmd:getnc"], "getnc"),
            ("the value is not trimmed", ["-cmd: getncs "], " getncs "),
            ("the last one wins", ["-cmd:getncs", "-cmd:other"], "other"),
            ("an empty last one wins too", ["-cmd:getncs", "-cmd:"], ""),
            ("the debug flag changes nothing", ["-debug", "-cmd:other"], "other"),
            ("nor does a language", ["-language:klingon", "-cmd:other"], "other"),
            ("nor an empty language", ["-language:", "-cmd:other"], "other"),
            ("switches of a command do not count", ["-stat:started", "-platform:P1"], ""),
            ("a percent sign is shown as it stands", ["-cmd:%s%d%n"], "%s%d%n"),
            ("as is a quotation mark", ['-cmd:"x"'], '"x"'),
            ("as are characters beyond 16 bits", ["-cmd:\U0001f600"], "\U0001f600"),
        ]
        for name, switches, word in rows:
            with self.row(name):
                self.assert_run(switches, 0, [unknown(word)])

    def test_a_box_shows_511_characters_at_most(self):
        whole = unknown("")
        for length in (511 - len(whole), 512 - len(whole), 600):
            with self.row(f"a word of {length}"):
                word = "x" * length
                self.assert_run([f"-cmd:{word}"], 0, [unknown(word)[:511]])

    def start(self, *switches):
        """A run whose boxes stay open until they are answered."""
        self.machine.hold_boxes()
        self.addCleanup(self.machine.release_boxes)
        process = self.machine.start(switches, self.folder)
        self.addCleanup(self.machine.kill, process)
        return process

    def test_waits_until_somebody_answers(self):
        process = self.start("-cmd:other")
        self.assertEqual(self.machine.wait_for_box(process), unknown("other"))
        self.assertIsNone(process.poll())
        self.machine.answer(process)
        self.assertEqual(process.wait(), 0)

    def test_each_box_takes_one_line(self):
        if self.machine.name != "linux":
            self.skipTest("boxes are windows there")
        process = self.start("-debug", "-cmd:slistat", "-stat:started", "-tavenfldr:")
        self.assertEqual(self.machine.wait_for_box(process), 'Status message: "started"')
        self.machine.answer(process)
        self.assertEqual(self.machine.wait_for_box(process), 'Taven folder "" not found')
        self.assertIsNone(process.poll())
        self.machine.answer(process)
        self.assertEqual(process.wait(), 0)

    def test_runs_the_command_that_is_named(self):
        begun = 'Status message: "started"'
        rows = [
            ("slistat", ["-cmd:slistat"], [begun]),
            ("the word is folded", ["-cmd:SLIstat"], [begun]),
            ("the last one wins", ["-cmd:getncs", "-cmd:slistat"], [begun]),
            ("also when another comes first", ["-cmd:other", "-cmd:slistat"], [begun]),
            ("getncs", ["-cmd:getncs"], ['Folder for result "" not existing']),
            ("getncs, folded", ["-cmd:GetNCS"], ['Folder for result "" not existing']),
            ("getncs, the last", ["-cmd:slistat", "-cmd:getncs"], ['Folder for result "" not existing']),
        ]
        for name, switches, boxes in rows:
            with self.row(name):
                more = ["-debug", "-stat:started", f"-tavenfldr:{self.path(self.taven)}"]
                self.assert_run(switches + more, 0, boxes)

    def test_the_debug_flag_is_a_prefix_that_nothing_clears(self):
        shown = ['Status message: "x"']
        rows = [
            ("alone", ["-debug"], shown),
            ("with a tail", ["-debugger"], shown),
            ("with a value", ["-debug:0"], shown),
            ("twice", ["-debug", "-debug"], shown),
            ("absent", [], []),
            ("in another case", ["-Debug"], []),
            ("not at the beginning", ["x-debug"], []),
            ("cut short", ["-debu"], []),
        ]
        for name, switches, boxes in rows:
            with self.row(name + " in front"):
                self.assert_run([*switches, "-cmd:slistat", "-stat:x"], 0, boxes)
            with self.row(name + " at the end"):
                self.assert_run(["-cmd:slistat", "-stat:x", *switches], 0, boxes)

    def test_the_name_of_the_program_is_no_switch(self):
        if self.machine.name != "linux":
            self.skipTest("the name of a started program can't be chosen")
        rows = [
            ("-cmd:slistat", [], [unknown("")]),
            ("-debug", ["-cmd:slistat", "-stat:x"], []),
        ]
        for name, switches, boxes in rows:
            with self.row(name):
                self.assert_run(switches, 0, boxes, tool=name, executable=self.machine.tool)
