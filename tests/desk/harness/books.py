"""Books of our own: numbered lines in several scripts: the text shows the place."""

SENTENCES = {
    "latin": "the miller's daughter counted the lanterns along the quay",
    "accents": "à l'été, où naît le façonné, süße Äpfel für die Küche",
    "cyrillic": "мельник считал фонари вдоль набережной до самого утра",
    "hebrew": "בת הטוחן ספרה את הפנסים לאורך הרציף עד הבוקר",
    "arabic": "عدت ابنة الطحان الفوانيس على طول الرصيف حتى الصباح",
    "japanese": "粉屋の娘は波止場の明かりを朝まで数えていた",
}


def lines(script, count):
    sentence = SENTENCES[script]
    # Every line looks different at its start, whatever the script.
    return [f"{number:05} {sentence[number % 7:]} {number * 7919 % 10007}"
            for number in range(1, count + 1)]


def long_paragraphs(script, count):
    """Paragraphs that a window has to break into several lines."""
    pieces = lines(script, 6 * count)
    return [" ".join(pieces[i:i + 6]) for i in range(0, len(pieces), 6)]


def write_book(path, texts, encoding="utf-8", line_end="\r\n", mark=b""):
    with open(path, "wb") as file:
        file.write(mark + "".join(text + line_end for text in texts).encode(encoding))
    return path


# A square of 2 by 2 pixels, shown 400 twips wide.
PICTURE = r"{\pict\pngblip\picw2\pich2\picwgoal400\pichgoal400 " + (
    "89504e470d0a1a0a0000000d4948445200000002000000020802000000fdd49a7300000012494441"
    "54789c6338a1010427188018c802001eae0461e86cdd5a0000000049454e44ae426082") + "}"
ROW = r"\trowd\cellx3000\cellx6000 \intbl %s\cell\intbl %s\cell\row\pard"


def write_rtf_book(path, texts):
    """Paragraphs, with a picture and a row of a table after each tenth."""
    pieces = [r"{\rtf1\ansi\deff0{\fonttbl{\f0 DejaVu Serif;}}\f0\fs24 "]
    for number, text in enumerate(texts):
        pieces.append(text + r"\par")
        if number % 10 == 9:
            pieces += [PICTURE + r"\par", ROW % (f"row {number}", text[:5])]
    with open(path, "w", encoding="ascii") as file:
        file.write("\n".join(pieces) + "}\n")
    return path


def text_at(text, position, length=5):
    """Part of a text by its place in the record: UTF-16 units, a line end counting one."""
    units = text.replace("\r\n", "\n").replace("\r", "\n").encode("utf-16-le")
    return units[2 * position:2 * (position + length)].decode("utf-16-le", errors="replace")


def line_at(text, position):
    """The line of the file that begins at this place, None inside a line."""
    if position > 0 and text_at(text, position - 1, 1) != "\n":
        return None
    return text_at(text, position, 4000).split("\n", 1)[0]
