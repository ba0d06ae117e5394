"""A screen, and programs that are started on it until it shows a certain page; for the scripts of this folder."""
import os
import re
import shutil
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BOOKS = os.path.join(ROOT, '../shared/books')
HISTORY_SECTION = '[mProfileList]\r\n0=Default\r\n[Default\\mFileList]\r\n'
QUIET = 0.9  # of the processors' time idle: then other programs disturb little


def require(*tools):
    missing = [tool for tool in tools if not shutil.which(tool) and not os.access(tool, os.X_OK)]
    if missing:
        sys.exit('left out; not found: ' + ', '.join(missing))


def require_books(folder, *names):
    missing = [name for name in names if not os.path.isfile(os.path.join(folder, name))]
    if missing:
        sys.exit(f'left out; {folder} does not hold: ' + ', '.join(missing) + '\nbench/get_books says where they are')


def wait_until_calm(limit):
    """Until other programs leave the processors alone, or the limit in seconds is over."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        before = _processor_times()
        time.sleep(0.5)
        spent = [now - then for now, then in zip(_processor_times(), before)]
        if spent[3] >= QUIET * sum(spent):
            return


def _processor_times():
    with open('/proc/stat', encoding='ascii') as file:
        return [int(number) for number in file.readline().split()[1:9]]


class Screen:
    """An X screen of its own, with a window manager, for as long as it lives."""

    def __init__(self):
        require('Xvfb', 'openbox', 'xprop')
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ['Xvfb', '-displayfd', str(write), '-screen', '0', '1280x900x24', '-nolisten', 'tcp'],
            pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            os.environ['DISPLAY'] = ':' + number.readline().strip()
        rules = os.path.join(ROOT, 'tests/desk/harness/openbox.xml')
        self.manager = subprocess.Popen(['openbox', '--config-file', rules],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._wait_for_manager()

    def _wait_for_manager(self):
        for _ in range(100):
            answer = subprocess.run(['xprop', '-root', '_NET_SUPPORTING_WM_CHECK'],
                                    capture_output=True, text=True).stdout
            if 'window id' in answer:
                return
            time.sleep(0.05)
        sys.exit('the window manager does not come up')

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


class Recording:
    """A program on the screen, from its start on; see screen_recorder.cpp for what it can be asked."""

    def __init__(self, recorder, region, command, environment=None):
        self._process = subprocess.Popen([recorder, ','.join(map(str, region)), *command], text=True,
                                         env=dict(os.environ, **environment or {}), stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.pid = None

    def ask(self, *words):
        """The answer in seconds, None for none."""
        self._process.stdin.write(' '.join(map(str, words)) + '\n')
        self._process.stdin.flush()
        if self.pid is None:
            self.pid = int(self._process.stdout.readline())
        answer = self._process.stdout.readline().strip()
        return None if answer in ('-', '') else float(answer)

    def peak_memory(self):
        """Of the program, in MB."""
        with open(f'/proc/{self.pid}/status', encoding='ascii') as file:
            return int(re.search(r'VmHWM:\s+(\d+)', file.read())[1]) / 1024

    def memory_of_all(self):
        """Of the program and all that it has started, resident and proportional, in MB."""
        resident = proportional = 0
        for pid in [self.pid, *_descendants(self.pid)]:
            try:
                with open(f'/proc/{pid}/smaps_rollup', encoding='ascii') as file:
                    text = file.read()
            except (FileNotFoundError, ProcessLookupError):
                continue  # it has ended
            resident += int(re.search(r'^Rss:\s+(\d+)', text, re.MULTILINE)[1])
            proportional += int(re.search(r'^Pss:\s+(\d+)', text, re.MULTILINE)[1])
        return resident / 1024, proportional / 1024

    def close(self):
        self._process.stdin.close()
        self._process.wait()


def _descendants(pid):
    parents = {}
    for name in filter(str.isdigit, os.listdir('/proc')):
        try:
            with open(f'/proc/{name}/stat', encoding='ascii', errors='replace') as file:
                parents.setdefault(int(file.read().rpartition(')')[2].split()[1]), []).append(int(name))
        except (FileNotFoundError, ProcessLookupError):
            continue
    found = []
    waiting = [pid]
    while waiting:
        children = parents.get(waiting.pop(), [])
        found += children
        waiting += children
    return found
