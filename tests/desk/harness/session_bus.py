"""A private D-Bus session bus for a story."""
import os
import subprocess

BUS = "dbus-daemon"


class SessionBus:
    def __init__(self, screen):
        """Programs that are started on the screen from now on are on it."""
        runtime = os.path.join(screen.folder, "bus")
        os.mkdir(runtime, 0o700)
        read, write = os.pipe()
        with open(os.path.join(runtime, "log"), "wb") as log:
            self._process = subprocess.Popen(
                [BUS, "--session", "--nofork", "--nopidfile", f"--print-address={write}"],
                env=screen.environment | {"XDG_RUNTIME_DIR": runtime}, pass_fds=[write],
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        os.close(write)
        with os.fdopen(read) as answer:
            self.address = answer.readline().strip()
        screen.environment["DBUS_SESSION_BUS_ADDRESS"] = self.address

    def stop(self):
        self._process.terminate()
        self._process.wait()
