"""A stand-in for the desktop's settings portal, on a session bus of its own. Run by Debian's own
Python, to which the bindings belong: it says "ready", then takes each line as the new scheme, or
as whether recent files are remembered, and says "asked" when it is asked about that."""
import sys

import gi
gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
KEY = ("org.freedesktop.appearance", "color-scheme")
PRIVACY = ("org.gnome.desktop.privacy", "remember-recent-files")
SCHEMES = {"none": 0, "dark": 1, "light": 2}
INTERFACE = f"""<node><interface name="{SETTINGS}">
<method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="v" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


class Portal:
    def __init__(self, scheme):
        self.scheme, self.remembers, self.loop = scheme, True, GLib.MainLoop()
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self.bus.register_object(PATH, interface, self.answer, None, None)
        Gio.bus_own_name_on_connection(self.bus, NAME, Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: print("ready", flush=True), None)
        GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT,
                          GLib.IOCondition.IN | GLib.IOCondition.HUP, self.change)

    def value(self):
        return GLib.Variant("u", SCHEMES[self.scheme])

    def answer(self, _bus, _sender, _path, _interface, _method, asked, call):
        if asked.unpack() == KEY:
            self.give(call, self.value())
        elif asked.unpack() == PRIVACY:
            self.give(call, GLib.Variant("b", self.remembers))
            print("asked", flush=True)
        else:
            call.return_dbus_error("org.freedesktop.portal.Error.NotFound", "not known")

    def give(self, call, value):
        wrapped = GLib.Variant("v", GLib.Variant("v", value))
        call.return_value(GLib.Variant.new_tuple(wrapped))

    def change(self, *_):
        line = sys.stdin.readline().strip()
        if not line:
            self.loop.quit()
            return False
        if line in ("remember", "forget"):
            self.remembers = line == "remember"
            return True
        self.scheme = line
        self.bus.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                             GLib.Variant("(ssv)", (*KEY, self.value())))
        return True


if __name__ == "__main__":
    Portal(sys.argv[1]).loop.run()
