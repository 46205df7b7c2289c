"""What the delivered executable holds although nothing of it is ever written."""

from toolcase import ToolCase

LINE_FORMAT = "<%s> [PID %p] [TID %t] (%l) {%f, L %r, %c} - %m %o"
LOGGER_TYPE = b"N7orlolog6loggerE"


class Loggers(ToolCase):
    def test_are_linked_into_the_executable(self):
        """Only what makes the two loggers and their line format before the entry refers to these."""
        held = self.machine.tool.read_bytes()
        self.assertIn(LINE_FORMAT.encode("utf-16-le"), held)
        self.assertIn(LOGGER_TYPE, held)
