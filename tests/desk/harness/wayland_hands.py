"""Keys and the mouse on a Wayland compositor that takes virtual ones."""
import tempfile

from harness.wayland_client import WaylandClient

MODIFIERS = {"shift": (42, 1), "ctrl": (29, 4), "alt": (56, 8)}  # key code and bit
BUTTONS = {1: 0x110, 2: 0x112, 3: 0x111}  # of linux/input-event-codes.h
FIXED = 256  # parts of a pixel or step
KEYMAP = b"""xkb_keymap {
    xkb_keycodes { include "evdev+aliases(qwerty)" };
    xkb_types { include "complete" };
    xkb_compat { include "complete" };
    xkb_symbols { include "pc+us+inet(evdev)" };
};
"""
# By the rows of a keyboard, as linux/input-event-codes.h counts.
KEYS = {name: first + at for first, row in (
    (1, "Escape 1 2 3 4 5 6 7 8 9 0 minus equal BackSpace Tab q w e r t y u i o p"),
    (28, "Return"), (30, "a s d f g h j k l"), (44, "z x c v b n m comma period slash"),
    (57, "space"), (59, "F1 F2 F3 F4 F5 F6 F7 F8 F9 F10"), (87, "F11 F12"),
    (102, "Home Up Prior Left Right End Down Next Insert Delete"), (127, "Menu"),
) for at, name in enumerate(row.split())}
CREATE = 0


class WaylandHands:
    def __init__(self, path, size):
        """`path`: the compositor's socket; `size`: its screen's."""
        self._client, self._size, self._time = WaylandClient(path), size, 0
        seat = self._client.bind("wl_seat")
        self._keyboard = self._create("zwp_virtual_keyboard_manager_v1", seat)
        self._pointer = self._create("zwlr_virtual_pointer_manager_v1", seat)
        with tempfile.TemporaryFile() as file:
            file.write(KEYMAP + b"\0")
            file.flush()
            self._client.send(self._keyboard, 0, 1, len(KEYMAP) + 1, file=file.fileno())
            self._client.sync()

    def close(self):
        self._client.close()

    def _create(self, manager, seat):
        manager, created = self._client.bind(manager), self._client.new_id()
        self._client.send(manager, CREATE, seat, created)
        return created

    def _now(self):
        """Milliseconds; what happens later has a later time."""
        self._time += 10
        return self._time

    def key(self, *keys):
        """Presses keys such as "ctrl+shift+End", one after the other."""
        for key in keys:
            *held, name = key.split("+")
            self._modify(held)
            for state in (1, 0):
                self._client.send(self._keyboard, 1, self._now(), KEYS[name], state)
            self._modify([], held)
        self._client.sync()

    def _modify(self, held, released=()):
        for name, state in [(name, 1) for name in held] + [(name, 0) for name in released]:
            self._client.send(self._keyboard, 1, self._now(), MODIFIERS[name][0], state)
        bits = sum(MODIFIERS[name][1] for name in held)
        self._client.send(self._keyboard, 2, bits, 0, 0, 0)

    def hold(self, *names):
        self._modify(list(names))
        self._client.sync()

    def let_go(self, *names):
        self._modify([], names)
        self._client.sync()

    def move(self, x, y):
        self._client.send(self._pointer, 1, self._now(), x, y, *self._size)
        self._frame()

    def button(self, pressed, number=1):
        self._client.send(self._pointer, 2, self._now(), BUTTONS[number], int(pressed))
        self._frame()

    def click(self, x, y, number=1):
        self.move(x, y)
        self.button(True, number)
        self.button(False, number)

    def wheel(self, steps):
        """Down; upwards for a negative number."""
        for _ in range(abs(steps)):
            step = 1 if steps > 0 else -1
            self._client.send(self._pointer, 5, 0)
            self._client.send(self._pointer, 7, self._now(), 0, step * 15 * FIXED, step)
            self._frame()

    def _frame(self):
        self._client.send(self._pointer, 4)
        self._client.sync()
