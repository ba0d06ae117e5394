"""What a menu shows, from its picture."""
from harness.wine import ON_WINE

FRAME = 4        # pixels at each side without text
LOWEST_TEXT = 6  # rows; what is lower is a separator
WHITE = 255


CHECKS = (5, 14) if ON_WINE else (6, 22)  # columns, left of the captions, which move with the fonts
LOWEST_CHECK = 6                          # rows


def checked_row(picture):
    """The row where the lowest check mark begins, None without one."""
    found, height = None, 0
    for y in range(FRAME, picture.height - FRAME):
        row = picture.row(y, *CHECKS)
        height = height + 1 if row != row[:3] * (len(row) // 3) else 0
        if height == LOWEST_CHECK:
            found = y - height
    return found


def text_rows(picture):
    """Top and bottom of each item's caption, from the top."""
    result, height = [], 0
    for y in range(FRAME, picture.height - FRAME):
        row = picture.row(y, FRAME, picture.width - FRAME)
        if row == row[:3] * (len(row) // 3):
            if height >= LOWEST_TEXT:
                result.append((y - height, y))
            height = 0
        else:
            height += 1
    return result


def row_darkness(picture):
    """For each item that has a caption, from the top: how dark its darkest pixel is, 0 to 255.
    The marked item counts as dark."""
    return [max(WHITE - min(picture.row(y, FRAME, picture.width - FRAME)) for y in range(top, bottom))
            for top, bottom in text_rows(picture)]
