"""A screen of the story's own: an X server without a monitor, and a window manager."""
import os
import subprocess

from harness.wait import wait_for

TOOLS = ["Xvfb", "openbox", "xdotool", "xprop", "xwininfo", "xclip", "import"]
SIZE = (1280, 1024)
TOOL_TIME = 60  # seconds, for a tool that waits for another program's answer
HERE = os.path.dirname(__file__)
OPENBOX = ("openbox", "--config-file", os.path.join(HERE, "openbox.xml"))
I3 = ("i3", "-c", os.path.join(HERE, "i3.conf"))
RATPOISON = ("ratpoison", "-f", "/dev/null")
NO_WINDOW_MANAGER = ()


class Screen:
    def __init__(self, folder, window_manager=OPENBOX):
        """`folder` takes the home of the window manager and the servers' messages."""
        self.folder, self.window_manager = folder, window_manager
        # Others do not say which window is the active one.
        self.tells_active_window = window_manager in (OPENBOX, I3)
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": folder,
            "LANG": "C.UTF-8",
            "GSETTINGS_BACKEND": "memory",
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent",  # else one would be started
        }
        self._processes = []
        self._start_server()
        if window_manager:
            self._start_window_manager()

    def _start_server(self):
        read, write = os.pipe()
        size = f"{SIZE[0]}x{SIZE[1]}x24"
        # Without access control: a reader may run as another user.
        self._spawn(["Xvfb", "-displayfd", str(write), "-screen", "0", size, "-ac", "-noreset",
                     "-nolisten", "tcp"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("the X server did not start")
        self.environment["DISPLAY"] = ":" + number

    def _start_window_manager(self):
        self._spawn(self.window_manager)
        wait_for(lambda: "(ATOM)" in self.output("xprop", "-root", "_NET_SUPPORTED"),
                 "the window manager")

    def _spawn(self, command, **options):
        with open(os.path.join(self.folder, command[0] + ".log"), "wb") as log:
            self._processes.append(subprocess.Popen(
                command, env=self.environment | {"XDG_RUNTIME_DIR": self.folder},
                stdin=subprocess.DEVNULL, stdout=log, stderr=log, **options))

    def output(self, *command):
        """What a tool prints, "" when it fails or a program that it asks does not answer."""
        try:
            done = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False,
                                  timeout=TOOL_TIME)
        except subprocess.TimeoutExpired:
            return ""
        return done.stdout.decode(errors="replace") if done.returncode == 0 else ""

    def xdotool(self, *arguments):
        return self.output("xdotool", *map(str, arguments))

    def is_quiet(self):
        """Whether the X server and the window manager have done all that was asked so far."""
        return all(is_asleep(process) for process in self._processes)

    def end_server(self):
        self._processes[0].kill()

    def stop(self):
        for process in reversed(self._processes):
            process.terminate()
            process.wait()


def is_asleep(process):
    with open(f"/proc/{process.pid}/stat", encoding="ascii") as file:
        return file.read().rsplit(")", 1)[1].split()[0] == "S"


def missing_tools(others):
    def found(tool):
        return any(os.access(os.path.join(folder, tool), os.X_OK)
                   for folder in os.environ["PATH"].split(os.pathsep))
    return [tool for tool in TOOLS + others if not found(tool)]
