"""The words that a window shows, read off the screen."""
import shutil
import subprocess

ENLARGED = "300%"  # small letters are read badly


def can_read():
    return shutil.which("tesseract") is not None


def squeezed(text):
    """Without blanks, which are not always seen where they are."""
    return "".join(text.split())


def words_shown(screen, window):
    """The text of the window, squeezed; "" while it cannot be read."""
    picture = subprocess.run(["import", "-silent", "-window", str(window), "-colorspace", "gray",
                              "-resize", ENLARGED, "png:-"],
                             env=screen.environment, capture_output=True, check=False)
    if picture.returncode != 0:
        return ""
    read = subprocess.run(["tesseract", "-", "-", "--psm", "11"], input=picture.stdout,
                          env=screen.environment | {"OMP_THREAD_LIMIT": "1"},
                          capture_output=True, check=False)
    return squeezed(read.stdout.decode(errors="replace"))


def place_of(screen, window, word):
    """The middle of a word in the window, in its pixels; None while it cannot be read."""
    return next(iter(places_of(screen, window, word)), None)


def places_of(screen, window, word):
    """Wherever the word is, in no order."""
    picture = subprocess.run(["import", "-silent", "-window", str(window), "-colorspace", "gray",
                              "-resize", ENLARGED, "png:-"],
                             env=screen.environment, capture_output=True, check=False)
    read = subprocess.run(["tesseract", "-", "-", "--psm", "11", "tsv"], input=picture.stdout,
                          env=screen.environment | {"OMP_THREAD_LIMIT": "1"},
                          capture_output=True, check=False)
    found = []
    for line in read.stdout.decode(errors="replace").splitlines():
        fields = line.split("\t")  # 12 of them, the box from the seventh on
        if fields[-1].strip("(.,\"“”") == word:
            left, top, width, height = map(int, fields[6:10])
            found.append(((left + width // 2) // 3, (top + height // 2) // 3))
    return found
