// What assistive technology asks of a pane with a page. Its text is the counted one, whether it is
// displayed or not.
#pragma once

#include "common/string_text.h"
#include "view/html/page_viewport.h"
#include "view/readable_pane.h"

class ReadablePage : public ReadablePane {
  public:
    const TextSource& Source() const override;
    TextPos CharacterAtPoint(Point point) override;
    Rect CharacterRect(TextPos position) override;
    TextSpan VisibleText() override;
    std::vector<Rect> VisibleBoxes(TextSpan span) override;
    TextSpan ReadingParagraph(TextPos position) override;
    TextSpan ReadingLine(TextPos position) override;
    TextSpan StyleSpan(TextPos position) override;
    TextPos ReadingPageEnd(TextPos position) override;
    TextPos ReadingPageStart(TextPos position) override;
    CharacterFormat CharacterFormatAt(TextPos position) override;
    ParagraphFormat ParagraphFormatAt(TextPos position) override;
    bool HasStructure() const override { return true; }
    const ReadingObjects& Objects() override;
    int ObjectsVersion() const override { return objectsVersion_; }
    Rect ObjectRect(std::size_t index) override;

  protected:
    // Of the page as it is laid out for the window's present size; nothing without a page.
    virtual std::optional<PageViewport> Viewport() = 0;

    // As it is counted; null without a page. It must stay until the source is forgotten.
    virtual const std::u16string* CountedText() const = 0;

    void ForgetSource() { source_.reset(); } // before another page is shown
    void ForgetObjects();                    // when a page or its styles are other ones

  private:
    const std::u16string noText_;
    mutable std::optional<StringText> source_; // made when it is asked for first
    std::optional<ReadingObjects> objects_;    // read when they are asked for first
    int objectsVersion_ = 0;
};
