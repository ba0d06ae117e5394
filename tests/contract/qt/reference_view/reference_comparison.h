// The text view on Qt and what it must show (whole_view.h), to which the same things are done by
// chance, and which are compared.
#pragma once

#include "tests/contract/qt/reference_view/random_book.h"
#include "tests/contract/qt/reference_view/random_numbers.h"
#include "tests/contract/qt/reference_view/reference_view.h"
#include "tests/contract/qt/text_view_bench.h"

#include <QImage>

class Held {
  public:
    Held(Random& random, RandomBook book); // the book is loaded
    void Step();                           // does something
    const std::string& Done() const { return done_; }

    void CheckPlace(); // quick: where the text is scrolled to, and the caret
    void CheckAll();

  private:
    QtTextView& View() { return bench_.view; }
    TextWidget& Widget() { return bench_.Widget(); }
    double Ratio() { return bench_.Widget().devicePixelRatioF(); }
    TextPos Size() const { return TextPos(whole_.setting.text.size()); }
    TextPos Somewhere() { return Below(random_, Size() + 1); }
    const WholeText& Whole() const { return whole_.Whole(); }
    int BlockTop(TextPos start) const; // of the block that starts there

    // What is done.
    enum class Change { None, CodePage, Book };
    void Load(Change change);
    void LoadPlain(bool otherCodePage);
    void LoadRich();
    void OtherBook();
    void Resize();
    void ChangeLook();
    void ChangeFont();
    void Fit();
    void Scroll();
    void Wheel();
    void Click();
    void SelectSome();
    void Press();
    void GoSideways(int key, bool control, bool extend);
    void GoVertically(int key, bool extend);
    void Follow(const WholeLine& line, int x, bool extend);

    // What is compared.
    void CheckSeenLines();
    void CheckLine(const WholeLine& line);
    void CheckCharacter(const BlockLayout& layout, int blockTop, const WholeLine& line, TextPos at);
    void CheckLinesAnywhere();
    void CheckCopy();
    bool SplitsPair(TextPos position) const;
    void CheckPaint();
    void HighlightIn(const QColor& color);
    QImage Painted(const QRect& part);
    void CheckSelection(const QImage& image, QRgb selected);
    void CheckSelectedLine(const QImage& image, QRgb selected, const WholeLine& line);
    bool IsBlankAtEnd(const WholeLine& line, TextPos at) const;

    Random& random_;
    RandomBook book_;
    Document document_;
    QtViewBench bench_;
    WholeView whole_;
    QImage screen_{1, 1, QImage::Format_Mono};
    int margin_ = 0;
    bool moved_ = false; // the caret, by a key
    std::string done_;   // the last step
};
