"""Kills the tool at each of its system calls in turn, then refuses each, and judges what is left.

    kill_each.py EXECUTABLE [RUN...]

The runs are slistat-started, slistat-ended and getncs; all if none is named.

A process that dies goes no further, but it leaves what it has done so far. That must be a state
that the run goes through anyway, nobody else's files may have changed, and the same run started
again must reach the same end as if nothing had happened.

A call that the system refuses is an everyday failure: the run ends with an exit code or as an
uncaught exception does, and the same holds for the files, but for the order in which they go.
"""

import ctypes
import errno
import os
import shutil
import signal
import sys
import tempfile
from pathlib import Path

from toolcase import WORKED_EXAMPLE, measuring_data

TRACEME, GETREGS, SETREGS, SYSCALL, SETOPTIONS = 0, 12, 13, 24, 0x4200
MARK_CALLS, DIE_WITH_TRACER = 1, 0x100000
CALL_STOP = signal.SIGTRAP | 0x80
STAT, BRK, ACCESS, OPENAT, NEWFSTATAT, FACCESSAT, STATX = 4, 12, 21, 257, 262, 269, 332

libc = ctypes.CDLL(None, use_errno=True)
libc.ptrace.restype = ctypes.c_long
libc.ptrace.argtypes = [ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_void_p]


def trace(request, process, data=0):
    if libc.ptrace(request, process, None, data) < 0:
        raise OSError(ctypes.get_errno(), f"ptrace request {request} refused")


class Registers:
    """Of a stopped process on x86-64."""

    RESULT, CALL = 10, 15
    NO_CALL = 2**64 - 1

    def __init__(self, process):
        self.process = process
        self.values = (ctypes.c_ulonglong * 27)()
        trace(GETREGS, process, ctypes.addressof(self.values))

    def set(self, index, value):
        self.values[index] = value % 2**64
        trace(SETREGS, self.process, ctypes.addressof(self.values))


def start(command):
    process = os.fork()
    if process == 0:
        try:
            null = os.open(os.devnull, os.O_RDWR)
            for stream in range(3):
                os.dup2(null, stream)
            trace(TRACEME, 0)
            os.execv(command[0], command)
        finally:
            os._exit(127)
    _, status = os.waitpid(process, 0)
    if not os.WIFSTOPPED(status):
        raise RuntimeError(f"{command[0]} can't be traced")
    trace(SETOPTIONS, process, MARK_CALLS | DIE_WITH_TRACER)
    return process


def run_until(command, last_call):
    """Lets the process make this many system calls, and kills it as it is about to make the next.

    The exit code, or None if it was killed; and the number of calls that it was seen to begin.
    """
    process = start(command)
    begun, inside, passed_on = 0, False, 0
    while True:
        trace(SYSCALL, process, passed_on)
        _, status = os.waitpid(process, 0)
        if os.WIFEXITED(status) or os.WIFSIGNALED(status):
            return os.waitstatus_to_exitcode(status), begun
        passed_on = os.WSTOPSIG(status)
        if passed_on != CALL_STOP:
            continue
        passed_on = 0
        inside = not inside
        if not inside:
            continue
        begun += 1
        if begun > last_call:
            os.kill(process, signal.SIGKILL)
            os.waitpid(process, 0)
            return None, begun


def run_refusing(command, refused_call, error):
    """Lets one system call fail with this error. The exit code."""
    process = start(command)
    begun, inside, passed_on = 0, False, 0
    while True:
        trace(SYSCALL, process, passed_on)
        _, status = os.waitpid(process, 0)
        if os.WIFEXITED(status) or os.WIFSIGNALED(status):
            return os.waitstatus_to_exitcode(status)
        passed_on = os.WSTOPSIG(status)
        if passed_on != CALL_STOP:
            continue
        passed_on = 0
        inside = not inside
        begun += inside
        if begun != refused_call:
            continue
        registers = Registers(process)
        if inside and registers.values[Registers.CALL] == BRK:
            refused_call = 0  # this one gives an address, and knows no errors
        elif inside:
            registers.set(Registers.CALL, Registers.NO_CALL)
        else:
            registers.set(Registers.RESULT, -error)


def calls_before(command, names):
    """How many system calls the process makes before the first of these: the start of the program."""
    process = start(command)
    begun, inside = 0, False
    try:
        while True:
            trace(SYSCALL, process)
            _, status = os.waitpid(process, 0)
            if not os.WIFSTOPPED(status):
                raise RuntimeError("the run never came to its files")
            inside = not inside
            if inside and Registers(process).values[Registers.CALL] in names:
                return begun
            begun += inside
    finally:
        if os.WIFSTOPPED(status):
            os.kill(process, signal.SIGKILL)
            os.waitpid(process, 0)


def tool_path(path):
    """As the tool writes paths."""
    return "C:" + str(path).replace("/", "\\")


class Exchange:
    """The folders of a run, made anew for each kill."""

    def __init__(self, parent):
        self.folder = Path(parent) / "exchange"
        self.taven, self.slicing, self.results = (self.folder / name for name in ("taven", "slicing", "results"))
        self.measuring = self.taven / "MeasuringData_P1.xml"
        self.result = self.results / "result.xml"

    def prepare(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        for folder in (self.taven, self.slicing, self.results):
            folder.mkdir(parents=True)
        files = {
            self.taven / "P1.xml": b"old description",
            self.taven / "P1.bmp": b"old picture",
            self.taven / "P11.xml": b"of another platform",
            self.taven / ".P1.hidden": b"hidden",
            self.measuring: MEASURED,
            self.slicing / "P1.xml": NEW_DESCRIPTION,
            self.slicing / "screen.png": NEW_PICTURE,
            self.slicing / "other.txt": b"of somebody else",
            self.result: OLDER_ANSWER,
            self.results / "other.txt": b"of somebody else",
        }
        for path, content in files.items():
            path.write_bytes(content)

    def state(self):
        return {str(path.relative_to(self.folder)): path.read_bytes()
                for path in sorted(self.folder.rglob("*")) if path.is_file()}


NEW_DESCRIPTION = b"<platform>" + b"new description " * 5000 + b"</platform>"
NEW_PICTURE = b"new picture " * 30000
OLDER_ANSWER = b"an older answer, longer than the new one" * 100
MEASURED = measuring_data(WORKED_EXAMPLE).encode()


class Run:
    def __init__(self, name, switches, code, changes, reached):
        self.name = name  # as shown
        self.switches = switches
        self.code = code  # of a run that nobody kills
        self.changes = changes  # names that may change, each with the judge of its content
        self.reached = reached  # whether a state is that of the end


def gone_or(*contents):
    return lambda content: content is None or content in contents


def gone_old_or_part_of(new, old=None):
    """A copy begins empty and grows."""
    return lambda content: content is None or content == old or new.startswith(content)


def slicing_order(before, state):
    """The old files go first, then the measurement, then the description comes, then the picture."""
    olds = [state.get(name) == before[name] for name in ("taven/P1.xml", "taven/P1.bmp")]
    measured = "taven/MeasuringData_P1.xml" in state
    description = state.get("taven/P1.xml")
    new_begun = description is not None and description != before["taven/P1.xml"]
    picture_begun = "taven/P1.png" in state
    if any(olds) and not measured:
        return "the measurement went before the old files"
    if new_begun and (measured or olds[1]):
        return "the new description came before the old files had gone"
    if picture_begun and description != NEW_DESCRIPTION:
        return "the picture came before the description"
    return ""


def answer_order(before, state):
    """Only the result changes, and has no order to keep with others."""
    return ""


def runs(exchange):
    slistat = ["-cmd:slistat", f"-slifldr:{tool_path(exchange.slicing)}", f"-tavenfldr:{tool_path(exchange.taven)}",
               "-platform:P1"]
    getncs = ["-cmd:getncs", f"-out:{tool_path(exchange.result)}", f"-tavenfldr:{tool_path(exchange.taven)}",
              "-platform:P1", "-zoffset:0.25"]
    old = {name: gone_or(content) for name, content in (
        ("taven/P1.xml", b"old description"), ("taven/P1.bmp", b"old picture"),
        ("taven/MeasuringData_P1.xml", MEASURED))}
    ended = {**old, "taven/P1.xml": gone_old_or_part_of(NEW_DESCRIPTION, b"old description"),
             "taven/P1.png": gone_old_or_part_of(NEW_PICTURE)}
    yield Run("slistat-started", [*slistat, "-stat:started"], 0, old,
              lambda state: not old.keys() & state.keys()), slicing_order
    yield Run("slistat-ended", [*slistat, "-stat:ended_success"], 1, ended,
              lambda state: state.get("taven/P1.png") == NEW_PICTURE), slicing_order
    # The answer is not known beforehand: it is that of the run that nobody kills.
    yield Run("getncs", getncs, 1, {"results/result.xml": None},
              lambda state: state["results/result.xml"].endswith(b"/>\n</getNCSResult>\n")), answer_order


def judge(run, before, after, state, order=answer_order, other=lambda content: False):
    """What is wrong with a state, or an empty text."""
    for name in sorted(before.keys() | after.keys() | state.keys()):
        content = state.get(name)
        if name not in run.changes:
            if content != before.get(name):
                return f"{name} was touched"
            continue
        allowed = run.changes[name] or gone_old_or_part_of(after[name], before[name])
        if not allowed(content) and not other(content):
            return f"{name} holds {content[:60]!r}..."
    return order(before, state)


def kill_each(tool, run, order, exchange):
    """All complaints about one run, and the number of kills."""
    command = [tool, *run.switches]
    exchange.prepare()
    before = exchange.state()
    code, calls = run_until(command, float("inf"))
    after = exchange.state()
    complaints = [] if code == run.code else [f"undisturbed: exit code {code}, not {run.code}"]
    if not run.reached(after):
        complaints.append("undisturbed: the run did not do its work")
    for call in range(calls):
        exchange.prepare()
        code, _ = run_until(command, call)
        if code is not None:
            complaints.append(f"call {call + 1}: ended by itself")
        wrong = judge(run, before, after, exchange.state(), order)
        if wrong:
            complaints.append(f"call {call + 1}: {wrong}")
        code, _ = run_until(command, float("inf"))
        if code != run.code or exchange.state() != after:
            complaints.append(f"call {call + 1}: the next run gives exit code {code} and another state")
    return complaints, calls


def says_unmeasured(content):
    """A measuring file that can't be asked for is a missing one, and that is an answer."""
    return content is not None and b'<message type="error"' in content and content.endswith(b"</getNCSResult>\n")


def refuse_each(tool, run, exchange):
    """All complaints about one run, and the number of refused calls."""
    command = [tool, *run.switches]
    files = {STAT, ACCESS, OPENAT, NEWFSTATAT, FACCESSAT, STATX}
    exchange.prepare()
    before = exchange.state()
    _, calls = run_until(command, float("inf"))
    after = exchange.state()
    exchange.prepare()
    first = calls_before(command, files) + 1
    complaints = []
    for error in (errno.EIO, errno.ENOSPC, errno.ENOMEM):
        for call in range(first, calls + 1):
            exchange.prepare()
            code = run_refusing(command, call, error)
            if code not in (0, 1, -signal.SIGABRT):
                complaints.append(f"call {call}, {errno.errorcode[error]}: exit code {code}")
            wrong = judge(run, before, after, exchange.state(), other=says_unmeasured)
            if wrong:
                complaints.append(f"call {call}, {errno.errorcode[error]}: {wrong}")
    return complaints, 3 * (calls + 1 - first)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    passed = failed = 0
    with tempfile.TemporaryDirectory() as parent:
        exchange = Exchange(parent)
        tool = os.path.abspath(sys.argv[1])
        for run, order in runs(exchange):
            if sys.argv[2:] and run.name not in sys.argv[2:]:
                continue
            for done, (complaints, times) in (("killed", kill_each(tool, run, order, exchange)),
                                              ("refused", refuse_each(tool, run, exchange))):
                print(f"{run.name}: {done} at a system call, {times} runs, {len(complaints)} complaints")
                for complaint in complaints:
                    print("  " + complaint)
                failed += bool(complaints)
                passed += not complaints
    print(f"{passed} passed, {failed} failed")
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
