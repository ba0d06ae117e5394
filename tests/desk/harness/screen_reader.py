"""The program as assistive technology sees it (AT-SPI), over an accessibility bus of the story's own."""
import os
import warnings

from harness.session_bus import BUS, SessionBus
from harness.wait import wait_for

try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, Gio, GLib
except (ImportError, ValueError):
    Atspi = None

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"  # what the bus starts when it is asked for it
PATIENCE = 20_000  # milliseconds for one answer; the machine may be busy
WORD, SENTENCE, LINE, CHARACTER = range(4)


def is_installed():
    return Atspi is not None and os.access(LAUNCHER, os.X_OK) and any(
        os.access(os.path.join(folder, BUS), os.X_OK)
        for folder in os.environ["PATH"].split(os.pathsep))


class ScreenReader:
    def __init__(self, screen):
        """One for each process. Programs that are started on the screen from now on are heard."""
        self._heard = []
        self._bus = SessionBus(screen)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._bus.address
        os.environ["DISPLAY"] = screen.environment["DISPLAY"]
        _say_that_one_runs(self._bus.address)
        Atspi.init()
        Atspi.set_timeout(PATIENCE, PATIENCE)
        self._listener = Atspi.EventListener.new(self._hear)

    def listen(self, *kinds):
        for kind in kinds:
            self._listener.register(kind)

    def _hear(self, event):
        inserted = event.type == "object:text-changed:insert"
        self._heard.append((event.type, event.detail2 if inserted else event.detail1))

    def heard(self):
        """The events so far, repeated ones once: its kind, and its place or length or state."""
        while GLib.MainContext.default().iteration(False):
            pass
        heard, self._heard = self._heard, []
        return heard

    def wait_for_event(self, condition, what):
        """The first event of which the condition holds; those before it are forgotten."""
        return wait_for(lambda: next((e for e in self.heard() if condition(*e)), None), what)

    def window(self, process, title=None):
        """The program's active window, with this title if one is given."""
        def found():
            desktop = Atspi.get_desktop(0)
            for program in children(desktop):
                if _or_none(program.get_process_id) != process.pid:
                    continue
                program.set_cache_mask(Atspi.Cache.NONE)  # things are asked for as they are now
                for window in children(program):
                    if "active" in states(window) and title in (None, window.get_name()):
                        return window
            return None
        return wait_for(lambda: _or_none(found), "the window's event")

    def stop(self):
        self._bus.stop()


def _say_that_one_runs(address):
    flags = Gio.DBusConnectionFlags
    bus = Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
    bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                  GLib.Variant("(ssv)", ("org.a11y.Status", "ScreenReaderEnabled",
                                         GLib.Variant("b", True))),
                  None, Gio.DBusCallFlags.NONE, PATIENCE, None)


def _or_none(ask):
    """What is asked for may have gone by now."""
    try:
        return ask()
    except GLib.Error:
        return None


def children(thing):
    for index in range(_or_none(thing.get_child_count) or 0):
        child = _or_none(lambda: thing.get_child_at_index(index))
        if child:
            yield child


def states(thing):
    return {state.value_nick for state in thing.get_state_set().get_states()}


def all_within(thing):
    for child in children(thing):
        yield child
        yield from all_within(child)


def find(root, role, called=None):
    """The first thing in there that is shown and has this role, and this name if one is given."""
    def found():
        for thing in all_within(root):
            if (thing.get_role_name() == role and "showing" in states(thing)
                    and called in (None, thing.get_name())):
                return thing
        return None
    return wait_for(lambda: _or_none(found), f"the {role} {called or ''}")


def at(text, offset, kind):
    """The word, sentence, line or character at an offset: its text, start and end."""
    boundary = {CHARACTER: Atspi.TextBoundaryType.CHAR, WORD: Atspi.TextBoundaryType.WORD_START,
                SENTENCE: Atspi.TextBoundaryType.SENTENCE_START,
                LINE: Atspi.TextBoundaryType.LINE_START}[kind]
    with warnings.catch_warnings():
        warnings.simplefilter("ignore", DeprecationWarning)  # Qt 6.4 answers no newer question
        piece = Atspi.Text.get_text_at_offset(text, offset, boundary)
    return piece.content, piece.start_offset, piece.end_offset


def read_on(text, offset, kind, most=1_000_000):
    """Piece by piece as a screen reader goes through a text, to its end."""
    while most > 0:
        content, start, end = at(text, offset, kind)
        if end <= offset:
            return  # after the text's last piece, which is answered again
        if start != offset:
            raise AssertionError(f"asked at {offset}, answered from {start}: {content!r}")
        yield content
        offset, most = end, most - 1


def paragraph_at(text, offset):
    """None where Qt reports no paragraphs."""
    piece = _or_none(
        lambda: text.get_string_at_offset(offset, Atspi.TextGranularity.PARAGRAPH))
    return piece and piece.content


def attributes(text, offset):
    return Atspi.Text.get_attribute_run(text, offset, False)[0]


def box(text, offset):
    """Where a character is on the screen: left, top, width, height."""
    place = text.get_character_extents(offset, Atspi.CoordType.SCREEN)
    return place.x, place.y, place.width, place.height


def offset_at(text, x, y):
    return text.get_offset_at_point(x, y, Atspi.CoordType.SCREEN)


def press(thing):
    """Does what a click on it would do."""
    Atspi.Action.do_action(thing, 0)
