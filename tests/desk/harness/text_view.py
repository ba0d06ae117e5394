"""What the text view shows, cut out of a picture of the window."""
from harness.wait import wait_for

MARGIN_X = 7        # a column between the window's edge and the text, which holds no text
SCROLL_BAR = 30     # pixels kept off the right edge
STATUS_HEIGHT = 40  # more than the status bar's, off the window's lower edge
STRIP_HEIGHT = 40   # two lines in the default font


def view_top(picture):
    """The first row of the view: where its plain margin begins."""
    def begins(y):
        colour = picture.pixel(MARGIN_X, y)
        return all(picture.pixel(MARGIN_X, y + i) == colour for i in range(1, 100))
    return next((y for y in range(10, picture.height - 100) if begins(y)), None)


def top_strip(picture, height=STRIP_HEIGHT):
    """The first rows of the view; None while nothing is drawn there."""
    top = view_top(picture)
    if top is None:
        return None
    strip = picture.crop(MARGIN_X, top, picture.width - SCROLL_BAR, top + height)
    return None if strip.is_plain() else strip


def settled_strip(reader, height=STRIP_HEIGHT):
    """The first rows, once two pictures in a row show the same."""
    last = None

    def same_again():
        nonlocal last
        before, last = last, top_strip(reader.picture(), height)
        return before and last and last.looks_like(before)
    wait_for(same_again, "a picture that stays")
    return last


def wait_for_strip(reader, strip):
    def shows_it():
        now = top_strip(reader.picture())
        return now and now.looks_like(strip)
    wait_for(shows_it, "the same lines at the top as before")


def ink(picture):
    """The columns at which the lettering of the view begins and ends; None without any."""
    top = view_top(picture)
    if top is None:
        return None
    view = picture.crop(MARGIN_X, top, picture.width - SCROLL_BAR, picture.height - STATUS_HEIGHT)
    paper = view.pixel(0, 0) * view.width
    left, right = view.width, -1
    for y in range(view.height):
        row = view.row(y)
        if row == paper:
            continue
        unlike = [i // 3 for i in range(len(row)) if row[i] != paper[i]]
        left, right = min(left, unlike[0]), max(right, unlike[-1])
    return (MARGIN_X + left, MARGIN_X + right) if right >= 0 else None


def settled_ink(reader):
    settled_strip(reader)
    return ink(reader.picture())
