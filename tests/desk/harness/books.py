"""Books of our own: numbered lines in several scripts, so that a place can be told from its text."""

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


def text_at(text, position, length=5):
    """Part of a text by its place in the record: UTF-16 units, a line end counting one."""
    units = text.replace("\r\n", "\n").replace("\r", "\n").encode("utf-16-le")
    return units[2 * position:2 * (position + length)].decode("utf-16-le", errors="replace")


def line_at(text, position):
    """The line of the file that begins at this place, None inside a line."""
    if position > 0 and text_at(text, position - 1, 1) != "\n":
        return None
    return text_at(text, position, 4000).split("\n", 1)[0]
