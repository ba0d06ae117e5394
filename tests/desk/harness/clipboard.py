"""The clipboard, as another program sees it."""
import subprocess
import time

from harness.wait import DEADLINE, wait_for

NOTHING = "nothing was copied"
AGAIN = 3  # seconds after which a key is taken for lost
READ = ("xclip", "-selection", "clipboard", "-o", "-t", "UTF8_STRING")
LATE = 2  # seconds; an answer takes some hundredths of one


def clipboard(screen, attempts=5):
    """Wine may leave its answer in a buffer until it is asked something else: so it is asked again,
    while the first question stays, since an answer to a window that is gone is an X error."""
    with subprocess.Popen(READ, env=screen.environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as asked:
        try:
            text = asked.communicate(timeout=LATE)[0].decode(errors="replace")
            return text if asked.returncode == 0 else ""
        except subprocess.TimeoutExpired:
            text = clipboard(screen, attempts - 1) if attempts > 1 else ""
            asked.kill()
            return text


def copied(reader, *keys, opening=lambda: None, deadline=DEADLINE):
    """What another program gets from the clipboard after these keys (Ctrl+C when none are given),
    while the reader runs on. The keys are repeated until they have an effect: the reader ignores
    commands while one waits for a page. Wine notices the text that fills the clipboard before some
    time later, which nothing tells, and drops a copy made until then: each attempt gives it longer.
    Keys in a menu are repeated, too, after `opening` has opened it."""
    keys = keys or ("ctrl+c",)
    patience = 0  # seconds between the filling and the keys
    filled, pressed = _fill(reader), None

    def copy():
        nonlocal filled, pressed, patience
        now = time.monotonic()
        if pressed is None and now - filled >= patience:
            opening()
            reader.key(*keys)
            pressed = time.monotonic()
        text = clipboard(reader.screen)
        if pressed and text and text != NOTHING:
            return text
        if pressed and now - pressed > AGAIN:
            patience = max(1, 2 * patience)
            # What Wine has not seen being let go, under load, would make another key of it.
            reader.screen.xdotool("keyup", "shift", "ctrl", "alt")
            filled, pressed = _fill(reader), None
        return None
    return wait_for(copy, "a copy", deadline)


def _fill(reader):
    fill(reader.screen)
    return time.monotonic()


def fill(screen, text=NOTHING):
    subprocess.run(["xclip", "-selection", "clipboard"], env=screen.environment, check=True,
                   input=text.encode(), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for(lambda: clipboard(screen) == text, "the clipboard to be filled")
