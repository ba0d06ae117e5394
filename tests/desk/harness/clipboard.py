"""The clipboard, as another program sees it."""
import subprocess
import time

from harness.wait import wait_for

NOTHING = "nothing was copied"
COPIES = {"ctrl+c", "ctrl+Insert"}
AGAIN = 3  # seconds after which a key is taken for lost


def clipboard(screen):
    return screen.output("xclip", "-selection", "clipboard", "-o", "-t", "UTF8_STRING")


def copied(reader, *keys):
    """What the keys copy, in another program's hands while the reader runs on. Without keys it is
    Ctrl+C. A copy is asked for as often as it takes: no command is taken while another one waits for
    a page, and Wine may take the filling in after the copy."""
    keys = keys or ("ctrl+c",)

    def press():
        fill(reader.screen)
        reader.key(*keys)
        return time.monotonic()
    pressed = press()

    def copy():
        nonlocal pressed
        text = clipboard(reader.screen)
        if text and text != NOTHING:
            return text
        if COPIES.issuperset(keys) and time.monotonic() - pressed > AGAIN:
            pressed = press()
        return None
    return wait_for(copy, "a copy")


def fill(screen, text=NOTHING):
    subprocess.run(["xclip", "-selection", "clipboard"], env=screen.environment, check=True,
                   input=text.encode(), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for(lambda: clipboard(screen) == text, "the clipboard to be filled")
