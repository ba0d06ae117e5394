// Applies the same random input to the text view and to the reference view, and compares them.
#pragma once

#include "tests/contract/reference_view/random_book.h"
#include "tests/contract/reference_view/reference_back_end.h"
#include "tests/contract/reference_view/reference_view.h"
#include "tests/random_numbers.h"
#include "tests/unit/pane_bench.h"

class ReferenceComparison {
  public:
    // Loads the book. The line layout must outlive this object.
    ReferenceComparison(LineLayout& lines, Random& random, RandomBook book);
    void Step(); // applies one input
    const std::string& Done() const { return done_; }

    void CheckPlace(); // fast: scroll position and caret
    void CheckAll();

  private:
    TextPane& Pane() { return view_.Pane(); }
    double Ratio() const { return view_.window.dpi / 96; }
    Size Room() const { return view_.window.Room(); }
    TextPos Length() const { return TextPos(reference_.settings.text.size()); }
    TextPos Somewhere() { return Below(random_, Length() + 1); }
    const ReferenceText& Reference() const { return reference_.Reference(); }
    int BlockTop(TextPos start) const; // of the block that starts there

    // Input.
    enum class Change { None, CodePage, Book };
    void Load(Change change);
    void LoadPlain(bool otherCodePage);
    void LoadRich();
    void OtherBook();
    void Resize();
    void ChangeStyle();
    void ChangeFont();
    void Fit();
    FontMetrics ViewFontMetrics() const;
    void Scroll();
    void Wheel();
    void Click();
    void SelectSome();
    void Press();
    void GoSideways(PaneKey key, bool control, bool extend);
    void GoVertically(PaneKey key, bool extend);
    void Follow(const ReferenceLine& line, int x, bool extend);

    // Comparison.
    void CheckVisibleLines();
    void CheckLine(const ReferenceLine& line);
    void CheckCharacter(const BlockLayout& layout, int blockTop, const ReferenceLine& line,
                        TextPos at);
    void CheckLinesAnywhere();
    void CheckCopy();
    bool SplitsPair(TextPos position) const;
    void CheckPaint();
    std::unique_ptr<PanePicture> Painted(const Rect& part);
    void CheckSelection(const PanePicture& picture);
    bool MayBeCovered(const ReferenceLine& line) const;
    void CheckSelectedLine(const PanePicture& picture, const ReferenceLine& line);
    bool IsPartlySelected(TextPos start, TextPos end) const;
    bool IsBlankAtEnd(const ReferenceLine& line, TextPos at) const;

    Random& random_;
    RandomBook book_;
    Document document_;
    PaneBench view_;
    ReferenceView reference_;
    int margin_ = 0;
    bool moved_ = false; // the caret was moved by a key
    std::string done_;   // the last input
};
