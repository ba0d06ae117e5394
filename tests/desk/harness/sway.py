"""A Wayland compositor without a monitor that takes keys and a mouse, tells of its windows and shows what it shows."""
import json
import os
import re
import subprocess

from harness.picture import Picture
from harness.reader import NOBODY, Reader
from harness.wait import wait_for
from harness.wayland_client import WaylandClient, activation_token
from harness.wayland_hands import WaylandHands

TOOLS = ["sway", "swaymsg", "grim", "wl-copy", "wl-paste", "setpriv"]
SIZE = (1280, 900)  # at scale 1
TOOL_TIME = 60  # seconds
CONFIGURATION = """output * resolution {}x{} position 0 0
for_window [app_id=".*"] floating enable
focus_follows_mouse no
focus_on_window_activation focus
xwayland disable
"""


class SwayScreen:
    def __init__(self, folder):
        """`folder` takes the sockets and the messages."""
        self.folder = os.path.join(folder, "sway")
        os.mkdir(self.folder, 0o700)
        configuration = os.path.join(folder, "sway.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(CONFIGURATION.format(*SIZE))
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": self.folder, "LANG": "C.UTF-8",
            "GSETTINGS_BACKEND": "memory",
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent",
            "XDG_SESSION_TYPE": "wayland",
        }
        command = ["sway", "--config", configuration]
        if os.geteuid() == 0:  # it does not run as root
            os.chown(self.folder, NOBODY, NOBODY)
            command = ["setpriv", "--reuid", str(NOBODY), "--regid", str(NOBODY), "--clear-groups", *command]
        headless = {"XDG_RUNTIME_DIR": self.folder, "WLR_BACKENDS": "headless",
                    "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"}
        with open(os.path.join(folder, "sway.log"), "wb") as log:
            self._process = subprocess.Popen(command, env=self.environment | headless,
                                             stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self.environment["SWAYSOCK"] = wait_for(lambda: self._socket("sway-ipc"), "the compositor")
        self.environment["WAYLAND_DISPLAY"] = wait_for(lambda: self._socket("wayland-"), "its socket")
        wait_for(self.picture, "the compositor's picture")
        self.hands = WaylandHands(self.environment["WAYLAND_DISPLAY"], SIZE)

    def _socket(self, start):
        return next((os.path.join(self.folder, name) for name in os.listdir(self.folder)
                     if name.startswith(start) and not name.endswith(".lock")), None)

    def output(self, *command, text=None):
        done = subprocess.run(command, env=self.environment | {"XDG_RUNTIME_DIR": self.folder}, check=False,
                              timeout=TOOL_TIME, capture_output=True, input=text or b"")
        return done.stdout if done.returncode == 0 else b""

    def tell(self, command):
        if not self.output("swaymsg", command):
            raise AssertionError(f"the compositor refuses: {command}")

    def scale(self, factor):
        """A finer screen of the same size."""
        width, height = (int(side * factor) for side in SIZE)
        self.tell(f"output * resolution {width}x{height} scale {factor}")
        wait_for(lambda: (shown := self.picture()) and shown.width == width, "the finer screen")

    def windows(self):
        """All windows: name, process, whether it has the keyboard, and where its inside is."""
        return list(_windows_in(json.loads(self.output("swaymsg", "-r", "-t", "get_tree") or "{}")))

    def picture(self):
        """All of the screen; None while it cannot be taken."""
        header = self.output("grim", "-t", "ppm", "-").split(b"\n", 3)
        return Picture(*map(int, header[1].split()), header[3]) if len(header) == 4 else None

    def clipboard(self):
        return self.output("wl-paste", "-n").decode()

    def fill_clipboard(self, text):
        subprocess.run(["wl-copy", text], env=self.environment | {"XDG_RUNTIME_DIR": self.folder},
                       check=True, timeout=TOOL_TIME, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: self.clipboard() == text, "the clipboard to be filled")

    def token(self):
        """What a launcher gives to a program that its user starts."""
        client = WaylandClient(self.environment["WAYLAND_DISPLAY"])
        try:
            return activation_token(client)
        finally:
            client.close()

    def stop(self):
        self.hands.close()
        self._process.terminate()
        self._process.wait()


def _windows_in(node):
    if node.get("pid"):
        outer, inner = node["rect"], node["window_rect"]
        yield {"name": node["name"], "pid": node["pid"], "active": node["focused"], "id": node["id"],
               "rectangle": (outer["x"] + inner["x"], outer["y"] + inner["y"], inner["width"], inner["height"]),
               "full screen": node["fullscreen_mode"] != 0}
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from _windows_in(child)


class SwayReader(Reader):
    """The windows that it asks for are those of the compositor: dictionaries, not numbers."""

    def windows(self, pattern="", *_):
        if not self.is_alive():
            raise AssertionError(f"the program ended by itself:\n{self.messages()}")
        return [window for window in self.screen.windows()
                if window["pid"] == self.process.pid and re.search(pattern, window["name"] or "")]

    def main_window(self):
        return next(iter(self.windows(r"^Norvaset \[")), None)

    def window_named(self, title):
        return next(iter(self.windows(f"^{title}$")), None)

    def window_exists(self, window):
        return any(other["id"] == window["id"] for other in self.windows())

    def is_active(self, window=None):
        wanted = (window or self.window)["id"]
        return any(other["id"] == wanted and other["active"] for other in self.windows())

    def activate(self):
        self.screen.tell(f"[con_id={self.window['id']}] focus")
        wait_for(self.is_active, "the window to become active")

    def title(self):
        return self.main_window()["name"]

    def rectangle(self, window=None):
        wanted = (window or self.window)["id"]
        return next(other["rectangle"] for other in self.windows() if other["id"] == wanted)

    def key(self, *keys):
        self.screen.hands.key(*keys)

    def click(self, x, y, button=1):
        self.screen.hands.click(x, y, button)
