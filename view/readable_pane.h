// A pane whose text assistive technology can read. Positions are those of its source.
#pragma once

#include "common/text_source.h"
#include "view/reading_format.h"
#include "view/reading_object.h"
#include "view/view_pane.h"

#include <algorithm>
#include <vector>

class ReadablePane : public ViewPane {
  public:
    virtual const TextSource& Source() const = 0;
    virtual bool HasCellMarks() const { return false; } // u'\a' ends a table's cell

    virtual TextPos Anchor() const = 0;
    virtual TextPos Caret() const = 0; // one end of the selection
    TextPos SelStart() const { return std::min(Anchor(), Caret()); }
    TextPos SelEnd() const { return std::max(Anchor(), Caret()); }
    virtual void Select(TextPos anchor, TextPos caret) = 0; // clamped to the text
    virtual void Reveal(TextPos position) = 0;
    virtual void ScrollLineToTop(TextPos position) = 0;

    // Where characters are on the screen.
    virtual TextPos CharacterAtPoint(Point point) = 0;
    virtual Rect CharacterRect(TextPos position) = 0; // above or below the view if out of it
    // From the start of the first line that is partly in view to the end of the last one.
    virtual TextSpan VisibleText() = 0;
    // Of each line in view that has a part of the span: what the characters of that part cover,
    // within the pane.
    virtual std::vector<Rect> VisibleBoxes(TextSpan span) = 0;

    // Stretches that tile the text.
    virtual TextSpan ReadingParagraph(TextPos position) = 0; // with its break
    virtual TextSpan ReadingLine(TextPos position) = 0;      // up to the next one
    virtual TextSpan StyleSpan(TextPos position) = 0;        // of one style
    // A page is what fits on the screen: where the one that starts at a position's line ends, and
    // where the one that ends there starts.
    virtual TextPos ReadingPageEnd(TextPos position) = 0;
    virtual TextPos ReadingPageStart(TextPos position) = 0;

    virtual CharacterFormat CharacterFormatAt(TextPos position) = 0;
    virtual ParagraphFormat ParagraphFormatAt(TextPos position) = 0;

    // What it has besides characters: the same until the version is another one.
    virtual bool HasStructure() const { return false; } // whether it ever has any
    virtual const ReadingObjects& Objects();
    virtual int ObjectsVersion() const { return 0; }
    virtual Rect ObjectRect(std::size_t) { return {}; } // empty where it is not shown
    virtual void FollowObject(std::size_t) {}           // a link
    virtual std::size_t FocusedObject() { return noReadingObject; }
};
