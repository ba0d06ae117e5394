"""What two layouts of a page have in common."""
import collections
import json
import os
import pathlib
import subprocess

FOLDER = pathlib.Path(__file__).resolve().parent
SMALL_PAGE, SMALL_BOXES, SMALL_WIDTHS = FOLDER / 'small_page.htm', FOLDER / 'small_page.json', (400, 700)

NEAR, SHARE = 2, 0.02  # pixels, or of the length
Box = collections.namedtuple('Box', 'left top width height')


def our_page(program, path, width):
    output = subprocess.run([program, path, str(width)], check=True, stdout=subprocess.PIPE,
                            env={**os.environ, 'QT_QPA_PLATFORM': 'offscreen'}, timeout=600).stdout
    return json.loads(output)


def agrees(ours, theirs):
    return abs(ours - theirs) <= max(NEAR, SHARE * abs(theirs))


def boxes_of(page):
    return {element: Box(*box) for element, *box in page['boxes']}


class Comparison:
    """Each kind's count, how many agree, and what does not: [element, what, ours, theirs]."""

    def __init__(self, ours, theirs):
        self.ours, self.theirs = ours, theirs
        self.counts, self.agreeing, self.faults = collections.Counter(), collections.Counter(), []
        self.text_equal = ours['text'] == theirs['text']
        self.compare_lines()
        self.compare_boxes()

    def compare_lines(self):
        """A line is the same when its first and its last letter are."""
        spans = {tuple(line[5:]) for line in self.ours['lines']}
        for line in self.theirs['lines']:
            self.count('lines', tuple(line[5:]) in spans, line[0], 'line', None, line[5:])

    def compare_boxes(self):
        """In document order; where a box begins is told from the one before it."""
        ours, theirs = boxes_of(self.ours), boxes_of(self.theirs)
        paragraphs = {line[0] for line in self.theirs['lines']}
        kinds = {int(element): kind for element, kind in self.theirs['kinds'].items()}
        before = None
        for element in sorted(paragraphs | kinds.keys()):
            if element not in theirs:
                continue
            kind = kinds.get(element, 'paragraphs')
            if element not in ours:
                self.count(kind, False, element, 'missing', None, theirs[element])
                continue
            self.count(kind, *self.difference(ours, theirs, element, before))
            if kind in ('paragraphs', 'pictures', 'tables', 'rules'):
                before = element

    def difference(self, ours, theirs, element, before):
        a, b = ours[element], theirs[element]
        for name in ('left', 'width', 'height'):
            if not agrees(getattr(a, name), getattr(b, name)):
                return False, element, name, getattr(a, name), getattr(b, name)
        if before is not None:
            distances = a.top - ours[before].top, b.top - theirs[before].top
            if not agrees(*distances):
                return False, element, 'top', *distances
        return True, element, '', None, None

    def count(self, kind, good, element, what, ours, theirs):
        self.counts[kind] += 1
        self.agreeing[kind] += good
        if not good:
            self.faults.append([kind, element, what, ours, theirs])

    def share(self, kind):
        return 100 * self.agreeing[kind] / self.counts[kind] if self.counts[kind] else None
