"""A keyboard, a mouse and a launcher's tokens on Wayland: a client that speaks the wire protocol itself."""
import socket
import struct

DISPLAY, REGISTRY = 1, 2
SYNC, GET_REGISTRY, BIND = 0, 1, 0  # requests of wl_display and wl_registry
ERROR, GLOBAL, DONE = 0, 0, 0  # events of wl_display, wl_registry and of callbacks and tokens
PATIENCE = 30  # seconds for one answer


class WaylandClient:
    def __init__(self, path):
        """`path`: the compositor's socket."""
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.settimeout(PATIENCE)
        self._socket.connect(path)
        self._received, self._next_id, self._globals = b"", REGISTRY, {}
        self.send(DISPLAY, GET_REGISTRY, self.new_id())
        self.sync()

    def close(self):
        self._socket.close()

    def new_id(self):
        self._next_id += 1
        return self._next_id - 1

    def send(self, target, request, *arguments, file=None):
        """Arguments are numbers, signed or not, and bytes for strings."""
        body = b"".join(map(_encoded, arguments))
        message = struct.pack("=II", target, (8 + len(body)) << 16 | request) + body
        files = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, struct.pack("i", file))] if file else []
        self._socket.sendmsg([message], files)

    def bind(self, interface):
        """The compositor's global object of this interface, in its first version."""
        if interface not in self._globals:
            raise AssertionError(f"the compositor has no {interface}")
        bound = self.new_id()
        self.send(REGISTRY, BIND, self._globals[interface], interface.encode(), 1, bound)
        return bound

    def sync(self):
        """Waits until the compositor has done all that was asked so far."""
        callback = self.new_id()
        self.send(DISPLAY, SYNC, callback)
        self.wait_for(callback, DONE)

    def wait_for(self, source, event):
        """The arguments of this event, undecoded."""
        while True:
            sender, kind, body = self._event()
            if (sender, kind) == (DISPLAY, ERROR):
                raise AssertionError("the compositor complains: " + string_of(body[8:]))
            if (sender, kind) == (REGISTRY, GLOBAL):
                self._globals[string_of(body[4:])] = struct.unpack_from("=I", body)[0]
            if (sender, kind) == (source, event):
                return body

    def _event(self):
        sender, kind = struct.unpack("=II", self._take(8))
        return sender, kind & 0xFFFF, self._take((kind >> 16) - 8)

    def _take(self, count):
        while len(self._received) < count:
            more = self._socket.recv(65536)
            if not more:
                raise AssertionError("the compositor is gone")
            self._received += more
        taken, self._received = self._received[:count], self._received[count:]
        return taken


def _encoded(argument):
    if isinstance(argument, bytes):
        text = argument + b"\0"
        return struct.pack("=I", len(text)) + text + b"\0" * (-len(text) % 4)
    return struct.pack("=i" if argument < 0 else "=I", argument)


def string_of(body):
    return body[4:4 + struct.unpack_from("=I", body)[0] - 1].decode()


def activation_token(client):
    """What a launcher gives to a program that its user starts."""
    get_token, commit = 1, 3
    manager, token = client.bind("xdg_activation_v1"), client.new_id()
    client.send(manager, get_token, token)
    client.send(token, commit)
    return string_of(client.wait_for(token, DONE))
