"""A page from anywhere: nothing that it holds reaches another machine, a file outside its folder, or
the reader's window."""
import os
import socket

from harness.html_story import OWN_VIEW, HtmlStory, needs_engine, write_page
from harness.opened_files import OpenedFiles
from harness.story import main
from harness.wait import wait_for
from harness.wine import ON_WINE, address_path

RED = b"\xff\x00\x00"
GREEN = b"\x00\xff\x00"
PIXEL = ("data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' width='300' height='100'>"
         "<rect width='300' height='100' fill='{}'/></svg>")
HEAD = """
<base href="{url}/base/">
<meta http-equiv="refresh" content="0;url={url}/refresh">
<link rel="stylesheet" href="{url}/sheet.css">
<link rel="stylesheet" href="file://{outside}/near.css"><link rel="stylesheet" href="{folder}/link.css">
<link rel="icon" href="{url}/icon.png"><link rel="prefetch" href="{url}/prefetch">
<link rel="preconnect" href="{url}"><link rel="dns-prefetch" href="{url}">
<link rel="preload" as="image" href="{url}/preload"><link rel="prerender" href="{url}/prerender">
<link rel="modulepreload" href="{url}/module"><link rel="manifest" href="{url}/manifest">
<style>@import url({url}/import.css); @import url(file://{folder}/../outside/far.css);
@font-face {{ font-family: far; src: url({url}/font) }}
body {{ background: url({url}/background); font-family: far, serif; cursor: url({url}/cursor), auto }}
</style>
<script src="{url}/script.js"></script>
<script>document.title = "ran"; fetch("{url}/fetch"); new Image().src = "{url}/image"</script>
"""
BODY = """
<body onload="document.title='ran'">
<p>The miller's daughter</p>
<img src="{url}/picture"><img srcset="{url}/set 2x" src="relative.png">
<img src="x" onerror="document.title='ran'"><input type="image" src="{url}/button">
<iframe src="{url}/frame"></iframe><iframe srcdoc="<img src='{url}/inner'>"></iframe>
<img src="file://{outside}/picture.png"><img src="file://{folder}/../outside/above.png">
<img src="file://{folder}/link.png">
<iframe src="file://{outside}/frame.htm" width="300" height="100"></iframe>
<iframe src="file://{folder}/link.htm" width="300" height="100"></iframe>
<iframe src="javascript:parent.document.title='ran'"></iframe>
<object data="{url}/object"></object><embed src="{url}/embed">
<video src="{url}/video" autoplay poster="{url}/poster"></video><audio src="{url}/audio" autoplay></audio>
<svg><image href="{url}/svg-image"/><use href="{url}/svg-use#x"/></svg>
<img src="file://{folder}/drawing.svg">
<form action="{url}/form"><input autofocus><button>send</button></form>
<a href="{url}/link" ping="{url}/ping">link</a>
<table background="{url}/table"><tr><td>cell</td></tr></table>
"""
DRAWING = ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
           'width="300" height="100"><style>@import url({url}/svg-import);</style>'
           '<image xlink:href="{url}/svg-inside" width="9" height="9"/>'
           '<script>document.title="ran"</script></svg>')


OUTSIDE = {"frame.htm": '<body bgcolor="#ff0000">', "picture.png": "GIF89a", "above.png": "GIF89a",
           "near.css": "p { background: #ff0000 }", "far.css": "p { background: #ff0000 }"}
# To Wine a link is the file that it leads to.
LINKS = {} if ON_WINE else {"link.htm": "frame.htm", "link.png": "picture.png", "link.css": "near.css"}


class HtmlSafety(HtmlStory):
    def setUp(self):
        self.server = socket.socket()
        self.server.bind(("127.0.0.1", 0))
        self.server.listen()
        self.server.setblocking(False)
        self.addCleanup(self.server.close)
        self.folder_of_book = self.path("book")
        os.mkdir(self.folder_of_book)
        self.outside = self.path("outside")
        os.mkdir(self.outside)
        self.url = "http://127.0.0.1:%d" % self.server.getsockname()[1]

    def write(self, name, text):
        path = os.path.join(self.folder_of_book, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def was_called(self):
        try:
            self.server.accept()[0].close()
        except BlockingIOError:
            return False
        return True

    def test_the_server_would_notice(self):
        socket.create_connection(self.server.getsockname(), timeout=10).close()
        self.assertTrue(self.was_called())
        self.assertFalse(self.was_called())

    def test_an_opened_file_would_be_noticed(self):
        self.hostile_book()
        opened = self.watch()
        for name in OUTSIDE:
            with open(os.path.join(self.outside, name), "rb"):
                pass
        self.assertEqual(opened.names(), list(OUTSIDE))
        self.assertEqual(opened.names(), [])

    def watch(self):
        """What is opened outside the book's folder from here on."""
        opened = OpenedFiles(self.outside)
        self.addCleanup(opened.stop)
        return opened

    def hostile_book(self):
        for name, text in OUTSIDE.items():
            with open(os.path.join(self.outside, name), "w", encoding="ascii") as file:
                file.write(text)
        for name, target in LINKS.items():
            os.symlink(os.path.join(self.outside, target), os.path.join(self.folder_of_book, name))
        self.write("drawing.svg", DRAWING.format(url=self.url))
        values = {"url": self.url, "outside": address_path(self.outside),
                  "folder": address_path(self.folder_of_book)}
        return write_page(os.path.join(self.folder_of_book, "book.htm"), BODY.format(**values),
                          "Quay", HEAD.format(**values))

    def test_nothing_leaves(self):
        book = self.hostile_book()
        opened = self.watch()
        program = self.open(book, "Quay")
        for _ in range(3):
            program.key(*["Tab"] * 6, "Return", "space", "Next")
            program.finish_keys()
            program.key("Escape")
        picture = program.picture()
        self.assertFalse(any(picture.pixel(x, y) == RED for x in range(0, picture.width, 20)
                             for y in range(0, picture.height, 20)), "something from outside is seen")
        self.assertEqual(len(program.windows()), 1)
        self.assertEqual(program.title(), "Norvaset [Default] - Quay")
        self.assertFalse(self.was_called())
        program.close()
        self.assertFalse(self.was_called())
        self.assertEqual(opened.names(), [])

    def test_a_title_turns_nothing_around_it(self):
        book = write_page(os.path.join(self.folder_of_book, "book.htm"), "<p>text</p>",
                          "\u202egnp.yauQ\u2066")
        program = self.open(book, "gnp.yauQ")
        program.close()

    def test_what_lies_in_its_folder_shows(self):
        self.write("inner.htm", '<body bgcolor="#00ff00">')
        self.write("look.css", "body { background: #00ff00; margin: 0 }")
        for name, body, head in (
                ("frame", '<iframe src="inner.htm" width="800" height="300"></iframe>', ""),
                ("sheet", "<p>green</p>", '<link rel="stylesheet" href="look.css">'),
                ("data", f'<img src="{PIXEL.format("lime")}">', "")):
            if OWN_VIEW and name != "sheet":  # it has no frames, and draws no SVG
                continue
            with self.subTest(name=name):
                reader = self.reader(name)
                self.open(write_page(os.path.join(self.folder_of_book, name + ".htm"), body, name,
                                     head), name, reader)
                if name != "sheet":  # whose background the reader's colour takes the place of
                    wait_for(lambda: reader.picture().pixel(100, 100) == GREEN, "the green")
                reader.close()

    @needs_engine
    def test_shut_in_as_an_ordinary_user(self):
        book = self.hostile_book()
        os.chmod(self.folder_of_book, 0o755)
        program = self.open(book, "Quay", self.reader(as_nobody=True))
        shut_in = [pid for pid in _descendants(program.process.pid) if _is_filtered(pid)]
        self.assertTrue(shut_in, "no process of the engine has its system calls filtered")
        program.close()
        self.assertFalse(self.was_called())


def _descendants(process):
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
        children = [int(pid) for pid in file.read().split()]
    return children + [pid for child in children for pid in _descendants(child)]


def _is_filtered(process):
    with open(f"/proc/{process}/status", encoding="ascii") as file:
        return "Seccomp:\t2" in file.read()


if __name__ == "__main__":
    main()
