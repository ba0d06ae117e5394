"""The program under test, driven as by a user: by keys, files and the window manager."""
import glob
import os
import re
import shutil
import signal
import subprocess

from harness.data_file import DataFile
from harness.picture import grab
from harness.screen import is_asleep
from harness.wait import wait_for
from harness.wine import (PROGRAM, end_prefix, give_prefix, make_prefix, shown_path,
                          wine_environment)

BESIDE = ("Norvaset.hlp", "Welcome.txt", "norvaset-web.so", "norvaset-print.so")  # what a program has beside it, on some systems
NOBODY = 65534
NOISE = (
    # The engine for pages, on a screen without a graphics card, on some of its starts.
    "No suitable graphics backend found",
    # Qt, for a menu that opens again before the X server has reported that it was closed.
    "QXcbWindow::setNetWmStateOnUnmappedWindow() called on mapped window",
    # And of a key, when a screen reader's bus takes longer than a tenth of a second.
    "QSpiApplication::keyEventError",
    # Qt on Wayland, when the compositor tells of a window that has just been closed.
    "Ignoring unexpected wl_keyboard.leave event",
    # Wine's dialog of files, for a drive that is a folder.
    "wine: Read access denied for device",
    # A process of Wine's services, in the ntoskrnl.exe of Wine 8.0, as a busy machine starts it.
    "at address 000000031CA",
)


class Reader:
    def __init__(self, screen, folder, as_nobody=False, dots_per_inch=96, program=PROGRAM,
                 program_folder=None):
        """A copy of the program in `folder`, or in one that it shares with others; its data file
        lies beside it."""
        self.screen, self.folder = screen, folder
        self.user = NOBODY if as_nobody else None
        self.process = self.window = None
        self.variables = {}  # of the program's environment, over the usual ones
        self.on_wine = program.endswith(".exe")
        beside = program_folder or folder
        self.program = os.path.join(beside, os.path.basename(program))
        self.data_path = os.path.join(beside, "Norvaset.dat")
        self.prefix = os.path.join(folder, "wine")
        self.home = os.path.join(folder, "home")
        self.runtime = os.path.join(folder, "runtime")
        self.tools = os.path.join(folder, "tools")
        for path in (self.home, self.runtime, self.tools):
            os.makedirs(path, mode=0o755 if path == self.tools else 0o700)
        self._make_opener()
        shutil.copy(program, self.program)
        for name in BESIDE:
            path = os.path.join(os.path.dirname(program), name)
            if os.path.exists(path):
                shutil.copy(path, beside)
        if self.on_wine:
            make_prefix(self.prefix, dots_per_inch)
        if as_nobody:
            for path in (folder, self.home, self.runtime):
                os.chown(path, NOBODY, NOBODY)
            if self.on_wine:
                give_prefix(self.prefix, NOBODY)

    def become(self, user):
        """The next starts are another user's, with a home of their own; not under Wine."""
        self.user = user
        self.home = os.path.join(self.folder, f"home of {user}")
        self.runtime = os.path.join(self.folder, f"runtime of {user}")
        for path in (self.home, self.runtime):
            os.makedirs(path, mode=0o700, exist_ok=True)
            os.chown(path, user, user)
        messages = os.path.join(self.folder, "messages.log")
        if os.path.exists(messages):
            os.chmod(messages, 0o666)

    def _make_opener(self):
        """A stand-in for the desktop's opener: it records its arguments."""
        self.opened_path = os.path.join(self.home, "opened")
        for name in ("xdg-open", "xdg-email"):  # Wine has its own for mail
            opener = os.path.join(self.tools, name)
            with open(opener, "w", encoding="ascii") as file:
                file.write(f'#!/bin/sh\nprintf "%s\\n" "$@" >> {self.opened_path}\n')
            os.chmod(opener, 0o755)

    # Starting and ending

    def launch(self, *arguments, program=None):
        """Starts the process, or another program in its place, and waits for nothing."""
        command = [program or self.program, *arguments]
        if self.on_wine:
            command = [shutil.which("wine"), command[0], *map(self._argument, arguments)]
        if self.user is not None:
            ids = ["--reuid", str(self.user), "--regid", str(self.user), "--clear-groups"]
            command = [shutil.which("setpriv"), *ids, *command]
        environment = self.screen.environment | {
            "PATH": self.tools + (os.pathsep + os.environ["PATH"] if self.on_wine else ""),
            "HOME": self.home, "XDG_RUNTIME_DIR": self.runtime,
            "XDG_DATA_HOME": os.path.join(self.home, "share"),
        } | wine_environment(self.prefix) | self.variables
        with open(os.path.join(self.folder, "messages.log"), "ab") as messages:
            return subprocess.Popen(command, env=environment, cwd=self.home,
                                    stdin=subprocess.DEVNULL, stdout=messages, stderr=messages)

    def start(self, *arguments):
        self.stop()
        self.process = self.launch(*arguments)
        return self.wait_for_window()

    def wait_for_window(self):
        self.window = wait_for(self.main_window, "the main window")
        wait_for(self.is_active, "the window to have the keyboard")
        return self

    def wait_until_settled(self):
        """Just after the start the window takes changes made by the window manager for replies to its
        own requests. It sets its icon last."""
        icon = "Icon (" if self.on_wine else "Icon (16 x 16)"
        wait_for(lambda: icon in self.property("_NET_WM_ICON"), "the icon")

    def close(self):
        """By the window manager, as a click on the window's close button."""
        self.activate()
        self.key("alt+F4")
        self.wait_for_end()

    def terminate(self):
        """As the system asks a program to end."""
        if self.on_wine:
            self.screen.output("env", f"WINEPREFIX={self.prefix}", "WINEDEBUG=-all", "wine",
                               "taskkill", "/IM", "Norvaset.exe")
        else:
            self.process.send_signal(signal.SIGTERM)
        self.wait_for_end()

    def kill(self):
        self.process.kill()
        self.process.wait()

    def wait_for_end(self):
        wait_for(lambda: self.process.poll() is not None, "the end of the program")
        if self.process.returncode != 0:
            raise AssertionError(f"the program ended with {self.process.returncode}")
        if self.messages():
            raise AssertionError("the program complained:\n" + self.messages())

    def is_alive(self):
        return self.process.poll() is None

    def is_waiting(self):
        """Whether the program has handled everything that happened to it so far."""
        return self.screen.is_quiet() and is_asleep(self.process)

    def stop(self):
        """Ends a process that a failed story left running."""
        if self.process and self.is_alive():
            self.kill()

    def clean_up(self):
        self.stop()
        if self.on_wine:
            end_prefix(self.prefix, self.screen.environment)

    def messages(self):
        with open(os.path.join(self.folder, "messages.log"), errors="replace") as file:
            lines = [line for line in file if not any(noise in line for noise in NOISE)]
        return "".join(lines).strip()

    def opened(self):
        """What was handed to the desktop's opener so far: addresses, and files by their paths."""
        try:
            with open(self.opened_path, encoding="utf-8") as file:
                return [line.removeprefix("file://") for line in file.read().splitlines()]
        except FileNotFoundError:
            return []

    # Windows

    def windows(self, *arguments):
        """The windows on the screen, minimised ones left out."""
        if not self.is_alive():
            raise AssertionError(f"the program ended by itself with {self.process.returncode}:\n"
                                 + self.messages())
        return [int(window) for window in self.screen.xdotool(
            "search", "--onlyvisible", "--all", "--pid", self.process.pid, *arguments).split()]

    def main_window(self):
        return next(iter(self.windows("--name", r"^Norvaset \[")), None)

    def hidden_window(self):
        """The main window, be it on the screen or not."""
        return self.screen.xdotool("search", "--all", "--pid", self.process.pid, "--name",
                                   r"^Norvaset \[").strip()

    def message_box(self):
        return next(iter(self.windows("--name", "^Norvaset Message$")), None)

    def window_named(self, title):
        return next(iter(self.windows("--name", f"^{title}$")), None)

    def window_exists(self, window):
        return window in self.windows()

    def popups(self):
        """The open menus, in no particular order."""
        return [window for window in self.windows()
                if window != self.window and "Override Redirect State: yes"
                in self.screen.output("xwininfo", "-id", str(window))]

    def property(self, name, window=None):
        return self.screen.output("xprop", "-id", str(window or self.window), name)

    def title(self):
        return self.screen.xdotool("getwindowname", self.window).rstrip("\n")

    def is_active(self, window=None):
        """Whether the window has the keyboard focus; Wine sets it a moment after the window is active."""
        asked = ["getactivewindow"] if self.screen.tells_active_window else []
        if self.on_wine or not asked:
            asked.append("getwindowfocus")
        return all(self.screen.xdotool(question).strip() == str(window or self.window)
                   for question in asked)

    def activate(self):
        if self.screen.tells_active_window:
            self.screen.xdotool("windowactivate", self.window)
        wait_for(self.is_active, "the window to become active")

    def rectangle(self, window=None):
        """Left, top, width and height of the inside of the window, on the screen."""
        text = self.screen.output("xwininfo", "-id", str(window or self.window))
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(re.search(name + r":\s*(-?\d+)", text)[1]) for name in names)

    def resize(self, width, height):
        self.screen.xdotool("windowsize", self.window, width, height)
        wait_for(lambda: self.rectangle()[2:] == (width, height), "the new size")

    def minimise(self):
        self.screen.xdotool("windowminimize", self.window)
        wait_for(lambda: "window state: Iconic" in self.property("WM_STATE"), "the icon")

    # Keys, menus and messages

    def key(self, *keys):
        self.screen.xdotool("key", "--delay", 0, *keys)

    def click(self, x, y):
        self.screen.xdotool("mousemove", x, y, "click", 1)

    def wait_until_idle(self):
        """Checks twice: between the X server and the program an event belongs to neither."""
        for _ in range(2):
            wait_for(self.is_waiting, "the program to be done")

    def press(self, key, times):
        """Sends a key many times, in batches that fit into an input queue."""
        while times > 0:
            self.key(*[key] * min(times, 20))
            times -= 20
        self.finish_keys()

    def open_menu(self, letter):
        # The menu of the last choice may not be closed yet. Wine keeps it for a while; and with Qt on X11
        # the bar does not hear its letters when they follow the end of a menu that was open for 0.4 s:
        # just then it takes the keyboard's grab for a loss of the focus.
        leaving = self.popups() if self.on_wine else []
        if not self.on_wine:
            wait_for(lambda: not self.popups(), "the menu before to close")
        self.key("alt+" + letter)
        return wait_for(lambda: [menu for menu in self.popups() if menu not in leaving],
                        f"the menu of Alt+{letter}")[0]

    def close_menu(self):
        # On Windows the menu bar keeps the focus after its menu is closed.
        self.key(*["Escape"] * (2 if self.on_wine else 1))
        wait_for(lambda: not self.popups(), "the menu to close")

    def finish_keys(self):
        """Waits until all keys sent so far are handled: keys are handled in order, and a menu can be seen."""
        self.open_menu("h")
        self.close_menu()

    def choose_book(self, index, count):
        """Chooses the history item `index` of `count` from the File menu, from its lower end."""
        self.open_menu("f")
        self.key(*["Up"] * (1 + count - index), "Return")
        wait_for(lambda: not self.popups(), "the menu to close")

    def wait_for_message(self):
        return wait_for(self.message_box, "a message box")

    def answer_message(self, key="Return"):
        box = self.wait_for_message()
        wait_for(lambda: self.is_active(box), "the message box to have the keyboard")
        self.key(key)
        # A program that had nothing else to say has ended with it.
        wait_for(lambda: self.process.poll() is not None or not self.message_box(), "the message box to close")

    def start_with_message(self, *arguments, key="Return"):
        """Starts, and answers the message that comes up over the main window."""
        self.stop()
        self.process = self.launch(*arguments)
        self.answer_message(key)
        return self.wait_for_window()

    def show_about(self):
        """Opens the About box and closes it again."""
        self.open_menu("h")
        self.key("a")
        about = wait_for(lambda: self.window_named("About Norvaset"), "the About box")
        wait_for(lambda: self.is_active(about), "the About box to have the focus")
        self.key("Escape")
        wait_for(self.is_active, "the window to have the focus again")

    # What is to be seen and read

    def user_data_path(self):
        """The data file of a reader who may not write into the program's folder."""
        if not self.on_wine:
            return os.path.join(self.home, "share/Norvaset/Norvaset.dat")
        users = os.path.join(self.prefix, "drive_c/users")
        (found,) = glob.glob(users + "/*/AppData/Roaming/Norvaset/Norvaset.dat")
        return found

    def picture(self):
        return wait_for(lambda: grab(self.screen, self.window), "a picture of the window")

    def data_bytes(self):
        with open(self.data_path, "rb") as file:
            return file.read()

    def data(self):
        return DataFile(self.data_bytes().decode())

    def shown_path(self, path):
        """A file's name as this program shows and stores it."""
        return shown_path(path, self.on_wine)

    def wait_for_book(self, path, profile="Default"):
        """Of a path, or of a page's own title."""
        wait_for(lambda: self.title() == f"Norvaset [{profile}] - {self._argument(path)}",
                 f"the title to name {path}")

    def _argument(self, argument):
        return self.shown_path(argument) if argument.startswith("/") else argument
