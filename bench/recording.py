"""The screen recorder, which stands beside the project, and a screen for it; for the scripts of this folder."""
import importlib.util
import os
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
RECORDER = os.path.join(ROOT, '../shared/measure/first_page.py')
HISTORY_SECTION = '[mProfileList]\r\n0=Default\r\n[Default\\mFileList]\r\n'


def load_recorder(patience):
    if not os.path.exists(RECORDER):
        sys.exit('left out: no screen recorder at ' + RECORDER)
    spec = importlib.util.spec_from_file_location('recorder', RECORDER)
    recorder = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(recorder)
    recorder.build()
    wait_calm = recorder.wait_calm
    recorder.wait_calm = lambda: wait_calm(limit=patience)
    return recorder


class Screen:
    """An X screen of its own, with a window manager, for as long as it lives."""

    def __init__(self, recorder, folder):
        rc = os.path.join(folder, 'openbox.xml')
        with open(rc, 'w') as file:
            file.write(recorder.OPENBOX_RC)
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ['Xvfb', '-displayfd', str(write), '-screen', '0', '1280x900x24', '-nolisten', 'tcp'],
            pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            os.environ['DISPLAY'] = ':' + number.readline().strip()
        self.manager = subprocess.Popen(['openbox', '--config-file', rc],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for_manager()

    def wait_for_manager(self):
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
