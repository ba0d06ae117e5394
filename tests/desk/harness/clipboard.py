"""The clipboard, as another program sees it."""
import subprocess

from harness.wait import wait_for

NOTHING = "nothing was copied"


def clipboard(screen):
    return screen.output("xclip", "-selection", "clipboard", "-o", "-t", "UTF8_STRING")


def copied(reader, *keys):
    """What the keys copy, in another program's hands while the reader runs on."""
    fill(reader.screen)
    reader.key(*keys or ["ctrl+c"])
    return wait_for(lambda: (text := clipboard(reader.screen)) != NOTHING and text, "a copy")


def fill(screen):
    subprocess.run(["xclip", "-selection", "clipboard"], env=screen.environment, check=True,
                   input=NOTHING.encode(), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_for(lambda: clipboard(screen) == NOTHING, "the clipboard to be filled")
