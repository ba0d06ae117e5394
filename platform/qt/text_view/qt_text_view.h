// The text view on Qt Widgets. Lays out only what is visible, so that a book of any size opens at
// once.
#pragma once

#include "platform/text_view.h"

#include <QPoint>
#include <QPointer>

class QWidget;
class TextWidget;

class QtTextView : public TextView {
  public:
    explicit QtTextView(QWidget* parent);
    ~QtTextView() override;
    QtTextView(const QtTextView&) = delete;
    QtTextView& operator=(const QtTextView&) = delete;

    QWidget* Widget() const;
    QPoint ContextMenuPoint() const; // global position of the last request
    int LayoutsMade() const;         // blocks laid out so far

    void LoadPlainText(std::u16string text) override;
    void LoadText(std::shared_ptr<const TextSource> text) override;
    std::uint64_t MaxTextSize() const override;
    void LoadRichText(std::string bytes, int systemCodePage) override;
    void LoadDocument(struct Document document); // what LoadRichText does with the parsed document
    TextPos TextLength() const override;
    std::u16string TextRange(TextPos start, TextPos length) const override;

    void Select(TextPos start, TextPos length) override;
    TextPos SelStart() const override;
    TextPos SelLength() const override;
    bool MirrorsRightToLeft() const override { return false; }
    // Runs the event loop while it searches long, although it is const: see EventPump.
    TextPos Find(std::u16string_view what, TextPos start, FindOptions options) const override;
    std::string SelectionAsRtf() const override;

    TextPos FirstVisibleChar() const override;
    LineSpan LineAround(TextPos position) const override;
    void ScrollLineToTop(TextPos position) override;
    void ScrollIntoViewHorizontally(TextPos start, TextPos length) override;

    void SetFont(const ViewFont& font) override;
    void ApplyFontToAll() override;
    bool AutoColor() const override;
    void SetAutoColor(bool on) override;
    Color TextColor() const override;
    void SetTextColor(Color color) override;
    Color BackColor() const override;
    void SetBackColor(Color color) override;
    void SetAlignment(Alignment alignment) override;
    void SetRightMargin(int twips) override;

    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void SetPointer(Pointer pointer) override;
    void FocusView() override;
    void SetName(std::u16string_view name) override;

  private:
    void ResetFormatting();
    void SetDocument(Document document, bool plain);

    QPointer<TextWidget> widget_; // null once the parent has deleted it
};
