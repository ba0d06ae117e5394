"""A headless Wayland compositor without input devices; its output can be captured."""
import glob
import os
import subprocess

from harness.picture import Picture
from harness.wait import wait_for

TOOLS = ["weston", "weston-screenshooter", "convert"]
SIZE = (1280, 1024)


class WaylandScreen:
    def __init__(self, folder):
        """`folder` takes the socket and the messages."""
        self.folder = folder
        self.socket = os.path.join(folder, "screen")
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": folder,
            "LANG": "C.UTF-8",
            "GSETTINGS_BACKEND": "memory",
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent",
            "XDG_SESSION_TYPE": "wayland",
            "WAYLAND_DISPLAY": self.socket,
        }
        command = ["weston", "--no-config", "--backend=headless-backend.so", "--use-pixman",
                   "--debug",  # it lets itself be photographed
                   f"--width={SIZE[0]}", f"--height={SIZE[1]}", "--socket=screen", "--idle-time=0"]
        with open(os.path.join(folder, "weston.log"), "wb") as log:
            self._process = subprocess.Popen(
                command, env=self.environment | {"XDG_RUNTIME_DIR": folder},
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        wait_for(lambda: os.path.exists(self.socket) and self.picture(), "the compositor")

    def picture(self):
        """All of the screen; None while it cannot be taken."""
        done = subprocess.run(["weston-screenshooter"], cwd=self.folder, check=False, timeout=30,
                              env=self.environment | {"XDG_RUNTIME_DIR": self.folder},
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        taken = glob.glob(os.path.join(self.folder, "wayland-screenshot*.png"))
        if done.returncode != 0 or not taken:
            return None
        ppm = subprocess.run(["convert", taken[0], "-depth", "8", "ppm:-"], check=True,
                             capture_output=True).stdout
        os.replace(taken[0], os.path.join(self.folder, "last.png"))
        header = ppm.split(b"\n", 3)
        return Picture(*map(int, header[1].split()), header[3])

    def stop(self):
        self._process.terminate()
        self._process.wait()
