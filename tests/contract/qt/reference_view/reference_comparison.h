// Applies the same random input to the text view and to the reference view, and compares them.
#pragma once

#include "tests/contract/qt/reference_view/random_book.h"
#include "tests/contract/qt/reference_view/reference_view.h"
#include "tests/contract/qt/text_view_bench.h"
#include "tests/random_numbers.h"

#include <QImage>

class ReferenceComparison {
  public:
    ReferenceComparison(Random& random, RandomBook book); // loads the book
    void Step();                                          // applies one input
    const std::string& Done() const { return done_; }

    void CheckPlace(); // fast: scroll position and caret
    void CheckAll();

  private:
    QtTextView& View() { return bench_.view; }
    TextWidget& Widget() { return bench_.Widget(); }
    double Ratio() { return bench_.Widget().devicePixelRatioF(); }
    TextPos Size() const { return TextPos(reference_.settings.text.size()); }
    TextPos Somewhere() { return Below(random_, Size() + 1); }
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
    void Scroll();
    void Wheel();
    void Click();
    void SelectSome();
    void Press();
    void GoSideways(int key, bool control, bool extend);
    void GoVertically(int key, bool extend);
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
    void HighlightIn(const QColor& color);
    QImage Painted(const QRect& part);
    void CheckSelection(const QImage& image, QRgb selected);
    void CheckSelectedLine(const QImage& image, QRgb selected, const ReferenceLine& line);
    bool IsBlankAtEnd(const ReferenceLine& line, TextPos at) const;

    Random& random_;
    RandomBook book_;
    Document document_;
    QtViewBench bench_;
    ReferenceView reference_;
    QImage screen_{1, 1, QImage::Format_Mono};
    int margin_ = 0;
    bool moved_ = false; // the caret was moved by a key
    std::string done_;   // the last input
};
