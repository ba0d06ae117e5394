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
    a page. Wine takes the filling in some time after it is there, tells nobody when, and forgets a
    copy that came before: so it is given more time for it with each attempt."""
    keys = keys or ("ctrl+c",)
    patience = 0  # seconds between the filling and the keys
    filled, pressed = _fill(reader), None

    def copy():
        nonlocal filled, pressed, patience
        now = time.monotonic()
        if pressed is None and now - filled >= patience:
            reader.key(*keys)
            pressed = time.monotonic()
        text = clipboard(reader.screen)
        if pressed and text and text != NOTHING:
            return text
        if pressed and COPIES.issuperset(keys) and now - pressed > AGAIN:
            patience = max(1, 2 * patience)
            # What Wine has not seen being let go, under load, would make another key of it.
            reader.screen.xdotool("keyup", "shift", "ctrl", "alt")
            filled, pressed = _fill(reader), None
        return None
    return wait_for(copy, "a copy")


def _fill(reader):
    fill(reader.screen)
    return time.monotonic()


def fill(screen, text=NOTHING):
    subprocess.run(["xclip", "-selection", "clipboard"], env=screen.environment, check=True,
                   input=text.encode(), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for(lambda: clipboard(screen) == text, "the clipboard to be filled")
