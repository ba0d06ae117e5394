// The port of the text view on a text pane: all but the window.
#pragma once

#include "platform/text_view.h"
#include "view/text_pane.h"

class PaneTextView : public TextView {
  public:
    void LoadPlainText(std::u16string text) override;
    void LoadText(std::shared_ptr<const TextSource> text) override;
    std::uint64_t MaxTextSize() const override;
    void LoadRichText(std::string bytes, int systemCodePage) override;
    void LoadDocument(Document document); // what LoadRichText does with the parsed document
    TextPos TextLength() const override;
    std::u16string TextRange(TextPos start, TextPos length) const override;

    void Select(TextPos start, TextPos length) override;
    TextPos SelStart() const override;
    TextPos SelLength() const override;
    bool MirrorsRightToLeft() const override { return false; }
    std::string SelectionAsRtf() const override;

    TextPos FirstVisibleChar() const override;
    LineSpan LineAround(TextPos position) const override;
    void ScrollLineToTop(TextPos position) override;
    int Percent() const override { return Pane().Percent(); }
    void ScrollToPercent(int percent) override { Pane().ScrollToPercent(percent); }
    bool ScrollDown(int pixels) override;
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
    void SetMaxLineLength(int letters) override;
    void SetUnwrapped(bool on) override;
    void SetPlaceholder(const Placeholder& placeholder) override;

    // Follows links that are clicked; without it they are text.
    void SetLinkHandler(std::function<void(const std::u16string& address)> onLink) {
        Pane().onLink = std::move(onLink);
    }
    // The address of the link that the caret is in, "" for none.
    std::u16string LinkAtCaret() const { return Pane().LinkAt(Pane().Caret()); }

    int LayoutsMade() const { return Pane().Layouts().LayoutsMade(); } // blocks laid out so far

  protected:
    virtual TextPane& Pane() const = 0;
    // What Find finds. `shouldContinue` is asked again and again and ends the search when it says
    // no.
    TextPos FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                      const std::function<bool()>& shouldContinue) const;

  private:
    void SetDocument(Document document, bool plain);
    void ResetFormatting();
    bool HasText() const { return TextLength() > 0; }
};
