"""Pictures of a window, compared pixel by pixel."""
import subprocess

TAKING = 20      # seconds
COLOURED = 60    # between the channels of a pixel that is no shade of grey
CARET_WIDTH = 3  # pixels; the caret may be on in one picture and off in the other


class Picture:
    def __init__(self, width, height, pixels):
        """`pixels`: three bytes each, row after row."""
        self.width, self.height, self.pixels = width, height, pixels

    def pixel(self, x, y):
        at = 3 * (y * self.width + x)
        return self.pixels[at:at + 3]

    def row(self, y, left=0, right=None):
        at, right = y * self.width, self.width if right is None else right
        return self.pixels[3 * (at + left):3 * (at + right)]

    def crop(self, left, top, right, bottom):
        rows = [self.row(y, left, right) for y in range(top, bottom)]
        return Picture(right - left, bottom - top, b"".join(rows))

    def looks_like(self, other):
        """The same but for a caret."""
        if (self.width, self.height) != (other.width, other.height):
            return False
        left, right = self.width, -1  # the columns that differ so far
        for y in range(self.height):
            mine, others = self.row(y), other.row(y)
            if mine != others:
                unlike = [i // 3 for i in range(len(mine)) if mine[i] != others[i]]
                left, right = min(left, unlike[0]), max(right, unlike[-1])
                if right - left >= CARET_WIDTH:
                    return False
        return True

    def coloured(self):
        """The pixels that are no shade of grey: in a book of black on white, what is selected."""
        pixels = self.pixels
        return sum(max(pixels[i:i + 3]) - min(pixels[i:i + 3]) > COLOURED
                   for i in range(0, len(pixels), 3))

    def is_plain(self):
        return self.pixels == self.pixels[:3] * (self.width * self.height)


def grab(screen, window):
    """The picture of a window, or None while it cannot be taken."""
    try:
        done = subprocess.run(["import", "-silent", "-window", str(window), "-depth", "8", "ppm:-"],
                              env=screen.environment, capture_output=True, check=False,
                              timeout=TAKING)
    except subprocess.TimeoutExpired:
        return None  # for a window that is gone it waits until somebody clicks at another
    header = done.stdout.split(b"\n", 3)
    if done.returncode != 0 or len(header) != 4:
        return None
    width, height = map(int, header[1].split())
    pixels = header[3]
    return Picture(width, height, pixels) if len(pixels) == 3 * width * height else None


def keep(screen, window, path):
    """Keeps a picture for a person to look at; "root" is the whole screen."""
    subprocess.run(["import", "-silent", "-window", str(window), path], env=screen.environment,
                   check=False)
