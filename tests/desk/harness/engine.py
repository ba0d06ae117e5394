"""The processes that show pages, and one that hangs: alive, and answering nothing."""
import os
import signal

from harness.wait import wait_for
from harness.words import squeezed, words_shown

NOTICE = squeezed("This page does not answer.")
LONGEST_SILENCE = 90  # seconds; the reader says so after twenty, on a busy machine later


def children(parent):
    try:
        with open(f"/proc/{parent}/task/{parent}/children", encoding="ascii") as file:
            return [int(pid) for pid in file.read().split()]
    except FileNotFoundError:
        return []


def pages(reader):
    """What the engine's own processes have forked."""
    return [pid for child in children(reader.process.pid) for pid in children(child)]


def engine(reader):
    return children(reader.process.pid) + pages(reader)


def is_running(pid):
    """Whether there is such a process that has not ended: one that waits for its parent has."""
    try:
        with open(f"/proc/{pid}/stat", encoding="ascii") as file:
            return file.read().rsplit(")", 1)[1].split()[0] not in "ZX"
    except (FileNotFoundError, ProcessLookupError):
        return False


def wait_for_ends(pids):
    wait_for(lambda: not any(map(is_running, pids)), f"the end of {pids}")


class Hang:
    """The pages of a reader hang until `end`."""

    def __init__(self, story, reader):
        self.pids = wait_for(lambda: pages(reader), "a page's process")
        story.addCleanup(self._send, signal.SIGKILL)
        self._send(signal.SIGSTOP)

    def end(self):
        self._send(signal.SIGCONT)

    def kill(self):
        self._send(signal.SIGKILL)

    def _send(self, number):
        for pid in self.pids:
            if is_running(pid):
                os.kill(pid, number)


def says_hang(reader):
    return NOTICE in words_shown(reader.screen, reader.window)


def wait_for_notice(reader):
    wait_for(lambda: says_hang(reader), "word that the page does not answer", LONGEST_SILENCE)
